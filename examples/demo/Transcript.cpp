#include "Transcript.h"

#include <algorithm>
#include <iomanip>
#include <ostream>
#include <sstream>

namespace demo
{

namespace
{

constexpr std::size_t kNameWidth = 26;
constexpr std::size_t kValueWidth = 27;

constexpr const char* kBold = "\033[1m";
constexpr const char* kGreen = "\033[32m";
constexpr const char* kRed = "\033[31m";
constexpr const char* kFaint = "\033[2m";
constexpr const char* kPlain = "\033[0m";

constexpr const char* kIndent = "  ";

std::string column(const std::string& text, std::size_t width)
{
    return text + std::string(std::max(width, text.size() + 1) - text.size(), ' ');
}

struct Bit
{
    int value;
    const char* meaning;
};

constexpr Bit kStatusBits[] = {{8, "not sent"}, {4, "no reply"}, {1, "refused, or another value read back"}};

std::string meaning(int status)
{
    std::string text;
    for (const Bit& bit : kStatusBits) {
        if ((status & bit.value) == 0) continue;
        text += (text.empty() ? ": " : ", ") + std::string(bit.meaning);
    }
    return text;
}

} // namespace

Transcript::Transcript(std::ostream& out, bool colours) : out_(out), colours_(colours) {}

void Transcript::title(const std::string& text)
{
    out_ << (colours_ ? kBold : "") << text << (colours_ ? kPlain : "") << std::endl;
}

void Transcript::heading(const std::string& text)
{
    out_ << '\n';
    title(text);
}

void Transcript::note(const std::string& text)
{
    out_ << kIndent << (colours_ ? kFaint : "") << text << (colours_ ? kPlain : "") << std::endl;
}

void Transcript::fact(const std::string& name, const std::string& value)
{
    out_ << kIndent << column(name, kNameWidth) << value << std::endl;
}

void Transcript::line(const std::string& text)
{
    fact("", text);
}

void Transcript::row(const std::string& text)
{
    out_ << kIndent << text << std::endl;
}

void Transcript::absent(const std::string& name, const std::string& why)
{
    fact(name, (colours_ ? kFaint : "") + why + (colours_ ? kPlain : ""));
}

void Transcript::settingColumns()
{
    note(column("setting", kNameWidth) + column("set to", kValueWidth) + column("read back", kValueWidth) + "status");
}

void Transcript::setting(const std::string& name, const std::string& wanted, const std::string& readBack, int status)
{
    count(name, status);
    fact(name, column(wanted, kValueWidth) + column(readBack, kValueWidth) + outcome(status));
}

void Transcript::operation(const std::string& name, const std::string& detail, int status)
{
    count(name, status);
    fact(name, column(detail, kValueWidth + kValueWidth) + outcome(status));
}

bool Transcript::summary()
{
    out_ << '\n';
    if (failures_ == 0) {
        title("Every operation returned 0 (" + std::to_string(operations_) + " of them).");
    } else {
        title(std::to_string(failures_) + " of " + std::to_string(operations_) + " operations failed: " + failed_ +
              ".");
    }
    return failures_ == 0;
}

std::string Transcript::outcome(int status)
{
    std::string text = std::to_string(status) + meaning(status);
    if (!colours_) return text;
    return (status == 0 ? kGreen : kRed) + text + kPlain;
}

void Transcript::count(const std::string& name, int status)
{
    ++operations_;
    if (status == 0) return;
    ++failures_;
    failed_ += (failed_.empty() ? "" : ", ") + name;
}

std::string measured(double value, int digits, const std::string& unit)
{
    std::ostringstream text;
    text << std::fixed << std::setprecision(digits) << value << ' ' << unit;
    return text.str();
}

} // namespace demo

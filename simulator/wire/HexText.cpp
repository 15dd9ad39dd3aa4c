#include "simulator/wire/HexText.h"

#include <cctype>
#include <stdexcept>

namespace ubxsim
{

namespace
{

constexpr char kDigits[] = "0123456789ABCDEF";

std::uint8_t digitValue(char character, const std::string& text)
{
    const std::string digits = kDigits;
    const auto value = digits.find(static_cast<char>(std::toupper(static_cast<unsigned char>(character))));
    if (value == std::string::npos) {
        throw std::invalid_argument("\"" + text + R"(" is no row of hexadecimal bytes, such as "B5 62 0A 04")");
    }
    return static_cast<std::uint8_t>(value);
}

} // namespace

std::string hexText(const Bytes& bytes)
{
    std::string text;
    for (const std::uint8_t value : bytes) {
        text += text.empty() ? "" : " ";
        text += kDigits[value >> 4];
        text += kDigits[value & 0x0F];
    }
    return text;
}

Bytes bytesFromHex(const std::string& text)
{
    Bytes bytes;
    for (std::size_t i = 0; i < text.size();) {
        if (std::isspace(static_cast<unsigned char>(text[i])) != 0) {
            ++i;
            continue;
        }
        const char low = i + 1 < text.size() ? text[i + 1] : ' ';
        bytes.push_back(static_cast<std::uint8_t>(digitValue(text[i], text) << 4 | digitValue(low, text)));
        i += 2;
    }
    return bytes;
}

} // namespace ubxsim

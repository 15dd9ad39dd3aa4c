#include "output/Report.h"

#include <algorithm>
#include <locale>
#include <sstream>

namespace ubxctl
{

namespace
{

constexpr std::size_t kGap = 2;

/// What a text takes on the screen: bytes that continue a UTF-8 character take nothing.
std::size_t widthOf(const std::string& text)
{
    constexpr unsigned char kContinuationMask = 0xC0;
    constexpr unsigned char kContinuation = 0x80;
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char character) {
        return (static_cast<unsigned char>(character) & kContinuationMask) != kContinuation;
    }));
}

std::string blanks(std::size_t count)
{
    return std::string(count, ' ');
}

const char* colourOf(Tone tone)
{
    switch (tone) {
    case Tone::good:
        return "\x1b[32m";
    case Tone::attention:
        return "\x1b[33m";
    case Tone::bad:
        return "\x1b[31m";
    case Tone::dim:
        return "\x1b[2m";
    case Tone::plain:
        break;
    }
    return "";
}

std::string withoutTrailingBlanks(std::string line)
{
    line.erase(line.find_last_not_of(' ') + 1);
    return line;
}

} // namespace

std::string fixedPoint(double value, int decimals)
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text.setf(std::ios::fixed);
    text.precision(decimals);
    text << value;
    return text.str();
}

std::string coloured(const Cell& cell, bool colours)
{
    if (!colours || cell.tone == Tone::plain || cell.text.empty()) return cell.text;
    return colourOf(cell.tone) + cell.text + "\x1b[0m";
}

std::string alignedTable(const std::vector<Column>& columns, const std::vector<std::vector<Cell>>& rows, bool colours)
{
    std::vector<std::size_t> widths(columns.size());
    std::vector<Cell> headings;
    for (std::size_t column = 0; column < columns.size(); ++column) {
        headings.emplace_back(columns[column].heading, Tone::dim);
        widths[column] = widthOf(columns[column].heading);
        for (const auto& row : rows)
            widths[column] = std::max(widths[column], widthOf(row.at(column).text));
    }

    const auto rendered = [&](const std::vector<Cell>& row) {
        std::string line;
        for (std::size_t column = 0; column < columns.size(); ++column) {
            const std::string padding = blanks(widths[column] - widthOf(row[column].text));
            const std::string shown = coloured(row[column], colours);
            line += columns[column].align == Align::right ? padding + shown : shown + padding;
            line += blanks(kGap);
        }
        return withoutTrailingBlanks(line) + "\n";
    };

    std::string text;
    const bool headed = std::any_of(columns.begin(), columns.end(), [](const Column& c) { return !c.heading.empty(); });
    if (headed) text += rendered(headings);
    for (const auto& row : rows)
        text += rendered(row);
    return text;
}

Report::Report(std::string command) : command_(std::move(command)), json_(Json::object()) {}

void Report::text(const std::string& label, const std::string& key, const std::string& value, Tone tone)
{
    fact(label, key, value, Cell(value, tone));
}

void Report::flag(const std::string& label, const std::string& key, bool value, const char* yes, const char* no)
{
    fact(label, key, value, value ? yes : no);
}

void Report::whole(const std::string& label, const std::string& key, long long value, const std::string& unit)
{
    json_[key] = value;
    parts_.emplace_back(Field{label, std::to_string(value), unit});
}

void Report::number(const std::string& label, const std::string& key, double value, int decimals,
                    const std::string& unit)
{
    json_[key] = Json::parse(fixedPoint(value, decimals)); // as many digits as are meant
    parts_.emplace_back(Field{label, fixedPoint(value, decimals), unit});
}

void Report::missing(const std::string& label, const std::string& key, const std::string& why)
{
    fact(label, key, nullptr, Cell(why, Tone::attention));
}

void Report::fact(const std::string& label, const std::string& key, Json value, const Cell& shown)
{
    json_[key] = std::move(value);
    parts_.emplace_back(Field{label, shown, {}});
}

void Report::table(const std::string& key, std::vector<Column> columns, std::vector<std::vector<Cell>> rows,
                   Json objects)
{
    json_[key] = std::move(objects);
    parts_.emplace_back(Table{std::move(columns), std::move(rows)});
}

void Report::heading(const std::string& line)
{
    parts_.emplace_back(Cell(line, Tone::dim));
}

void Report::line(const Cell& line)
{
    parts_.emplace_back(line);
}

void Report::data(const std::string& key, Json value)
{
    json_[key] = std::move(value);
}

std::string Report::asJson(int status) const
{
    Json object;
    object["command"] = command_;
    object["status"] = status;
    object.update(json_);
    return object.dump(2, ' ', false, Json::error_handler_t::replace) + "\n";
}

std::string Report::asText(bool colours) const
{
    std::size_t widest = 0;
    for (const Part& part : parts_) {
        if (const auto* field = std::get_if<Field>(&part)) widest = std::max(widest, widthOf(field->label));
    }

    std::string text;
    for (const Part& part : parts_) {
        if (const auto* field = std::get_if<Field>(&part)) {
            const std::string unit = field->unit.empty() ? "" : " " + field->unit;
            text += withoutTrailingBlanks(field->label + blanks(widest - widthOf(field->label) + kGap) +
                                          coloured(field->value, colours) + unit) +
                    "\n";
        } else if (const auto* table = std::get_if<Table>(&part)) {
            text += alignedTable(table->columns, table->rows, colours);
        } else {
            text += coloured(std::get<Cell>(part), colours) + "\n";
        }
    }
    return text;
}

} // namespace ubxctl

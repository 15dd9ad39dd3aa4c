#include "commands/SatelliteList.h"

#include <sstream>

#include "settings/Quantity.h"

namespace ubxctl
{

namespace
{

constexpr std::size_t kColumns = 5;

std::vector<std::string> columnsOf(const std::string& line)
{
    std::istringstream stream(line);
    std::vector<std::string> columns;
    for (std::string column; std::getline(stream, column, '\t');)
        columns.emplace_back(trimmed(column));
    columns.resize(kColumns);
    return columns;
}

Tone toneOf(long signal)
{
    constexpr long kStrong = 38, kWeak = 25;
    return signal >= kStrong ? Tone::good : signal >= kWeak ? Tone::plain : Tone::dim;
}

} // namespace

void addSatelliteTable(Report& report, const std::string& lines)
{
    std::vector<std::vector<Cell>> rows;
    Json objects = Json::array();
    std::istringstream stream(lines);
    for (std::string line; std::getline(stream, line);) {
        const std::vector<std::string> columns = columnsOf(line);
        const long number = parseWhole(columns[0]).value_or(0);
        const bool used = columns[2] == "Used";
        const long quality = parseWhole(columns[3]).value_or(0);
        const long signal = parseWhole(columns[4]).value_or(0);
        rows.push_back({columns[1],
                        columns[0],
                        {used ? "yes" : "no", used ? Tone::good : Tone::dim},
                        columns[3],
                        Cell(columns[4], toneOf(signal))});
        objects.push_back(
            {{"system", columns[1]}, {"number", number}, {"used", used}, {"quality", quality}, {"cno_dbhz", signal}});
    }
    if (rows.empty()) {
        report.line(Cell("No satellite is tracked.", Tone::attention));
        report.data("satellites", objects);
        return;
    }
    report.table(
        "satellites",
        {{"SYSTEM"}, {"NUMBER", Align::right}, {"USED"}, {"QUALITY", Align::right}, {"C/N0 dBHz", Align::right}},
        std::move(rows), std::move(objects));
}

} // namespace ubxctl

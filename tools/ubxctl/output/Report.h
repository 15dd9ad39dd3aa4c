#pragma once

#include <string>
#include <variant>
#include <vector>

#include <nlohmann/json.hpp>

namespace ubxctl
{

using Json = nlohmann::ordered_json;

/// How a text is meant; a terminal shows it as a colour.
enum class Tone
{
    plain,
    good,
    attention,
    bad,
    dim
};

struct Cell
{
    Cell(std::string content = {}, Tone meaning = Tone::plain) : text(std::move(content)), tone(meaning) {}
    Cell(const char* content) : text(content) {}

    std::string text;
    Tone tone = Tone::plain;
};

enum class Align
{
    left,
    right
};

struct Column
{
    std::string heading;
    Align align = Align::left;
};

/// What a command has to say, once: shown to people as aligned text, to programs as one JSON object.
///
/// Every fact has a label for people and a key for programs. Numbers stay numbers, and their key ends in the unit.
class Report
{
public:
    explicit Report(std::string command);

    void text(const std::string& label, const std::string& key, const std::string& value, Tone tone = Tone::plain);
    void flag(const std::string& label, const std::string& key, bool value, const char* yes = "yes",
              const char* no = "no");
    void whole(const std::string& label, const std::string& key, long long value, const std::string& unit = {});
    void number(const std::string& label, const std::string& key, double value, int decimals,
                const std::string& unit = {});
    /// A fact that could not be had: null for programs.
    void missing(const std::string& label, const std::string& key, const std::string& why);
    /// A fact whose two forms are made elsewhere.
    void fact(const std::string& label, const std::string& key, Json value, const Cell& shown);

    /// @param rows  as many cells each as there are columns.
    void table(const std::string& key, std::vector<Column> columns, std::vector<std::vector<Cell>> rows, Json objects);

    /// For people only.
    void heading(const std::string& line);
    void line(const Cell& line);
    /// For programs only.
    void data(const std::string& key, Json value);

    /// @param status  becomes the member "status".
    std::string asJson(int status) const;
    std::string asText(bool colours) const;

private:
    struct Field
    {
        std::string label;
        Cell value;
        std::string unit;
    };
    struct Table
    {
        std::vector<Column> columns;
        std::vector<std::vector<Cell>> rows;
    };
    using Part = std::variant<Field, Table, Cell>;

    std::string command_;
    Json json_;
    std::vector<Part> parts_;
};

/// A number with so many digits behind the point, whatever the locale.
std::string fixedPoint(double value, int decimals);

/// The text in its colour.
std::string coloured(const Cell& cell, bool colours);

/// Rows and columns, aligned; the headings first unless all are empty. How much is printed is the widest cell's affair.
std::string alignedTable(const std::vector<Column>& columns, const std::vector<std::vector<Cell>>& rows, bool colours);

} // namespace ubxctl

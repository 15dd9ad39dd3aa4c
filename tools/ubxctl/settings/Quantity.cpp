#include "settings/Quantity.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <initializer_list>
#include <utility>

#include "output/Report.h"

namespace ubxctl
{

namespace
{

struct Unit
{
    std::string_view name;
    double factor;
};

constexpr Unit kTimes[] = {{"", 1}, {"s", 1}, {"min", 60}, {"m", 60}, {"h", 3600}, {"d", 86400}};
constexpr Unit kLengths[] = {{"", 1}, {"m", 1}, {"cm", 0.01}, {"mm", 0.001}};

template <std::size_t Count>
std::optional<double> parseWithUnit(std::string_view text, const Unit (&units)[Count])
{
    std::size_t split = text.size();
    while (split > 0 && text[split - 1] >= 'a' && text[split - 1] <= 'z')
        --split;
    const std::string_view unit = text.substr(split);
    const auto number = parseNumber(trimmed(text.substr(0, split)));
    for (const Unit& known : units) {
        if (known.name == unit && number.has_value()) return *number * known.factor;
    }
    return std::nullopt;
}

/// A plus before a digit or a point only: "+-5" is no number.
std::string_view withoutPlus(std::string_view text)
{
    return text.size() > 1 && text[0] == '+' && text[1] != '-' ? text.substr(1) : text;
}

template <typename Change>
std::string changed(std::string text, Change change)
{
    std::transform(text.begin(), text.end(), text.begin(), change);
    return text;
}

} // namespace

std::optional<long> parseWhole(std::string_view text)
{
    text = withoutPlus(text);
    long value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
    return value;
}

std::optional<double> parseNumber(std::string_view text)
{
    text = withoutPlus(text);
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed);
    if (error != std::errc() || end != text.data() + text.size() || !std::isfinite(value)) return std::nullopt;
    return value;
}

std::optional<double> parseDuration(std::string_view text)
{
    return parseWithUnit(text, kTimes);
}

std::optional<double> parseLength(std::string_view text)
{
    return parseWithUnit(text, kLengths);
}

std::string shortNumber(double value, int decimals)
{
    std::string text = fixedPoint(value, decimals);
    if (decimals > 0) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.back() == '.') text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

std::string clockTime(double seconds)
{
    const long whole = std::lround(std::max(0.0, seconds));
    char text[40];
    std::snprintf(text, sizeof text, "%ld:%02ld:%02ld", whole / 3600, whole / 60 % 60, whole % 60);
    return text;
}

std::string upperCase(std::string text)
{
    return changed(std::move(text), [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
}

std::string lowerCase(std::string text)
{
    return changed(std::move(text), [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
}

std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t first = text.find_first_not_of(kBlanks);
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

} // namespace ubxctl

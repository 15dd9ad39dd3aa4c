#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace ubxctl
{

/// A whole decimal number and nothing else.
std::optional<long> parseWhole(std::string_view text);

/// A decimal number and nothing else; no infinity, no NaN.
std::optional<double> parseNumber(std::string_view text);

/// Seconds from "10800", "10800s", "180min" (or "180m"), "3h" or "1d".
std::optional<double> parseDuration(std::string_view text);

/// Metres from "1", "1m", "50cm" or "20mm".
std::optional<double> parseLength(std::string_view text);

/// As few digits as say the same to the last of `decimals`: "1", "0.05".
std::string shortNumber(double value, int decimals);

/// "2:59:30", hours first.
std::string clockTime(double seconds);

std::string upperCase(std::string text);
std::string lowerCase(std::string text);

/// Without blanks before and after.
std::string_view trimmed(std::string_view text);

} // namespace ubxctl

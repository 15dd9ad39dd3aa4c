#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "settings/Setting.h"

namespace ubxctl
{

/// A line of a file of settings.
struct WantedSetting
{
    const Setting* setting;
    Value value;
    int line;
};

/// Reads "key = value" lines; "#" begins a comment. In the order of the table of settings, not of the file.
/// @param name  of the file, for what is said about it.
/// @throws Failure 64 that names the line, for an unknown or repeated key and a value that can't be taken.
std::vector<WantedSetting> parseStateFile(std::string_view text, const std::string& name);

/// The whole file; "-" is standard input. @throws Failure
std::string readStateFile(const std::string& path);

} // namespace ubxctl

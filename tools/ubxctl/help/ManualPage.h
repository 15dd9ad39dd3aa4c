#pragma once

#include <string>

namespace CLI
{
class App;
}

namespace ubxctl
{

/// The manual page (troff) from the descriptions that --help shows.
std::string manualPage(const CLI::App& app, const std::string& version);

} // namespace ubxctl

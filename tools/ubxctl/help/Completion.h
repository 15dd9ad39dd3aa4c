#pragma once

#include <string>

namespace CLI
{
class App;
}

namespace ubxctl
{

/// A completion script for bash: every command, its options, and the words that its arguments take.
std::string bashCompletion(const CLI::App& app);

} // namespace ubxctl

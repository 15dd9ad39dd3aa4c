#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace ubxctl
{

/// The error logs of the library. A command that could not be written shows only there.
class ErrorLogs
{
public:
    /// Notes where the logs end now.
    ErrorLogs();

    /// The lines that have come since then or since the last call.
    std::vector<std::string> newLines();

    static const std::vector<std::filesystem::path>& paths();

private:
    std::vector<std::uintmax_t> sizes_;
};

} // namespace ubxctl

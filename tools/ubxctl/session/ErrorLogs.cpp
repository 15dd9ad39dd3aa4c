#include "session/ErrorLogs.h"

#include <fstream>

namespace fs = std::filesystem;

namespace ubxctl
{

namespace
{

std::uintmax_t sizeOf(const fs::path& file)
{
    std::error_code notThere;
    const std::uintmax_t size = fs::file_size(file, notThere);
    return notThere ? 0 : size;
}

} // namespace

const std::vector<fs::path>& ErrorLogs::paths()
{
    static const std::vector<fs::path> logs = {"/var/log/rxtool-errors.log", "/var/log/rxtool-neom8t-errors.log",
                                               "/var/log/rxtool-zedf9t-errors.log"};
    return logs;
}

ErrorLogs::ErrorLogs()
{
    for (const fs::path& log : paths())
        sizes_.push_back(sizeOf(log));
}

std::vector<std::string> ErrorLogs::newLines()
{
    std::vector<std::string> lines;
    for (std::size_t i = 0; i < sizes_.size(); ++i) {
        const std::uintmax_t size = sizeOf(paths()[i]);
        if (size > sizes_[i]) {
            std::ifstream log(paths()[i], std::ios::binary);
            log.seekg(static_cast<std::streamoff>(sizes_[i]));
            for (std::string line; std::getline(log, line);)
                lines.push_back(line);
        }
        sizes_[i] = size; // a smaller one has been rotated
    }
    return lines;
}

} // namespace ubxctl

#pragma once

#include <fstream>
#include <string>

namespace ubx
{

/// One controller's error log: time-stamped lines appended to a file, each written at once.
///
/// A file that can't be opened is no error: its lines are lost.
class ErrorLog
{
public:
    explicit ErrorLog(const char* path);

    /// @param timeStamp  as timeStamp() gives it; a blank follows it.
    void write(const std::string& timeStamp, const std::string& text);

    void close();

private:
    std::ofstream file_;
};

} // namespace ubx

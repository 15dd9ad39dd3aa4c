#pragma once

#include <stdexcept>
#include <string>

namespace ubxctl
{

/// How ubxctl ends. The first four combine as the library's status does.
inline constexpr int kDone = 0;
inline constexpr int kRefused = 1;
inline constexpr int kNoReply = 4;
inline constexpr int kNotWritten = 8;
inline constexpr int kUsage = 64;
inline constexpr int kFile = 74;   ///< A file could not be read or written.
inline constexpr int kDevice = 69; ///< The device is missing or busy.
inline constexpr int kInterrupted = 130;

/// What ends a command at once: one line that says what happened and what to try next.
class Failure : public std::runtime_error
{
public:
    Failure(int exitCode, const std::string& line) : std::runtime_error(line), exitCode_(exitCode) {}
    int exitCode() const { return exitCode_; }

private:
    int exitCode_;
};

/// Another command or program uses the receiver.
class Busy : public Failure
{
public:
    explicit Busy(const std::string& line) : Failure(kDevice, line) {}
};

} // namespace ubxctl

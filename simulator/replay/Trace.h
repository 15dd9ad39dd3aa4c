#pragma once

#include "simulator/wire/Frame.h"

#include <chrono>
#include <fstream>
#include <string>

namespace ubxsim
{

/// A trace file is text, one line per frame or sentence:
///
///     0.001234 > CFG-NAVX5 B5 62 06 23 00 00 29 81
///     0.110020 < NMEA $GNRMC,...*47
///     0.200000 < RAW 00 FF
///
/// Seconds since the start, then '>' for bytes to the receiver and '<' for bytes from it.
inline constexpr const char* kTraceHeading = "# ubxsim trace 1";

enum class TraceDirection : char
{
    toReceiver = '>',
    fromReceiver = '<'
};

struct TraceEntry
{
    std::chrono::microseconds time{0};
    TraceDirection direction = TraceDirection::fromReceiver;
    Bytes bytes;
};

class TraceWriter
{
public:
    /// Throws std::runtime_error when the file can't be written.
    explicit TraceWriter(const std::string& path);

    void write(const TraceEntry& entry);

private:
    std::ofstream file_;
};

/// Reads one line; throws std::invalid_argument for one that is no trace line.
TraceEntry parseTraceLine(const std::string& line);

} // namespace ubxsim

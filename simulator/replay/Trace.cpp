#include "simulator/replay/Trace.h"

#include "simulator/wire/HexText.h"
#include "simulator/wire/MessageNames.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <sstream>
#include <stdexcept>

namespace ubxsim
{

namespace
{

constexpr const char* kSentence = "NMEA";
constexpr const char* kRaw = "RAW";

bool isFrame(const Bytes& bytes)
{
    return bytes.size() >= kFrameOverhead && bytes[0] == 0xB5 && bytes[1] == 0x62;
}

bool isSentence(const Bytes& bytes)
{
    if (bytes.size() < 3 || bytes.front() != '$' || bytes[bytes.size() - 2] != '\r' || bytes.back() != '\n') {
        return false;
    }
    for (std::size_t i = 0; i + 2 < bytes.size(); ++i) {
        if (bytes[i] < ' ' || bytes[i] > '~') {
            return false;
        }
    }
    return true;
}

std::string contentOf(const Bytes& bytes)
{
    if (isSentence(bytes)) {
        return std::string(kSentence) + " " + std::string(bytes.begin(), bytes.end() - 2);
    }
    if (isFrame(bytes)) {
        return messageName(static_cast<std::uint16_t>(bytes[2] << 8 | bytes[3])) + " " + hexText(bytes);
    }
    return std::string(kRaw) + " " + hexText(bytes);
}

} // namespace

TraceWriter::TraceWriter(const std::string& path) : file_(path, std::ios::trunc)
{
    if (!file_) {
        throw std::runtime_error("cannot write the trace file " + path);
    }
    file_ << kTraceHeading << std::endl;
}

void TraceWriter::write(const TraceEntry& entry)
{
    std::array<char, 32> time{};
    std::snprintf(time.data(), time.size(), "%.6f", static_cast<double>(entry.time.count()) / 1e6);
    // Line by line, so that the file tells everything up to a crash.
    file_ << time.data() << ' ' << static_cast<char>(entry.direction) << ' ' << contentOf(entry.bytes) << std::endl;
}

TraceEntry parseTraceLine(const std::string& line)
{
    std::istringstream words(line);
    double seconds = 0;
    char direction = 0;
    std::string name;
    if (!(words >> seconds >> direction >> name) || (direction != '>' && direction != '<') || !(seconds >= 0) ||
        seconds > 1e9) {
        throw std::invalid_argument("no line of a trace: " + line);
    }
    std::string rest;
    std::getline(words >> std::ws, rest);
    TraceEntry entry;
    entry.time = std::chrono::microseconds(std::llround(seconds * 1e6));
    entry.direction = static_cast<TraceDirection>(direction);
    if (name == kSentence) {
        rest += "\r\n";
        entry.bytes.assign(rest.begin(), rest.end());
    } else {
        entry.bytes = bytesFromHex(rest);
    }
    return entry;
}

} // namespace ubxsim

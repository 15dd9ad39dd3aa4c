#include "simulator/replay/Recording.h"

#include "simulator/replay/Trace.h"
#include "simulator/wire/LittleEndian.h"

#include <algorithm>
#include <fstream>
#include <iterator>
#include <sstream>
#include <stdexcept>

namespace ubxsim
{

using std::chrono::microseconds;
using std::chrono::seconds;

namespace
{

constexpr std::uint8_t kNavigationClass = 0x01;
constexpr std::uint16_t kNavPosEcef = 0x0101;
constexpr std::uint16_t kCfgValGet = 0x068B;

// A whole good frame at this place.
std::optional<Frame> frameAt(const Bytes& bytes, std::size_t at)
{
    if (bytes.size() - at < kFrameOverhead || bytes[at] != 0xB5 || bytes[at + 1] != 0x62) {
        return std::nullopt;
    }
    const std::size_t size = getBytes(bytes, at + 4, 2);
    if (bytes.size() - at < size + kFrameOverhead) {
        return std::nullopt;
    }
    const auto payload = bytes.begin() + static_cast<std::ptrdiff_t>(at + 6);
    Frame found;
    found.classId = static_cast<std::uint16_t>(bytes[at + 2] << 8 | bytes[at + 3]);
    found.payload.assign(payload, payload + static_cast<std::ptrdiff_t>(size));
    const Bytes whole = frame(found.classId, found.payload);
    return std::equal(whole.begin(), whole.end(), payload - 6) ? std::optional(found) : std::nullopt;
}

// Navigation messages begin with the time of week; those of them that have a version first do not.
std::optional<std::uint32_t> timeOfWeek(const Frame& frame)
{
    constexpr std::uint16_t kVersionFirst[] = {0x013B, 0x013C, 0x0142};
    const bool other =
        std::find(std::begin(kVersionFirst), std::end(kVersionFirst), frame.classId) != std::end(kVersionFirst);
    const bool navigation = frame.classId >> 8 == kNavigationClass && frame.classId >= kNavPosEcef;
    return navigation && !other && frame.payload.size() >= 4 ? std::optional(get<std::uint32_t>(frame.payload, 0))
                                                             : std::nullopt;
}

// The time field of a sentence that begins at this place: "193334.00" of "$GNRMC,193334.00,".
std::optional<std::string> sentenceTime(const Bytes& bytes, std::size_t at)
{
    constexpr std::size_t kStart = 7; // "$GNRMC,"
    const std::size_t end = std::min(bytes.size(), at + 32);
    const std::string text(bytes.begin() + static_cast<std::ptrdiff_t>(at),
                           bytes.begin() + static_cast<std::ptrdiff_t>(end));
    if (text.size() <= kStart || text[0] != '$' ||
        (text.compare(3, 4, "RMC,") != 0 && text.compare(3, 4, "GGA,") != 0)) {
        return std::nullopt;
    }
    const std::string time = text.substr(kStart, text.find(',', kStart) - kStart);
    return time.empty() ? std::nullopt : std::optional(time);
}

// The places where a new epoch begins.
std::vector<std::size_t> cutsAtTimeOfWeek(const Bytes& bytes)
{
    std::vector<std::size_t> cuts;
    std::optional<std::uint32_t> present;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto found = frameAt(bytes, at);
        const auto time = found ? timeOfWeek(*found) : std::nullopt;
        if (time && present && *time != *present) {
            cuts.push_back(at);
        }
        present = time ? time : present;
        at += found ? found->payload.size() + kFrameOverhead : 1;
    }
    return cuts;
}

std::vector<std::size_t> cutsAtSentenceTime(const Bytes& bytes)
{
    std::vector<std::size_t> cuts;
    std::optional<std::string> present;
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        const auto time = bytes[at] == '$' ? sentenceTime(bytes, at) : std::nullopt;
        if (time && present && *time != *present) {
            cuts.push_back(at);
        }
        present = time ? time : present;
    }
    return cuts;
}

} // namespace

Recording Recording::fromFile(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file) {
        throw std::runtime_error("cannot read the recording " + path);
    }
    const std::string content((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
    const bool isTrace = content.compare(0, std::string(kTraceHeading).size(), kTraceHeading) == 0;
    Recording recording = isTrace ? fromTrace(content) : fromBytes(Bytes(content.begin(), content.end()));
    if (recording.chunks_.empty()) {
        throw std::runtime_error("the recording " + path + " holds nothing from a receiver");
    }
    return recording;
}

Recording Recording::fromBytes(const Bytes& bytes)
{
    std::vector<std::size_t> cuts = cutsAtTimeOfWeek(bytes);
    if (cuts.empty()) {
        cuts = cutsAtSentenceTime(bytes);
    }
    cuts.push_back(bytes.size());
    Recording recording;
    std::size_t begin = 0;
    for (const std::size_t end : cuts) {
        if (end > begin) {
            Chunk chunk;
            chunk.time = seconds(recording.chunks_.size());
            chunk.bytes.assign(bytes.begin() + static_cast<std::ptrdiff_t>(begin),
                               bytes.begin() + static_cast<std::ptrdiff_t>(end));
            recording.chunks_.push_back(std::move(chunk));
            begin = end;
        }
    }
    recording.duration_ = seconds(recording.chunks_.size());
    recording.indexFrames();
    return recording;
}

Recording Recording::fromTrace(const std::string& text)
{
    Recording recording;
    std::istringstream lines(text);
    std::string line;
    while (std::getline(lines, line)) {
        if (line.empty() || line.front() == '#') {
            continue;
        }
        TraceEntry entry = parseTraceLine(line);
        if (entry.direction == TraceDirection::fromReceiver) {
            recording.chunks_.push_back({entry.time, std::move(entry.bytes)});
        }
    }
    std::stable_sort(recording.chunks_.begin(), recording.chunks_.end(),
                     [](const Chunk& a, const Chunk& b) { return a.time < b.time; });
    recording.duration_ = recording.chunks_.empty() ? microseconds(0) : recording.chunks_.back().time + seconds(1);
    recording.indexFrames();
    return recording;
}

void Recording::indexFrames()
{
    Bytes all;
    for (const Chunk& chunk : chunks_) {
        all.insert(all.end(), chunk.bytes.begin(), chunk.bytes.end());
    }
    for (std::size_t at = 0; at < all.size();) {
        auto found = frameAt(all, at);
        at += found ? found->payload.size() + kFrameOverhead : 1;
        // A recording of both directions holds the requests too.
        const bool request =
            found && (found->payload.empty() || (found->classId == kCfgValGet && found->payload.front() == 0));
        if (found && !request) {
            frames_.push_back(std::move(*found));
        }
    }
}

std::optional<Frame> Recording::nextFrame(std::uint16_t classId)
{
    std::size_t& position = positions_[classId];
    for (std::size_t step = 0; step < frames_.size(); ++step) {
        const std::size_t candidate = (position + step) % frames_.size();
        if (frames_[candidate].classId == classId) {
            position = candidate + 1;
            return frames_[candidate];
        }
    }
    return std::nullopt;
}

} // namespace ubxsim

#include "bench/parsing/ParsingBench.h"

#include <algorithm>
#include <memory>

#include <UBXMessageBuilder.h>

#include "bench/parsing/Floors.h"
#include "bench/streams/Streams.h"
#include "bench/table/Clock.h"

namespace bench
{

namespace
{

constexpr const char* kSpeed = "MB/s";
constexpr const char* kPerFrame = "ns per frame";
constexpr const char* kPerByte = "ps per byte";

using SharedStream = std::shared_ptr<Stream>;

// A large request makes the allocator join the small blocks that were freed. So it hands out one block behind the other
// again, as it does in a new process, whoever ran before.
void tidyHeap()
{
    constexpr std::size_t kLarge = std::size_t{1} << 20;
    benchmark::DoNotOptimize(std::make_unique<char[]>(kLarge));
}

void setResults(benchmark::State& state, double seconds, std::size_t bytes, std::size_t frames)
{
    state.counters[kSpeed] = static_cast<double>(bytes) / seconds / 1e6;
    state.counters[kPerByte] = seconds / static_cast<double>(bytes) * 1e12;
    if (frames != 0) state.counters[kPerFrame] = seconds / static_cast<double>(frames) * 1e9;
}

void parseWhole(benchmark::State& state, Stream& stream)
{
    tidyHeap();
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    const ProcessorTime watch;
    builder.update(stream.bytes.data(), stream.bytes.size());
    setResults(state, watch.seconds(), stream.bytes.size(), builder.getGoodMessageCount());
    // In a damaged stream a wrong length takes other frames with it.
    const bool damaged = builder.getErroredMessageCount() != 0;
    if (!damaged && builder.getGoodMessageCount() != stream.frames.size()) state.SkipWithError("frames are missing");
}

void takeFrames(benchmark::State& state, const Stream& stream)
{
    tidyHeap();
    FramesTakenOut messages(stream.frames.size());
    const FramePlace* const first = stream.frames.data();
    const ProcessorTime watch;
    const std::size_t good = messages.take(stream.bytes.data(), first, first + stream.frames.size());
    setResults(state, watch.seconds(), stream.bytes.size(), good);
    if (good != stream.frames.size()) state.SkipWithError("frames with a wrong checksum");
}

void searchSyncChars(benchmark::State& state, const Stream& stream)
{
    const ProcessorTime watch;
    benchmark::DoNotOptimize(countFirstSyncChars(stream.bytes.data(), stream.bytes.size()));
    setResults(state, watch.seconds(), stream.bytes.size(), 0);
}

// Messages are deleted after every piece, in the time that counts.
void parsePieces(benchmark::State& state, Stream& stream, std::size_t pieceSize)
{
    tidyHeap();
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    const ProcessorTime watch;
    for (std::size_t start = 0; start < stream.bytes.size(); start += pieceSize) {
        builder.update(stream.bytes.data() + start, std::min(pieceSize, stream.bytes.size() - start));
        list.Empty();
    }
    setResults(state, watch.seconds(), stream.bytes.size(), 0);
}

void takePieces(benchmark::State& state, const Stream& stream, std::size_t pieceSize)
{
    tidyHeap();
    FramesTakenOut messages(stream.frames.size());
    const FramePlace* place = stream.frames.data();
    const FramePlace* const last = place + stream.frames.size();
    const ProcessorTime watch;
    for (std::size_t start = 0; start < stream.bytes.size(); start += pieceSize) {
        // Those that begin in one piece and end in the next are lost to both.
        while (place != last && place->start < start)
            ++place;
        const FramePlace* end = place;
        while (end != last && end->start + end->length < start + pieceSize)
            ++end;
        messages.take(stream.bytes.data(), place, end);
        place = end;
        messages.clear();
    }
    setResults(state, watch.seconds(), stream.bytes.size(), 0);
}

void parseIntoFullList(benchmark::State& state, Stream& stream, std::size_t messages)
{
    tidyHeap();
    UBXMessageList list;
    for (std::size_t i = 0; i < messages; ++i)
        list.AddMessage(new UBXMessage(UBX_NAV_POSLLH, 28, nullptr));
    UBXMessageBuilder builder(&list);
    const ProcessorTime watch;
    builder.update(stream.bytes.data(), stream.bytes.size());
    setResults(state, watch.seconds(), stream.bytes.size(), stream.frames.size());
}

std::string sizeName(std::size_t bytes)
{
    return bytes >= 1 << 20 ? std::to_string(bytes >> 20) + " MiB" : std::to_string(bytes >> 10) + " KiB";
}

std::vector<Line> wholeStreams(const Effort& effort)
{
    const int rounds = effort.rounds;
    const auto add = [&](const std::string& name, Stream stream, auto floor) {
        const auto shared = std::make_shared<Stream>(std::move(stream));
        measure(name, rounds, [=](benchmark::State& state) { parseWhole(state, *shared); });
        measure(name + " floor", rounds, [=](benchmark::State& state) { floor(state, *shared); });
    };
    const std::size_t size = effort.streamSize;
    add("mixed", mixedStream(size), takeFrames);
    add("ubx", ubxStream(size), takeFrames);
    add("nmea", nmeaStream(size), searchSyncChars);
    add("false syncs", falseSyncStream(size), searchSyncChars);
    add("damaged", damagedStream(size), takeFrames);

    const std::string section = "Parsing " + sizeName(size) + " at once";
    return {
        {section, "(a) NMEA and UBX", "mixed", "mixed floor", kSpeed, Goal::atLeast, 0.5},
        {section, "(a)", "mixed", "mixed floor", kPerFrame},
        {section, "(b) UBX", "ubx", "ubx floor", kSpeed, Goal::atLeast, 0.7},
        {section, "(b)", "ubx", "ubx floor", kPerFrame},
        {section, "(c) NMEA; floor: memchr", "nmea", "nmea floor", kSpeed, Goal::atLeast, 0.85},
        {section, "(d) false sync pairs; floor: memchr", "false syncs", "false syncs floor", kSpeed},
        {section, "(e) 2 % damaged; floor: that of (b)", "damaged", "ubx floor", kSpeed},
        {section, "(e) against (b)", "damaged", "ubx", kSpeed, Goal::atLeast, 0.8},
    };
}

std::vector<Line> pieces(const Effort& effort)
{
    const auto mixed = std::make_shared<Stream>(mixedStream(effort.streamSize));
    const auto falseSyncs = std::make_shared<Stream>(falseSyncStream(effort.streamSize));
    const std::string whole = sizeName(effort.streamSize);
    const std::string section = "Parsing in pieces, messages deleted after each";
    std::vector<Line> lines;
    for (const std::size_t size :
         {std::size_t{1} << 10, std::size_t{1} << 15, std::size_t{1} << 20, effort.streamSize}) {
        const std::string piece = sizeName(size);
        measure("mixed " + piece, effort.rounds, [=](benchmark::State& state) { parsePieces(state, *mixed, size); });
        measure("mixed floor " + piece, effort.rounds,
                [=](benchmark::State& state) { takePieces(state, *mixed, size); });
        lines.push_back({section, "(a) in pieces of " + piece, "mixed " + piece, "mixed floor " + piece, kPerByte,
                         Goal::atMost, 2});
    }
    // In shorter pieces what claims to be a frame seldom fits, and nothing is skipped: not the same work.
    for (const std::size_t size : {std::size_t{1} << 20, effort.streamSize}) {
        const std::string piece = sizeName(size);
        measure("false " + piece, effort.rounds,
                [=](benchmark::State& state) { parsePieces(state, *falseSyncs, size); });
        const std::string label = "(d) in pieces of " + piece + "; floor: all at once";
        lines.push_back({section, label, "false " + piece, "false " + whole, kPerByte, Goal::atMost, 1.15});
    }
    return lines;
}

std::vector<Line> fullLists(const Effort& effort)
{
    const auto stream = std::make_shared<Stream>(ubxStream(std::size_t{1} << 20));
    const std::string section = "Parsing 1 MiB into a list that holds messages";
    std::vector<Line> lines;
    for (const std::size_t messages : {1U, 1000U, 100000U}) {
        const std::string name = std::to_string(messages) + " messages";
        measure(name, effort.rounds, [=](benchmark::State& state) { parseIntoFullList(state, *stream, messages); });
        lines.push_back({section, name + "; floor: 1 message", name, "1 messages", kPerFrame, Goal::atMost, 1.15});
    }
    return lines;
}

} // namespace

std::vector<Line> parsing(const Effort& effort)
{
    std::vector<Line> lines = wholeStreams(effort);
    for (const auto& more : {pieces(effort), fullLists(effort)})
        lines.insert(lines.end(), more.begin(), more.end());
    return lines;
}

} // namespace bench

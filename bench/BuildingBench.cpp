#include "bench/BuildingBench.h"

#include <UBXMessage.h>
#include <UBXMessageCatalogue.h>

#include "bench/table/Clock.h"

namespace bench
{

namespace
{

constexpr const char* kPerByte = "ns per byte";
constexpr const char* kPerLookUp = "ns per look-up";
constexpr unsigned long kTimes = 1U << 18;

void setEveryByte(benchmark::State& state, unsigned long payloadLength)
{
    UBXMessage message(UBX_CFG_VALSET, payloadLength, nullptr);
    const ProcessorTime watch;
    unsigned long done = 0;
    while (done < kTimes) {
        for (unsigned long i = 0; i < payloadLength; ++i)
            message.setByte(i, static_cast<unsigned char>(i + done));
        done += payloadLength;
    }
    state.counters[kPerByte] = watch.seconds() / static_cast<double>(done) * 1e9;
    if (message.getChecksum() != ubxComputeChecksum(message.getPacketData() + 2, payloadLength + 4))
        state.SkipWithError("the checksum is wrong");
}

void lookUp(benchmark::State& state, UBXClassId id, unsigned short length)
{
    const ProcessorTime watch;
    for (unsigned long i = 0; i < kTimes; ++i)
        benchmark::DoNotOptimize(ubxGetMessageDescription(id, length));
    state.counters[kPerLookUp] = watch.seconds() / static_cast<double>(kTimes) * 1e9;
}

} // namespace

std::vector<Line> building(const Effort& effort)
{
    const std::string section = "Building";
    std::vector<Line> lines;
    for (const unsigned long length : {16UL, 1000UL, 65535UL}) {
        const std::string name = "setByte " + std::to_string(length);
        measure(name, effort.rounds, [=](benchmark::State& state) { setEveryByte(state, length); });
        lines.push_back({section, name + " bytes; floor: 16 bytes", name, "setByte 16", kPerByte, Goal::atMost, 1.15});
    }
    measure("first name", effort.rounds, [](benchmark::State& state) { lookUp(state, {0x01, 0x01}, 20); });
    measure("last name", effort.rounds, [](benchmark::State& state) { lookUp(state, {0x28, 0x00}, 72); });
    measure("no name", effort.rounds, [](benchmark::State& state) { lookUp(state, {0x55, 0x55}, 20); });
    lines.push_back(
        {section, "name of the last row; floor: the first", "last name", "first name", kPerLookUp, Goal::atMost, 1.5});
    lines.push_back(
        {section, "name of an unknown one; floor: the first", "no name", "first name", kPerLookUp, Goal::atMost, 1.5});
    return lines;
}

} // namespace bench

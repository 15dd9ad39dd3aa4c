// ubxscenario NAME TIMES: does a fixed piece of work so many times over, for those who count its instructions. NAME
// alone says how often it is usually done. Without arguments: the names.
//
// The difference between two runs of different length is what the work itself takes. To be run in a sandbox.

#include <algorithm>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include <UBXMessage.h>
#include <UBXMessageBuilder.h>
#include <ZedF9tUbxMessageBuilder.h>
#include <ubxController.h>
#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>
#include <ubxIO.h>

#include "bench/instructions/ScriptedLine.h"
#include "bench/streams/Frame.h"
#include "bench/streams/Streams.h"

namespace
{

using scriptedline::Bytes;

constexpr std::size_t kStreamSize = std::size_t{128} << 10;
constexpr std::size_t kPiece = 16;

[[noreturn]] void fail(std::string_view what)
{
    std::cerr << "ubxscenario: " << what << '\n';
    std::exit(EXIT_FAILURE);
}

void parse(bench::Stream stream, std::size_t times)
{
    for (std::size_t i = 0; i < times; ++i) {
        UBXMessageList list;
        UBXMessageBuilder builder(&list);
        builder.update(stream.bytes.data(), stream.bytes.size());
    }
}

void parseMixed(std::size_t times)
{
    parse(bench::mixedStream(kStreamSize), times);
}

void parseDamaged(std::size_t times)
{
    bench::Stream stream = bench::damagedStream(kStreamSize);
    const bench::Stream falseSyncs = bench::falseSyncStream(kStreamSize);
    stream.bytes.insert(stream.bytes.end(), falseSyncs.bytes.begin(), falseSyncs.bytes.end());
    parse(std::move(stream), times);
}

void build(std::size_t times)
{
    for (std::size_t i = 0; i < times; ++i) {
        bool gnss[8] = {true, true, true, true, false, true, true, false};
        unsigned char items[300] = {};
        const unsigned int length = ZedF9tUbxMessageBuilder::configureSIGNALForTim2_20(items, gnss, true);
        UBXMessage message(UBX_CFG_VALSET, length, items);
        for (unsigned long at = 0; at < length; ++at)
            message.setByte(at, static_cast<unsigned char>(at + i));
        if (message.getMessageDescription().empty()) fail("a message without a description");
    }
}

Bytes withAcknowledgement(Bytes frame)
{
    const Bytes acknowledgement = bench::makeFrame(0x05, 0x01, {frame[2], frame[3]});
    frame.insert(frame.end(), acknowledgement.begin(), acknowledgement.end());
    return frame;
}

// A few looks without a byte come first, as on a line.
std::vector<Bytes> answer(const Bytes& frame)
{
    return {{}, {}, {}, withAcknowledgement(frame)};
}

template <typename Controller>
void query(Controller& controller)
{
    signed char minCNo = 0;
    if (controller.getMinCNo(minCNo) != 0 || minCNo != 6) fail("a query without its answer");
}

void exchange(std::size_t times)
{
    ubxController_NEOM8T neoM8t;
    ubxController_ZEDF9T zedF9t("TIM 2.20", true);
    const std::vector<Bytes> byMessage = answer(bench::makeFrame(0x06, 0x23, Bytes(40, 6)));
    const std::vector<Bytes> byKey = answer(bench::makeFrame(0x06, 0x8B, {1, 0, 0, 0, 0xA3, 0x00, 0x11, 0x20, 6}));
    for (std::size_t i = 0; i < times; ++i) {
        scriptedline::answerEveryFrame(byMessage);
        query(neoM8t);
        neoM8t.save();
        scriptedline::answerEveryFrame(byKey);
        query(zedF9t);
    }
}

// The limit is one second, and that is `rounds` looks long.
void waitInVain(std::vector<Bytes> looks, std::size_t rounds)
{
    scriptedline::bringOverAndOver(std::move(looks));
    scriptedline::secondEvery(rounds);
    ubxIO port;
    if (port.ReceiveMessage(UBX_NAV_PVT, 1) != nullptr) fail("an answer out of nothing");
}

void waitSilent(std::size_t times)
{
    waitInVain({{}}, times);
}

// A second of sentences, sixteen bytes at a time as a serial driver hands them on, and a few looks without any between.
void waitNmea(std::size_t times)
{
    const bench::Stream stream = bench::nmeaStream(1024);
    std::vector<Bytes> looks;
    for (std::size_t at = 0; at + kPiece <= stream.bytes.size(); at += kPiece) {
        const auto start = stream.bytes.begin() + static_cast<std::ptrdiff_t>(at);
        looks.emplace_back(start, start + kPiece);
        looks.resize(looks.size() + 9);
    }
    waitInVain(std::move(looks), times);
}

void startUp(std::size_t times)
{
    Bytes version(220, 0);
    const std::string_view hardware = "00080000";
    std::copy(hardware.begin(), hardware.end(), version.begin() + 30);
    Bytes all = withAcknowledgement(bench::makeFrame(0x06, 0x00, Bytes(20, 1)));
    const Bytes versionFrame = bench::makeFrame(0x0A, 0x04, version);
    all.insert(all.end(), versionFrame.begin(), versionFrame.end());
    all.push_back('\r');
    for (std::size_t i = 0; i < times; ++i) {
        scriptedline::answerEveryFrame({all});
        const ubxController controller;
    }
}

struct Scenario
{
    std::string_view name;
    std::size_t times;
    void (*run)(std::size_t times);
};

constexpr Scenario kScenarios[] = {
    {"parse-mixed", 10, parseMixed}, {"parse-damaged", 10, parseDamaged}, {"build", 500, build},
    {"exchange", 500, exchange},     {"wait-silent", 100000, waitSilent}, {"wait-nmea", 100000, waitNmea},
    {"start-up", 100, startUp},
};

} // namespace

int main(int argc, char** argv)
{
    if (argc == 1) {
        for (const Scenario& scenario : kScenarios)
            std::cout << scenario.name << '\n';
        return EXIT_SUCCESS;
    }
    const auto* const scenario = std::find_if(std::begin(kScenarios), std::end(kScenarios),
                                              [&](const Scenario& each) { return each.name == argv[1]; });
    if (scenario == std::end(kScenarios)) fail("there is no scenario of this name");
    if (argc == 2) {
        std::cout << scenario->times << '\n';
        return EXIT_SUCCESS;
    }
    scenario->run(std::strtoul(argv[2], nullptr, 10));
    return EXIT_SUCCESS;
}

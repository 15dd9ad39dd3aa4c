// What a ZED-F9T's settings look like when they are read through the configuration interface.

#include <chrono>
#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "WireFrames.h"
#include "ZedF9tTest.h"

using testsupport::CapturedOutput;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;
using namespace std::chrono_literals;

namespace
{

using Controller = ubxController_ZEDF9T;

/// The value of an operation's reference argument afterwards, as text.
template <typename Value>
std::string read(Controller& controller, int (Controller::*get)(Value&), Value value, int& status)
{
    status = (controller.*get)(value);
    if constexpr (std::is_same_v<Value, std::string>)
        return value;
    else if constexpr (std::is_same_v<Value, bool>)
        return value ? "true" : "false";
    else
        return std::to_string(value);
}

struct ItemGetter
{
    const char* name;
    std::string (*read)(Controller&, int& status); // the caller's variable holds `untouched` before
    const char* untouched;
    const char* poll;
    const char* key;                                             // as it stands in the reply
    const char* label;                                           // what the log calls it
    std::vector<std::pair<const char*, const char*>> values;     // bytes in the reply and what they mean
    const char* fullValue;                                       // a value of which only the first bytes come
    std::vector<std::pair<std::size_t, const char*>> fromLength; // what it means from that payload length on
};

void PrintTo(const ItemGetter& getter, std::ostream* out)
{
    *out << getter.name;
}

const std::vector<ItemGetter> kGetters = {
    {"AntennaDelay",
     [](Controller& c, int& status) { return read(c, &Controller::getAntennaDelay, 1234, status); },
     "1234",
     zedtest::kPollCableDelay,
     "01 00 05 30",
     "Antenna cable delay",
     {{"32 00", "50"}, {"FF FF", "-1"}, {"00 80", "-32768"}, {"FF 7F", "32767"}, {"00 00", "0"}, {"34 12", "4660"}},
     "FE FF",
     {{0, "0"}, {9, "254"}, {10, "-2"}}},
    {"AntennaType",
     [](Controller& c, int& status) { return read(c, &Controller::getAntennaType, std::string("before"), status); },
     "before",
     zedtest::kPollAntennaTypeItem,
     "10 00 41 20",
     "Antenna setting",
     {{"00", "unknown"}, {"01", "passive"}, {"02", "active"}, {"03", "before"}, {"FF", "before"}},
     "02",
     {{0, "unknown"}, {9, "active"}}},
    {"JammingDetection",
     [](Controller& c, int& status) { return read(c, &Controller::getJammingDetection, true, status); },
     "true",
     zedtest::kPollJammingItem,
     "0D 00 41 10",
     "Enable interference detection",
     {{"00", "false"}, {"01", "true"}, {"80", "true"}},
     "01",
     {{0, "false"}, {9, "true"}}},
    {"SurveyMode",
     [](Controller& c, int& status) { return read(c, &Controller::getSurveyMode, std::string("before"), status); },
     "before",
     zedtest::kPollTimingModeItem,
     "01 00 03 20",
     "Receiver mode",
     {{"00", "DYNAMIC"}, {"01", "AUTO"}, {"02", "STATIC"}, {"03", "before"}, {"FF", "before"}},
     "02",
     {{0, "DYNAMIC"}, {9, "STATIC"}}},
    {"DurationConfiguration",
     [](Controller& c, int& status) { return read(c, &Controller::getDurationConfiguration, 77U, status); },
     "77",
     zedtest::kPollSurveyDurationItem,
     "10 00 03 40",
     "Receiver mode",
     {{"30 2A 00 00", "10800"}, {"FF FF FF FF", "4294967295"}, {"04 03 02 01", "16909060"}},
     "04 03 02 01",
     {{0, "0"}, {9, "4"}, {10, "772"}, {11, "131844"}, {12, "16909060"}}},
    {"AccuracyConfiguration",
     [](Controller& c, int& status) { return read(c, &Controller::getAccuracyConfiguration, 77U, status); },
     "77",
     zedtest::kPollSurveyAccuracyItem,
     "11 00 03 40",
     "Receiver mode",
     {{"10 27 00 00", "10000"}, {"FF FF FF FF", "4294967295"}, {"04 03 02 01", "16909060"}},
     "04 03 02 01",
     {{0, "0"}, {9, "4"}, {10, "772"}, {11, "131844"}, {12, "16909060"}}},
    {"MinCNo",
     [](Controller& c, int& status) { return read(c, &Controller::getMinCNo, static_cast<signed char>(99), status); },
     "99",
     zedtest::kPollMinCNoItem,
     "A3 00 11 20",
     "Minimum satellite signal level for navigation",
     {{"28", "40"}, {"00", "0"}, {"FF", "-1"}},
     "28",
     {{0, "0"}, {9, "40"}}},
    {"ElevationLimit",
     [](Controller& c, int& status) {
         return read(c, &Controller::getElevationLimit, static_cast<unsigned char>(99), status);
     },
     "99",
     zedtest::kPollElevationItem,
     "A4 00 11 20",
     "Minimum elevation for a GNSS satellite to be used in navigation",
     {{"0A", "10"}, {"00", "0"}, {"FF", "255"}},
     "0A",
     {{0, "0"}, {9, "10"}}},
    {"TimeReference",
     [](Controller& c, int& status) { return read(c, &Controller::getTimeReference, std::string("before"), status); },
     "before",
     zedtest::kPollTimeReferenceItem,
     "03 00 21 20",
     "Minimum elevation for a GNSS satellite to be used in navigation",
     {{"00", "UTC"}, {"01", "GPS"}, {"02", "GLO"}, {"03", "BDS"}, {"04", "GAL"}, {"05", "UTC"}, {"FF", "UTC"}},
     "02",
     {{0, "UTC"}, {9, "GLO"}}},
    {"IsOn",
     [](Controller& c, int& status) { return read(c, &Controller::isOn, true, status); },
     "true",
     zedtest::kPollSecondPulseItem,
     "12 00 05 10",
     "Minimum elevation for a GNSS satellite to be used in navigation",
     {{"00", "false"}, {"01", "true"}, {"80", "true"}},
     "01",
     {{0, "false"}, {9, "true"}}},
    {"GnssSystem",
     [](Controller& c, int& status) {
         return read(c, &Controller::getGnssSystem, static_cast<unsigned short>(256), status);
     },
     "256", // what the caller had set stays set
     zedtest::kPollSignalItemsTim2_20,
     "1F 00 31 10",
     "Antenna cable delay",
     {{"01 20 00 31 10 00 21 00 31 10 00 22 00 31 10 00 24 00 31 10 00 25 00 31 10 00 26 00 31 10 00", "257"},
      {"00 20 00 31 10 80 21 00 31 10 00 22 00 31 10 00 24 00 31 10 00 25 00 31 10 01 26 00 31 10 00", "322"},
      {"00 20 00 31 10 00 21 00 31 10 00 22 00 31 10 00 24 00 31 10 00 25 00 31 10 00 26 00 31 10 01", "256"}},
     "01 20 00 31 10 01 21 00 31 10 01 22 00 31 10 01 24 00 31 10 01 25 00 31 10 01 26 00 31 10 01",
     {{0, "256"}, {9, "257"}, {14, "259"}, {19, "263"}, {24, "271"}, {29, "303"}, {34, "367"}}},
};

class ItemGetterTest : public ZedF9tTest, public testing::WithParamInterface<ItemGetter>
{
protected:
    static std::string item(const std::string& value) { return std::string(GetParam().key) + " " + value; }
};

INSTANTIATE_TEST_SUITE_P(All, ItemGetterTest, testing::ValuesIn(kGetters),
                         [](const auto& getter) { return std::string(getter.param.name); });

TEST_P(ItemGetterTest, PollsItsItemAndTellsWhatTheReplyMeans)
{
    for (const auto& [value, meaning] : GetParam().values) {
        SCOPED_TRACE(value);
        answerItems(item(value), 1);
        int status = -1;

        EXPECT_EQ(GetParam().read(controller, status), meaning);

        EXPECT_EQ(status, 0);
        expectFrames({GetParam().poll});
    }
    EXPECT_EQ(log(), Lines{});
}

TEST_P(ItemGetterTest, TakesTheValueByItsPlaceWhateverItsKey)
{
    const auto& [value, meaning] = GetParam().values.front();
    answerItems("EF BE AD DE " + std::string(value));
    int status = -1;

    EXPECT_EQ(GetParam().read(controller, status), meaning);

    EXPECT_EQ(status, 0);
}

TEST_P(ItemGetterTest, ReadsNothingBehindTheEndOfAShortReply)
{
    const std::size_t fullLength = 8 + (std::string(GetParam().fullValue).size() + 1) / 3;
    std::string meaning;
    for (std::size_t length = 0; length <= fullLength; ++length) {
        SCOPED_TRACE(length);
        for (const auto& [from, text] : GetParam().fromLength)
            if (length == from) meaning = text;
        answerShortened(item(GetParam().fullValue), length);
        int status = -1;

        EXPECT_EQ(GetParam().read(controller, status), meaning);

        EXPECT_EQ(status, 0);
    }
}

TEST_P(ItemGetterTest, LogsItsLabelWhenNoReplyComes)
{
    int status = -1;
    std::string value;
    const CapturedOutput errors(STDERR_FILENO);

    whenSilent([&] { return value = GetParam().read(controller, status); });

    EXPECT_EQ(status, 4);
    EXPECT_EQ(value, GetParam().untouched);
    EXPECT_EQ(log(), Lines{std::string("Did not receive : ") + GetParam().label});
    EXPECT_EQ(errors.text(), "ubxIO::ReceiveMessage Timed out waiting for rx from u-blox.\n");
    expectFrames({GetParam().poll});
}

TEST_P(ItemGetterTest, LogsTwoLinesWithoutADevice)
{
    int status = -1;
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(GetParam().read(controller, status), GetParam().untouched);

    EXPECT_EQ(status, 4);
    EXPECT_EQ(log(), (Lines{"Could not send : 06 8B: Configuration Items",
                            std::string("Did not receive : ") + GetParam().label}));
    EXPECT_EQ(errors.text(), "Could not open tty_gps, cannot communicate with the ublox device.\n"
                             "Could not open tty_gps, cannot communicate with the ublox device.\n"
                             "Cannot send message to the ublox, the device is not open!\n"
                             "ubxIO::ReceiveMessage Could not receive data from the ublox, device is not open!\n");
}

TEST_F(ZedF9tTest, GetGnssSystemByKeyAsksOlderFirmwareForSixItems)
{
    ubxController_ZEDF9T older(zedtest::kVersion2_13, zedtest::kByKey);
    answerItems("1F 00 31 10 01 20 00 31 10 00 21 00 31 10 01 22 00 31 10 00 24 00 31 10 01 25 00 31 10 00");
    unsigned short mask = 0;

    EXPECT_EQ(older.getGnssSystem(mask), 0);

    EXPECT_EQ(mask, 1 + 4 + 32);
    expectFrames({zedtest::kPollSignalItems});
}

TEST_F(ZedF9tTest, GetGnssSystemByKeyAsksForSixItemsWhenTheFirmwareDoesNotSayTim)
{
    ubxController_ZEDF9T unknown("EXT CORE 1.00", zedtest::kByKey);
    answerItems("1F 00 31 10 00 20 00 31 10 00 21 00 31 10 00 22 00 31 10 01 24 00 31 10 00 25 00 31 10 00");
    unsigned short mask = 0;

    EXPECT_EQ(unknown.getGnssSystem(mask), 0);

    EXPECT_EQ(mask, 8);
    expectFrames({zedtest::kPollSignalItems});
}

TEST_F(ZedF9tTest, GetGnssSystemByKeyAddsToTheCallersMask)
{
    answerItems("1F 00 31 10 01 20 00 31 10 00 21 00 31 10 00 22 00 31 10 00 24 00 31 10 00 25 00 31 10 00");
    unsigned short mask = 0x8042;

    EXPECT_EQ(controller.getGnssSystem(mask), 0);

    EXPECT_EQ(mask, 0x8043);
}

TEST_F(ZedF9tTest, GetTimeReferenceByKeyOnAReplyValueOf7YieldsUtc)
{
    answerItems("03 00 21 20 07");
    std::string reference = "GPS";

    EXPECT_EQ(controller.getTimeReference(reference), 0);

    EXPECT_EQ(reference, "UTC");
}

TEST_F(ZedF9tTest, GetterByKeyTakesTheReplyAmongOtherOutput)
{
    answerItems("A3 00 11 20 15");
    receiver().precedeWith(0x068B,
                           testsupport::bytes("24 47 4E 5A 44 41 2C B5 62 0D 0A B5 62 05 01 02 00 06 8A 98 C1"));
    signed char minCNo = 0;

    EXPECT_EQ(controller.getMinCNo(minCNo), 0);

    EXPECT_EQ(minCNo, 21);
    EXPECT_EQ(log(), Lines{});
}

TEST_F(ZedF9tTest, GetterByKeyWaits5Seconds)
{
    signed char minCNo = 0;

    expectWait(5s, 0x068B, [&] { controller.getMinCNo(minCNo); });

    EXPECT_EQ(log(), Lines{"Did not receive : Minimum satellite signal level for navigation"});
}

} // namespace

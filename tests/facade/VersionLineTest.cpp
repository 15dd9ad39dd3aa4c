// getDefaultInfo(): the version record as one line.

#include <gtest/gtest.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "FacadeTest.h"
#include "sandbox/Sandbox.h"

using namespace testsupport;

namespace
{

/// With a facade that has been constructed already.
class VersionLine : public FacadeTest
{
protected:
    VersionLine()
    {
        receiver();
        controller = facade();
        takeFrames();
    }

    /// The line that comes of a record with this payload.
    std::string lineOf(const Bytes& payload)
    {
        receiver().clearFaults();
        receiver().answerWith(0x0A04, payload);
        std::string line = "as before";
        EXPECT_EQ(controller->getDefaultInfo(line), 0);
        return line;
    }

    std::unique_ptr<ubxController> controller;
};

TEST_F(VersionLine, OfARecordOf40BytesIsSoftwareAndHardwareVersion)
{
    const Bytes payload = versionRecord("EXT CORE 3.01 (111141)", "00080000");
    ASSERT_EQ(payload.size(), 40U);

    EXPECT_EQ(lineOf(payload), "EXT CORE 3.01 (111141): 00080000");
}

TEST_F(VersionLine, OfARecordOf160BytesHasFourExtensions)
{
    const Bytes payload = versionRecord("EXT CORE 3.01 (111141)", "00080000",
                                        {"ROM BASE 2.01 (75331)", "FWVER=TIM 1.10", "PROTVER=22.00", "MOD=NEO-M8T-0"});
    ASSERT_EQ(payload.size(), 160U);

    EXPECT_EQ(lineOf(payload), "EXT CORE 3.01 (111141): 00080000: ROM BASE 2.01 (75331): FWVER=TIM 1.10: "
                               "PROTVER=22.00: MOD=NEO-M8T-0");
}

TEST_F(VersionLine, OfTheReceiverHasAllThatItSays)
{
    std::string line;

    EXPECT_EQ(controller->getDefaultInfo(line), 0);

    EXPECT_EQ(line, "EXT CORE 3.01 (111141): 00080000: ROM BASE 2.01 (75331): FWVER=TIM 1.10: PROTVER=22.00: "
                    "MOD=NEO-M8T-0: FIS=0xEF4015 (100111): GPS;GLO;GAL;BDS: SBAS;IMES;QZSS");
}

TEST_F(VersionLine, HasEmptyTextsForEmptyFields)
{
    EXPECT_EQ(lineOf(versionRecord("", "", {"", "x", ""})), ": : : x: ");
}

TEST_F(VersionLine, RunsOnIntoTheNextFieldWhereOneIsFull)
{
    const std::string full = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123"; // 30 letters

    EXPECT_EQ(lineOf(versionRecord(full, "00080000")), full + "00080000: 00080000");
    EXPECT_EQ(lineOf(versionRecord("EXT", "0123456789", {"FWVER=TIM 1.10"})),
              "EXT: 0123456789FWVER=TIM 1.10: FWVER=TIM 1.10");
    EXPECT_EQ(lineOf(versionRecord("EXT", "00080000", {full, "MOD=NEO-M8T-0"})),
              "EXT: 00080000: " + full + "MOD=NEO-M8T-0: MOD=NEO-M8T-0");
}

TEST_F(VersionLine, EndsWithThePayloadWhereNoZeroByteEndsIt)
{
    const std::string full = "ABCDEFGHIJKLMNOPQRSTUVWXYZ0123";

    EXPECT_EQ(lineOf(versionRecord("EXT", "00080000", {full})), "EXT: 00080000: " + full);
    EXPECT_EQ(lineOf(versionRecord("EXT", "0123456789")), "EXT: 0123456789");
}

TEST_F(VersionLine, OfARecordThatEndsWithinAnExtensionHasItsBeginning)
{
    Bytes payload = versionRecord("EXT", "00080000", {"FWVER=TIM 1.10"});
    payload.resize(45);

    EXPECT_EQ(lineOf(payload), "EXT: 00080000: FWVER");

    payload.resize(41);
    EXPECT_EQ(lineOf(payload), "EXT: 00080000: F");
}

TEST_F(VersionLine, OfARecordOfAnyShorterLengthTakesWhatIsThere)
{
    const std::string software = "EXT CORE 3.01 (111141)";
    const std::string hardware = "00080000";
    const Bytes whole = versionRecord(software, hardware);

    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const Bytes payload(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const std::string expected =
            software.substr(0, length) + ": " + hardware.substr(0, length < 30 ? 0 : length - 30);
        EXPECT_EQ(lineOf(payload), expected) << length << " bytes";
    }
}

TEST_F(VersionLine, OfALongRecordHasAllItsExtensions)
{
    Bytes payload = versionRecord("EXT", "00080000");
    std::string expected = "EXT: 00080000";
    for (int i = 0; i < 100; ++i) {
        payload.insert(payload.end(), {'x'});
        payload.resize(payload.size() + 29);
        expected += ": x";
    }

    EXPECT_EQ(lineOf(payload), expected);
}

TEST_F(VersionLine, SetsUpThePortFirstAndPollsThreeTimes)
{
    receiver().answerWith(0x0600, bytes("01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00"), 1);
    std::string line;

    controller->getDefaultInfo(line);

    expectFrames({kPortPoll, "B5 62 06 00 14 00 01 00 00 00 C0 08 00 00 80 25 00 00 07 00 03 00 00 00 00 00 92 B5",
                  kVersionPoll, kVersionPoll, kVersionPoll});
}

TEST_F(VersionLine, DoesNotDependOnTheSetUpOfThePort)
{
    receiver().ignore(0x0600);
    std::string line;

    EXPECT_EQ(withBriskClock([&] { return controller->getDefaultInfo(line); }), 0);

    EXPECT_EQ(line.substr(0, 8), "EXT CORE");
}

TEST_F(VersionLine, IsEmptyWithoutAReply)
{
    std::string line = "as before";

    EXPECT_EQ(whenSilent([&] { return controller->getDefaultInfo(line); }), 4);

    EXPECT_EQ(line, "");
    EXPECT_EQ(facadeErrors(), (Lines{"Could not send : 06 00: Port Configuration for UART/USB/SPI/DCC Port",
                                     "Did not receive : 0A 04: Poll Receiver/Software Version"}));
}

TEST_F(VersionLine, IsEmptyWithoutADevice)
{
    sandbox::removeGps();
    const CapturedOutput errors(STDERR_FILENO);
    std::string line = "as before";

    EXPECT_EQ(controller->getDefaultInfo(line), 8);

    EXPECT_EQ(line, "");
    EXPECT_EQ(facadeErrors(), (Lines{"Did not receive : 06 00: Port Configuration for UART/USB/SPI/DCC Port",
                                     "Could not send : 0A 04: Poll Receiver/Software Version"}));
}

} // namespace

// Replies that are shorter than they should be: a byte that is not there counts as 0, and nothing behind the reply is
// looked at (which the address sanitizer would see).

#include "NeoM8tTest.h"

namespace
{

using testsupport::Bytes;
using testsupport::bytes;

class ShortReply : public testsupport::NeoM8tTest
{
protected:
    /// Asks for every length from 0 to that of the whole reply.
    template <typename Ask>
    void forEveryLength(std::uint16_t classId, std::string_view whole, Ask ask)
    {
        const Bytes reply = bytes(whole);
        for (std::size_t length = 0; length <= reply.size(); ++length) {
            SCOPED_TRACE(length);
            receiver().clearFaults();
            receiver().answerWith(classId, {reply.begin(), reply.begin() + static_cast<std::ptrdiff_t>(length)});
            ask(length);
        }
    }
};

const std::string k32Ones = "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF "
                            "FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF FF ";

TEST_F(ShortReply, OfTheTimePulseHasNoDelayOrItsLowByte)
{
    forEveryLength(0x0631, k32Ones, [&](std::size_t length) {
        int delay = 1234;
        EXPECT_EQ(controller.getAntennaDelay(delay), 0);
        EXPECT_EQ(delay, length <= 4 ? 0 : length == 5 ? 255 : -1);
    });
}

TEST_F(ShortReply, OfTheSecondTimePulseIsOff)
{
    forEveryLength(0x0631, k32Ones, [&](std::size_t length) {
        bool on = length <= 28;
        EXPECT_EQ(controller.isOn(on), 0);
        EXPECT_EQ(on, length > 28);
    });
}

TEST_F(ShortReply, OfTheAntennaTypeIsUnknown)
{
    forEveryLength(0x0639, "FF FF FF FF FF 2F FF FF", [&](std::size_t length) {
        std::string type;
        EXPECT_EQ(controller.getAntennaType(type), 0);
        EXPECT_EQ(type, length <= 5 ? "unknown" : "active");
    });
}

TEST_F(ShortReply, OfJammingDetectionIsOff)
{
    forEveryLength(0x0639, "FF FF FF FF FF FF FF FF", [&](std::size_t length) {
        bool on = length <= 4;
        EXPECT_EQ(controller.getJammingDetection(on), 0);
        EXPECT_EQ(on, length > 4);
    });
}

TEST_F(ShortReply, OfTheConstellationsHasThoseThatAreThere)
{
    const std::string blocks = "00 10 20 00 01 00 01 00 01 10 20 00 01 00 01 00 02 10 20 00 01 00 01 00 "
                               "03 10 20 00 01 00 01 00 04 10 20 00 01 00 01 00 05 10 20 00 01 00 01 00 "
                               "06 10 20 00 01 00 01 00";
    forEveryLength(0x063E, "00 20 20 07 " + blocks, [&](std::size_t length) {
        unsigned short mask = 4321;
        EXPECT_EQ(controller.getGnssSystem(mask), 0);
        EXPECT_EQ(mask, length <= 8    ? 0
                        : length <= 16 ? 1
                        : length <= 24 ? 3
                        : length <= 32 ? 7
                        : length <= 40 ? 15
                        : length <= 48 ? 31
                        : length <= 56 ? 63
                                       : 127);
    });
}

TEST_F(ShortReply, OfTheTimeModeIsDynamicWhenEmpty)
{
    forEveryLength(0x063D, "02 FF FF FF FF FF", [&](std::size_t length) {
        std::string mode;
        EXPECT_EQ(controller.getSurveyMode(mode), 0);
        EXPECT_EQ(mode, length == 0 ? "DYNAMIC" : "STATIC");
    });
}

TEST_F(ShortReply, OfTheSolutionHasNoSatellites)
{
    forEveryLength(0x0107, k32Ones, [&](std::size_t length) {
        unsigned char count = 99;
        EXPECT_EQ(controller.getNofSatellitesInNavSol(count), 0);
        EXPECT_EQ(count, length <= 23 ? 0 : 255);
    });
}

TEST_F(ShortReply, OfTheMinimumSignalIs0)
{
    forEveryLength(0x0623, k32Ones, [&](std::size_t length) {
        signed char level = 99;
        EXPECT_EQ(controller.getMinCNo(level), 0);
        EXPECT_EQ(level, length <= 12 ? 0 : -1);
    });
}

TEST_F(ShortReply, OfTheElevationLimitIs0)
{
    forEveryLength(0x0624, k32Ones, [&](std::size_t length) {
        unsigned char degrees = 99;
        EXPECT_EQ(controller.getElevationLimit(degrees), 0);
        EXPECT_EQ(degrees, length <= 12 ? 0 : 255);
    });
}

TEST_F(ShortReply, OfTheDynamicModelIs0)
{
    forEveryLength(0x0624, k32Ones, [&](std::size_t length) {
        unsigned char model = 99;
        unsigned char fixMode = 99;
        EXPECT_EQ(controller.getDynamicModel(model, fixMode), 0);
        EXPECT_EQ(model, length <= 2 ? 0 : 255);
        EXPECT_EQ(fixMode, length <= 3 ? 0 : 255);
    });
}

TEST_F(ShortReply, OfTheTimeReferenceIsUtc)
{
    forEveryLength(0x0608, "FF FF FF FF 01 FF", [&](std::size_t length) {
        std::string reference;
        EXPECT_EQ(controller.getTimeReference(reference), 0);
        EXPECT_EQ(reference, length <= 4 ? "UTC" : "GPS");
    });
}

TEST_F(ShortReply, OfThePowerModeIsContinuous)
{
    forEveryLength(0x0611, "FF 04", [&](std::size_t length) {
        std::string mode;
        EXPECT_EQ(controller.getRxMode(mode), 0);
        EXPECT_EQ(mode, length <= 1 ? "CONTINUOUS" : "ECO");
    });
}

} // namespace

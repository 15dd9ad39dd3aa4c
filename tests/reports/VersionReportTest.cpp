#include "NeoM8tTest.h"

namespace
{

using testsupport::Bytes;
using testsupport::Lines;

constexpr std::uint16_t kMonVer = 0x0A04;

/// A text in a field of this width, zeros behind it.
Bytes field(const std::string& text, std::size_t width)
{
    Bytes bytes(text.begin(), text.end());
    bytes.resize(width);
    return bytes;
}

Bytes record(std::initializer_list<Bytes> fields)
{
    Bytes all;
    for (const Bytes& each : fields)
        all.insert(all.end(), each.begin(), each.end());
    return all;
}

class VersionReport : public testsupport::NeoM8tTest
{
protected:
    std::string report(const Bytes& reply)
    {
        receiver().clearFaults();
        receiver().answerWith(kMonVer, reply);
        std::string text = "as it was";
        EXPECT_EQ(controller.getInfo(text), 0);
        return text;
    }
};

TEST_F(VersionReport, WithoutExtensionsIsTwoTexts)
{
    EXPECT_EQ(report(record({field("EXT CORE 3.01 (111141)", 30), field("00080000", 10)})),
              "EXT CORE 3.01 (111141): 00080000");

    expectFrames({testsupport::kPollVersion});
}

TEST_F(VersionReport, WithThreeExtensionsIsFiveTexts)
{
    EXPECT_EQ(
        report(record({field("EXT CORE 3.01 (111141)", 30), field("00080000", 10), field("ROM BASE 2.01 (75331)", 30),
                       field("FWVER=TIM 1.10", 30), field("PROTVER=22.00", 30)})),
        "EXT CORE 3.01 (111141): 00080000: ROM BASE 2.01 (75331): FWVER=TIM 1.10: PROTVER=22.00");
}

TEST_F(VersionReport, OfARealReceiverIsOnOneLine)
{
    std::string text;

    EXPECT_EQ(controller.getInfo(text), 0);

    EXPECT_EQ(text, "EXT CORE 3.01 (111141): 00080000: ROM BASE 2.01 (75331): FWVER=TIM 1.10: PROTVER=22.00: "
                    "MOD=NEO-M8T-0: FIS=0xEF4015 (100111): GPS;GLO;GAL;BDS: SBAS;IMES;QZSS");
}

TEST_F(VersionReport, EmptyFieldsStayAsEmptyTexts)
{
    EXPECT_EQ(report(Bytes(100)), ": : : ");
}

TEST_F(VersionReport, FieldsWithoutAZeroByteEndWithTheirField)
{
    EXPECT_EQ(report(record({Bytes(30, 'a'), Bytes(10, 'b'), Bytes(30, 'c'), Bytes(30, 'd')})),
              "aaaaaaaaaaaaaaaaaaaaaaaaaaaaaa: bbbbbbbbbb: cccccccccccccccccccccccccccccc: "
              "dddddddddddddddddddddddddddddd");
}

TEST_F(VersionReport, WhatFollowsAZeroByteInAFieldIsNotShown)
{
    EXPECT_EQ(report(record({field(std::string("one\0two", 7), 30),
                             field(std::string("3\0"
                                               "4",
                                               3),
                                   10),
                             field(std::string("\0five", 5), 30)})),
              "one: 3: ");
}

TEST_F(VersionReport, OfAReplyOfAnyLengthEndsWithThePayload)
{
    const std::string software(30, 'a');
    const std::string hardware(10, 'b');
    const std::string extension(30, 'c');
    const Bytes whole = record({Bytes(30, 'a'), Bytes(10, 'b'), Bytes(30, 'c'), Bytes(30, 'd')});
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const std::string expected =
            length <= 30   ? std::string(length, 'a') + ": "
            : length <= 40 ? software + ": " + std::string(length - 30, 'b')
            : length <= 70 ? software + ": " + hardware + ": " + std::string(length - 40, 'c')
                           : software + ": " + hardware + ": " + extension + ": " + std::string(length - 70, 'd');
        EXPECT_EQ(report({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}), expected) << length;
    }
}

TEST_F(VersionReport, BytesThatAreNoLettersAreShownAsTheyAre)
{
    EXPECT_EQ(report(record({field("\xFF\x80\x01\n", 30), field("\xB5\x62", 10)})), "\xFF\x80\x01\n: \xB5\x62");
}

TEST_F(VersionReport, OfASilentReceiverIsEmpty)
{
    std::string text = "as it was";

    EXPECT_EQ(whenSilent([&] { return controller.getInfo(text); }), 4);

    EXPECT_EQ(text, "");
    expectFrames({testsupport::kPollVersion});
    EXPECT_EQ(errors(), Lines{"Did not receive : 0A 04: Poll Receiver/Software Version"});
}

TEST_F(VersionReport, WithoutADeviceIsEmpty)
{
    std::string text = "as it was";
    takeDeviceAway();

    EXPECT_EQ(controller.getInfo(text), 8);

    EXPECT_EQ(text, "");
    EXPECT_EQ(errors(), Lines{"Could not send : 0A 04: Poll Receiver/Software Version"});
}

TEST_F(VersionReport, IsWaitedForFourSeconds)
{
    int status = 0;
    std::string text;

    expectWait(std::chrono::seconds(4), kMonVer, [&] { status = controller.getInfo(text); });

    EXPECT_EQ(status, 4);
}

} // namespace

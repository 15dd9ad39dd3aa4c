#include <locale>
#include <regex>
#include <sstream>

#include "NeoM8tTest.h"

namespace
{

using testsupport::Bytes;
using testsupport::bytes;
using testsupport::Lines;

class SatelliteReport : public testsupport::NeoM8tTest
{
protected:
    std::string report(const std::string& reply)
    {
        receiver().clearFaults();
        receiver().answerWith(0x0135, bytes(reply));
        std::string text = "as it was";
        EXPECT_EQ(controller.getSatelliteInfo(text), 0);
        return text;
    }
};

TEST_F(SatelliteReport, HasALineForEachSatellite)
{
    EXPECT_EQ(report("10 20 30 40 01 03 00 00 "
                     "00 0C 2C 2D 0E 01 05 00 1F 5F 00 00 "
                     "06 05 1B A5 00 00 00 00 07 12 00 00 "
                     "02 FF 00 0A 64 00 F6 FF 00 00 00 00"),
              "12\tGPS\tUsed    \t7\t44\n"
              "5\tGLONASS\tNot Used\t7\t27\n"
              "255\tGALILEO\tNot Used\t0\t0\n");

    expectFrames({testsupport::kPollSatellites});
}

TEST_F(SatelliteReport, OfNoSatellitesIsEmpty)
{
    EXPECT_EQ(report("10 20 30 40 01 00 00 00"), "");
}

TEST_F(SatelliteReport, OfFlags0FIsUsedWithQuality7AndOfFlags07NotUsed)
{
    EXPECT_EQ(report("00 00 00 00 01 02 00 00 "
                     "00 01 28 00 00 00 00 00 0F 00 00 00 "
                     "00 02 28 00 00 00 00 00 07 00 00 00"),
              "1\tGPS\tUsed    \t7\t40\n"
              "2\tGPS\tNot Used\t7\t40\n");
}

TEST_F(SatelliteReport, HasColumnsSeparatedByOneTabAndTheUseEightLettersWide)
{
    const std::regex line("[0-9]+\t[A-Z]+\t(Used    |Not Used)\t[0-7]\t[0-9]+");
    std::string text;
    ASSERT_EQ(controller.getSatelliteInfo(text), 0); // what the receiver has of its own accord
    std::istringstream lines(text);

    std::size_t count = 0;
    for (std::string each; std::getline(lines, each); ++count)
        EXPECT_TRUE(std::regex_match(each, line)) << each;

    EXPECT_GT(count, 4U);
    EXPECT_EQ(text.back(), '\n');
}

TEST_F(SatelliteReport, TakesQualityAndUseFromTheirBitsAlone)
{
    EXPECT_EQ(report("00 00 00 00 01 03 00 00 "
                     "00 01 28 00 00 00 00 00 F0 FF FF FF "
                     "00 02 28 00 00 00 00 00 08 00 00 00 "
                     "00 03 28 00 00 00 00 00 FC 00 00 00"),
              "1\tGPS\tNot Used\t0\t40\n"
              "2\tGPS\tUsed    \t0\t40\n"
              "3\tGPS\tUsed    \t4\t40\n");
}

TEST_F(SatelliteReport, NamesEverySystem)
{
    EXPECT_EQ(report("00 00 00 00 01 09 00 00 "
                     "00 01 01 00 00 00 00 00 00 00 00 00 "
                     "01 02 02 00 00 00 00 00 00 00 00 00 "
                     "02 03 03 00 00 00 00 00 00 00 00 00 "
                     "03 04 04 00 00 00 00 00 00 00 00 00 "
                     "04 05 05 00 00 00 00 00 00 00 00 00 "
                     "05 06 06 00 00 00 00 00 00 00 00 00 "
                     "06 07 07 00 00 00 00 00 00 00 00 00 "
                     "07 08 08 00 00 00 00 00 00 00 00 00 "
                     "FF 09 FF 00 00 00 00 00 00 00 00 00"),
              "1\tGPS\tNot Used\t0\t1\n"
              "2\tSBAS\tNot Used\t0\t2\n"
              "3\tGALILEO\tNot Used\t0\t3\n"
              "4\tBEIDOU\tNot Used\t0\t4\n"
              "5\tIMES\tNot Used\t0\t5\n"
              "6\tQZSS\tNot Used\t0\t6\n"
              "7\tGLONASS\tNot Used\t0\t7\n"
              "8\tUNKNOWN\tNot Used\t0\t8\n"
              "9\tUNKNOWN\tNot Used\t0\t255\n");
}

TEST_F(SatelliteReport, HasAsManyLinesAsAreClaimedAlsoWhenTheReplyIsShort)
{
    std::string expected = "12\tGPS\tUsed    \t7\t44\n";
    for (int line = 2; line <= 255; ++line)
        expected += "0\tGPS\tNot Used\t0\t0\n";

    EXPECT_EQ(report("00 00 00 00 01 FF 00 00 00 0C 2C 2D 0E 01 05 00 1F 5F 00 00"), expected);
}

TEST_F(SatelliteReport, IgnoresSatellitesBeyondTheCount)
{
    EXPECT_EQ(report("00 00 00 00 01 01 00 00 "
                     "00 0C 2C 2D 0E 01 05 00 1F 5F 00 00 "
                     "06 05 1B A5 00 00 00 00 07 12 00 00"),
              "12\tGPS\tUsed    \t7\t44\n");
}

TEST_F(SatelliteReport, OfAReplyOfAnyLengthHas0ForWhatIsNotThere)
{
    const Bytes whole = bytes("FF FF FF FF FF 01 FF FF 06 0C 2C FF FF FF FF FF 0F FF FF FF");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const Bytes reply(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        EXPECT_EQ(report(testsupport::hex(reply)), length <= 5    ? ""
                                                   : length <= 8  ? "0\tGPS\tNot Used\t0\t0\n"
                                                   : length <= 9  ? "0\tGLONASS\tNot Used\t0\t0\n"
                                                   : length <= 10 ? "12\tGLONASS\tNot Used\t0\t0\n"
                                                   : length <= 16 ? "12\tGLONASS\tNot Used\t0\t44\n"
                                                                  : "12\tGLONASS\tUsed    \t7\t44\n")
            << length;
    }
}

TEST_F(SatelliteReport, DoesNotDependOnTheLocaleOfTheProcess)
{
    struct Grouping : std::numpunct<char>
    {
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\1"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));

    EXPECT_EQ(report("00 00 00 00 01 01 00 00 00 C8 2C 2D 0E 01 05 00 1F 5F 00 00"), "200\tGPS\tUsed    \t7\t44\n");

    std::locale::global(before);
}

TEST_F(SatelliteReport, OfASilentReceiverIsLeftAsItWas)
{
    std::string text = "as it was";

    EXPECT_EQ(whenSilent([&] { return controller.getSatelliteInfo(text); }), 4);

    EXPECT_EQ(text, "as it was");
    expectFrames({testsupport::kPollSatellites});
    EXPECT_EQ(errors(), Lines{"Did not receive : 01 35: Satellite Information"});
}

TEST_F(SatelliteReport, IsWaitedForFiveSeconds)
{
    int status = 0;
    std::string text;

    expectWait(std::chrono::seconds(5), 0x0135, [&] { status = controller.getSatelliteInfo(text); });

    EXPECT_EQ(status, 4);
}

TEST_F(SatelliteReport, WithoutADeviceIsLeftAsItWas)
{
    std::string text = "as it was";
    takeDeviceAway();

    EXPECT_EQ(controller.getSatelliteInfo(text), 8);

    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(errors(), Lines{"Could not send : 01 35: Satellite Information"});
}

} // namespace

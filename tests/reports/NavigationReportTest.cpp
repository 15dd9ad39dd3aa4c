#include <climits>
#include <locale>

#include "NeoM8tTest.h"

namespace
{

using testsupport::Bytes;
using testsupport::bytes;
using testsupport::Lines;
using testsupport::payload;

constexpr std::uint16_t kNavPvt = 0x0107;

// 7 March 2024, 09:05:42, 3D fix, 12 satellites, 47.3769 N, 8.54169 E, 455.123 m.
const std::string kZurich = payload(92, {{0, "10 20 30 40"},
                                         {4, "E8 07 03 07 09 05 2A"},
                                         {11, "00"}, // neither date nor time is marked as valid
                                         {20, "03 00"},
                                         {23, "0C"},
                                         {24, "C4 5B 17 05"},
                                         {28, "28 24 3D 1C"},
                                         {32, "D3 F1 06 00"},
                                         {36, "FF FF FF 7F"}});

class NavigationReport : public testsupport::NeoM8tTest
{
protected:
    std::string report(const std::string& what, const std::string& reply)
    {
        receiver().clearFaults();
        receiver().answerWith(kNavPvt, bytes(reply));
        std::string text = "as it was";
        EXPECT_EQ(controller.getNavsolution(what, text), 0);
        return text;
    }
};

TEST_F(NavigationReport, OfAllIsTimeFixAndPosition)
{
    EXPECT_EQ(report("ALL", kZurich), "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123");

    expectFrames({testsupport::kPollSolution});
}

TEST_F(NavigationReport, OfAnEmptyWordIsThatOfAll)
{
    EXPECT_EQ(report("", kZurich), "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123");
}

TEST_F(NavigationReport, OfOnePartHasNoComma)
{
    EXPECT_EQ(report("TIME", kZurich), "2024-03-07T09:05+42:00");
    EXPECT_EQ(report("FIX", kZurich), "3D-FIX");
    EXPECT_EQ(report("POS", kZurich), "47.3769,8.54169,455.123");
}

TEST_F(NavigationReport, OfAllInLowerCaseIsRefusedAndLogged)
{
    std::string text = "as it was";

    EXPECT_EQ(controller.getNavsolution("all", text), 1);

    expectNoFrames();
    EXPECT_EQ(errors(), Lines{"Parameter invalid: all"});
    EXPECT_EQ(text, "as it was");
}

TEST_F(NavigationReport, OfAnyOtherWordIsRefusedAndLogged)
{
    std::string text = "as it was";
    Lines expected;

    for (const char* word : {"time", "Fix", "TIME ", " POS", "POSITION", "TIME,FIX", "A"}) {
        EXPECT_EQ(controller.getNavsolution(word, text), 1) << word;
        expected.push_back(std::string("Parameter invalid: ") + word);
    }

    expectNoFrames();
    EXPECT_EQ(errors(), expected);
    EXPECT_EQ(text, "as it was");
}

TEST_F(NavigationReport, HasAWordForEachFixType)
{
    const struct
    {
        const char* fixType;
        const char* word;
    } cases[] = {{"00", "NO-FIX"}, {"01", "DEAD-RECKONING"},      {"02", "2D-FIX"},
                 {"03", "3D-FIX"}, {"04", "GNSS+DEAD-RECKONING"}, {"05", "TIME-ONLY"}};
    for (const auto& each : cases) {
        EXPECT_EQ(report("FIX", payload(92, {{19, "FF"}, {20, each.fixType}, {21, "FF"}})), each.word);
    }
}

TEST_F(NavigationReport, OfAFixTypeWithoutAWordIsEmpty)
{
    for (const char* fixType : {"06", "07", "80", "FF"}) {
        EXPECT_EQ(report("FIX", payload(92, {{20, fixType}})), "") << fixType;
        EXPECT_EQ(report("ALL", payload(92, {{20, fixType}})), "0-00-00T00:00+00:00,,0,0,0") << fixType;
    }
}

TEST_F(NavigationReport, PrintsSecond5AsTwoDigitsBehindThePlus)
{
    EXPECT_EQ(report("TIME", payload(92, {{4, "E8 07 0C 1F 17 3B 05"}})), "2024-12-31T23:59+05:00");
}

TEST_F(NavigationReport, PrintsTheYearWithoutPadding)
{
    EXPECT_EQ(report("TIME", payload(92, {{4, "07 00 01 02 03 04 05"}})), "7-01-02T03:04+05:00");
    EXPECT_EQ(report("TIME", payload(92, {{4, "FF FF FF FF FF FF FF"}})), "65535-255-255T255:255+255:00");
}

TEST_F(NavigationReport, OfASouthernWesternPositionIsNegative)
{
    // -33.8688197, -70.5412345 and -15.25 m
    EXPECT_EQ(report("POS", payload(92, {{24, "07 43 F4 D5"}, {28, "3B 07 D0 EB"}, {32, "6E C4 FF FF"}})),
              "-33.8688,-70.5412,-15.25");
}

TEST_F(NavigationReport, PrintsPositionsWithSixSignificantDigits)
{
    // 123.4567891, -214.7483648 (more than a longitude can be), 2147483.647 m
    EXPECT_EQ(report("POS", payload(92, {{24, "00 00 00 80"}, {28, "D3 02 96 49"}, {32, "FF FF FF 7F"}})),
              "123.457,-214.748,2.14748e+06");
    // 0.0000001, 0.0000002, 0.001 m
    EXPECT_EQ(report("POS", payload(92, {{24, "02"}, {28, "01"}, {32, "01"}})), "1e-07,2e-07,0.001");
}

TEST_F(NavigationReport, DoesNotDependOnTheLocaleOfTheProcess)
{
    struct Grouping : std::numpunct<char>
    {
        char do_decimal_point() const override { return ','; }
        char do_thousands_sep() const override { return '.'; }
        std::string do_grouping() const override { return "\1"; }
    };
    const std::locale before = std::locale::global(std::locale(std::locale(), new Grouping));

    EXPECT_EQ(report("ALL", kZurich), "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123");

    std::locale::global(before);
}

TEST_F(NavigationReport, OfASilentReceiverIsLeftAsItWas)
{
    for (const char* word : {"", "ALL", "TIME", "FIX", "POS"}) {
        std::string text = "as it was";

        EXPECT_EQ(whenSilent([&] { return controller.getNavsolution(word, text); }), 4) << word;

        EXPECT_EQ(text, "as it was");
    }
    EXPECT_EQ(errors(), Lines(5, "Did not receive : 01 07: Navigation Position Velocity Time Solution"));
}

TEST_F(NavigationReport, IsWaitedForFiveSeconds)
{
    int status = 0;
    std::string text;

    expectWait(std::chrono::seconds(5), kNavPvt, [&] { status = controller.getNavsolution("ALL", text); });

    EXPECT_EQ(status, 4);
}

TEST_F(NavigationReport, WithoutADeviceIsLeftAsItWas)
{
    std::string text = "as it was";
    takeDeviceAway();

    EXPECT_EQ(controller.getNavsolution("ALL", text), 8);

    EXPECT_EQ(text, "as it was");
    EXPECT_EQ(errors(), Lines{"Could not send : 01 07: Navigation Position Velocity Time Solution"});
}

TEST_F(NavigationReport, OfAShortReplyHas0ForWhatIsNotThere)
{
    const struct
    {
        std::size_t length;
        const char* text;
    } cases[] = {
        {0, "0-00-00T00:00+00:00,NO-FIX,0,0,0"},
        {4, "0-00-00T00:00+00:00,NO-FIX,0,0,0"},
        {5, "232-00-00T00:00+00:00,NO-FIX,0,0,0"},
        {6, "2024-00-00T00:00+00:00,NO-FIX,0,0,0"},
        {7, "2024-03-00T00:00+00:00,NO-FIX,0,0,0"},
        {8, "2024-03-07T00:00+00:00,NO-FIX,0,0,0"},
        {9, "2024-03-07T09:00+00:00,NO-FIX,0,0,0"},
        {10, "2024-03-07T09:05+00:00,NO-FIX,0,0,0"},
        {11, "2024-03-07T09:05+42:00,NO-FIX,0,0,0"},
        {20, "2024-03-07T09:05+42:00,NO-FIX,0,0,0"},
        {21, "2024-03-07T09:05+42:00,3D-FIX,0,0,0"},
        {24, "2024-03-07T09:05+42:00,3D-FIX,0,0,0"},
        {25, "2024-03-07T09:05+42:00,3D-FIX,0,1.96e-05,0"},
        {26, "2024-03-07T09:05+42:00,3D-FIX,0,0.0023492,0"},
        {27, "2024-03-07T09:05+42:00,3D-FIX,0,0.153082,0"},
        {28, "2024-03-07T09:05+42:00,3D-FIX,0,8.54169,0"},
        {29, "2024-03-07T09:05+42:00,3D-FIX,4e-06,8.54169,0"},
        {32, "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,0"},
        {33, "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,0.211"},
        {34, "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,61.907"},
        {35, "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123"},
        {36, "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123"},
        {91, "2024-03-07T09:05+42:00,3D-FIX,47.3769,8.54169,455.123"},
    };
    const Bytes whole = bytes(kZurich);
    for (const auto& each : cases) {
        const Bytes reply(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(each.length));
        EXPECT_EQ(report("ALL", testsupport::hex(reply)), each.text) << each.length;
    }
}

TEST_F(NavigationReport, IsMadeOfRepliesOfEveryLength)
{
    const Bytes whole = bytes(kZurich + " 01 02 03 04");
    for (std::size_t length = 0; length <= whole.size(); ++length) {
        const Bytes reply(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length));
        const std::string text = report("ALL", testsupport::hex(reply));
        EXPECT_EQ(text.substr(text.find_first_of('T') + 3, 1), ":") << length;
    }
}

} // namespace

// Values as operators write them, and files of settings.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "apply/StateFile.h"
#include "session/Failure.h"
#include "settings/Quantity.h"
#include "settings/Setting.h"

using namespace ubxctl;
using testing::HasSubstr;

namespace
{

std::string shown(const char* key, const std::string& text)
{
    const Setting& setting = *findSetting(key);
    return setting.format.show(setting.format.parse(text));
}

/// The line that a file is refused with.
std::string refusalOf(const std::string& file)
{
    try {
        parseStateFile(file, "f");
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.exitCode(), 64);
        return failure.what();
    }
    return "taken";
}

} // namespace

TEST(Quantity, TakesDurationsInTheirUnits)
{
    EXPECT_EQ(parseDuration("10800"), 10800);
    EXPECT_EQ(parseDuration("90s"), 90);
    EXPECT_EQ(parseDuration("90min"), 5400);
    EXPECT_EQ(parseDuration("2m"), 120);
    EXPECT_EQ(parseDuration("3h"), 10800);
    EXPECT_EQ(parseDuration("0.5 h"), 1800);
    EXPECT_EQ(parseDuration("1d"), 86400);
    for (const char* bad : {"", "h", "3x", "3hh", "nan", "inf", "1e3", "0x10", "3h4"})
        EXPECT_FALSE(parseDuration(bad).has_value()) << bad;
}

TEST(Quantity, TakesLengthsInTheirUnits)
{
    EXPECT_EQ(parseLength("1"), 1);
    EXPECT_EQ(parseLength("-12.5m"), -12.5);
    EXPECT_EQ(parseLength("50cm"), 0.5);
    EXPECT_EQ(parseLength("20mm"), 0.02);
    EXPECT_FALSE(parseLength("1km").has_value());
}

TEST(Quantity, TakesWholeNumbersOnly)
{
    EXPECT_EQ(parseWhole("-32768"), -32768);
    EXPECT_EQ(parseWhole("+7"), 7);
    for (const char* bad : {"", "1.5", "1 2", "0x1", "99999999999999999999"})
        EXPECT_FALSE(parseWhole(bad).has_value()) << bad;
}

TEST(Values, AreTakenInAnyCaseAndShownInOne)
{
    EXPECT_EQ(shown("constellations", "gps,Galileo,GLONASS"), "GPS,GAL,GLO");
    EXPECT_EQ(shown("constellations", " GLO , GPS "), "GPS,GLO");
    EXPECT_EQ(shown("antenna-type", "ACTIVE"), "active");
    EXPECT_EQ(shown("time-reference", "utc"), "UTC");
    EXPECT_EQ(shown("jamming-detection", "On"), "on");
    EXPECT_EQ(shown("cable-delay", "42 ns"), "42");
    EXPECT_EQ(shown("cable-delay", "-7ns"), "-7");
    EXPECT_EQ(shown("timing-mode", "Survey 3h 1m"), "survey 10800s 1m");
    EXPECT_EQ(shown("timing-mode", "fixed -31.9505 115.8605 24.5m 5cm"), "fixed -31.9505000 115.8605000 24.50m 0.05m");
}

TEST(Values, OutOfRangeAreRefusedAtBothEnds)
{
    const std::pair<const char*, std::vector<const char*>> taken[] = {
        {"cable-delay", {"-32768", "32767"}},
        {"min-cno", {"0", "50"}},
        {"elevation", {"5", "60"}},
        {"timing-mode",
         {"survey 1s 0.01", "survey 30000000 50m", "fixed 90 180 10000 200", "fixed -90 -180 -1000 0.01"}}};
    const std::pair<const char*, std::vector<const char*>> refused[] = {
        {"cable-delay", {"-32769", "32768", "1.5", "ns", ""}},
        {"min-cno", {"-1", "51"}},
        {"elevation", {"4", "61"}},
        {"constellations", {"", ",", "NAVSTAR", "69", "GPS GAL"}},
        {"antenna-type", {"", "aktive"}},
        {"timing-mode",
         {"", "survey", "survey 0s 1m", "survey 30000001 1m", "survey 1h 0.009", "survey 1h 50.1", "fixed 90.1 0 0 1",
          "fixed 0 180.1 0 1", "fixed 0 0 10001 1", "fixed 0 0 0 201", "dynamic 3"}}};
    for (const auto& [key, texts] : taken) {
        for (const char* text : texts)
            EXPECT_NO_THROW(findSetting(key)->format.parse(text)) << key << " " << text;
    }
    for (const auto& [key, texts] : refused) {
        for (const char* text : texts)
            EXPECT_THROW(findSetting(key)->format.parse(text), BadValue) << key << " " << text;
    }
}

TEST(Values, OfTheTimingModeAreTheSameWithinWhatTheReceiverResolves)
{
    const Format format = Format::timingMode();
    const auto same = [&](const char* one, const char* other) {
        return format.same(format.parse(one), format.parse(other));
    };
    EXPECT_TRUE(same("survey 3h 1m", "survey 10800s 100cm"));
    EXPECT_TRUE(same("survey 3h 0.01", "survey 3h 0.011"));
    EXPECT_FALSE(same("survey 3h 1m", "survey 3h 1.1m"));
    EXPECT_FALSE(same("survey 3h 1m", "survey 10801s 1m"));
    EXPECT_TRUE(same("fixed 47.3769 8.54169 455.12 1", "fixed 47.3768999 8.5416899 455.11 1"));
    EXPECT_FALSE(same("fixed 47.3769 8.54169 455.12 1", "fixed 47.3769 8.54169 455.2 1"));
    EXPECT_FALSE(same("fixed 47.3769 8.54169 455.12 1", "fixed 47.376901 8.54169 455.12 1"));
    EXPECT_FALSE(same("dynamic", "survey 3h 1m"));
}

TEST(StateFile, TakesCommentsBlanksAndAnyOrder)
{
    const auto wanted = parseStateFile("# a site\r\n\n  cable-delay=42   # of 8 m\n constellations = GPS , GAL\n", "f");
    ASSERT_EQ(wanted.size(), 2U);
    EXPECT_STREQ(wanted[0].setting->key, "constellations"); // it disturbs the delay, so it is written first
    EXPECT_EQ(wanted[0].line, 4);
    EXPECT_STREQ(wanted[1].setting->key, "cable-delay");
    EXPECT_EQ(std::get<long>(wanted[1].value), 42);
}

TEST(StateFile, IsRefusedWithTheLineThatIsWrong)
{
    EXPECT_THAT(refusalOf("\ncable-delay 42\n"), testing::StartsWith("f:2: a line is \"key = value\""));
    EXPECT_THAT(refusalOf("cabel-delay = 42"), testing::StartsWith("f:1: there is no setting \"cabel-delay\""));
    EXPECT_THAT(refusalOf("elevation = 5\n\n\nmin-cno = 51"),
                testing::StartsWith("f:4: min-cno: it takes 0 to 50 dBHz"));
    EXPECT_THAT(refusalOf("elevation = 5\nelevation = 6"), testing::StartsWith("f:2: elevation stands in line 1"));
    EXPECT_EQ(refusalOf(""), "taken");
}

TEST(StateFile, MayBeginWithTheMarkOfSomeEditors)
{
    const auto wanted = parseStateFile("\xEF\xBB\xBF"
                                       "cable-delay = 42\r\nmin-cno = 9",
                                       "f");
    ASSERT_EQ(wanted.size(), 2U);
    EXPECT_STREQ(wanted[0].setting->key, "cable-delay");
    EXPECT_STREQ(wanted[1].setting->key, "min-cno");
}

TEST(StateFile, WithZeroBytesIsNoText)
{
    using namespace std::string_literals;
    EXPECT_EQ(refusalOf("elevation = 5\ncable\0-delay = 42\n"s), "f:2: a zero byte: this is no text");
}

TEST(StateFile, ThatCanNotBeReadToItsEndIsNotTakenForAShortOne)
{
    try {
        readStateFile("/proc/self/mem");
        ADD_FAILURE() << "taken";
    } catch (const Failure& failure) {
        EXPECT_EQ(failure.exitCode(), 74);
        EXPECT_THAT(failure.what(), HasSubstr("/proc/self/mem can't be read to its end"));
    }
}

// parserGnssChipInfo(): the fields of a version line. What it found shows in the chip-info file.

#include <gtest/gtest.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "FacadeTest.h"

using namespace testsupport;

namespace
{

/// With a facade that knows nothing yet: there is no receiver.
class VersionParser : public FacadeTest
{
protected:
    VersionParser()
    {
        const CapturedOutput withoutAReceiver(STDERR_FILENO);
        controller = std::make_unique<ubxController>();
    }

    /// What is left of the text.
    std::string parse(std::string text)
    {
        EXPECT_EQ(controller->parserGnssChipInfo(text), 0);
        return text;
    }

    /// Hardware, firmware and protocol version and module name.
    Lines found()
    {
        std::filesystem::remove(kChipInfoFile);
        controller->saveUbloxChipInfo();
        Lines values;
        for (const std::string& line : chipInfoFile())
            values.push_back(line.substr(line.find('=') + 1));
        values.erase(values.begin());
        return values;
    }

    std::unique_ptr<ubxController> controller;
};

TEST_F(VersionParser, FillsAllFourFromSixFieldsAndLeavesTheConstellations)
{
    const std::string rest = parse("EXT CORE 1.00 (3fda8e): 00190000: FWVER=TIM 2.20: PROTVER=29.20: MOD=ZED-F9T: "
                                   "GPS;GLO;GAL;BDS");

    EXPECT_EQ(found(), (Lines{"00190000", "TIM 2.20", "29.20", "ZED-F9T"}));
    EXPECT_EQ(rest, "GPS;GLO;GAL;BDS");
    EXPECT_TRUE(controller->isZedF9t());
}

TEST_F(VersionParser, FindsTheFieldsInAnyOrder)
{
    parse("MOD=NEO-M8T-0: PROTVER=22.00: FWVER=TIM 1.10: 00080000: ");

    EXPECT_EQ(found(), (Lines{"00080000", "TIM 1.10", "22.00", "NEO-M8T-0"}));
    EXPECT_TRUE(controller->isNeoM8t());
}

TEST_F(VersionParser, DoesNotLookAtTheLastField)
{
    EXPECT_EQ(parse("00080000: FWVER=TIM 1.10: MOD=NEO-M8T-0"), "MOD=NEO-M8T-0");

    EXPECT_EQ(found(), (Lines{"00080000", "TIM 1.10", "", ""}));
}

TEST_F(VersionParser, LeavesATextWithoutASeparatorAsItIs)
{
    EXPECT_EQ(parse("00190000"), "00190000");
    EXPECT_EQ(parse(""), "");
    EXPECT_EQ(parse("FWVER=TIM 2.20:PROTVER=29.20:"), "FWVER=TIM 2.20:PROTVER=29.20:");

    EXPECT_EQ(found(), (Lines{"", "", "", ""}));
}

TEST_F(VersionParser, TakesAHardwareVersionOnlyAsAWholeField)
{
    parse("x00190000: 00190000x: 0019000: HW 00190000:  00190000: ");

    EXPECT_EQ(found().at(0), "");
    EXPECT_FALSE(controller->isZedF9t());
}

TEST_F(VersionParser, KnowsTheOtherFieldsByHowTheyBegin)
{
    parse("FWVERSION=1: PROTOCOL=2: MODEL=3: end");

    EXPECT_EQ(found(), (Lines{"", "ION=1", "=2", "L=3"})) << "6, 8 and 4 letters less";
}

TEST_F(VersionParser, ComparesLettersAsTheyAre)
{
    parse("fwver=TIM 1.10: Protver=22.00: mod=NEO-M8T-0:  FWVER=TIM 1.10: end");

    EXPECT_EQ(found(), (Lines{"", "", "", ""}));
}

TEST_F(VersionParser, TakesTheLastOfSeveralFieldsOfAKind)
{
    parse("00190000: FWVER=TIM 2.01: FWVER=TIM 2.20: MOD=A: MOD=B: 00080000: end");

    EXPECT_EQ(found(), (Lines{"00080000", "TIM 2.20", "", "B"}));
}

TEST_F(VersionParser, LeavesNothingOfAFieldThatIsShorterThanWhatItCuts)
{
    parse("FWVER: PROT: MOD: end");

    EXPECT_EQ(found(), (Lines{"", "", "", ""}));
}

TEST_F(VersionParser, PassesOverEmptyFields)
{
    EXPECT_EQ(parse(": : : 00080000: : "), "");

    EXPECT_EQ(found().at(0), "00080000");
}

TEST_F(VersionParser, SplitsAtColonAndBlankOnly)
{
    EXPECT_EQ(parse("MOD=A:B : C;D:: FWVER=X : 1: rest: "), "");

    EXPECT_EQ(found(), (Lines{"", "X ", "", "A:B "}));
}

TEST_F(VersionParser, CutsOnceMoreAtEveryCall)
{
    parse("00190000: FWVER=TIM 2.20: PROTVER=29.20: MOD=ZED-F9T: end");

    parse("nothing in it");

    EXPECT_EQ(found(), (Lines{"00190000", "20", "", "F9T"}));

    parse("");

    EXPECT_EQ(found(), (Lines{"00190000", "", "", ""}));
}

TEST_F(VersionParser, ReplacesTheWholeOfWhatItHad)
{
    parse("FWVER=TIM 2.20 and more: MOD=ZED-F9T: end");
    parse("FWVER=X: MOD=Y: end");

    EXPECT_EQ(found(), (Lines{"", "X", "", "Y"}));
}

TEST_F(VersionParser, IsQuickWithALongText)
{
    std::string text;
    for (int i = 0; i < 200000; ++i)
        text += "MOD=x: ";

    EXPECT_EQ(parse(text), "");

    EXPECT_EQ(found().at(3), "x");
}

TEST_F(VersionParser, KnowsTwoHardwareVersions)
{
    EXPECT_EQ(controller->getZedF9t(), "00190000");
    EXPECT_EQ(controller->getNeoM8t(), "00080000");
    EXPECT_TRUE(controller->isVersionValid("00190000"));
    EXPECT_TRUE(controller->isVersionValid("00080000"));
    for (const char* other : {"", "0019000", "001900000", "00190001", " 00190000", "00070000", "ZED-F9T"}) {
        EXPECT_FALSE(controller->isVersionValid(other)) << other;
    }
}

} // namespace

// A command that reads its value back asks the object itself: a derived controller may read it in another way.

#include "NeoM8tTest.h"

namespace
{

/// A controller whose getters answer what they are told, or nothing, and count.
struct Answering : ubxController_NEOM8T
{
    int answer(bool writes)
    {
        ++asked;
        return writes ? 0 : 4;
    }
    int getAntennaDelay(int& delay) override
    {
        if (answers) delay = 17;
        return answer(answers);
    }
    int getGnssSystem(unsigned short& mask) override
    {
        if (answers) mask = 17;
        return answer(answers);
    }
    int getSurveyMode(std::string& mode) override
    {
        if (answers) mode = "AUTO";
        return answer(answers);
    }
    int getMinCNo(signed char& minCNo) override
    {
        if (answers) minCNo = 17;
        return answer(answers);
    }
    int isOn(bool& on) override
    {
        if (answers) on = true;
        return answer(answers);
    }

    bool answers = true;
    int asked = 0;
};

class Verification : public testsupport::NeoM8tTest
{
protected:
    Answering derived;
};

TEST_F(Verification, TakesTheValuesOfTheObjectsOwnGetters)
{
    EXPECT_EQ(derived.setAntennaDelay(17), 0);
    EXPECT_EQ(derived.setGnssSystem(17), 0);
    EXPECT_EQ(derived.setMinCNo(17), 0);
    EXPECT_EQ(derived.setSurveyAuto(60, 1.0F), 0);
    EXPECT_EQ(derived.turnOn(), 0); // asks for the constellations too

    EXPECT_EQ(derived.asked, 6);
    for (const std::string& sent : takeFrames()) {
        EXPECT_NE(sent.substr(12, 5), "00 00") << "no poll of its own: " << sent;
    }
}

TEST_F(Verification, ReportsWhatTheObjectsOwnGettersHaveOtherwise)
{
    EXPECT_EQ(derived.setAntennaDelay(18), 1);
    EXPECT_EQ(derived.setGnssSystem(1), 1);
    EXPECT_EQ(derived.setMinCNo(18), 1);
    EXPECT_EQ(derived.setSurveyStatic(45.0, 7.0, 300.0, 1.0), 1);
    EXPECT_EQ(derived.setSurveyDynamic(), 1);
    EXPECT_EQ(derived.turnOff(), 1);
}

TEST_F(Verification, StartsFromZeroFalseOrEmpty)
{
    derived.answers = false;

    EXPECT_EQ(derived.setAntennaDelay(0), 4);
    EXPECT_EQ(derived.setGnssSystem(0), 4);
    EXPECT_EQ(derived.setMinCNo(0), 4);
    EXPECT_EQ(derived.turnOff(), 4);

    EXPECT_EQ(derived.setAntennaDelay(1), 5);
    EXPECT_EQ(derived.setGnssSystem(1), 5);
    EXPECT_EQ(derived.setMinCNo(1), 5);
    EXPECT_EQ(derived.setSurveyStatic(45.0, 7.0, 300.0, 1.0), 5);
    EXPECT_EQ(derived.setSurveyAuto(), 5);
    EXPECT_EQ(derived.setSurveyDynamic(), 5);
    EXPECT_EQ(derived.turnOn(), 5);
}

} // namespace

// A ZED-F9T's settings through the configuration interface: what is sent, and what is made of what is read back.

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "CapturedOutput.h"
#include "Frames.h"
#include "ItemSetters.h"
#include "WireFrames.h"
#include "ZedF9tTest.h"

using testsupport::CapturedOutput;
using testsupport::frame;
using zedtest::ItemSetter;
using zedtest::ZedF9tTest;
using Lines = std::vector<std::string>;

namespace
{

class ItemSetterTest : public ZedF9tTest, public testing::WithParamInterface<ItemSetter>
{
protected:
    static Lines frames()
    {
        Lines all = {GetParam().command};
        all.insert(all.end(), GetParam().polls.begin(), GetParam().polls.end());
        return all;
    }

    void answerEach(const std::vector<const char*>& replies)
    {
        for (const char* const items : replies)
            answerItems(items, 1);
    }
};

INSTANTIATE_TEST_SUITE_P(All, ItemSetterTest, testing::ValuesIn(zedtest::kItemSetters),
                         [](const auto& setter) { return std::string(setter.param.name); });

TEST_P(ItemSetterTest, SendsItsItemsAndReadsThemBack)
{
    answerEach(GetParam().written);

    EXPECT_EQ(GetParam().set(controller), 0);

    expectFrames(frames());
    EXPECT_EQ(log(), Lines{});
}

TEST_P(ItemSetterTest, Reports1WhenTheReceiverHoldsAnotherValue)
{
    answerEach(GetParam().other);

    EXPECT_EQ(GetParam().set(controller), 1);

    expectFrames(frames()); // everything is read back, whatever came before
    EXPECT_EQ(log(), Lines{});
}

TEST_P(ItemSetterTest, ReportsAndLogsThatNothingCouldBeReadBack)
{
    Lines expected;
    for (const char* const label : GetParam().labels)
        expected.push_back(std::string("Did not receive : ") + label);
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(whenSilent([&] { return GetParam().set(controller); }), GetParam().silentStatus);

    expectFrames(frames());
    EXPECT_EQ(log(), expected);
}

TEST_P(ItemSetterTest, LogsEachFrameThatCouldNotBeWrittenWithoutADevice)
{
    Lines expected = {"Could not send : 06 8A: Unknown message type"};
    for (const char* const label : GetParam().labels) {
        expected.emplace_back("Could not send : 06 8B: Configuration Items");
        expected.push_back(std::string("Did not receive : ") + label);
    }
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(GetParam().set(controller), GetParam().silentStatus);

    EXPECT_EQ(log(), expected);
}

class SurveyAutoByKey : public ZedF9tTest
{
protected:
    // What setSurveyAuto(10800, 1.0) makes of these replies.
    int status(const char* mode, const char* duration, const char* accuracy)
    {
        receiver().clearFaults();
        answerItems(std::string("01 00 03 20 ") + mode, 1);
        answerItems(std::string("10 00 03 40 ") + duration, 1);
        answerItems(std::string("11 00 03 40 ") + accuracy, 1);
        return controller.setSurveyAuto(10800, 1.0F);
    }
};

TEST_F(SurveyAutoByKey, Reports1WhenAnyOneOfThreeValuesDiffers)
{
    EXPECT_EQ(status("01", "30 2A 00 00", "10 27 00 00"), 0);
    EXPECT_EQ(status("02", "30 2A 00 00", "10 27 00 00"), 1);
    EXPECT_EQ(status("03", "30 2A 00 00", "10 27 00 00"), 1);
    EXPECT_EQ(status("01", "31 2A 00 00", "10 27 00 00"), 1);
    EXPECT_EQ(status("01", "30 2A 00 00", "11 27 00 00"), 1);
    EXPECT_EQ(status("00", "00 00 00 00", "00 00 00 00"), 1);
}

TEST_F(SurveyAutoByKey, ReadsAllThreeBackWhicheverIsMissing)
{
    const Lines frames = {zedtest::kSurvey10800sOneMetreItems, zedtest::kPollTimingModeItem,
                          zedtest::kPollSurveyDurationItem, zedtest::kPollSurveyAccuracyItem};
    for (int missing = 0; missing < 3; ++missing) {
        SCOPED_TRACE(missing);
        receiver().clearFaults();
        const char* const replies[] = {"01 00 03 20 01", "10 00 03 40 30 2A 00 00", "11 00 03 40 10 27 00 00"};
        for (int i = 0; i < 3; ++i) {
            if (i == missing)
                answerWrongly(0x068B);
            else
                answerItems(replies[i], 1);
        }

        EXPECT_EQ(whileOneWaitIsInVain([&] { return controller.setSurveyAuto(10800, 1.0F); }), 5);

        expectFrames(frames);
    }
    EXPECT_EQ(log(), Lines(3, "Did not receive : Receiver mode"));
}

class UtcStandardByKey : public ZedF9tTest
{};

TEST_F(UtcStandardByKey, AutomaticIsSentAndNotReadBack)
{
    receiver();

    EXPECT_EQ(controller.setUtcStandardAuto(), 0);

    expectFrames({"B5 62 06 8A 09 00 00 01 00 00 1C 00 11 20 00 E7 30"});
}

TEST_F(UtcStandardByKey, FollowsTheGnssMask)
{
    receiver();

    EXPECT_EQ(controller.setUtsStandardTime(1), 0);
    EXPECT_EQ(controller.setUtsStandardTime(4), 0);
    EXPECT_EQ(controller.setUtsStandardTime(64), 0);
    EXPECT_EQ(controller.setUtsStandardTime(8), 0);

    expectFrames(
        {"B5 62 06 8A 09 00 00 01 00 00 1C 00 11 20 01 E8 31", "B5 62 06 8A 09 00 00 01 00 00 1C 00 11 20 02 E9 32",
         "B5 62 06 8A 09 00 00 01 00 00 1C 00 11 20 03 EA 33", "B5 62 06 8A 09 00 00 01 00 00 1C 00 11 20 04 EB 34"});
}

TEST_F(UtcStandardByKey, IsAutomaticForEveryMaskThatIsNotListed)
{
    const auto standard = [](int mask) {
        switch (mask) {
        case 1:
        case 3:
        case 5:
        case 9:
        case 65:
        case 67:
        case 71:
            return "01";
        case 4:
        case 6:
            return "02";
        case 64:
        case 66:
        case 68:
        case 72:
            return "03";
        case 8:
        case 10:
            return "04";
        default:
            return "00";
        }
    };
    receiver();
    Lines expected;
    for (int mask = -128; mask <= 127; ++mask) {
        expected.push_back(frame("06 8A", std::string("00 01 00 00 1C 00 11 20 ") + standard(mask)));

        ASSERT_EQ(controller.setUtsStandardTime(static_cast<signed char>(mask)), 0);
    }
    expectFrames(expected);
}

TEST_F(UtcStandardByKey, CountsAsDoneWithoutADevice)
{
    const CapturedOutput errors(STDERR_FILENO);

    EXPECT_EQ(controller.setUtcStandardAuto(), 0);
    EXPECT_EQ(controller.setUtsStandardTime(1), 0);

    EXPECT_EQ(log(), Lines(2, "Could not send : 06 8A: Unknown message type"));
}

} // namespace

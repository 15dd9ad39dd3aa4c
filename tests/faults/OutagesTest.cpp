// A receiver that takes nothing, goes away, starts anew or loses its supply.

#include "FaultTest.h"

namespace
{

using testsupport::kNotReceived;
using testsupport::kNotSent;
using testsupport::Lines;

constexpr signed char kMinCNoWithoutSettings = 6; // of a receiver that has lost its settings

class Outage : public testsupport::FaultTest
{};

TEST_F(Outage, OfAReceiverThatStopsReadingGivesStatus8)
{
    play("stop-reading");
    EXPECT_EQ(ask(), 8);
    EXPECT_EQ(errors(), Lines{kNotSent});

    play("resume-reading");
    expectTheNextWorks();
    EXPECT_EQ(errors(), Lines{kNotSent});
}

TEST_F(Outage, OfAReceiverThatStopsReadingShowsInACommandThatReadsBack)
{
    play("stop-reading");
    EXPECT_EQ(controller.setMinCNo(40), 9);
    EXPECT_EQ(errors(), (Lines{kNotSent, kNotSent}));

    play("resume-reading");
    EXPECT_EQ(controller.setMinCNo(40), 0);
}

TEST_F(Outage, OfADeviceThatHangsUpGivesStatus8UntilItComesBack)
{
    play("hang-up");
    EXPECT_EQ(ask(), 8);
    EXPECT_EQ(errors(), Lines{kNotSent});

    play("come-back");
    expectTheNextWorks();
    EXPECT_EQ(errors(), Lines{kNotSent});
}

TEST_F(Outage, OfADeviceThatHangsUpInsteadOfAnsweringGivesStatus4)
{
    play("hang-up CFG-NAVX5 x1");
    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), Lines{kNotReceived});
    EXPECT_EQ(ask(), 8);

    play("come-back");
    expectTheNextWorks();
    EXPECT_EQ(errors(), (Lines{kNotReceived, kNotSent}));
}

TEST_F(Outage, OfAReceiverThatRestartsLastsUntilItHasStartedAndCostsUnsavedSettings)
{
    play("restart");
    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), Lines{kNotReceived});

    ASSERT_TRUE(answersAgain());
    expectTheNextWorks(kMinCNoWithoutSettings);
}

TEST_F(Outage, OfAReceiverThatRestartsInsteadOfAnsweringIsTheSame)
{
    EXPECT_EQ(controller.save(), 0);
    takeFrames();
    play("restart CFG-NAVX5 x1");
    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), Lines{kNotReceived});

    ASSERT_TRUE(answersAgain());
    expectTheNextWorks(); // saved
}

TEST_F(Outage, OfTheSupplyInTheMiddleOfASaveIsNotSeenByTheSave)
{
    play("power-loss CFG-CFG x1");
    EXPECT_EQ(controller.save(), 0);
    EXPECT_EQ(errors(), Lines{});
    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), Lines{kNotReceived});

    ASSERT_TRUE(answersAgain());
    EXPECT_EQ(controller.setMinCNo(17), 0);
    EXPECT_EQ(controller.save(), 0);
    takeFrames();
    EXPECT_EQ(receiver().storedValue(ubxsim::Layer::flash, kMinCNo), 17U);
    expectTheNextWorks();
}

TEST_F(Outage, OfTheSupplyCostsUnsavedSettings)
{
    play("power-loss");
    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), Lines{kNotReceived});

    ASSERT_TRUE(answersAgain());
    expectTheNextWorks(kMinCNoWithoutSettings);
}

TEST_F(Outage, OfTheSupplyAndTheBatteryDoesNotCostWhatIsInFlash)
{
    EXPECT_EQ(controller.save(), 0);
    takeFrames();
    play("power-loss no-battery");
    EXPECT_EQ(askInVain(), 4);

    ASSERT_TRUE(answersAgain());
    expectTheNextWorks();
}

} // namespace

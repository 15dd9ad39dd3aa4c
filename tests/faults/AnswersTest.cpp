// Answers that do not come, or not as they should.

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include "FaultTest.h"

namespace
{

using testsupport::kNotReceived;
using testsupport::Lines;

class Answer : public testsupport::FaultTest
{
protected:
    void expectAnswered()
    {
        expectTheNextWorks();
        EXPECT_EQ(errors(), Lines{});
        expectTheNextWorks();
    }

    void expectNoAnswerOnce()
    {
        EXPECT_EQ(askInVain(), 4);
        EXPECT_EQ(value, 0);
        EXPECT_EQ(errors(), Lines{kNotReceived});
        expectTheNextWorks();
        EXPECT_EQ(errors(), Lines{kNotReceived});
    }

    /// Until something has come that nobody has read.
    bool somethingComes()
    {
        const int line = ::open("/dev/tty_gps", O_RDONLY | O_NOCTTY | O_CLOEXEC);
        pollfd waiting{line, POLLIN, 0};
        const bool came = ::poll(&waiting, 1, 10000) == 1;
        ::close(line);
        return came;
    }
};

TEST_F(Answer, ThatDoesNotComeGivesStatus4)
{
    play("ignore CFG-NAVX5 x1");

    expectNoAnswerOnce();
}

TEST_F(Answer, ToACommandIsNotMissedSoThatOnlyTheValueTellsThatItWasIgnored)
{
    play("ignore CFG-NAVX5 sets x1");

    EXPECT_EQ(controller.setMinCNo(40), 1);
    EXPECT_EQ(errors(), Lines{});
    EXPECT_EQ(controller.setMinCNo(40), 0);
}

TEST_F(Answer, ThatRefusesAPollIsAsGoodAsNone)
{
    play("refuse CFG-NAVX5 x1");

    expectNoAnswerOnce();
}

TEST_F(Answer, ThatRefusesACommandShowsInTheValueOnly)
{
    play("refuse CFG-NAVX5 sets x1");

    EXPECT_EQ(controller.setMinCNo(40), 1);
    EXPECT_EQ(errors(), Lines{});
    EXPECT_EQ(controller.setMinCNo(40), 0);
}

TEST_F(Answer, ThatAcknowledgesWhatIsNotAppliedIsNotBelieved)
{
    play("keep-value CFG-NAVX5 x1");

    EXPECT_EQ(controller.setMinCNo(40), 1);
    EXPECT_EQ(errors(), Lines{});
    EXPECT_EQ(controller.setMinCNo(40), 0);
}

TEST_F(Answer, ThatIsTooShortHasNoValue)
{
    play("answer CFG-NAVX5 02 00 x1");

    EXPECT_EQ(ask(), 0);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(errors(), Lines{});
    expectTheNextWorks();
}

TEST_F(Answer, ThatIsNoFrameIsNoAnswer)
{
    play("answer-raw CFG-NAVX5 DE AD BE EF x1");

    expectNoAnswerOnce();
}

TEST_F(Answer, ThatIsLateButWithinTheLimitIsAwaited)
{
    play("late CFG-NAVX5 300ms x1");

    expectAnswered();
}

TEST_F(Answer, ThatComesAfterTheLimitIsNotTakenForTheNext)
{
    play("late CFG-NAVX5 1s x1");
    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), Lines{kNotReceived});
    ASSERT_TRUE(somethingComes()) << "the late answer";
    ASSERT_TRUE(receiver().setKeyValue(kMinCNo, 18));

    expectTheNextWorks(18);
    EXPECT_EQ(errors(), Lines{kNotReceived});
}

TEST_F(Answer, ThatComesTwiceCountsOnce)
{
    play("twice CFG-NAVX5 x1");

    expectAnswered();
}

TEST_F(Answer, ThatComesAfterTheNextOneDoesNotDisturbThatOne)
{
    ASSERT_TRUE(receiver().setKeyValue(0x201100A4, 12)); // the elevation limit
    play("out-of-order CFG-NAVX5 x1");

    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), Lines{kNotReceived});
    unsigned char elevation = 0;
    EXPECT_EQ(controller.getElevationLimit(elevation), 0);
    EXPECT_EQ(elevation, 12);
    expectTheNextWorks();
}

TEST_F(Answer, InPiecesWithGapsIsPutTogether)
{
    play("pieces CFG-NAVX5 1 2ms x1");

    expectAnswered();
}

TEST_F(Answer, WithAWrongChecksumOnceIsMissed)
{
    play("checksum CFG-NAVX5 x1");

    expectNoAnswerOnce();
}

TEST_F(Answer, WithAWrongChecksumAndThenAGoodOneIsTakenAtTheLimit)
{
    play("checksum CFG-NAVX5 x1");
    play("twice CFG-NAVX5 x1");
    {
        const testclock::FastClock clock(5); // a second, so that the good copy comes in time
        EXPECT_EQ(ask(), 0);
    }

    EXPECT_EQ(value, 17);
    EXPECT_EQ(errors(), Lines{});
    expectTheNextWorks();
}

TEST_F(Answer, WithAWrongChecksumEveryTimeIsMissedEveryTime)
{
    play("checksum CFG-NAVX5");

    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(askInVain(), 4);
    EXPECT_EQ(errors(), (Lines{kNotReceived, kNotReceived}));
    unsigned char elevation = 0;
    EXPECT_EQ(controller.getElevationLimit(elevation), 0) << "another message is not concerned";
    play("clear-faults");
    expectTheNextWorks();
}

TEST_F(Answer, ThatIsCutShortIsMissedWithWhatFollowsIt)
{
    play("truncate CFG-NAVX5 20 x1");

    expectNoAnswerOnce();
}

TEST_F(Answer, ThatClaimsToBeMuchLongerIsMissed)
{
    play("wrong-length CFG-NAVX5 200 x1");

    expectNoAnswerOnce();
}

TEST_F(Answer, ThatClaimsToBeALittleLongerIsMissed)
{
    play("wrong-length CFG-NAVX5 1 x1");

    expectNoAnswerOnce();
}

TEST_F(Answer, BehindAnotherMessageIsFound)
{
    play("precede CFG-NAVX5 frame CFG-RATE E8 03 01 00 01 00 x1");

    expectAnswered();
}

TEST_F(Answer, ToWhatNobodyAskedIsThrownAwayWithTheNextPort)
{
    play("say frame CFG-NAVX5 02 00"); // too short to hold the value
    ASSERT_TRUE(somethingComes());

    expectAnswered();
}

TEST_F(Answer, BehindABurstOfNmeaIsFound)
{
    play("precede CFG-NAVX5 nmea 30 x1");

    expectAnswered();
}

TEST_F(Answer, BehindNoiseIsFound)
{
    play("precede CFG-NAVX5 noise 1500 x1");

    expectAnswered();
}

TEST_F(Answer, BehindFalseSyncPairsIsFound)
{
    play("precede CFG-NAVX5 false-sync 50 x1");

    expectAnswered();
}

} // namespace

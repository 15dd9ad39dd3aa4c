// Whole operations on a receiver that answers late, twice, in pieces, damaged, drowned or not at all.

#include <ubxController_NEOM8T.h>

#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <unistd.h>

#include "CapturedOutput.h"
#include "Files.h"
#include "Frames.h"
#include "LinkTest.h"
#include "ReceiverTest.h"

namespace
{

using linktest::kErrored;
using linktest::kTimedOut;
using testsupport::Bytes;
using testsupport::bytes;
using testsupport::CapturedOutput;

using Lines = std::vector<std::string>;

constexpr std::uint16_t kNavx5 = 0x0623;
constexpr const char* kLog = "/var/log/rxtool-neom8t-errors.log";

/// The receiver holds a minimum signal level of 17.
class FaultyReceiver : public testsupport::ReceiverTest
{
protected:
    FaultyReceiver()
    {
        Bytes payload = receiver().legacyPayload(kNavx5);
        payload.at(12) = 17;
        receiver().answerWith(kNavx5, payload);
    }

    int getMinCNo()
    {
        value = -1;
        const CapturedOutput output(STDERR_FILENO);
        const int status = controller.getMinCNo(value);
        errors = output.text();
        return status;
    }

    /// The operation succeeds when nothing is in its way.
    void expectItWorks()
    {
        EXPECT_EQ(getMinCNo(), 0);
        EXPECT_EQ(value, 17);
        EXPECT_EQ(errors, "");
    }

    ubxController_NEOM8T controller;
    signed char value = -1;
    std::string errors;
};

TEST_F(FaultyReceiver, ThatAnswersAtOnceIsUnderstood)
{
    expectItWorks();

    expectFrames({"B5 62 06 23 00 00 29 81"});
    EXPECT_EQ(log(kLog), Lines{});
}

TEST_F(FaultyReceiver, ThatIsSilentEndsThePollAtTheLimitWithALine)
{
    receiver().clearFaults();
    const int status = whenSilent([&] { return getMinCNo(); });

    EXPECT_EQ(status, 4);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(errors, kTimedOut);
    EXPECT_EQ(log(kLog), Lines{"Did not receive : 06 23: Navigation Engine Expert Settings"});
}

TEST_F(FaultyReceiver, ThatWasSilentIsUnderstoodTheNextTime)
{
    receiver().clearFaults();
    receiver().ignore(kNavx5, 1);
    const int status = withFastClock([&] { return getMinCNo(); });
    EXPECT_EQ(status, 4);

    EXPECT_EQ(getMinCNo(), 0);
    EXPECT_EQ(errors, "");
}

TEST_F(FaultyReceiver, ThatAnswersLateIsUnderstood)
{
    receiver().answerLate(kNavx5, std::chrono::milliseconds(120), 1);

    expectItWorks();
    expectItWorks();
}

TEST_F(FaultyReceiver, ThatAnswersTwiceIsUnderstood)
{
    receiver().answerTwice(kNavx5, 1);

    expectItWorks();
    expectItWorks();
}

TEST_F(FaultyReceiver, ThatAnswersInSingleBytesIsUnderstood)
{
    receiver().answerInPieces(kNavx5, 1, std::chrono::microseconds(50), 1);

    expectItWorks();
    expectItWorks();
}

TEST_F(FaultyReceiver, ThatDamagesItsFirstAnswerIsUnderstoodAtTheLimit)
{
    receiver().answerTwice(kNavx5, 1);
    receiver().corruptChecksum(kNavx5, 1);

    int status = -1;
    {
        const testclock::FastClock clock(5); // a second for both copies to arrive
        status = getMinCNo();
    }

    EXPECT_EQ(status, 0);
    EXPECT_EQ(value, 17);
    EXPECT_EQ(errors.rfind(kErrored, 0), 0U);
    EXPECT_EQ(errors.substr(errors.size() - std::string(kTimedOut).size()), kTimedOut);
    EXPECT_EQ(log(kLog), Lines{});
    expectItWorks();
}

TEST_F(FaultyReceiver, ThatDamagesItsOnlyAnswerIsAsGoodAsSilent)
{
    receiver().corruptChecksum(kNavx5, 1);

    const int status = withFastClock([&] { return getMinCNo(); });

    EXPECT_EQ(status, 4);
    EXPECT_EQ(value, 0);
    EXPECT_EQ(log(kLog), Lines{"Did not receive : 06 23: Navigation Engine Expert Settings"});
    expectItWorks();
}

/// A receiver in the test's own hand, since one that drowns its answer must not lose part of it on a busy machine.
class DrowningReceiver : public linktest::LinkTest
{};

TEST_F(DrowningReceiver, ThatSendsMuchMoreThanAWaitHasRoomForIsUnderstood)
{
    using linktest::operator+;
    std::filesystem::remove(kLog);
    ubxController_NEOM8T controller;
    Bytes payload(40);
    payload[12] = 17;
    const Bytes reply = bytes(testsupport::frame("06 23", testsupport::hex(payload))) + bytes("0D 0A");
    std::string complaint;
    std::thread receiver([&] {
        try {
            EXPECT_EQ(testsupport::hex(line.written(8)), "B5 62 06 23 00 00 29 81");
            line.opened();
            line.pour(linktest::nmea(20000) + reply, 1000);
        } catch (const std::exception& error) {
            complaint = error.what();
            clock.pass(std::chrono::hours(1));
        }
    });

    signed char value = -1;
    const std::string errors = linktest::errorsOf([&] { EXPECT_EQ(controller.getMinCNo(value), 0); });
    line.nobodyReads(true);
    receiver.join();

    EXPECT_EQ(complaint, "");
    EXPECT_EQ(value, 17);
    EXPECT_EQ(errors, "");
    EXPECT_EQ(testsupport::slurp(kLog), "");
}

TEST_F(FaultyReceiver, ThatSendsAFalseBeginningOfAFrameFirstIsUnderstood)
{
    receiver().precedeWith(kNavx5, bytes("24 47 B5 62 06 71 FF FF B5 B5 00"), 1);

    expectItWorks();
    expectItWorks();
}

TEST_F(FaultyReceiver, ThatHasGoneEndsThePollWithALineUntilItComesBack)
{
    receiver().hangUp();
    EXPECT_EQ(getMinCNo(), 8);
    EXPECT_EQ(log(kLog), Lines{"Could not send : 06 23: Navigation Engine Expert Settings"});

    receiver().comeBack();
    expectItWorks();
}

TEST_F(FaultyReceiver, ThatTakesNothingEndsThePollWithALine)
{
    receiver().stopReading(true);
    EXPECT_EQ(getMinCNo(), 8);
    EXPECT_EQ(errors, "");
    EXPECT_EQ(log(kLog), Lines{"Could not send : 06 23: Navigation Engine Expert Settings"});

    receiver().stopReading(false);
    expectItWorks();
}

TEST_F(FaultyReceiver, LeavesNoDescriptorOpenWhateverItDoes)
{
    const std::size_t before = testsupport::openDescriptors();

    expectItWorks();
    receiver().ignore(kNavx5, 1);
    receiver().corruptChecksum(kNavx5, 1);
    withFastClock([&] { return getMinCNo(); });
    controller.sendUBXMessage(UBXMessage(0x0609, 13, nullptr));

    EXPECT_EQ(testsupport::openDescriptors(), before);
}

} // namespace

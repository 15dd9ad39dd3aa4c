#include "Bytes.h"
#include "simulator/faults/ActionText.h"

#include <gtest/gtest.h>

#include <sstream>

// Faults and events as people write them.

using ubxsim::Event;
using ubxsim::EventKind;
using ubxsim::Fault;
using ubxsim::FaultKind;
using ubxsim::parseAction;
using ubxsim::RequestKind;

namespace
{

std::string complaintAbout(const std::string& words)
{
    try {
        parseAction(words);
    } catch (const std::invalid_argument& error) {
        return error.what();
    }
    return "none";
}

} // namespace

TEST(FaultWords, NameMessageTimesAndSortOfRequest)
{
    const auto action = parseAction("late CFG-NAVX5 300ms polls x3");

    const auto& fault = std::get<Fault>(action.what);
    EXPECT_EQ(action.at.count(), 0);
    EXPECT_EQ(fault.classId, 0x0623);
    EXPECT_EQ(fault.kind, FaultKind::late);
    EXPECT_EQ(fault.delay.count(), 300000);
    EXPECT_EQ(fault.requests, RequestKind::poll);
    EXPECT_EQ(fault.times, 3);
}

TEST(FaultWords, TakeAMessageByItsDigitsToo)
{
    EXPECT_EQ(std::get<Fault>(parseAction("ignore 0A04").what).classId, 0x0A04);
    EXPECT_EQ(std::get<Fault>(parseAction("ignore 0A04").what).times, -1);
}

TEST(FaultWords, ReadBytes)
{
    EXPECT_EQ(std::get<Fault>(parseAction("answer CFG-RATE 01 02 0304 x1").what).bytes,
              testsupport::bytes("01 02 03 04"));
    EXPECT_EQ(std::get<Fault>(parseAction("precede CFG-RATE frame MON-VER").what).bytes,
              testsupport::bytes("B5 62 0A 04 00 00 0E 34"));
    EXPECT_EQ(std::get<Fault>(parseAction("precede CFG-RATE noise 300").what).bytes.size(), 300U);
    EXPECT_EQ(std::get<Event>(parseAction("say false-sync 2").what).bytes, testsupport::bytes("B5 62 B5 62"));
}

TEST(FaultWords, NameEventsAndTheirTime)
{
    const auto action = parseAction("at 2.5s antenna open # the mast fell");

    EXPECT_EQ(action.at.count(), 2500000);
    EXPECT_EQ(std::get<Event>(action.what).kind, EventKind::antenna);
    EXPECT_EQ(std::get<Event>(action.what).antenna, ubxsim::AntennaState::open);
}

TEST(FaultWords, TellAnEventFromAFaultOfTheSameName)
{
    EXPECT_TRUE(std::holds_alternative<Event>(parseAction("hang-up").what));
    EXPECT_TRUE(std::holds_alternative<Fault>(parseAction("hang-up CFG-CFG").what));
    EXPECT_TRUE(std::holds_alternative<Event>(parseAction("power-loss no-battery").what));
}

TEST(FaultWords, SayWhatIsWrong)
{
    EXPECT_EQ(complaintAbout("explode"), "\"explode\" is no fault and no event; see ubxsim --help-faults");
    EXPECT_EQ(complaintAbout("ignore"), "the message is missing");
    EXPECT_EQ(complaintAbout("ignore CFG-NOPE"),
              "\"CFG-NOPE\" is no message, such as CFG-NAVX5, 0623 or * for every one");
    EXPECT_EQ(complaintAbout("late CFG-RATE 3"), "\"3\" is no time, such as 300ms, 2.5s or 20us");
    EXPECT_EQ(complaintAbout("truncate CFG-RATE -1"), "\"-1\" is no number from 0 to 1000000");
    EXPECT_EQ(complaintAbout("answer CFG-RATE 0G"), "\"0G\" is no row of hexadecimal bytes, such as \"B5 62 0A 04\"");
    EXPECT_EQ(complaintAbout("ignore CFG-RATE now"),
              "\"now\" is one word too many; it is: ignore MSG [polls|sets] [xTIMES]");
    EXPECT_EQ(complaintAbout("at 3s"), "there is nothing to do");
    EXPECT_EQ(complaintAbout("at soon jamming on"), "\"soon\" is no time, such as 300ms, 2.5s or 20us");
}

TEST(FaultWords, OfAScriptAreReadLineByLine)
{
    std::istringstream script("# what happens on a bad day\n\nat 10s jamming on\nat 20s jamming off\nrefuse CFG-CFG\n");

    const auto actions = ubxsim::parseScript(script, "bad-day");

    ASSERT_EQ(actions.size(), 3U);
    EXPECT_EQ(actions[1].at.count(), 20000000);
    EXPECT_FALSE(std::get<Event>(actions[1].what).on);
}

TEST(FaultWords, OfAScriptThatAreWrongNameTheLine)
{
    std::istringstream script("refuse CFG-CFG\n\nrefuse\n");

    try {
        ubxsim::parseScript(script, "bad-day");
        FAIL();
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "bad-day, line 3: the message is missing");
    }
}

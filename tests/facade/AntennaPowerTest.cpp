// setAntennaPower(): the facade goes to the board with it, a model controller does nothing.

#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include <gtest/gtest.h>

#include "FacadeTest.h"

using namespace testsupport;

namespace
{

constexpr const char* kVrbBus = "/dev/i2c-5";
constexpr const char* kKtbBus = "/dev/i2c-13";

/// With a facade whose start-up lies behind it.
class AntennaPower : public FacadeTest
{
protected:
    AntennaPower() { receiver(); }

    /// On a healthy board with this part number.
    void startOn(const std::string& hardwareId)
    {
        ubxplatform::reset();
        ubxplatform::putModule(1, {{{"HardwareSetId", hardwareId}}, "i2c-5", "", {}});
        controller = facade();
        takeFrames();
        transfersOfStart_ = transfers().size();
    }

    Lines newTransfers()
    {
        const Lines all = transfers();
        return {all.begin() + static_cast<std::ptrdiff_t>(transfersOfStart_), all.end()};
    }

    std::unique_ptr<ubxController> controller;

private:
    std::size_t transfersOfStart_ = 0;
};

TEST_F(AntennaPower, OnReachesTheBoardAndNotTheReceiver)
{
    startOn("90000014-001");

    EXPECT_EQ(controller->setAntennaPower("ON"), 0);

    EXPECT_EQ(newTransfers(), (Lines{
                                  "/dev/i2c-5 0x21 open",
                                  "/dev/i2c-5 0x21 read 06 -> FF DF",
                                  "/dev/i2c-5 0x21 write 06 FF DE",
                                  "/dev/i2c-5 0x21 read 02 -> FF FF",
                                  "/dev/i2c-5 0x21 write 02 FF FF",
                                  "/dev/i2c-5 0x21 close",
                              }));
    expectNoFrames();
}

TEST_F(AntennaPower, OffInLowerCaseSwitchesTheSupplyOff)
{
    startOn("90000014-001");

    EXPECT_EQ(controller->setAntennaPower("off"), 0);

    EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, 0x21, 3), 0xFE);
    EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, 0x21, 7), 0xDE);
}

TEST_F(AntennaPower, TakesTheWordInAnyCaseOnBothBoardFamilies)
{
    startOn("90000011-001");

    EXPECT_EQ(controller->setAntennaPower("Off"), 0);
    EXPECT_EQ(ubxplatform::expanderRegister(kKtbBus, 0x21, 2), 0xDF);
    EXPECT_EQ(controller->setAntennaPower("on"), 0);
    EXPECT_EQ(ubxplatform::expanderRegister(kKtbBus, 0x21, 2), 0xFF);
}

TEST_F(AntennaPower, AnotherWordReturns1)
{
    for (const char* board : {"90000014-001", "90000011-001"}) {
        startOn(board);
        for (const char* word : {"", "ONN", "OF", "on ", "1", "true"}) {
            EXPECT_EQ(controller->setAntennaPower(word), 1) << word;
        }
        expectNoFrames();
    }
}

TEST_F(AntennaPower, OfABoardWhoseExpanderDoesNotAnswerReturns0)
{
    startOn("90000014-001");
    ubxplatform::detachExpander(kVrbBus, 0x21);

    EXPECT_EQ(controller->setAntennaPower("ON"), 0);
    EXPECT_EQ(controller->setAntennaPower("OFF"), 0);
}

TEST_F(AntennaPower, OfABoardWhoseExpanderCanNotBeOpenedReturns0ForAnyWord)
{
    startOn("90000014-001");
    ubxplatform::removeBus(kVrbBus);

    EXPECT_EQ(controller->setAntennaPower("ON"), 0);
    EXPECT_EQ(controller->setAntennaPower("nonsense"), 0);
    EXPECT_EQ(controller->setAntennaPower(""), 0);
}

TEST_F(AntennaPower, LeavesTheCallersTextAlone)
{
    startOn("90000014-001");
    const std::string word = "off";

    controller->setAntennaPower(word);

    EXPECT_EQ(word, "off");
}

TEST_F(AntennaPower, OfAModelControllerIsNothing)
{
    ubxController_NEOM8T neo;
    ubxController_ZEDF9T zed("TIM 2.20", true);

    for (UBXControlInterface* const model :
         {static_cast<UBXControlInterface*>(&neo), static_cast<UBXControlInterface*>(&zed)}) {
        EXPECT_EQ(model->setAntennaPower("ON"), 0);
        EXPECT_EQ(model->setAntennaPower("nonsense"), 0);
    }

    EXPECT_EQ(transfers(), Lines{});
    expectNoFrames();
}

} // namespace

#include <climits>

#include <unistd.h>

#include "CapturedOutput.h"
#include "NeoM8tTest.h"

namespace
{

using testsupport::CapturedOutput;
using testsupport::Lines;

/// What a NEO-M8T does not have: success, and nothing is sent, opened or written.
class NothingToDo : public testsupport::NeoM8tTest
{
protected:
    template <typename Operation>
    void expectNothing(Operation operation)
    {
        const CapturedOutput standardOutput(STDOUT_FILENO);
        const CapturedOutput standardError(STDERR_FILENO);

        const int status = operation();
        expectNoFrames();
        takeDeviceAway(); // a port that is opened now shows on standard error
        const int statusWithoutDevice = operation();

        EXPECT_EQ(status, 0);
        EXPECT_EQ(statusWithoutDevice, 0);
        EXPECT_EQ(standardOutput.text(), "");
        EXPECT_EQ(standardError.text(), "");
        EXPECT_EQ(errors(), Lines{});
    }
};

TEST_F(NothingToDo, ForInit)
{
    expectNothing([&] { return controller.Init(); });
}

TEST_F(NothingToDo, ForResetInfo)
{
    expectNothing([&] { return controller.getResetInfo(); });
}

TEST_F(NothingToDo, ForAntennaPowerOfAnyWord)
{
    for (const char* word : {"ON", "OFF", "", "nonsense"}) {
        expectNothing([&] { return controller.setAntennaPower(word); });
    }
}

TEST_F(NothingToDo, ForGroupDelayCalibration)
{
    for (const int delay : {0, 1, -1, INT_MAX, INT_MIN}) {
        expectNothing([&] { return controller.programGroupDelayCal(delay); });
    }
}

TEST_F(NothingToDo, ForTheConfigurationInterface)
{
    expectNothing([&] { return controller.setZedf9tConfigurationInterfaceMode(true); });
    expectNothing([&] { return controller.setZedf9tConfigurationInterfaceMode(false); });
}

TEST_F(NothingToDo, ForTheUtcStandardOfAnyGnss)
{
    for (const int mask : {-128, -1, 0, 1, 64, 127}) {
        expectNothing([&] { return controller.setUtsStandardTime(static_cast<signed char>(mask)); });
    }
}

TEST_F(NothingToDo, WhenTheControllerIsMadeAndGone)
{
    expectNothing([] {
        const ubxController_NEOM8T other;
        return 0;
    });
}

} // namespace

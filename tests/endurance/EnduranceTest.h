#pragma once

#include <memory>
#include <string>

#include <ubxController.h>

#include "CapturedOutput.h"
#include "FacadeTest.h"
#include "sandbox/Sandbox.h"

namespace testsupport
{

inline constexpr const char* kFacadeLog = "/var/log/rxtool-errors.log";
inline constexpr const char* kModelLog = "/var/log/rxtool-neom8t-errors.log";

inline const std::string kNotSent = "Could not send : 06 23: Navigation Engine Expert Settings";
inline const std::string kNotReceived = "Did not receive : 06 23: Navigation Engine Expert Settings";

/// A facade on a simulated NEO-M8T, and the operation by which a test sees whether all is well.
class EnduranceTest : public FacadeTest
{
protected:
    explicit EnduranceTest(ubxsim::SimulatorOptions options = quietReceiver(ubxsim::Model::neoM8t))
        : FacadeTest(std::move(options))
    {}

    void start()
    {
        receiver();
        controller = facade();
    }

    /// Asks for the minimum signal level.
    int ask()
    {
        minCNo = -1;
        return controller->getMinCNo(minCNo);
    }

    /// Asks while the device is away, which leaves a line in the model's log.
    int askWithoutDevice()
    {
        sandbox::removeGps();
        const CapturedOutput errors(STDERR_FILENO);
        const int status = ask();
        receiver().linkAt("/dev/tty_gps");
        return status;
    }

    /// Changes a setting and reads it back.
    void expectAllIsWell()
    {
        EXPECT_EQ(controller->setMinCNo(23), 0);
        EXPECT_EQ(ask(), 0);
        EXPECT_EQ(minCNo, 23);
    }

    std::unique_ptr<ubxController> controller;
    signed char minCNo = -1;
};

} // namespace testsupport

#include "SysfsUtil.h"

#include <cerrno>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Kernel.h"

namespace
{

using Calls = std::vector<std::string>;

class GpioOnLinux : public testing::Test
{
protected:
    GpioOnLinux() { kernel::reset(); }

    SysfsUtil gpios;
};

TEST_F(GpioOnLinux, IsDrivenHighThroughItsValueFile)
{
    EXPECT_EQ(gpios.setGpioValue(116, true), 0);

    EXPECT_EQ(kernel::calls(), (Calls{"open /sys/class/gpio/gpio116/value for writing, not inherited = 1000",
                                      "write 1000 \"1\"", "close 1000"}));
}

TEST_F(GpioOnLinux, IsDrivenLowThroughItsValueFile)
{
    EXPECT_EQ(gpios.setGpioValue(3, false), 0);

    EXPECT_EQ(kernel::calls(), (Calls{"open /sys/class/gpio/gpio3/value for writing, not inherited = 1000",
                                      "write 1000 \"0\"", "close 1000"}));
}

TEST_F(GpioOnLinux, IsReportedWhenItIsNotExported)
{
    kernel::failOpens(ENOENT);

    EXPECT_LT(gpios.setGpioValue(116, true), 0);

    EXPECT_EQ(kernel::calls(), (Calls{"open /sys/class/gpio/gpio116/value for writing, not inherited failed"}));
}

TEST_F(GpioOnLinux, IsReportedWhenItIsAnInput)
{
    kernel::failWrites(EPERM);

    EXPECT_LT(gpios.setGpioValue(116, true), 0);

    EXPECT_EQ(kernel::calls().back(), "close 1000");
}

TEST_F(GpioOnLinux, IsReportedWhenTheWriteTakesNothing)
{
    kernel::takeAtMost(0);

    EXPECT_LT(gpios.setGpioValue(116, true), 0);

    EXPECT_EQ(kernel::calls().back(), "close 1000");
}

} // namespace

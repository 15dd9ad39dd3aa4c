// What the kernel sees when the library releases the receiver and switches its antenna.

#include <UBloxChipEnableInterface.h>

#include <cerrno>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Kernel.h"

namespace
{

using Calls = std::vector<std::string>;

class ChipEnableOnLinux : public testing::Test
{
protected:
    ChipEnableOnLinux() { kernel::reset(); }
};

TEST_F(ChipEnableOnLinux, ReleasesTheReceiverThroughTheFixedBus)
{
    kernel::bring({0xFF, 0x5A});

    EXPECT_EQ(KtbPtbUBloxChipInterface().resetUBloxChip(), 0);

    EXPECT_EQ(kernel::calls(),
              (Calls{"open /dev/i2c-13 for reading and writing, not inherited = 1000",
                     "transfer 1000: write 21: 06; read 21: 2", "transfer 1000: write 21: 06 7F 5A",
                     "transfer 1000: write 21: 02; read 21: 2", "transfer 1000: write 21: 02 FF 5A", "close 1000"}));
}

TEST_F(ChipEnableOnLinux, SwitchesTheAntennaOffThroughTheFixedBus)
{
    kernel::bring({0xFF, 0x5A});

    EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable("off"), 0);

    EXPECT_EQ(kernel::calls(),
              (Calls{"open /dev/i2c-13 for reading and writing, not inherited = 1000",
                     "transfer 1000: write 21: 06; read 21: 2", "transfer 1000: write 21: 06 DF 5A",
                     "transfer 1000: write 21: 02; read 21: 2", "transfer 1000: write 21: 02 DF 5A", "close 1000"}));
}

TEST_F(ChipEnableOnLinux, WritesZeroBytesBackAfterReadsThatFailed)
{
    kernel::bring({0xFF, 0x5A});
    kernel::failTransfers(ENXIO);

    EXPECT_EQ(KtbPtbUBloxChipInterface().resetUBloxChip(), 0);

    EXPECT_EQ(kernel::calls(),
              (Calls{"open /dev/i2c-13 for reading and writing, not inherited = 1000",
                     "transfer 1000: write 21: 06; read 21: 2", "transfer 1000: write 21: 06 00 00",
                     "transfer 1000: write 21: 02; read 21: 2", "transfer 1000: write 21: 02 80 00", "close 1000"}));
}

TEST_F(ChipEnableOnLinux, SucceedsWithoutTheBus)
{
    kernel::failOpens(ENOENT);

    EXPECT_EQ(KtbPtbUBloxChipInterface().resetUBloxChip(), 0);
    EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable("ON"), 0);
}

TEST_F(ChipEnableOnLinux, HasNoBusForABoardThatTheInventoryMustName)
{
    kernel::failOpens(EISDIR);

    EXPECT_EQ(VrbUBloxChipInterface().resetUBloxChip(), 0);

    EXPECT_EQ(kernel::calls(), (Calls{"open /dev/ for reading and writing, not inherited failed"}));
}

TEST_F(ChipEnableOnLinux, SwitchesTheAntennaOnThroughTheGpio)
{
    EXPECT_EQ(QsbUBloxChipInterface().antennaPowerEnable("ON"), 0);

    EXPECT_EQ(kernel::calls(), (Calls{"open /sys/class/gpio/gpio116/value for writing, not inherited = 1000",
                                      "write 1000 \"1\"", "close 1000"}));
}

} // namespace

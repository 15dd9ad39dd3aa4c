#include "I2CDev.h"

#include <array>
#include <cerrno>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Kernel.h"

namespace
{

using Calls = std::vector<std::string>;

class I2CDevOnLinux : public testing::Test
{
protected:
    I2CDevOnLinux() { kernel::reset(); }
};

TEST_F(I2CDevOnLinux, TouchesNothingUntilItIsOpened)
{
    {
        const I2CDev chip("/dev/i2c-7");
    }

    EXPECT_EQ(kernel::calls(), Calls{});
}

TEST_F(I2CDevOnLinux, OpensTheBusAndClosesItWhenDestroyed)
{
    {
        I2CDev chip("/dev/i2c-7");
        EXPECT_EQ(chip.open(0x21), 0);
    }

    EXPECT_EQ(kernel::calls(), (Calls{"open /dev/i2c-7 for reading and writing, not inherited = 1000", "close 1000"}));
}

TEST_F(I2CDevOnLinux, SaysThatABusIsNotThereAndHasNothingToClose)
{
    kernel::failOpens(ENOENT);
    {
        I2CDev chip("/dev/i2c-7");
        EXPECT_LT(chip.open(0x21), 0);
    }

    EXPECT_EQ(kernel::calls(), (Calls{"open /dev/i2c-7 for reading and writing, not inherited failed"}));
}

TEST_F(I2CDevOnLinux, ClosesTheBusBeforeItOpensItAgain)
{
    {
        I2CDev chip("/dev/i2c-7");
        chip.open(0x21);
        EXPECT_EQ(chip.open(0x22), 0);
        std::array<unsigned char, 1> byte{0xAB};
        chip.write(byte.data(), byte.size());
    }

    EXPECT_EQ(kernel::calls(), (Calls{"open /dev/i2c-7 for reading and writing, not inherited = 1000", "close 1000",
                                      "open /dev/i2c-7 for reading and writing, not inherited = 1001",
                                      "transfer 1001: write 22: AB", "close 1001"}));
}

TEST_F(I2CDevOnLinux, RefusesAnAddressOfMoreThanSevenBits)
{
    I2CDev chip("/dev/i2c-7");

    EXPECT_LT(chip.open(0x80), 0);

    EXPECT_EQ(kernel::calls(), Calls{});
}

TEST_F(I2CDevOnLinux, TakesTheHighestAddressOfSevenBits)
{
    I2CDev chip("/dev/i2c-7");

    EXPECT_EQ(chip.open(0x7F), 0);
}

class OpenI2CDevOnLinux : public testing::Test
{
protected:
    OpenI2CDevOnLinux()
    {
        kernel::reset();
        chip = std::make_unique<I2CDev>("/dev/i2c-7");
        chip->open(0x21);
    }

    /// The calls after the open.
    Calls calls() const
    {
        Calls all = kernel::calls();
        all.erase(all.begin());
        return all;
    }

    std::unique_ptr<I2CDev> chip;
    std::array<unsigned char, 1> reg{0x06};
    std::array<unsigned char, 3> data{0x11, 0x22, 0x33};
};

TEST_F(OpenI2CDevOnLinux, ReadsARegisterInOneCombinedTransfer)
{
    kernel::bring({0xFE, 0x7F});

    EXPECT_EQ(chip->read(data.data(), 2, reg.data(), 1), 0);

    EXPECT_EQ(calls(), (Calls{"transfer 1000: write 21: 06; read 21: 2"}));
    EXPECT_EQ(data, (std::array<unsigned char, 3>{0xFE, 0x7F, 0x33}));
}

TEST_F(OpenI2CDevOnLinux, SendsRegistersOfMoreThanOneByteWhole)
{
    std::array<unsigned char, 2> wide{0x01, 0x80};

    EXPECT_EQ(chip->read(data.data(), 3, wide.data(), 2), 0);

    EXPECT_EQ(calls(), (Calls{"transfer 1000: write 21: 01 80; read 21: 3"}));
}

TEST_F(OpenI2CDevOnLinux, LeavesTheDataAsItWasWhenAReadFails)
{
    kernel::bring({0xFE, 0x7F});
    kernel::failTransfers(ENXIO);

    EXPECT_LT(chip->read(data.data(), 2, reg.data(), 1), 0);

    EXPECT_EQ(data, (std::array<unsigned char, 3>{0x11, 0x22, 0x33}));
}

TEST_F(OpenI2CDevOnLinux, LeavesTheDataAsItWasWhenOnlyTheRegisterWasWritten)
{
    kernel::bring({0xFE, 0x7F});
    kernel::stopTransfersAfter(1);

    EXPECT_LT(chip->read(data.data(), 2, reg.data(), 1), 0);

    EXPECT_EQ(data, (std::array<unsigned char, 3>{0x11, 0x22, 0x33}));
}

TEST_F(OpenI2CDevOnLinux, WritesAllBytesInOneTransfer)
{
    EXPECT_EQ(chip->write(data.data(), 3), 0);

    EXPECT_EQ(calls(), (Calls{"transfer 1000: write 21: 11 22 33"}));
}

TEST_F(OpenI2CDevOnLinux, SaysThatAWriteFailed)
{
    kernel::failTransfers(EREMOTEIO);

    EXPECT_LT(chip->write(data.data(), 3), 0);
}

TEST_F(OpenI2CDevOnLinux, SaysThatAWriteWasNotDone)
{
    kernel::stopTransfersAfter(0);

    EXPECT_LT(chip->write(data.data(), 3), 0);
}

TEST_F(OpenI2CDevOnLinux, TransfersAgainWhatASignalHasEnded)
{
    kernel::bring({0xFE, 0x7F});
    kernel::interruptTransfers(2);

    EXPECT_EQ(chip->read(data.data(), 2, reg.data(), 1), 0);

    EXPECT_EQ(calls(), Calls(3, "transfer 1000: write 21: 06; read 21: 2"));
    EXPECT_EQ(data, (std::array<unsigned char, 3>{0xFE, 0x7F, 0x33}));
}

TEST_F(OpenI2CDevOnLinux, WorksAgainAfterAFailure)
{
    kernel::failTransfers(ETIMEDOUT);
    chip->write(data.data(), 3);
    kernel::failTransfers(0);

    EXPECT_EQ(chip->write(data.data(), 3), 0);
}

TEST_F(OpenI2CDevOnLinux, RefusesLengthsThatAMessageCanNotHold)
{
    std::vector<unsigned char> many(65536);

    EXPECT_LT(chip->write(many.data(), many.size()), 0);
    EXPECT_LT(chip->read(many.data(), many.size(), reg.data(), 1), 0);
    EXPECT_LT(chip->read(data.data(), 2, many.data(), many.size()), 0);

    EXPECT_EQ(calls(), Calls{});
}

TEST_F(OpenI2CDevOnLinux, CarriesTheLongestMessageThatThereIs)
{
    std::vector<unsigned char> many(65535, 0x55);
    kernel::bring(std::vector<std::uint8_t>(65535, 0xAA));

    EXPECT_EQ(chip->read(many.data(), many.size(), reg.data(), 1), 0);

    EXPECT_EQ(calls(), (Calls{"transfer 1000: write 21: 06; read 21: 65535"}));
    EXPECT_EQ(many, std::vector<unsigned char>(65535, 0xAA));
}

TEST_F(I2CDevOnLinux, TransfersNothingWhileItIsClosed)
{
    I2CDev chip("/dev/i2c-7");
    std::array<unsigned char, 1> byte{0x02};

    EXPECT_LT(chip.write(byte.data(), 1), 0);
    EXPECT_LT(chip.read(byte.data(), 1, byte.data(), 1), 0);

    EXPECT_EQ(kernel::calls(), Calls{});
}

} // namespace

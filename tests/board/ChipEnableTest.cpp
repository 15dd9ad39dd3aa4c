#include <UBloxChipEnableInterface.h>

#include <string>
#include <vector>

#include <SimulatedPlatform.h>
#include <gtest/gtest.h>

namespace
{

using Lines = std::vector<std::string>;

/// Every test begins on a healthy machine.
class Board : public testing::Test
{
protected:
    Board() { ubxplatform::reset(); }
};

class VrbBoard : public Board
{};
class KtbPtbBoard : public Board
{};
class I2cBoard : public Board
{};
class QsbBoard : public Board
{};

constexpr const char* kVrbBus = "/dev/i2c-5";
constexpr const char* kKtbBus = "/dev/i2c-13";
constexpr std::uint8_t kAddress = 0x21;

Lines transfers()
{
    Lines all;
    for (const ubxplatform::Transfer& transfer : ubxplatform::transfers()) {
        all.push_back(ubxplatform::describe(transfer));
    }
    return all;
}

/// An expander with a value of its own in every register, so that a wrong byte shows.
void haveDistinctRegisters(const char* bus, std::uint8_t output0, std::uint8_t output1, std::uint8_t configuration0,
                           std::uint8_t configuration1)
{
    ubxplatform::setExpanderRegister(bus, kAddress, 2, output0);
    ubxplatform::setExpanderRegister(bus, kAddress, 3, output1);
    ubxplatform::setExpanderRegister(bus, kAddress, 6, configuration0);
    ubxplatform::setExpanderRegister(bus, kAddress, 7, configuration1);
}

TEST_F(VrbBoard, ReleasesResetThroughBit5OfPort1AndRewritesPort0AsRead)
{
    haveDistinctRegisters(kVrbBus, 0x12, 0x44, 0x9A, 0xFF);

    const int status = VrbUBloxChipInterface().resetUBloxChip();

    EXPECT_EQ(status, 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-5 0x21 open",
                               "/dev/i2c-5 0x21 read 06 -> 9A FF",
                               "/dev/i2c-5 0x21 write 06 9A DF",
                               "/dev/i2c-5 0x21 read 02 -> 12 44",
                               "/dev/i2c-5 0x21 write 02 12 64",
                               "/dev/i2c-5 0x21 close",
                           }));
    EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, kAddress, 7), 0xDF);
    EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, kAddress, 3), 0x64);
    EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, kAddress, 6), 0x9A);
    EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, kAddress, 2), 0x12);
}

TEST_F(VrbBoard, SwitchesTheAntennaOnThroughBit0OfPort1)
{
    haveDistinctRegisters(kVrbBus, 0x12, 0x20, 0x9A, 0xDF);

    const int status = VrbUBloxChipInterface().antennaPowerEnable("ON");

    EXPECT_EQ(status, 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-5 0x21 open",
                               "/dev/i2c-5 0x21 read 06 -> 9A DF",
                               "/dev/i2c-5 0x21 write 06 9A DE",
                               "/dev/i2c-5 0x21 read 02 -> 12 20",
                               "/dev/i2c-5 0x21 write 02 12 21",
                               "/dev/i2c-5 0x21 close",
                           }));
}

TEST_F(VrbBoard, SwitchesTheAntennaOffThroughBit0OfPort1)
{
    haveDistinctRegisters(kVrbBus, 0x12, 0x21, 0x9A, 0xDE);

    const int status = VrbUBloxChipInterface().antennaPowerEnable("OFF");

    EXPECT_EQ(status, 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-5 0x21 open",
                               "/dev/i2c-5 0x21 read 06 -> 9A DE",
                               "/dev/i2c-5 0x21 write 06 9A DE",
                               "/dev/i2c-5 0x21 read 02 -> 12 21",
                               "/dev/i2c-5 0x21 write 02 12 20",
                               "/dev/i2c-5 0x21 close",
                           }));
}

TEST_F(VrbBoard, TakesTheBusThatTheInventoryNamesForModule1)
{
    ubxplatform::putModule(1, {{}, "i2c-21", "", {}});
    ubxplatform::attachExpander("/dev/i2c-21", kAddress);

    VrbUBloxChipInterface().resetUBloxChip();

    EXPECT_EQ(ubxplatform::expanderRegister("/dev/i2c-21", kAddress, 7), 0xDF);
    EXPECT_EQ(ubxplatform::expanderRegister(kVrbBus, kAddress, 7), 0xFF);
}

TEST_F(VrbBoard, WithoutModule1TriesABusWithoutANameAndReportsSuccess)
{
    ubxplatform::removeAllModules();

    EXPECT_EQ(VrbUBloxChipInterface().resetUBloxChip(), 0);
    EXPECT_EQ(VrbUBloxChipInterface().antennaPowerEnable("ON"), 0);
    EXPECT_EQ(transfers(), (Lines{"/dev/ 0x21 open failed", "/dev/ 0x21 open failed"}));
}

TEST_F(VrbBoard, PassesOnWhatTheInventoryThrows)
{
    ubxplatform::makeCallThrow(ubxplatform::InventoryCall::getI2cBus, "no reply");

    EXPECT_THROW(VrbUBloxChipInterface().resetUBloxChip(), ubxplatform::DBusError);
    EXPECT_THROW(VrbUBloxChipInterface().antennaPowerEnable("ON"), ubxplatform::DBusError);
    EXPECT_EQ(transfers(), Lines{});
}

TEST_F(KtbPtbBoard, ReleasesResetThroughBit7OfPort0AndRewritesPort1AsRead)
{
    haveDistinctRegisters(kKtbBus, 0x12, 0x44, 0xFA, 0xFF);

    const int status = KtbPtbUBloxChipInterface().resetUBloxChip();

    EXPECT_EQ(status, 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-13 0x21 open",
                               "/dev/i2c-13 0x21 read 06 -> FA FF",
                               "/dev/i2c-13 0x21 write 06 7A FF",
                               "/dev/i2c-13 0x21 read 02 -> 12 44",
                               "/dev/i2c-13 0x21 write 02 92 44",
                               "/dev/i2c-13 0x21 close",
                           }));
}

TEST_F(KtbPtbBoard, SwitchesTheAntennaOnThroughBit5OfPort0)
{
    haveDistinctRegisters(kKtbBus, 0x92, 0x44, 0x7A, 0xFF);

    const int status = KtbPtbUBloxChipInterface().antennaPowerEnable("ON");

    EXPECT_EQ(status, 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-13 0x21 open",
                               "/dev/i2c-13 0x21 read 06 -> 7A FF",
                               "/dev/i2c-13 0x21 write 06 5A FF",
                               "/dev/i2c-13 0x21 read 02 -> 92 44",
                               "/dev/i2c-13 0x21 write 02 B2 44",
                               "/dev/i2c-13 0x21 close",
                           }));
}

TEST_F(KtbPtbBoard, SwitchesTheAntennaOffThroughBit5OfPort0)
{
    haveDistinctRegisters(kKtbBus, 0xB2, 0x44, 0x5A, 0xFF);

    const int status = KtbPtbUBloxChipInterface().antennaPowerEnable("OFF");

    EXPECT_EQ(status, 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-13 0x21 open",
                               "/dev/i2c-13 0x21 read 06 -> 5A FF",
                               "/dev/i2c-13 0x21 write 06 5A FF",
                               "/dev/i2c-13 0x21 read 02 -> B2 44",
                               "/dev/i2c-13 0x21 write 02 92 44",
                               "/dev/i2c-13 0x21 close",
                           }));
}

TEST_F(KtbPtbBoard, DoesNotAskTheInventory)
{
    KtbPtbUBloxChipInterface().resetUBloxChip();
    KtbPtbUBloxChipInterface().antennaPowerEnable("ON");

    EXPECT_EQ(ubxplatform::inventoryCalls(), Lines{});
}

// What the two I2C boards share, shown on one of them.

TEST_F(I2cBoard, TakesTheWordInAnyCase)
{
    for (const char* word : {"ON", "on", "On", "oN"}) {
        ubxplatform::setExpanderRegister(kKtbBus, kAddress, 2, 0x00);
        EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable(word), 0) << word;
        EXPECT_EQ(ubxplatform::expanderRegister(kKtbBus, kAddress, 2), 0x20) << word;
    }
    for (const char* word : {"OFF", "off", "Off", "oFf"}) {
        ubxplatform::setExpanderRegister(kKtbBus, kAddress, 2, 0xFF);
        EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable(word), 0) << word;
        EXPECT_EQ(ubxplatform::expanderRegister(kKtbBus, kAddress, 2), 0xDF) << word;
    }
}

TEST_F(I2cBoard, MakesThePinAnOutputBeforeItRefusesAnUnknownWord)
{
    const int status = KtbPtbUBloxChipInterface().antennaPowerEnable("OFF ");

    EXPECT_EQ(status, 1);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-13 0x21 open",
                               "/dev/i2c-13 0x21 read 06 -> FF FF",
                               "/dev/i2c-13 0x21 write 06 DF FF",
                               "/dev/i2c-13 0x21 close",
                           }));
}

TEST_F(I2cBoard, RefusesEmptyLongAndForeignWords)
{
    using namespace std::string_literals;

    for (const std::string& word :
         {""s, "O"s, "ONN"s, " ON"s, "ON\0"s, "1"s, "~~"s, "\xEF\xEE"s, std::string(100000, 'o')}) {
        EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable(word), 1) << word.size() << " letters";
    }
}

TEST_F(I2cBoard, ReportsSuccessWhenTheBusCanNotBeOpened)
{
    ubxplatform::removeBus(kKtbBus);

    EXPECT_EQ(KtbPtbUBloxChipInterface().resetUBloxChip(), 0);
    EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable("ON"), 0);
    EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable("nonsense"), 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-13 0x21 open failed",
                               "/dev/i2c-13 0x21 open failed",
                               "/dev/i2c-13 0x21 open failed",
                           }));
}

TEST_F(I2cBoard, ReportsSuccessWhenTheExpanderDoesNotAnswer)
{
    ubxplatform::detachExpander(kKtbBus, kAddress);

    EXPECT_EQ(KtbPtbUBloxChipInterface().resetUBloxChip(), 0);
    EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable("ON"), 0);
    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-13 0x21 open",
                               "/dev/i2c-13 0x21 read 06 failed",
                               "/dev/i2c-13 0x21 write 06 00 00 failed",
                               "/dev/i2c-13 0x21 read 02 failed",
                               "/dev/i2c-13 0x21 write 02 80 00 failed",
                               "/dev/i2c-13 0x21 close",
                               "/dev/i2c-13 0x21 open",
                               "/dev/i2c-13 0x21 read 06 failed",
                               "/dev/i2c-13 0x21 write 06 00 00 failed",
                               "/dev/i2c-13 0x21 read 02 failed",
                               "/dev/i2c-13 0x21 write 02 20 00 failed",
                               "/dev/i2c-13 0x21 close",
                           }));
}

TEST_F(I2cBoard, WritesBackAnUntouchedBufferAfterAFailedRead)
{
    ubxplatform::failReads(kVrbBus, true);

    EXPECT_EQ(VrbUBloxChipInterface().resetUBloxChip(), 0);

    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-5 0x21 open",
                               "/dev/i2c-5 0x21 read 06 failed",
                               "/dev/i2c-5 0x21 write 06 00 00",
                               "/dev/i2c-5 0x21 read 02 failed",
                               "/dev/i2c-5 0x21 write 02 00 20",
                               "/dev/i2c-5 0x21 close",
                           }));
}

TEST_F(I2cBoard, CarriesOnAfterAFailedWrite)
{
    ubxplatform::failWrites(kKtbBus, true);

    EXPECT_EQ(KtbPtbUBloxChipInterface().antennaPowerEnable("OFF"), 0);

    EXPECT_EQ(transfers(), (Lines{
                               "/dev/i2c-13 0x21 open",
                               "/dev/i2c-13 0x21 read 06 -> FF FF",
                               "/dev/i2c-13 0x21 write 06 DF FF failed",
                               "/dev/i2c-13 0x21 read 02 -> FF FF",
                               "/dev/i2c-13 0x21 write 02 DF FF failed",
                               "/dev/i2c-13 0x21 close",
                           }));
}

TEST_F(QsbBoard, TouchesNothingToReleaseReset)
{
    EXPECT_EQ(QsbUBloxChipInterface().resetUBloxChip(), 0);

    EXPECT_EQ(transfers(), Lines{});
    EXPECT_TRUE(ubxplatform::gpioChanges().empty());
    EXPECT_EQ(ubxplatform::inventoryCalls(), Lines{});
}

TEST_F(QsbBoard, SwitchesTheAntennaThroughGpio116)
{
    EXPECT_EQ(QsbUBloxChipInterface().antennaPowerEnable("on"), 0);
    EXPECT_EQ(QsbUBloxChipInterface().antennaPowerEnable("Off"), 0);

    const std::vector<ubxplatform::GpioChange> changes = ubxplatform::gpioChanges();
    ASSERT_EQ(changes.size(), 2U);
    EXPECT_EQ(changes[0].gpio, 116);
    EXPECT_TRUE(changes[0].value);
    EXPECT_EQ(changes[1].gpio, 116);
    EXPECT_FALSE(changes[1].value);
    EXPECT_EQ(transfers(), Lines{});
}

TEST_F(QsbBoard, RefusesAnUnknownWordAndLeavesTheGpioAlone)
{
    EXPECT_EQ(QsbUBloxChipInterface().antennaPowerEnable("OFF "), 1);

    EXPECT_TRUE(ubxplatform::gpioChanges().empty());
}

} // namespace

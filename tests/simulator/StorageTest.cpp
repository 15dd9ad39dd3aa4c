#include "SimulatorTest.h"

#include "simulator/faults/ActionText.h"

using ubxsim::Layer;
using namespace std::chrono_literals;

// CFG-CFG and what outlives a restart: RAM, battery-backed RAM and flash.

namespace
{

constexpr std::uint32_t kRate = 0x30210001;   // navigation section
constexpr std::uint32_t kNavSat = 0x20910016; // message section, UART1
constexpr const char* kSaveAll = "00 00 00 00 1F 1E 00 00 00 00 00 00 13";

void happen(ubxsim::ReceiverSimulator& receiver, const std::string& words)
{
    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction(words).what));
}

/// Waits until a restarted receiver answers again.
bool isBack(client::Client& host)
{
    for (int attempt = 0; attempt < 100; ++attempt) {
        host.send("0A 04");
        if (host.waitFor(0x0A04, 20ms)) {
            return true;
        }
    }
    return false;
}

} // namespace

TEST_F(NeoM8tSimulator, SavesBothIntoBatteryBackedRamAndFlash)
{
    receiver.setKeyValue(kRate, 2000);
    ASSERT_EQ(host.set("06 09", kSaveAll), true);
    EXPECT_EQ(receiver.storedValue(Layer::batteryBacked, kRate), 2000U);
    EXPECT_EQ(receiver.storedValue(Layer::flash, kRate), 2000U);

    happen(receiver, "restart");

    ASSERT_TRUE(isBack(host));
    EXPECT_EQ(receiver.keyValue(kRate), 2000U);
}

TEST_F(NeoM8tSimulator, SavesTheSectionsAndDevicesThatTheMasksName)
{
    receiver.setKeyValue(kRate, 2000);
    receiver.setKeyValue(kNavSat, 1);

    ASSERT_EQ(host.set("06 09", "00 00 00 00 08 00 00 00 00 00 00 00 01"), true); // navigation, battery-backed

    EXPECT_EQ(receiver.storedValue(Layer::batteryBacked, kRate), 2000U);
    EXPECT_FALSE(receiver.storedValue(Layer::flash, kRate).has_value());
    EXPECT_FALSE(receiver.storedValue(Layer::batteryBacked, kNavSat).has_value());
}

TEST_F(ZedF9tSimulator, TakesAnySectionBitForEverything)
{
    receiver.setKeyValue(kNavSat, 1);

    ASSERT_EQ(host.set("06 09", "00 00 00 00 08 00 00 00 00 00 00 00 13"), true);

    EXPECT_EQ(receiver.storedValue(Layer::flash, kNavSat), 1U);
}

TEST_F(NeoM8tSimulator, LoadsWhatWasSavedOverWhatWasChangedSince)
{
    receiver.setKeyValue(kRate, 2000);
    ASSERT_EQ(host.set("06 09", kSaveAll), true);
    receiver.setKeyValue(kRate, 500);

    ASSERT_EQ(host.set("06 09", "00 00 00 00 00 00 00 00 1F 1E 00 00 13"), true);

    EXPECT_EQ(receiver.keyValue(kRate), 2000U);
}

TEST_F(NeoM8tSimulator, ClearsTheStoreAndLeavesRamUntilTheNextLoad)
{
    receiver.setKeyValue(kRate, 2000);
    ASSERT_EQ(host.set("06 09", kSaveAll), true);

    ASSERT_EQ(host.set("06 09", "1F 1E 00 00 00 00 00 00 00 00 00 00 13"), true);
    EXPECT_FALSE(receiver.storedValue(Layer::flash, kRate).has_value());
    EXPECT_EQ(receiver.keyValue(kRate), 2000U);
    ASSERT_EQ(host.set("06 09", "00 00 00 00 00 00 00 00 1F 1E 00 00"), true); // 12 bytes: all devices

    EXPECT_EQ(receiver.keyValue(kRate), 1000U) << "as delivered";
}

TEST_F(ZedF9tSimulator, PrefersBatteryBackedRamToFlashWhenItStarts)
{
    ASSERT_EQ(host.set("06 8A", "00 02 00 00 A3 00 11 20 14"), true);
    ASSERT_EQ(host.set("06 8A", "00 04 00 00 A3 00 11 20 1E"), true);

    happen(receiver, "power-loss");
    ASSERT_TRUE(isBack(host));
    EXPECT_EQ(receiver.keyValue(0x201100A3), 20U);

    happen(receiver, "power-loss no-battery");
    ASSERT_TRUE(isBack(host));
    EXPECT_EQ(receiver.keyValue(0x201100A3), 30U);
}

TEST_F(NeoM8tSimulator, HasOnlyPartOfTheSettingsAfterPowerFailedInASave)
{
    receiver.play(std::get<ubxsim::Fault>(ubxsim::parseAction("power-loss CFG-CFG x1").what));
    receiver.setKeyValue(0x10050012, 1);  // TP2_ENA: among the first keys
    receiver.setKeyValue(0x40030010, 77); // among the last

    host.send("06 09", kSaveAll);

    EXPECT_FALSE(host.waitFor(0x0501, 20ms).has_value()) << "nobody is left to acknowledge";
    ASSERT_TRUE(isBack(host));
    EXPECT_EQ(receiver.keyValue(0x10050012), 1U);
    EXPECT_EQ(receiver.keyValue(0x40030010), 0U);
    EXPECT_EQ(host.set("06 09", kSaveAll), true) << "the next save works";
}

#include "SimulatorTest.h"

using namespace std::chrono_literals;

// CFG-VALSET, CFG-VALGET and CFG-VALDEL.

TEST_F(ZedF9tSimulator, AnswersKeysInTheOrderOfTheRequest)
{
    host.send("06 8B", "00 00 00 00 A3 00 11 20 01 00 05 30 1F 00 31 10 10 00 03 40");
    const auto items = host.collect();

    ASSERT_EQ(client::outline(items), "068B:28 0501:2");
    EXPECT_EQ(testsupport::hex(items[0].payload), "01 00 00 00 A3 00 11 20 09 01 00 05 30 32 00 1F 00 31 10 01 "
                                                  "10 00 03 40 00 00 00 00");
}

TEST_F(ZedF9tSimulator, RefusesAReadWithOneUnknownKey)
{
    EXPECT_EQ(host.set("06 8B", "00 00 00 00 A3 00 11 20 8B 00 91 20"), false);
    EXPECT_EQ(host.set("06 8B", "00 00 00 00 01 00 D0 20"), false) << "the power mode is no key of this receiver";
    EXPECT_EQ(host.set("06 8B", "00 00 00 00"), false) << "no key at all";
    EXPECT_EQ(host.set("06 8B", "00 00 00 00 A3 00 11"), false) << "a key cut short";
    EXPECT_EQ(host.set("06 8B", "00 03 00 00 A3 00 11 20"), false) << "no such layer";
}

TEST_F(ZedF9tSimulator, AppliesNothingOfASetWithOneUnknownKey)
{
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 A3 00 11 20 14 8B 00 91 20 01"), false);

    EXPECT_EQ(receiver.keyValue(0x201100A3), 9U);
}

TEST_F(ZedF9tSimulator, RefusesInvalidValuesOnlyWhereTheyWouldCount)
{
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 01 00 03 20 03"), false) << "time mode 3 in RAM";
    EXPECT_EQ(receiver.keyValue(0x20030001), 0U);

    EXPECT_EQ(host.set("06 8A", "00 04 00 00 01 00 03 20 03"), true) << "flash takes it unseen";
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 1F 00 31 10 02"), false) << "a bit that is 2";
}

TEST_F(ZedF9tSimulator, RefusesASetWithoutALayerOrWithACutValue)
{
    EXPECT_EQ(host.set("06 8A", "00 00 00 00 A3 00 11 20 14"), false);
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 01 00 05 30 14"), false) << "one byte of two";
    EXPECT_EQ(host.set("06 8A", "02 01 00 00 A3 00 11 20 14"), false) << "version 2";
    EXPECT_EQ(receiver.keyValue(0x201100A3), 9U);
}

TEST_F(ZedF9tSimulator, TakesTheLastOfTwoValuesAndAnEmptyList)
{
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 A3 00 11 20 14 A3 00 11 20 0A"), true);
    EXPECT_EQ(receiver.keyValue(0x201100A3), 10U);

    EXPECT_EQ(host.set("06 8A", "00 01 00 00"), true);
}

TEST_F(ZedF9tSimulator, RefusesMoreThan64Keys)
{
    std::string sixtyFour = "00 01 00 00";
    for (int i = 0; i < 64; ++i) {
        sixtyFour += " A3 00 11 20 0B";
    }

    EXPECT_EQ(host.set("06 8A", sixtyFour + " A3 00 11 20 0C"), false);
    EXPECT_EQ(receiver.keyValue(0x201100A3), 9U);
    EXPECT_EQ(host.set("06 8A", sixtyFour), true);
    EXPECT_EQ(receiver.keyValue(0x201100A3), 11U);
}

TEST_F(ZedF9tSimulator, KnowsTheKeysOfItsFirmware)
{
    EXPECT_TRUE(receiver.keyValue(0x10340014).has_value()) << "CFG-BDS-USE_GEO_PRN";
    EXPECT_TRUE(receiver.keyValue(0x10310026).has_value()) << "CFG-SIGNAL-NAVIC_ENA";
    EXPECT_FALSE(receiver.keyValue(0x10310014).has_value()) << "CFG-SIGNAL-QZSS_L1S_ENA";
    EXPECT_FALSE(receiver.keyValue(0x2091008B).has_value()) << "NAV-SVIN on USB";
    EXPECT_TRUE(receiver.keyValue(0x2091009A).has_value()) << "TIM-SVIN on USB";
}

TEST_F(OldZedF9tSimulator, KnowsTheKeysOfItsFirmware)
{
    EXPECT_FALSE(receiver.keyValue(0x10340014).has_value());
    EXPECT_FALSE(receiver.keyValue(0x10310026).has_value());
    EXPECT_FALSE(receiver.keyValue(0x10310004).has_value()) << "CFG-SIGNAL-GPS_L5_ENA";
    EXPECT_TRUE(receiver.keyValue(0x10310014).has_value());
    EXPECT_EQ(receiver.keyValue(0x201100A4), 5U) << "the older elevation limit";
}

TEST(ZedF9tSimulatorWithoutL5, LacksTheL5Keys)
{
    ubxsim::SimulatorOptions options;
    options.model = ubxsim::Model::zedF9t;
    options.l5Signals = false;
    ubxsim::ReceiverSimulator receiver(options);

    EXPECT_FALSE(receiver.keyValue(0x10310004).has_value());
    EXPECT_FALSE(receiver.keyValue(0x1031001D).has_value());
    EXPECT_TRUE(receiver.keyValue(0x1031000A).has_value());
}

TEST_F(ZedF9tSimulator, ShowsASettingInBothLanguages)
{
    // minCNO 40 as a legacy message ...
    EXPECT_EQ(host.set("06 23", "02 00 08 00 00 00 00 00 00 00 00 00 28 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 "
                                "00 00 00 00 00 00 00 00 00 00 00 00"),
              true);
    EXPECT_EQ(hexOf(host.poll("06 8B", "00 00 00 00 A3 00 11 20")), "01 00 00 00 A3 00 11 20 28");

    // ... and survey parameters as keys: the key counts in 0.1 mm, the message in mm.
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 10 00 03 40 2C 01 00 00 11 00 03 40 10 27 00 00 01 00 03 20 01"), true);
    const auto timeMode = host.poll("06 3D");
    ASSERT_TRUE(timeMode.has_value());
    EXPECT_EQ(client::number(*timeMode, 0, 1), 1U);
    EXPECT_EQ(client::number(*timeMode, 20, 4), 300U);
    EXPECT_EQ(client::number(*timeMode, 24, 4), 1000U);
}

TEST_F(ZedF9tSimulator, ReadsTheLayersThatAreStoredOnly)
{
    EXPECT_EQ(host.set("06 8B", "00 01 00 00 A3 00 11 20"), false) << "nothing in battery-backed RAM yet";
    EXPECT_EQ(host.set("06 8B", "00 02 00 00 A3 00 11 20"), false) << "nor in flash";
    EXPECT_EQ(host.set("06 8A", "00 06 00 00 A3 00 11 20 14"), true);

    EXPECT_EQ(hexOf(host.poll("06 8B", "00 01 00 00 A3 00 11 20")), "01 01 00 00 A3 00 11 20 14");
    EXPECT_EQ(hexOf(host.poll("06 8B", "00 02 00 00 A3 00 11 20")), "01 02 00 00 A3 00 11 20 14");
    EXPECT_EQ(hexOf(host.poll("06 8B", "00 00 00 00 A3 00 11 20")), "01 00 00 00 A3 00 11 20 09");
    EXPECT_EQ(hexOf(host.poll("06 8B", "00 07 00 00 A3 00 11 20")), "01 07 00 00 A3 00 11 20 09");
}

TEST_F(ZedF9tSimulator, ForgetsAStoredValueWhenItIsDeleted)
{
    ASSERT_EQ(host.set("06 8A", "00 04 00 00 A3 00 11 20 14"), true);

    EXPECT_EQ(host.set("06 8C", "00 01 00 00 A3 00 11 20"), false) << "RAM can't be deleted from";
    EXPECT_EQ(host.set("06 8C", "00 04 00 00 FF FF 11 20"), false) << "no wildcards";
    EXPECT_EQ(host.set("06 8C", "00 06 00 00 A3 00 11 20"), true);

    EXPECT_FALSE(receiver.storedValue(ubxsim::Layer::flash, 0x201100A3).has_value());
}

TEST_F(ZedF9tSimulator, AppliesATransactionAtItsEnd)
{
    EXPECT_EQ(host.set("06 8A", "01 01 01 00 A3 00 11 20 14"), true);
    EXPECT_EQ(receiver.keyValue(0x201100A3), 9U);
    EXPECT_EQ(host.set("06 8A", "01 01 02 00 A4 00 11 20 0F"), true);
    EXPECT_EQ(host.set("06 8A", "01 01 03 00"), true);

    EXPECT_EQ(receiver.keyValue(0x201100A3), 20U);
    EXPECT_EQ(receiver.keyValue(0x201100A4), 15U);
}

TEST_F(ZedF9tSimulator, RefusesTransactionsOutOfStep)
{
    EXPECT_EQ(host.set("06 8A", "01 01 02 00 A3 00 11 20 14"), false) << "none is open";
    EXPECT_EQ(host.set("06 8A", "01 01 01 00 A3 00 11 20 14"), true);
    EXPECT_EQ(host.set("06 8A", "01 02 02 00 A4 00 11 20 0F"), false) << "another layer";
    EXPECT_EQ(host.set("06 8A", "01 01 03 00"), false) << "that ended it";

    EXPECT_EQ(host.set("06 8A", "01 01 01 00 A3 00 11 20 14"), true);
    EXPECT_TRUE(host.poll("06 08").has_value()); // any other configuration message cancels
    EXPECT_EQ(host.set("06 8A", "01 01 03 00"), false);
    EXPECT_EQ(receiver.keyValue(0x201100A3), 9U);
}

TEST_F(ZedF9tSimulator, PagesThroughAGroupInAscendingOrder)
{
    std::vector<std::uint64_t> keys;
    std::string position = "00 00";
    for (std::size_t page = 0;; ++page) {
        const auto reply = host.poll("06 8B", "00 00 " + position + " FF FF 91 20", 300ms); // all message rates
        if (!reply) {
            break;
        }
        EXPECT_EQ(testsupport::hex(client::Bytes{(*reply)[2], (*reply)[3]}), position);
        for (std::size_t at = 4; at < reply->size(); at += 5) {
            keys.push_back(client::number(*reply, at, 4));
        }
        const std::size_t items = (reply->size() - 4) / 5;
        ASSERT_LE(items, 64U);
        position = testsupport::hex(client::Bytes{static_cast<std::uint8_t>((page + 1) * 64 % 256),
                                                  static_cast<std::uint8_t>((page + 1) * 64 / 256)});
    }

    EXPECT_EQ(keys.size() % 5, 0U);
    EXPECT_GT(keys.size(), 128U);
    EXPECT_TRUE(std::is_sorted(keys.begin(), keys.end()));
    host.collect();
    EXPECT_EQ(host.set("06 8B", "00 00 00 10 FF FF 91 20"), false) << "past the end";
}

TEST_F(ZedF9tSimulator, ReadsEverythingWithEitherWildcard)
{
    const auto one = host.poll("06 8B", "00 00 00 00 00 00 FF 0F");
    const auto other = host.poll("06 8B", "00 00 00 00 FF FF FF 0F");

    ASSERT_TRUE(one.has_value());
    EXPECT_EQ(one, other);
    EXPECT_EQ(one->size(), 4U + 64 * 5) << "the first page holds the one-bit keys";
}

TEST_F(ZedF9tSimulator, TakesAKeyAndValueSentAsAReadForKeys)
{
    // A value is no key, and is refused as one.
    EXPECT_EQ(host.set("06 8B", "00 01 00 00 06 00 05 40 64 00 00 00"), false);
}

TEST_F(ZedF9tSimulator, RefusesToSwitchEveryConstellationOff)
{
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 1F 00 31 10 00 21 00 31 10 00 22 00 31 10 00 25 00 31 10 00"), false);
    EXPECT_EQ(host.set("06 8A", "00 01 00 00 21 00 31 10 00 22 00 31 10 00 25 00 31 10 00"), true);
}

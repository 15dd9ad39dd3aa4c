#include "SimulatorTest.h"

#include "simulator/faults/ActionText.h"

using client::number;
using namespace std::chrono_literals;

// CFG-RST: resets, stop and start; and receivers that restart by themselves.

namespace
{

ubxsim::SimulatorOptions talking(std::chrono::microseconds second)
{
    ubxsim::SimulatorOptions options;
    options.epoch = second;
    return options;
}

std::uint64_t fixType(client::Client& host)
{
    const auto pvt = host.poll("01 07", "", 20ms); // short, since a booting receiver does not answer
    return pvt ? number(*pvt, 20, 1) : 99;
}

bool getsFix(client::Client& host, std::uint64_t type)
{
    return eventually([&] { return fixType(host) == type; });
}

} // namespace

TEST_F(NeoM8tSimulator, DoesNotAcknowledgeAReset)
{
    host.send("06 04", "00 00 09 00");

    EXPECT_TRUE(host.collect().empty());
    EXPECT_EQ(host.set("06 04", "00 00 09"), false) << "a wrong length";
    EXPECT_EQ(host.set("06 04", "00 00 07 00"), false) << "a mode that there is not";
    EXPECT_EQ(host.set("06 04", ""), false) << "a reset can't be polled";
}

TEST(NeoM8tReset, ShowsTheBootScreenAfterItsTime)
{
    ubxsim::ReceiverSimulator receiver(talking(100ms));
    client::Client host(receiver.devicePath());
    const auto start = std::chrono::steady_clock::now();

    host.send("06 04", "00 00 00 00");
    ASSERT_TRUE(receiver.waitForFrames(1));
    host.send("0A 04"); // lost while it boots
    ASSERT_TRUE(host.waitForText("$GNTXT,01,01,02,u-blox AG - www.u-blox.com"));

    EXPECT_GE(std::chrono::steady_clock::now() - start, 100ms);
    EXPECT_FALSE(host.waitFor(0x0A04, 50ms).has_value());
}

TEST(NeoM8tReset, NamesTheVersionOnTheBootScreen)
{
    ubxsim::ReceiverSimulator receiver(talking(5ms));
    client::Client host(receiver.devicePath());

    host.send("06 04", "00 00 01 00");

    std::vector<std::string> texts;
    for (const client::Item& item : host.listen(60ms)) {
        if (item.text.compare(0, 16, "$GNTXT,01,01,02,") == 0) {
            texts.push_back(item.text.substr(16, item.text.find('*') - 16));
        }
    }
    const std::vector<std::string> expected = {"u-blox AG - www.u-blox.com",
                                               "HW UBX-M8030 00080000",
                                               "EXT CORE 3.01 (111141)",
                                               "ROM BASE 2.01 (75331)",
                                               "FWVER=TIM 1.10",
                                               "PROTVER=22.00",
                                               "MOD=NEO-M8T-0",
                                               "FIS=0xEF4015 (100111)",
                                               "GPS;GLO;GAL;BDS",
                                               "SBAS;IMES;QZSS",
                                               "ANTSUPERV=AC SD PDoS SR",
                                               "ANTSTATUS=INIT",
                                               "ANTSTATUS=OK",
                                               "PF=3FF"};
    EXPECT_EQ(texts, expected);
}

TEST_F(NeoM8tSimulator, ForgetsUnsavedSettingsInAReset)
{
    ASSERT_EQ(host.set("06 08", "D0 07 01 00 01 00"), true);

    host.send("06 04", "00 00 00 00");
    ASSERT_TRUE(receiver.waitForFrames(2));
    ASSERT_TRUE(getsFix(host, 3));

    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
}

TEST(NeoM8tReset, ForgetsTheLineSpeedToo)
{
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    options.epoch = 5ms;
    options.unlimitedSpeed = false;
    ubxsim::ReceiverSimulator receiver(options);
    ASSERT_TRUE(receiver.setKeyValue(0x40520001, 921600));

    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("restart").what));

    EXPECT_EQ(receiver.keyValue(0x40520001), 9600U);
}

TEST_F(NeoM8tSimulator, StopsNavigationAndKeepsAnswering)
{
    ASSERT_EQ(host.set("06 01", "01 61 01"), true);
    ASSERT_TRUE(host.waitFor(0x0161).has_value());

    host.send("06 04", "00 00 08 00");
    ASSERT_TRUE(receiver.waitForFrames(2));
    host.collect(20ms);

    EXPECT_TRUE(host.listen(60ms).empty()) << "no navigation output";
    EXPECT_EQ(fixType(host), 0U) << "polls are answered, without a fix";

    host.send("06 04", "00 00 09 00");
    EXPECT_TRUE(getsFix(host, 3));
    EXPECT_TRUE(host.waitFor(0x0161).has_value());
}

TEST(NeoM8tReset, TakesLongerToAFixAfterAColdStop)
{
    ubxsim::SimulatorOptions options;
    options.nmea = false;
    options.epoch = 20ms;
    ubxsim::ReceiverSimulator receiver(options);
    client::Client host(receiver.devicePath());

    host.send("06 04", "00 00 08 00");
    host.send("06 04", "00 00 09 00");
    ASSERT_TRUE(getsFix(host, 3));
    const std::uint64_t hot = number(*host.poll("01 03"), 8, 4);
    host.send("06 04", "FF FF 08 00");
    host.send("06 04", "00 00 09 00");
    ASSERT_TRUE(getsFix(host, 0));
    ASSERT_TRUE(getsFix(host, 3));

    EXPECT_EQ(hot, 2000U);
    EXPECT_EQ(number(*host.poll("01 03"), 8, 4), 26000U);
}

TEST_F(NeoM8tSimulator, SurveysAgainAfterARestartWhenThatIsSaved)
{
    ASSERT_EQ(host.set("06 3D", "01 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 00 10 00 00 E8 03 00 00"),
              true);
    ASSERT_EQ(host.set("06 09", "00 00 00 00 1F 1E 00 00 00 00 00 00 13"), true);

    receiver.happen(std::get<ubxsim::Event>(ubxsim::parseAction("restart").what));

    ASSERT_TRUE(getsFix(host, 3));
    const auto survey = host.poll("0D 04");
    EXPECT_EQ((*survey)[25], 1) << "active";
    EXPECT_LT(number(*survey, 0, 4), 1000U);
}

TEST_F(NeoM8tSimulator, RestartsInsteadOfAnswering)
{
    ubxsim::Fault fault;
    fault.classId = 0x0A04;
    fault.kind = ubxsim::FaultKind::restart;
    fault.times = 1;
    receiver.play(fault);
    ASSERT_EQ(host.set("06 08", "D0 07 01 00 01 00"), true);

    host.send("0A 04");

    ASSERT_TRUE(getsFix(host, 3));
    EXPECT_FALSE(host.waitFor(0x0A04, 20ms).has_value());
    EXPECT_EQ(hexOf(host.poll("06 08")), "E8 03 01 00 01 00");
}

// Where the chain from the device to the fix is broken.

#include <filesystem>
#include <thread>

#include <gmock/gmock.h>
#include <sys/mount.h>

#include "ChildProcess.h"
#include "Files.h"
#include "OnReceivers.h"
#include "sandbox/Sandbox.h"

using testing::HasSubstr;

namespace
{

class Doctor : public OnEachTalkingReceiver
{
protected:
    static std::string verdict(const nlohmann::json& report, const std::string& check, const char* what = "verdict")
    {
        for (const auto& one : report["checks"]) {
            if (one["check"] == check) return one[what].is_null() ? "" : one[what].get<std::string>();
        }
        return "not there";
    }

    void antenna(ubxsim::AntennaState state)
    {
        ubxsim::Event event;
        event.kind = ubxsim::EventKind::antenna;
        event.antenna = state;
        receiver().happen(event);
    }
};

} // namespace

TEST_P(Doctor, FindsAHealthyReceiverGood)
{
    const Ran ran = runUbxctl({"doctor", "--json"});

    EXPECT_EQ(ran.code, 0) << ran.errors;
    const nlohmann::json report = ran.json();
    for (const char* check :
         {"device_node", "access", "serial_port", "other_users", "bytes", "nmea", "ubx", "version_reply", "protocols",
          "model", "antenna", "interference", "satellites", "fix", "error_logs"})
        EXPECT_EQ(verdict(report, check), "good") << check << ": " << report.dump(1);
    EXPECT_EQ(verdict(report, "timing_mode"), "attention");
    EXPECT_THAT(verdict(report, "timing_mode", "advice"), HasSubstr("ubxctl survey auto"));
}

TEST_P(Doctor, SaysThatThereIsNoDevice)
{
    sandbox::removeGps();
    const Ran ran = runUbxctl({"doctor", "--json"});
    EXPECT_EQ(ran.code, 69);
    EXPECT_EQ(verdict(ran.json(), "device_node"), "bad");
    EXPECT_EQ(verdict(ran.json(), "receiver"), "skipped");
    EXPECT_EQ(verdict(ran.json(), "error_logs"), "good");
    EXPECT_THAT(ran.errors, HasSubstr("Device node: /dev/tty_gps: No such file or directory"));
}

TEST_P(Doctor, SaysThatTheDeviceIsNoSerialPort)
{
    sandbox::linkGps("/dev/zero");
    const Ran ran = runUbxctl({"doctor", "--json"});
    EXPECT_EQ(ran.code, 69);
    EXPECT_EQ(verdict(ran.json(), "serial_port"), "bad");
}

TEST_P(Doctor, NamesWhoElseHasTheDeviceOpen)
{
    testsupport::write("/tmp/other", "open\n"); // what speaks already has the name that it keeps
    testsupport::ChildProcess other({"sh", "-c", "exec 9<>/dev/tty_gps; exec tail -f /tmp/other"});
    ASSERT_THAT(other.readLine(), testing::StartsWith("open"));
    const nlohmann::json report = runUbxctl({"doctor", "--json"}).json();
    EXPECT_EQ(verdict(report, "other_users"), "attention");
    EXPECT_THAT(verdict(report, "other_users", "found"), HasSubstr("(tail -f /tmp/other)"));
}

TEST_P(Doctor, FindsASilentReceiver)
{
    ASSERT_TRUE(receiver().setKeyValue(0x10740002, 0)); // no NMEA on the port in use
    for (const std::uint16_t poll : std::initializer_list<std::uint16_t>{0x0A04, 0x0A09, 0x0600})
        receiver().ignore(poll);

    const Ran ran = runUbxctl({"doctor", "--json"}, deviceWith(std::chrono::milliseconds(100)));

    EXPECT_EQ(ran.code, 4);
    EXPECT_EQ(verdict(ran.json(), "bytes"), "attention");
    EXPECT_EQ(verdict(ran.json(), "version_reply"), "bad");
    EXPECT_EQ(verdict(ran.json(), "receiver"), "skipped");
    EXPECT_THAT(ran.errors, HasSubstr("Version reply: none"));
}

TEST_P(Doctor, TellsAWrongLineSpeed)
{
    ASSERT_TRUE(receiver().setKeyValue(0x10740002, 0));
    const ubxsim::Bytes noise(200, 0xE1);
    std::thread line([&] {
        for (int i = 0; i < 60; ++i) {
            receiver().say(noise);
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    });

    const Ran ran = runUbxctl({"doctor", "--json"});
    line.join();

    EXPECT_EQ(ran.code & 1, 1);
    EXPECT_EQ(verdict(ran.json(), "messages"), "bad");
    EXPECT_THAT(verdict(ran.json(), "messages", "advice"), HasSubstr("line speed"));
}

TEST_P(Doctor, FindsABrokenAntennaCable)
{
    antenna(ubxsim::AntennaState::open);
    const Ran ran = runUbxctl({"doctor", "--json"});
    EXPECT_EQ(ran.code, 1);
    EXPECT_EQ(verdict(ran.json(), "antenna", "found"), "open circuit");
    EXPECT_THAT(ran.errors, HasSubstr("ubxctl antenna on"));
}

TEST_P(Doctor, FindsInterferenceAndThatNoSatelliteIsThere)
{
    ASSERT_EQ(runUbxctl({"set", "jamming-detection", "on"}).code, 0);
    receiver().setKeyValue(0x1041000D, 1); // the NEO-M8T's switch that the monitor itself goes by
    turn(ubxsim::EventKind::jamming, true);
    EXPECT_EQ(verdict(runUbxctl({"doctor", "--json"}).json(), "interference"), "attention");
    turn(ubxsim::EventKind::jamming, false);

    turn(ubxsim::EventKind::satellites, false);
    testsupport::ChildProcess moment({"sleep", "0.2"}); // some epochs of the receiver
    moment.wait();
    const nlohmann::json report = runUbxctl({"doctor", "--json"}).json();
    EXPECT_EQ(verdict(report, "satellites"), "attention");
    EXPECT_EQ(verdict(report, "fix"), "attention");
}

TEST_P(Doctor, SaysThatTheDiskOfTheLogsIsFull)
{
    ASSERT_EQ(::mount("tmpfs", "/var/log", "tmpfs", 0, "size=4k"), 0);
    testsupport::write("/var/log/syslog", std::string(4096, '.'));
    const nlohmann::json report = runUbxctl({"doctor", "--json"}).json();
    EXPECT_EQ(::umount("/var/log"), 0);
    EXPECT_EQ(verdict(report, "error_logs"), "attention");
    EXPECT_THAT(verdict(report, "error_logs", "advice"), HasSubstr("free the disk"));
}

TEST_P(Doctor, SaysThatTheLogsCanNotBeWritten)
{
    std::filesystem::remove_all("/var/log/rxtool-errors.log");
    std::filesystem::create_directory("/var/log/rxtool-errors.log");
    std::filesystem::permissions("/var/log/rxtool-errors.log", std::filesystem::perms::none);
    sandbox::forbidChanges("/var/log");
    const nlohmann::json report = runUbxctl({"doctor", "--json"}).json();
    sandbox::permitChanges("/var/log");
    std::filesystem::remove_all("/var/log/rxtool-errors.log");
    EXPECT_EQ(verdict(report, "error_logs"), "attention");
}

UBX_ON_EACH_RECEIVER(Doctor);

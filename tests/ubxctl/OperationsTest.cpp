// Every operation of the control interface has a command.

#include <algorithm>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <ubloxChipInfo.h>

#include "Files.h"
#include "RecordingControl.h"
#include "Run.h"
#include "settings/Setting.h"

namespace
{

constexpr int kOperations = 58;

/// Answers every poll with a long payload of zeros.
class ZeroExchange final : public ubxctl::Exchange
{
public:
    std::vector<ubxctl::Answer> askAll(const std::vector<ubxctl::Poll>& polls) override
    {
        return std::vector<ubxctl::Answer>(polls.size(), {0, ubxctl::Bytes(100)});
    }
};

class Operations : public testing::Test
{
protected:
    Operations()
    {
        ubloxChipInfo::setUbloxChipName("ZEDF9T");
        ubloxChipInfo::setUbloxHwVer("00190000");
    }

    /// The operations that a command calls.
    std::set<int> calledBy(const std::vector<std::string>& words)
    {
        const auto control = std::make_shared<RecordingControl>();
        const ubxctl::Surroundings surroundings = {[](double) { return nullptr; }, [control] { return control; },
                                                   std::make_shared<ZeroExchange>()};
        const Ran ran = runUbxctl(words, surroundings);
        EXPECT_LT(ran.code, 64) << words.front() << ": " << ran.errors;
        return control->called;
    }
};

} // namespace

TEST_F(Operations, EachOfThe58IsCalledByACommand)
{
    testsupport::write("/tmp/wanted", "cable-delay = 42\n");
    std::set<int> called;
    const auto add = [&](const std::vector<std::string>& words) { called.merge(calledBy(words)); };

    for (const std::string& path : commandPaths()) {
        // These two speak with the device itself.
        if (path != "doctor" && path != "trace") add(sampleOf(path));
    }
    const std::pair<const char*, const char*> values[] = {{"constellations", "GPS,GAL"},
                                                          {"antenna-type", "active"},
                                                          {"jamming-detection", "on"},
                                                          {"min-cno", "12"},
                                                          {"elevation", "15"},
                                                          {"dynamic-model", "portable"},
                                                          {"fix-mode", "3D"},
                                                          {"time-reference", "UTC"},
                                                          {"receiver-mode", "ECO"},
                                                          {"utc-standard", "auto"},
                                                          {"timing-mode", "dynamic"},
                                                          {"utc-standard", "USNO"}};
    for (const auto& [key, value] : values)
        add({"set", key, value});
    add({"set", "constellations", "GPS", "--single-band"});
    add({"set", "dynamic-model", "stationary", "--fix-mode", "3D"});
    add({"survey", "auto"});
    add({"--interface", "messages", "get", "cable-delay"});

    std::set<int> all;
    for (int slot = 0; slot < kOperations; ++slot)
        all.insert(slot);
    EXPECT_EQ(called, all);
}

TEST_F(Operations, AreInitialisedByEveryCommandThatUsesTheReceiver)
{
    EXPECT_THAT(calledBy({"nav"}), testing::ElementsAre(0, 23));
    EXPECT_THAT(calledBy({"save"}), testing::ElementsAre(0, 1));
    EXPECT_THAT(calledBy({"antenna", "on"}), testing::ElementsAre(0, 13));
    EXPECT_THAT(calledBy({"get", "cable-delay"}), testing::ElementsAre(0, 15));
}

TEST_F(Operations, ThatWriteAreNotCalledForAReceiverThatIsNotKnown)
{
    ubloxChipInfo::setUbloxHwVer("");
    for (const char* path : {"save", "reset factory", "sbas", "off", "survey auto", "timepulse set", "set"}) {
        const auto control = std::make_shared<RecordingControl>();
        const Ran ran = runUbxctl(sampleOf(path), {[](double) { return nullptr; }, [control] { return control; },
                                                   std::make_shared<ZeroExchange>()});
        EXPECT_EQ(ran.code, 4) << path;
        EXPECT_THAT(control->called, testing::ElementsAre(0)) << path;
        EXPECT_THAT(ran.errors, testing::HasSubstr("ubxctl doctor")) << path;
    }
}

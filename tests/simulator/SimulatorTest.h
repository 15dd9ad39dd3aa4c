#pragma once

#include "Client.h"
#include "simulator/ReceiverSimulator.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

/// A quiet receiver that answers at once, and a host at its terminal.
class SimulatorTest : public testing::Test
{
protected:
    static ubxsim::SimulatorOptions options(ubxsim::Model model, const std::string& firmware = "");

    explicit SimulatorTest(const ubxsim::SimulatorOptions& wanted) : receiver(wanted), host(receiver.devicePath()) {}

    ubxsim::ReceiverSimulator receiver;
    client::Client host;
};

inline ubxsim::SimulatorOptions SimulatorTest::options(ubxsim::Model model, const std::string& firmware)
{
    ubxsim::SimulatorOptions wanted;
    wanted.model = model;
    wanted.firmware = firmware;
    wanted.nmea = false;
    wanted.epoch = std::chrono::milliseconds(5);
    wanted.startTime = std::chrono::seconds(1700000000); // 14 November 2023, 22:13:20 UTC
    return wanted;
}

class NeoM8tSimulator : public SimulatorTest
{
protected:
    NeoM8tSimulator() : SimulatorTest(options(ubxsim::Model::neoM8t)) {}
};

class ZedF9tSimulator : public SimulatorTest
{
protected:
    ZedF9tSimulator() : SimulatorTest(options(ubxsim::Model::zedF9t, "TIM 2.20")) {}
};

class OldZedF9tSimulator : public SimulatorTest
{
protected:
    OldZedF9tSimulator() : SimulatorTest(options(ubxsim::Model::zedF9t, "TIM 2.13")) {}
};

/// Looks again and again; false when the condition has not come true in good time. What the receiver tells about its
/// surroundings is as old as its last navigation epoch.
inline bool eventually(const std::function<bool()>& condition)
{
    const auto deadline = std::chrono::steady_clock::now() + std::chrono::seconds(8);
    while (!condition()) {
        if (std::chrono::steady_clock::now() > deadline) {
            return false;
        }
    }
    return true;
}

/// Payloads compare as text, which a person can read.
inline std::string hexOf(const std::optional<client::Bytes>& payload)
{
    return payload ? testsupport::hex(*payload) : "nothing came";
}

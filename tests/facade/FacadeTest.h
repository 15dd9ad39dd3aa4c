#pragma once

#include <algorithm>
#include <initializer_list>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <ubxController.h>

#include <SimulatedPlatform.h>

#include "Bytes.h"
#include "Files.h"
#include "ReceiverTest.h"

namespace testsupport
{

using Lines = std::vector<std::string>;

inline constexpr const char* kChipInfoFile = "/tmp/ubloxChip-info.txt";
/// What it holds of a NEO-M8T.
inline constexpr const char* kChipInfo = "UBLOX_Chip=NEOM8T\n"
                                         "UBLOX_HwVer=00080000\n"
                                         "UBLOX_SwVer=TIM 1.10\n"
                                         "UBLOX_ProtVer=22.00\n"
                                         "UBLOX_ModName=NEO-M8T-0\n";

inline constexpr const char* kPortPoll = "B5 62 06 00 00 00 06 18";
inline constexpr const char* kVersionPoll = "B5 62 0A 04 00 00 0E 34";

/// The version record's payload: software version, hardware version, extensions, each filled up with zeros.
inline Bytes versionRecord(const std::string& software, const std::string& hardware,
                           std::initializer_list<std::string> extensions = {})
{
    Bytes payload(40);
    std::copy(software.begin(), software.end(), payload.begin());
    std::copy(hardware.begin(), hardware.end(), payload.begin() + 30);
    for (const std::string& extension : extensions) {
        payload.resize(payload.size() + 30);
        std::copy(extension.begin(), extension.end(), payload.end() - 30);
    }
    return payload;
}

/// A test of the facade: a healthy board of the first family, and a simulated receiver on it.
class FacadeTest : public ReceiverTest
{
protected:
    explicit FacadeTest(ubxsim::SimulatorOptions options = quietReceiver(ubxsim::Model::neoM8t))
        : ReceiverTest(std::move(options))
    {
        ubxplatform::reset();
    }

    static std::unique_ptr<ubxController> facade() { return std::make_unique<ubxController>(); }

    /// The result of something that waits for one of its time limits while the receiver does answer: the clock runs
    /// fast, but not so fast that an answer could be late on a busy machine.
    template <typename Operation>
    static auto withBriskClock(Operation operation)
    {
        const testclock::FastClock clock(10);
        return operation();
    }

    static Lines facadeErrors() { return log("/var/log/rxtool-errors.log"); }
    static Lines chipInfoFile() { return lines(kChipInfoFile); }

    static Lines transfers()
    {
        Lines all;
        for (const ubxplatform::Transfer& transfer : ubxplatform::transfers())
            all.push_back(ubxplatform::describe(transfer));
        return all;
    }
};

class FacadeOnZedF9t : public FacadeTest
{
protected:
    FacadeOnZedF9t() : FacadeTest(quietReceiver(ubxsim::Model::zedF9t)) {}
};

} // namespace testsupport

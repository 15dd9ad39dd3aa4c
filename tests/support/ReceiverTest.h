#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Bytes.h"
#include "TestClock.h"
#include "simulator/ReceiverSimulator.h"

namespace testsupport
{

/// A receiver that answers at once and says nothing of its own accord. Line ends follow the replies that no
/// acknowledgement follows: the library takes a frame when one more byte has come.
ubxsim::SimulatorOptions quietReceiver(ubxsim::Model model, const std::string& firmware = "");

/// A test with a simulated receiver at "/dev/tty_gps".
///
/// It begins with empty error logs, no chip-info file and no USB node.
class ReceiverTest : public testing::Test
{
protected:
    explicit ReceiverTest(ubxsim::SimulatorOptions options = quietReceiver(ubxsim::Model::neoM8t));
    ~ReceiverTest() override;

    /// The receiver; started when it is first asked for. Before that there is no device.
    ubxsim::ReceiverSimulator& receiver();

    /// All frames that have arrived since the last call, in order, as "B5 62 ...". Nothing is still on its way then.
    std::vector<std::string> takeFrames();

    /// Exactly these frames, typed as hexadecimal text, have arrived in this order since they were last asked for.
    void expectFrames(const std::vector<std::string>& frames, const char* file = __builtin_FILE(),
                      int line = __builtin_LINE());

    void expectNoFrames(const char* file = __builtin_FILE(), int line = __builtin_LINE());

    /// From now on the receiver takes what it is sent, and neither does it nor answers.
    void silence();

    /// What the operation returns on a silent receiver. Its time limits pass quickly.
    template <typename Operation>
    auto whenSilent(Operation operation)
    {
        silence();
        return withFastClock(operation);
    }

    /// What the operation returns while time() runs so fast that a time limit of five seconds takes a tenth of one.
    template <typename Operation>
    static auto withFastClock(Operation operation)
    {
        const testclock::FastClock clock(50);
        return operation();
    }

    /// The operation, which makes one poll of this class/id, waits for so many seconds by time() and no longer.
    void expectWait(std::chrono::seconds limit, std::uint16_t classId, const std::function<void()>& operation);

    /// The texts of an error log, without their time stamps. A line that does not begin with a time stamp and two
    /// blanks is given whole.
    static std::vector<std::string> log(const std::string& path);

private:
    ubxsim::SimulatorOptions options_;
    std::unique_ptr<ubxsim::ReceiverSimulator> receiver_;
};

} // namespace testsupport

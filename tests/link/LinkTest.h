#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include <gtest/gtest.h>
#include <ubxIO.h>

#include "Bytes.h"
#include "Line.h"
#include "TestClock.h"

namespace linktest
{

using namespace std::chrono_literals;

// What the transport says, a line each.
inline constexpr const char* kNotOpened = "Could not open tty_gps, cannot communicate with the ublox device.\n";
inline constexpr const char* kNoSettings = "Can't get gps_tty settings\n";
inline constexpr const char* kNotConfigured = "Can't configure tty_gps raw mode\n";
inline constexpr const char* kNotSent = "Cannot send message to the ublox, the device is not open!\n";
inline constexpr const char* kNotReceiving =
    "ubxIO::ReceiveMessage Could not receive data from the ublox, device is not open!\n";
inline constexpr const char* kErrored = "ubxIO::ReceiveMessage Errored messages returned from u-blox.\n";
inline constexpr const char* kTimedOut = "ubxIO::ReceiveMessage Timed out waiting for rx from u-blox.\n";

/// time() stands still while it is in scope, but for what the test lets pass.
class StoppedClock
{
public:
    StoppedClock() { testclock::runFast(0); }
    ~StoppedClock() { testclock::runNormally(); }
    StoppedClock(const StoppedClock&) = delete;
    StoppedClock& operator=(const StoppedClock&) = delete;

    static void pass(std::chrono::seconds time) { testclock::jump(time); }
};

/// What an operation wrote to standard error.
std::string errorsOf(const std::function<void()>& operation);

/// Holds an object of a class without a virtual destructor, where a compiler would fear that it is one of a derived
/// class.
template <typename Object>
struct Held
{
    Object object;
};

/// How a wait for a message ended.
struct Wait
{
    std::string frame;     ///< The message, as "B5 62 ..."; empty for null.
    unsigned long errored; ///< How many lines of damaged frames were written to standard error first,
    std::string errors;    ///< and what else.
    unsigned long rounds;  ///< How often the library looked at the line.
};

/// A test with a line at "/dev/tty_gps" and a clock that stands still.
class LinkTest : public testing::Test
{
protected:
    /// Waits for a message while the test talks, in another thread. When that has ended, so must the wait.
    Wait receive(
        ubxIO& port, unsigned short classId, int timeLimit, const std::function<void()>& talk = [] {});

    /// Lets a wait that has begun look a few times, then reach its limit of five seconds.
    void letTimePass();

    /// A port that is open from the first call on, with nothing said on its line yet.
    ubxIO& port();

    void reopen();

    Line line;
    StoppedClock clock;

private:
    std::optional<Held<ubxIO>> port_;
};

/// One after the other.
testsupport::Bytes operator+(const testsupport::Bytes& first, const testsupport::Bytes& second);

/// So many bytes of NMEA sentences.
testsupport::Bytes nmea(std::size_t size);

} // namespace linktest

#pragma once

#include <array>
#include <chrono>
#include <cstdint>
#include <deque>
#include <memory>
#include <random>
#include <set>
#include <string>

#include "Expectation.h"
#include "Library.h"

namespace soak
{

/// Random operations on simulated receivers with random faults, each looked at when it is done.
class Soak
{
public:
    Soak(Library& library, unsigned seed);

    /// One operation. @throws std::runtime_error that tells what is not as it must be.
    void step();

    /// What the library's process and the sandbox hold now counts as what they need. @throws as step().
    void warmedUp();

    /// @throws std::runtime_error when they hold more than then, or as step().
    void expectNothingLeft();

    std::string summary() const;

    /// The last operations, the newest last.
    std::string lastOperations() const;

private:
    struct Receiver
    {
        std::unique_ptr<ubxsim::ReceiverSimulator> simulator;
        Knowledge knowledge;
    };

    struct Held
    {
        long blocksInUse = 0;
        std::size_t bytesInUse = 0, residentPages = 0, descriptors = 0;
        std::set<std::string> files;
    };

    Receiver& receiverOf(Drive drive) { return receivers_[isZedF9t(drive) ? 1 : 0]; }
    void play(Receiver& receiver, const std::string& words);
    void waitUntilStarted(Drive drive);
    void waitUntilAllIsRead(const Receiver& receiver);
    static void waitUntilGone(const Receiver& receiver);
    void disturb(Drive drive, const Operation& operation, const Fault& fault);
    void recover(Drive drive, const Fault& fault);
    void compare(Drive drive, const Operation& operation, const Expectation& expected);
    Arguments chooseArguments(const Operation& operation);
    void perform(Drive drive, std::size_t index, Arguments arguments, const Fault& fault);
    void settle();
    Held holds();

    Library& library_;
    std::mt19937 random_;
    std::array<Receiver, 2> receivers_;
    Done last_;
    std::vector<std::uint16_t> messages_; ///< what came to the receiver last
    std::deque<std::string> history_;
    Held afterWarmUp_;
    std::array<unsigned long, kDrives> byDrive_{};
    std::array<unsigned long, kGroups> byFault_{};
};

} // namespace soak

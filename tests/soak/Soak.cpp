#include "Soak.h"

#include <filesystem>
#include <iomanip>
#include <sstream>
#include <stdexcept>
#include <thread>

#include <fcntl.h>
#include <unistd.h>

#include "Bytes.h"
#include "sandbox/Sandbox.h"
#include "simulator/faults/ActionText.h"

namespace soak
{

namespace
{

using namespace std::chrono_literals;

constexpr const char* kDriveNames[kDrives] = {"NEO-M8T", "ZED-F9T by items", "ZED-F9T by messages"};

// Behind a late answer that nobody waits for any more.
constexpr auto kLateAnswer = 450ms;

constexpr std::size_t kHistory = 12;

/// Twice as fast as the wall clock, with sentences all the time. Faster ones would fill the line before a library that
/// waits for its processor comes to read, and a reply would be lost.
ubxsim::SimulatorOptions optionsOf(ubxsim::Model model)
{
    ubxsim::SimulatorOptions options;
    options.model = model;
    options.epoch = 500ms;
    options.trailer = testsupport::bytes("0D 0A");
    return options;
}

[[noreturn]] void fail(const std::string& what)
{
    throw std::runtime_error(what);
}

std::string listed(const std::vector<std::uint16_t>& messages)
{
    std::ostringstream text;
    text << std::hex << std::uppercase << std::setfill('0');
    for (const std::uint16_t message : messages)
        text << ' ' << std::setw(4) << message;
    return messages.empty() ? " nothing" : text.str();
}

std::string differences(const Settings& settings, const Settings& expected)
{
    std::string text;
    for (std::size_t field = 0; field < kFields; ++field) {
        if (settings[field] == expected[field]) continue;
        text += std::string(text.empty() ? "" : ", ") + nameOf(static_cast<Field>(field)) + " " +
                std::to_string(settings[field]) + " instead of " + std::to_string(expected[field]);
    }
    return text;
}

} // namespace

Soak::Soak(Library& library, unsigned seed) : library_(library), random_(seed)
{
    receivers_[0].simulator = std::make_unique<ubxsim::ReceiverSimulator>(optionsOf(ubxsim::Model::neoM8t));
    receivers_[1].simulator = std::make_unique<ubxsim::ReceiverSimulator>(optionsOf(ubxsim::Model::zedF9t));
    for (Receiver& receiver : receivers_) {
        receiver.knowledge.settings = settingsOf(*receiver.simulator, &receiver == &receivers_[1]);
        receiver.knowledge.saved = receiver.knowledge.settings;
        receiver.knowledge.factory = receiver.knowledge.settings;
    }
}

// Leaves the library with what it keeps of the receiver that it identified last.
void Soak::settle()
{
    for (const Drive drive : {Drive::zedF9tItems, Drive::neoM8t}) {
        for (std::size_t index = 0; index < operationsOf(drive).size(); ++index)
            if (operationsOf(drive)[index].run == nullptr) perform(drive, index, {}, {});
    }
}

void Soak::play(Receiver& receiver, const std::string& words)
{
    const ubxsim::Action action = ubxsim::parseAction(words);
    if (const auto* fault = std::get_if<ubxsim::Fault>(&action.what)) {
        receiver.simulator->play(*fault);
    } else {
        receiver.simulator->happen(std::get<ubxsim::Event>(action.what));
    }
}

void Soak::waitUntilStarted(Drive drive)
{
    // The first operation of each table is a query.
    for (int attempt = 0; attempt < 1000; ++attempt) {
        if (library_.run(drive, 0, {}, 50).status == 0) return;
    }
    fail("the receiver does not answer any more");
}

// A frame that no receiver knows is sent behind all others: when it has come, so have they.
void Soak::waitUntilAllIsRead(const Receiver& receiver)
{
    static const ubxsim::Bytes kMarker = testsupport::bytes("B5 62 7F 7F 00 00 FE 79");
    const int fd = ::open(receiver.simulator->devicePath().c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    const bool isWritten = ::write(fd, kMarker.data(), kMarker.size()) == static_cast<ssize_t>(kMarker.size());
    ::close(fd);
    if (!isWritten) fail("the receiver's line takes nothing");
    std::vector<ubxsim::Bytes> frames;
    for (;;) {
        frames = receiver.simulator->receivedFrames();
        if (!frames.empty() && frames.back() == kMarker) break;
        if (!receiver.simulator->waitForFrames(frames.size() + 1, 20s)) fail("the receiver reads nothing any more");
    }
    messages_.clear();
    for (const ubxsim::Bytes& frame : frames)
        messages_.push_back(static_cast<std::uint16_t>(frame[2] << 8 | frame[3]));
    messages_.pop_back();
    receiver.simulator->clearReceived();
}

void Soak::waitUntilGone(const Receiver& receiver)
{
    const std::string path = receiver.simulator->devicePath();
    for (const auto until = std::chrono::steady_clock::now() + 20s; ::access(path.c_str(), F_OK) == 0;) {
        if (std::chrono::steady_clock::now() > until) fail("the device does not leave");
        std::this_thread::sleep_for(1ms);
    }
}

Arguments Soak::chooseArguments(const Operation& operation)
{
    const auto between = [this](long lowest, long highest) {
        return lowest + static_cast<long>(random_() % static_cast<unsigned long>(highest - lowest + 1));
    };
    const long first = between(operation.lowest.first, operation.highest.first);
    return {first, between(operation.lowest.second, operation.highest.second)};
}

void Soak::disturb(Drive drive, const Operation& operation, const Fault& fault)
{
    Receiver& receiver = receiverOf(drive);
    sandbox::linkGps(receiver.simulator->devicePath());
    for (const std::string& words : fault.before)
        play(receiver, words);
    // Behind the fault's: the first that fits a request counts.
    if (operation.answer != nullptr) play(receiver, operation.answer);
    if (fault.group == Group::powerFailure) waitUntilStarted(drive);
    receiver.simulator->clearReceived();
    if (fault.noDevice) sandbox::removeGps();
}

void Soak::recover(Drive drive, const Fault& fault)
{
    Receiver& receiver = receiverOf(drive);
    const bool isGone = fault.group == Group::lineFull || fault.group == Group::deviceGone;
    if (fault.group == Group::deviceLeaves) waitUntilGone(receiver);
    if (!isGone && fault.group != Group::deviceLeaves) waitUntilAllIsRead(receiver); // and has met its fault
    if (fault.group == Group::noReply && fault.before[0].rfind("late", 0) == 0)
        std::this_thread::sleep_for(kLateAnswer);
    for (const std::string& words : fault.after)
        play(receiver, words);
    play(receiver, "clear-faults");
    sandbox::linkGps(receiver.simulator->devicePath());
    if (fault.group == Group::restart || fault.group == Group::saveCutShort) waitUntilStarted(drive);
    if (isGone || fault.group == Group::deviceLeaves) waitUntilAllIsRead(receiver);
}

void Soak::compare(Drive drive, const Operation& operation, const Expectation& expected)
{
    const std::string& what = history_.back();
    Receiver& receiver = receiverOf(drive);
    if (last_.status != expected.status) {
        fail(what + " gave the status " + std::to_string(last_.status) + ", not " + std::to_string(expected.status));
    }
    if (expected.messages && messages_ != *expected.messages) {
        fail("in " + what + " the receiver got" + listed(messages_) + ", not" + listed(*expected.messages));
    }
    const Settings& wanted = expected.afterwards.settings;
    if (expected.shows && last_.shown != operation.expected(wanted)) {
        fail(what + " gave " + last_.shown + ", not " + operation.expected(wanted));
    }
    const std::string model = isZedF9t(drive) && expected.isFound ? "ZEDF9T" : "NEOM8T";
    if (operation.run == nullptr && last_.shown != model) fail(what + " found a " + last_.shown + ", not a " + model);

    const Settings held = settingsOf(*receiver.simulator, isZedF9t(drive));
    receiver.knowledge = expected.afterwards;
    if (expected.orElse) {
        for (std::size_t field = 0; field < kFields; ++field) {
            if (held[field] != (*expected.orElse)[field]) continue;
            receiver.knowledge.settings[field] = held[field];
            receiver.knowledge.saved[field] = held[field];
        }
    }
    const std::string wrong = differences(held, receiver.knowledge.settings);
    if (!wrong.empty()) fail("after " + what + " the receiver has " + wrong);
}

void Soak::perform(Drive drive, std::size_t index, Arguments arguments, const Fault& fault)
{
    const Operation& operation = operationsOf(drive)[index];
    const Expectation expected = expectationOf(operation, arguments, fault, receiverOf(drive).knowledge);

    std::ostringstream what;
    what << kDriveNames[static_cast<std::size_t>(drive)] << ": " << operation.name << '(' << arguments.first << ", "
         << arguments.second << ") with the fault \"" << nameOf(fault.group)
         << (fault.before.empty() ? "" : ": " + fault.before[0]) << '"';
    history_.push_back(what.str());
    if (history_.size() > kHistory) history_.pop_front();

    disturb(drive, operation, fault);
    last_ = library_.run(drive, index, arguments, expected.clockSpeed);
    recover(drive, fault);
    compare(drive, operation, expected);

    ++byDrive_[static_cast<std::size_t>(drive)];
    ++byFault_[static_cast<std::size_t>(fault.group)];
}

void Soak::step()
{
    const auto drive = static_cast<Drive>(random_() % kDrives);
    const std::vector<Operation>& operations = operationsOf(drive);
    const std::size_t index = random_() % operations.size();
    const Arguments arguments = chooseArguments(operations[index]);
    perform(drive, index, arguments, chooseFault(operations[index], receiverOf(drive).knowledge.settings, random_));
}

Soak::Held Soak::holds()
{
    settle();
    Held held{last_.blocksInUse, last_.bytesInUse, last_.residentPages, last_.descriptors, {}};
    for (const char* directory : {"/tmp", "/var/log", "/dev"}) {
        for (const auto& entry : std::filesystem::directory_iterator(directory))
            held.files.insert(entry.path());
    }
    return held;
}

void Soak::warmedUp()
{
    afterWarmUp_ = holds();
}

void Soak::expectNothingLeft()
{
    const Held now = holds();
    if (now.descriptors > afterWarmUp_.descriptors) {
        fail("the library has " + std::to_string(now.descriptors) + " descriptors open, after the warm-up it had " +
             std::to_string(afterWarmUp_.descriptors));
    }
    // malloc adds up to so much to a block when what would be left over is too small to be one.
    constexpr std::size_t kRounding = 16;
    const std::size_t mostBytes = afterWarmUp_.bytesInUse + kRounding * static_cast<std::size_t>(now.blocksInUse);
    if (now.blocksInUse > afterWarmUp_.blocksInUse || now.bytesInUse > mostBytes) {
        fail("the library holds " + std::to_string(now.blocksInUse) + " blocks and " + std::to_string(now.bytesInUse) +
             " bytes, after the warm-up it held " + std::to_string(afterWarmUp_.blocksInUse) + " blocks and " +
             std::to_string(afterWarmUp_.bytesInUse) + " bytes");
    }
    for (const std::string& file : now.files) {
        if (afterWarmUp_.files.count(file) == 0) fail(file + " was not there after the warm-up");
    }
}

std::string Soak::lastOperations() const
{
    std::string text;
    for (const std::string& line : history_)
        text += "                 " + line + "\n";
    return text;
}

std::string Soak::summary() const
{
    std::ostringstream text;
    unsigned long operations = 0;
    for (const unsigned long count : byDrive_)
        operations += count;
    const auto line = [&](const char* label, const std::string& what) {
        text << std::left << std::setw(17) << label << what << '\n';
    };
    const auto counted = [](unsigned long count, const char* what) { return std::to_string(count) + "  " + what; };
    line("operations", std::to_string(operations));
    for (std::size_t drive = 0; drive < kDrives; ++drive)
        line(drive == 0 ? "  of which" : "", counted(byDrive_[drive], kDriveNames[drive]));
    for (std::size_t group = 0; group < kGroups; ++group)
        line(group == 0 ? "faults" : "", counted(byFault_[group], nameOf(static_cast<Group>(group))));
    const auto held = [&](const char* label, auto now, auto then) {
        line(label, std::to_string(now) + ", after the warm-up " + std::to_string(then));
    };
    held("heap blocks", last_.blocksInUse, afterWarmUp_.blocksInUse);
    held("heap bytes", last_.bytesInUse, afterWarmUp_.bytesInUse);
    held("resident pages", last_.residentPages, afterWarmUp_.residentPages);
    held("descriptors", last_.descriptors, afterWarmUp_.descriptors);
    return text.str();
}

} // namespace soak

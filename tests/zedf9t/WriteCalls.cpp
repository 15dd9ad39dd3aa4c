#include "WriteCalls.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <filesystem>
#include <mutex>
#include <thread>

#include <sys/syscall.h>
#include <unistd.h>

#include "Bytes.h"

namespace writecalls
{

namespace
{

struct State
{
    std::mutex mutex;
    std::thread::id thread; // the simulated receiver writes frames, too, in its own
    bool observing = false;
    std::size_t openBefore = 0;
    std::vector<std::size_t> portsOpen;
    testsupport::Bytes failing;
    int failsIn = 0;
};

State state;

std::size_t openTerminals()
{
    std::size_t count = 0;
    for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd")) {
        std::error_code gone;
        const std::string target = std::filesystem::read_symlink(descriptor.path(), gone).string();
        if (target.find("pts/") != std::string::npos) ++count;
    }
    return count;
}

bool isFrame(const std::uint8_t* bytes, std::size_t count)
{
    return count >= 8 && bytes[0] == 0xB5 && bytes[1] == 0x62;
}

/// @return whether the frame is to be written.
bool take(const std::uint8_t* bytes, std::size_t count)
{
    const std::lock_guard lock(state.mutex);
    if (std::this_thread::get_id() != state.thread) return true;
    if (state.observing) state.portsOpen.push_back(openTerminals() - state.openBefore);
    const bool fails = std::equal(bytes, bytes + count, state.failing.begin(), state.failing.end());
    return !fails || --state.failsIn != 0;
}

} // namespace

Observation::Observation()
{
    const std::lock_guard lock(state.mutex);
    state.thread = std::this_thread::get_id();
    state.observing = true;
    state.openBefore = openTerminals();
    state.portsOpen.clear();
}

Observation::~Observation()
{
    const std::lock_guard lock(state.mutex);
    state.observing = false;
}

std::vector<std::size_t> Observation::portsOpen() const
{
    const std::lock_guard lock(state.mutex);
    return state.portsOpen;
}

Failure::Failure(const std::string& frame, int nth)
{
    const std::lock_guard lock(state.mutex);
    state.thread = std::this_thread::get_id();
    state.failing = testsupport::bytes(frame);
    state.failsIn = nth;
}

Failure::~Failure()
{
    const std::lock_guard lock(state.mutex);
    state.failing.clear();
}

} // namespace writecalls

// Takes the place of the C library's in this program and in the shared libraries that it uses.
extern "C" __attribute__((visibility("default"))) ssize_t write(int descriptor, const void* data, size_t count)
{
    const auto* const bytes = static_cast<const std::uint8_t*>(data);
    if (writecalls::isFrame(bytes, count) && !writecalls::take(bytes, count)) {
        errno = EIO;
        return -1;
    }
    return ::syscall(SYS_write, descriptor, data, count);
}

#include "simulator/wire/LineRunner.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <poll.h>
#include <sys/eventfd.h>
#include <sys/stat.h>
#include <system_error>

namespace ubxsim
{

namespace
{

constexpr std::chrono::seconds kLongestSleep{1};

// Without it a simulation that can't keep up would never let another thread have the mutex.
constexpr std::chrono::microseconds kShortestSleep{50};

// While the host's writes are to meet a full line, what a flush by the host removed is filled up again this often.
constexpr std::chrono::milliseconds kStuffingInterval{1};

std::string linkTargetOf(const std::string& path)
{
    std::array<char, 256> target{};
    const ssize_t size = ::readlink(path.c_str(), target.data(), target.size());
    return size > 0 ? std::string(target.data(), static_cast<std::size_t>(size)) : std::string();
}

} // namespace

LineRunner::LineRunner(LineClient& client) : client_(client), wakeUp_(::eventfd(0, EFD_NONBLOCK | EFD_CLOEXEC))
{
    if (!wakeUp_.valid()) {
        throw std::system_error(errno, std::generic_category(), "cannot create an event descriptor");
    }
    pty_.open();
}

LineRunner::~LineRunner()
{
    stop();
    removeLink();
}

void LineRunner::start()
{
    thread_ = std::thread([this] { run(); });
}

void LineRunner::stop()
{
    {
        const std::lock_guard<std::mutex> lock(mutex_);
        stop_ = true;
    }
    wake();
    if (thread_.joinable()) {
        thread_.join();
    }
}

void LineRunner::wake()
{
    const std::uint64_t one = 1;
    // The counter can't overflow, and a wake-up that is already pending is as good as this one.
    [[maybe_unused]] const ssize_t written = ::write(wakeUp_.get(), &one, sizeof one);
}

void LineRunner::waitForTurn(std::unique_lock<std::mutex>& lock)
{
    const std::uint64_t before = turns_;
    wake();
    turned_.wait(lock, [&] { return turns_ != before; });
}

void LineRunner::linkAt(const std::string& path)
{
    removeLink();
    struct stat status
    {};
    if (::lstat(path.c_str(), &status) == 0 && !S_ISLNK(status.st_mode)) {
        throw std::system_error(EEXIST, std::generic_category(), path + " is no symbolic link and is left alone");
    }
    link_ = path;
    renewLink();
}

// Made beside and moved over, so that the link is never missing.
void LineRunner::renewLink()
{
    if (link_.empty()) {
        return;
    }
    const std::string beside = link_ + ".new";
    ::unlink(beside.c_str());
    if (::symlink(pty_.path().c_str(), beside.c_str()) != 0 || ::rename(beside.c_str(), link_.c_str()) != 0) {
        const int error = errno;
        ::unlink(beside.c_str());
        throw std::system_error(error, std::generic_category(), "cannot make the link " + link_);
    }
    linkTarget_ = pty_.path();
}

// A link that somebody else has pointed elsewhere meanwhile is no longer ours.
void LineRunner::removeLink()
{
    if (!link_.empty() && linkTargetOf(link_) == linkTarget_) {
        ::unlink(link_.c_str());
    }
    link_.clear();
}

void LineRunner::hangUp()
{
    output_.clear();
    pty_.close();
}

void LineRunner::comeBack()
{
    if (!pty_.isOpen()) {
        pty_.open();
        renewLink();
    }
}

void LineRunner::stopReading(bool stop)
{
    if (readingStopped_ == stop) {
        return;
    }
    readingStopped_ = stop;
    if (stop) {
        pty_.stuffInput();
    } else {
        const Bytes rest = pty_.removeStuffing();
        client_.onBytes(rest.data(), rest.size(), WallClock::now());
    }
}

void LineRunner::run()
{
    std::unique_lock<std::mutex> lock(mutex_);
    while (!stop_) {
        WallTime now = WallClock::now();
        WallTime wakeAt = std::min(client_.onTime(now), now + kLongestSleep);
        output_.pump(pty_, now);
        if (const auto due = output_.nextDue()) {
            wakeAt = std::min(wakeAt, *due);
        }
        if (readingStopped_) {
            pty_.stuffInput();
            wakeAt = std::min(wakeAt, now + kStuffingInterval);
        }

        const bool listen = pty_.isOpen() && !readingStopped_;
        std::array<pollfd, 2> descriptors{pollfd{wakeUp_.get(), POLLIN, 0},
                                          pollfd{listen ? pty_.descriptor() : -1, POLLIN, 0}};
        const auto sleep = std::chrono::duration_cast<std::chrono::nanoseconds>(
            std::max<WallClock::duration>(wakeAt - WallClock::now(), kShortestSleep));
        const timespec timeout{static_cast<time_t>(sleep.count() / 1000000000),
                               static_cast<long>(sleep.count() % 1000000000)};
        lock.unlock();
        ::ppoll(descriptors.data(), descriptors.size(), &timeout, nullptr);
        std::uint64_t wakeUps = 0;
        [[maybe_unused]] const ssize_t drained = ::read(wakeUp_.get(), &wakeUps, sizeof wakeUps);
        lock.lock();
        ++turns_;
        turned_.notify_all();

        if (pty_.isOpen() && !readingStopped_) {
            std::array<std::uint8_t, 4096> buffer{};
            const std::size_t count = pty_.read(buffer.data(), buffer.size());
            if (count > 0) {
                client_.onBytes(buffer.data(), count, WallClock::now());
            }
        }
    }
}

} // namespace ubxsim

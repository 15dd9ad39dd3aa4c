#pragma once

#include "simulator/wire/OutputLine.h"

#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace ubxsim
{

/// What stands behind the line. All calls come with the runner's mutex held.
class LineClient
{
public:
    virtual void onBytes(const std::uint8_t* data, std::size_t size, WallTime now) = 0;
    /// Does what is due and returns when it wants to be called next.
    virtual WallTime onTime(WallTime now) = 0;

protected:
    ~LineClient() = default;
};

/// Owns the pty, its symbolic link and the thread that moves bytes.
class LineRunner
{
public:
    explicit LineRunner(LineClient& client);
    ~LineRunner();
    LineRunner(const LineRunner&) = delete;
    LineRunner& operator=(const LineRunner&) = delete;

    void start();
    void stop();

    std::mutex& mutex() const { return mutex_; }
    /// Has the thread look at the world again; call after a change from another thread.
    void wake();

    // The rest needs the mutex.

    /// Waits until the thread has woken up and looked at what was changed. A hang-up is complete only then: the thread
    /// still holds the terminal while it waits for input.
    void waitForTurn(std::unique_lock<std::mutex>& lock);
    std::string devicePath() const { return pty_.path(); }
    void linkAt(const std::string& path);
    void hangUp();
    void comeBack();
    void stopReading(bool stop);
    OutputLine& output() { return output_; }

private:
    void run();
    void renewLink();
    void removeLink();

    LineClient& client_;
    mutable std::mutex mutex_;
    Pty pty_;
    OutputLine output_;
    Descriptor wakeUp_;
    std::string link_;
    std::string linkTarget_;
    bool readingStopped_ = false;
    bool stop_ = false;
    std::uint64_t turns_ = 0;
    std::condition_variable turned_;
    std::thread thread_;
};

} // namespace ubxsim

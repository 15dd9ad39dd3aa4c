#pragma once

#include <functional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace testsupport
{

struct Ended
{
    int status;         ///< Exit status; of a process that a signal ended, minus the number of the signal.
    std::string output; ///< What it and its children wrote to standard output,
    std::string errors; ///< and to standard error.
};

/// A process of a test, which does not outlive it.
class ChildProcess
{
public:
    /// Runs a function in a process of its own; its result is the exit status. Only while the test has one thread.
    explicit ChildProcess(const std::function<int()>& run);

    /// Runs a command, after a function (an environment variable set, a right given up) in the new process.
    explicit ChildProcess(const std::vector<std::string>& command, const std::function<void()>& before = {});

    ~ChildProcess();
    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// The next line of standard output; empty at its end. A process that says nothing for ten seconds is killed.
    std::string readLine();

    void send(int signal) const;

    /// Waits until nobody has its standard output open any more and it has ended.
    Ended wait();

private:
    bool readMore();

    pid_t pid_;
    int output_;
    int errors_;
    std::string unread_;
};

/// Runs a command or a function to its end.
Ended runToEnd(const std::vector<std::string>& command, const std::function<void()>& before = {});
Ended runToEnd(const std::function<int()>& run);

} // namespace testsupport

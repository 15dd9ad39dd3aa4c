#pragma once

#include <csignal>
#include <string>
#include <vector>

#include <sys/types.h>

namespace sandbox
{

using Arguments = std::vector<std::string>;

/// Becomes the command. Comes back only when that fails: it has then said so, and gives the exit status that shells use
/// for it (127 not found, 126 not to be run).
int become(const Arguments& command);

/// A process that is started by this one and does not outlive it.
class Child
{
public:
    enum class Role
    {
        command,   ///< Takes part in all that the terminal does.
        background ///< Left alone by the terminal's signals; what it prints goes to standard error.
    };

    /// @param signals  the signals that this process has blocked and the child shall get.
    /// @throws std::system_error where no process can be made.
    Child(const Arguments& command, Role role, const sigset_t& signals);

    /// Kills it when it still runs.
    ~Child();
    Child(const Child&) = delete;
    Child& operator=(const Child&) = delete;

    /// Whether it has ended.
    bool hasEnded();

    void send(int signal);

    /// Of a child that has ended: its exit status, or as shells have it 128 and the number of the signal that ended it.
    int exitStatus() const;

private:
    [[noreturn]] static void run(const Arguments& command, Role role, const sigset_t& signals, pid_t parent);

    pid_t pid_;
    bool ended_ = false;
    int status_ = 0;
};

} // namespace sandbox

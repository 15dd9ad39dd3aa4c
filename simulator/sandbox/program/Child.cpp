#include "Child.h"

#include <cerrno>
#include <cstring>
#include <iostream>

#include <fcntl.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include "../SystemCall.h"

namespace sandbox
{

namespace
{

constexpr int kNotFound = 127;
constexpr int kNotToBeRun = 126;
constexpr int kSignalBase = 128;

} // namespace

int become(const Arguments& command)
{
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);

    ::execvp(arguments.front(), arguments.data());
    const int reason = errno;
    std::cerr << "ubxsandbox: can't run " << command.front() << ": " << std::strerror(reason) << std::endl;
    return reason == ENOENT ? kNotFound : kNotToBeRun;
}

Child::Child(const Arguments& command, Role role, const sigset_t& signals) : pid_(-1)
{
    const pid_t parent = ::getpid();
    pid_ = ::fork();
    attempt(pid_, "start", command.front());
    if (pid_ == 0) run(command, role, signals, parent);
}

void Child::run(const Arguments& command, Role role, const sigset_t& signals, pid_t parent)
{
    // Asked for first and checked then: the parent may have ended in between.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != parent) ::_exit(kNotToBeRun);

    if (role == Role::background) {
        ::setpgid(0, 0);
        const int nothing = ::open("/dev/null", O_RDONLY);
        ::dup2(nothing, STDIN_FILENO);
        ::dup2(STDERR_FILENO, STDOUT_FILENO);
    }
    ::sigprocmask(SIG_UNBLOCK, &signals, nullptr);
    ::_exit(become(command));
}

Child::~Child()
{
    if (hasEnded()) return;
    ::kill(pid_, SIGKILL);
    ::waitpid(pid_, &status_, 0);
}

bool Child::hasEnded()
{
    ended_ = ended_ || ::waitpid(pid_, &status_, WNOHANG) == pid_;
    return ended_;
}

void Child::send(int signal)
{
    if (!hasEnded()) ::kill(pid_, signal);
}

int Child::exitStatus() const
{
    return WIFSIGNALED(status_) ? kSignalBase + WTERMSIG(status_) : WEXITSTATUS(status_);
}

} // namespace sandbox

#include "ChildProcess.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <exception>
#include <iostream>
#include <system_error>
#include <utility>

#include <fcntl.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace testsupport
{

namespace
{

constexpr int kPatienceMs = 10'000;
constexpr int kNotRun = 127;

int insistOn(int result, const char* what)
{
    if (result < 0) throw std::system_error(errno, std::generic_category(), what);
    return result;
}

int runCommand(const std::vector<std::string>& command, const std::function<void()>& before)
{
    if (before) before();
    std::vector<char*> arguments;
    for (const std::string& argument : command)
        arguments.push_back(const_cast<char*>(argument.c_str()));
    arguments.push_back(nullptr);
    ::execvp(arguments.front(), arguments.data());
    std::perror(arguments.front());
    return kNotRun;
}

[[noreturn]] void become(const std::function<int()>& run, int output, int errors)
{
    ::dup2(output, STDOUT_FILENO);
    ::dup2(errors, STDERR_FILENO);
    int status = kNotRun;
    try {
        status = run();
    } catch (const std::exception& error) {
        std::cerr << error.what() << std::endl;
    }
    std::cout.flush();
    std::fflush(nullptr);
    ::_exit(status);
}

std::string contents(int file)
{
    std::string all;
    std::array<char, 4096> piece{};
    ssize_t got = 0;
    while ((got = ::pread(file, piece.data(), piece.size(), static_cast<off_t>(all.size()))) > 0) {
        all.append(piece.data(), static_cast<std::size_t>(got));
    }
    return all;
}

} // namespace

ChildProcess::ChildProcess(const std::function<int()>& run) : pid_(-1), output_(-1), errors_(-1)
{
    std::array<int, 2> ends{};
    insistOn(::pipe2(ends.data(), O_CLOEXEC), "pipe2");
    errors_ = insistOn(::memfd_create("errors", MFD_CLOEXEC), "memfd_create");
    std::cout.flush();
    std::fflush(nullptr);

    pid_ = insistOn(::fork(), "fork");
    if (pid_ == 0) become(run, ends[1], errors_);
    ::close(ends[1]);
    output_ = ends[0];
}

ChildProcess::ChildProcess(const std::vector<std::string>& command, const std::function<void()>& before)
    : ChildProcess([&] { return runCommand(command, before); })
{}

ChildProcess::~ChildProcess()
{
    if (pid_ > 0) {
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, nullptr, 0);
    }
    ::close(output_);
    ::close(errors_);
}

bool ChildProcess::readMore()
{
    pollfd waiting{output_, POLLIN, 0};
    if (::poll(&waiting, 1, kPatienceMs) != 1) {
        send(SIGKILL);
        return false;
    }
    std::array<char, 4096> piece{};
    const ssize_t got = ::read(output_, piece.data(), piece.size());
    if (got > 0) unread_.append(piece.data(), static_cast<std::size_t>(got));
    return got > 0;
}

std::string ChildProcess::readLine()
{
    while (unread_.find('\n') == std::string::npos) {
        if (!readMore()) return "";
    }
    const std::size_t end = unread_.find('\n');
    const std::string line = unread_.substr(0, end);
    unread_.erase(0, end + 1);
    return line;
}

void ChildProcess::send(int signal) const
{
    if (pid_ > 0) ::kill(pid_, signal);
}

Ended ChildProcess::wait()
{
    while (readMore()) {
    }
    int status = 0;
    insistOn(::waitpid(std::exchange(pid_, -1), &status, 0), "waitpid");
    return {WIFSIGNALED(status) ? -WTERMSIG(status) : WEXITSTATUS(status), std::exchange(unread_, ""),
            contents(errors_)};
}

Ended runToEnd(const std::vector<std::string>& command, const std::function<void()>& before)
{
    return ChildProcess(command, before).wait();
}

Ended runToEnd(const std::function<int()>& run)
{
    return ChildProcess(run).wait();
}

} // namespace testsupport

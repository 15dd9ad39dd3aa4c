#include "bench/counts/SystemCalls.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <system_error>

#include <sys/mman.h>
#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace bench
{

namespace
{

// Nobody else asks for this: it marks where counting begins and ends.
constexpr std::uint64_t kMark = SYS_getppid;

void mark()
{
    ::syscall(SYS_getppid);
}

std::string nameOf(std::uint64_t number, std::int64_t result)
{
    switch (number) {
    case SYS_openat:
        return "open";
    case SYS_close:
        return "close";
    case SYS_ioctl:
        return "ioctl";
    case SYS_write:
        return "write";
    case SYS_fsync:
        return "fsync";
    case SYS_rt_sigprocmask:
        return "sigmask";
    case SYS_read:
        return result > 0 ? "read" : "read without bytes";
    default:
        return "number " + std::to_string(number);
    }
}

[[noreturn]] void fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

void check(long result, const char* what)
{
    if (result < 0) fail(what);
}

// The child stops at every system call, when it enters and when it leaves.
class Watched
{
public:
    explicit Watched(pid_t process) : process_(process)
    {
        waitForStop();
        check(::ptrace(PTRACE_SETOPTIONS, process_, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL), "ptrace");
    }

    /// The next system call: its number and its result. False when the process has ended.
    bool next(std::uint64_t& number, std::int64_t& result)
    {
        for (;;) {
            check(::ptrace(PTRACE_SYSCALL, process_, nullptr, nullptr), "ptrace");
            if (!waitForStop()) return false;
            __ptrace_syscall_info info{};
            if (::ptrace(PTRACE_GET_SYSCALL_INFO, process_, sizeof info, &info) <= 0) continue;
            if (info.op == PTRACE_SYSCALL_INFO_ENTRY) number_ = info.entry.nr;
            if (info.op != PTRACE_SYSCALL_INFO_EXIT) continue;
            number = number_;
            result = info.exit.rval;
            return true;
        }
    }

    bool endedWell() const { return WIFEXITED(status_) && WEXITSTATUS(status_) == EXIT_SUCCESS; }

private:
    bool waitForStop()
    {
        check(::waitpid(process_, &status_, 0), "waitpid");
        return WIFSTOPPED(status_);
    }

    pid_t process_;
    int status_ = 0;
    std::uint64_t number_ = 0;
};

[[noreturn]] void act(const std::function<void()>& action, MemoryWork& result)
{
    ::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
    std::raise(SIGSTOP);
    action();
    const MemoryWork before = memoryWork();
    mark();
    action();
    mark();
    const MemoryWork after = memoryWork();
    result = {after.allocations - before.allocations, after.copied - before.copied};
    std::_Exit(EXIT_SUCCESS);
}

} // namespace

std::size_t Work::calls() const
{
    std::size_t sum = 0;
    for (const auto& [name, count] : systemCalls)
        sum += count;
    return sum;
}

Work watch(const std::function<void()>& action)
{
    // cppcheck-suppress invalidFunctionArg ; no file needs no descriptor
    void* const shared = ::mmap(nullptr, sizeof(MemoryWork), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (shared == MAP_FAILED) fail("mmap");
    auto& memory = *static_cast<MemoryWork*>(shared);

    const pid_t process = ::fork();
    check(process, "fork");
    if (process == 0) act(action, memory);

    Work work{};
    Watched watched(process);
    bool counting = false;
    std::uint64_t number = 0;
    std::int64_t result = 0;
    while (watched.next(number, result)) {
        if (number == kMark) {
            counting = !counting;
        } else if (counting) {
            ++work.systemCalls[nameOf(number, result)];
        }
    }
    work.memory = memory;
    ::munmap(shared, sizeof(MemoryWork));
    if (!watched.endedWell()) throw std::runtime_error("what was to be counted failed");
    return work;
}

} // namespace bench

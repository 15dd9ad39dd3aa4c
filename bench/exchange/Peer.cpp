#include "bench/exchange/Peer.h"

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <stdexcept>
#include <system_error>
#include <vector>

#include <fcntl.h>
#include <sched.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include "bench/streams/Frame.h"

namespace bench
{

namespace
{

constexpr std::uint8_t kCfg = 0x06;

class Answers
{
public:
    explicit Answers(std::string hardware)
    {
        Bytes version(220, 0);
        const auto put = [&](std::size_t at, const std::string& text) {
            std::copy(text.begin(), text.end(), version.begin() + static_cast<std::ptrdiff_t>(at));
        };
        const bool isZedF9t = hardware == "00190000";
        put(0, isZedF9t ? "EXT CORE 1.00 (3fda8e)" : "EXT CORE 3.01 (111141)");
        put(30, hardware);
        put(70, isZedF9t ? "FWVER=TIM 2.20" : "FWVER=TIM 1.10");
        put(100, isZedF9t ? "PROTVER=29.20" : "PROTVER=22.00");
        put(130, isZedF9t ? "MOD=ZED-F9T" : "MOD=NEO-M8T-0");
        version_ = makeFrame(0x0A, 0x04, version);
        version_.insert(version_.end(), {'\r', '\n'});
    }

    Bytes to(std::uint8_t messageClass, std::uint8_t id, const Bytes& payload) const
    {
        if (messageClass == 0x0A && id == 0x04) return version_;
        if (messageClass != kCfg) return {};
        Bytes answer;
        if (payload.empty() && id == 0x00) answer = makeFrame(kCfg, 0x00, Bytes(20, 1));
        if (payload.empty() && id == 0x23) answer = makeFrame(kCfg, 0x23, Bytes(40, 6));
        if (id == 0x8B && payload.size() == 8)
            answer = makeFrame(kCfg, 0x8B, {1, 0, 0, 0, payload[4], payload[5], payload[6], payload[7], 6});
        const Bytes acknowledgement = makeFrame(0x05, 0x01, {messageClass, id});
        answer.insert(answer.end(), acknowledgement.begin(), acknowledgement.end());
        return answer;
    }

private:
    Bytes version_;
};

// Whole frames only: the host writes each at once.
[[noreturn]] void answer(int line, const Answers& answers)
{
    Bytes received(4096);
    for (;;) {
        const ssize_t count = ::read(line, received.data(), received.size());
        if (count <= 0) std::_Exit(EXIT_SUCCESS);
        std::size_t at = 0;
        const auto length = static_cast<std::size_t>(count);
        while (length - at >= 8) {
            const std::size_t payload = received[at + 4] + 256U * received[at + 5];
            if (received[at] != 0xB5 || payload > length - at - 8) break;
            const auto start = received.begin() + static_cast<std::ptrdiff_t>(at) + 6;
            const Bytes reply = answers.to(received[at + 2], received[at + 3],
                                           Bytes(start, start + static_cast<std::ptrdiff_t>(payload)));
            if (!reply.empty() && ::write(line, reply.data(), reply.size()) < 0) std::_Exit(EXIT_FAILURE);
            at += payload + 8;
        }
    }
}

[[noreturn]] void fail(const char* what)
{
    throw std::system_error(errno, std::generic_category(), what);
}

} // namespace

Peer::Peer(const char* hardware)
{
    const int farEnd = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (farEnd < 0 || ::grantpt(farEnd) != 0 || ::unlockpt(farEnd) != 0) fail("no pseudo terminal");
    device_ = ::ptsname(farEnd);
    // Held open by the peer, so that the library's closing it is no hang-up.
    const int nearEnd = ::open(device_.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (nearEnd < 0) fail("the pseudo terminal can't be opened");
    termios raw{};
    ::tcgetattr(nearEnd, &raw);
    ::cfmakeraw(&raw);
    ::tcsetattr(nearEnd, TCSANOW, &raw);

    const Answers answers(hardware);
    process_ = ::fork();
    if (process_ < 0) fail("no process for the peer");
    if (process_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        runOn(1);
        answer(farEnd, answers);
    }
    ::close(farEnd);
    ::close(nearEnd);
}

Peer::~Peer()
{
    ::kill(process_, SIGKILL);
    ::waitpid(process_, nullptr, 0);
}

void runOn(unsigned processor)
{
    cpu_set_t allowed;
    CPU_ZERO(&allowed);
    if (::sched_getaffinity(0, sizeof allowed, &allowed) != 0 || CPU_COUNT(&allowed) < 2) return;
    cpu_set_t one;
    CPU_ZERO(&one);
    CPU_SET(processor, &one);
    ::sched_setaffinity(0, sizeof one, &one);
}

} // namespace bench

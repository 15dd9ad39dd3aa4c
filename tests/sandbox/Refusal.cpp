#include "Refusal.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstdint>
#include <system_error>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>

void refuseSystemCall(long number)
{
    constexpr std::uint16_t load = BPF_LD | BPF_W | BPF_ABS;
    constexpr std::uint16_t skipUnlessEqual = BPF_JMP | BPF_JEQ | BPF_K;
    constexpr std::uint16_t answer = BPF_RET | BPF_K;
    std::array<sock_filter, 4> instructions{{
        {load, 0, 0, offsetof(seccomp_data, nr)},
        {skipUnlessEqual, 0, 1, static_cast<std::uint32_t>(number)},
        {answer, 0, 0, SECCOMP_RET_ERRNO | EPERM},
        {answer, 0, 0, SECCOMP_RET_ALLOW},
    }};
    const sock_fprog program{instructions.size(), instructions.data()};

    if (::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0 || ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) != 0) {
        throw std::system_error(errno, std::generic_category(), "seccomp filter");
    }
}

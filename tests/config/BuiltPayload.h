#pragma once

#include <array>
#include <cstddef>
#include <type_traits>

#include <gtest/gtest.h>

#include "Bytes.h"

namespace configtest
{

using testsupport::Bytes;

/// Lets an operation of the builder fill a buffer of 300 bytes and returns the payload. Fails the test when the
/// operation leaves a byte of the payload as it was before, or writes one in front of the payload or behind it.
template <typename... Parameters>
Bytes built(unsigned int (*operation)(unsigned char*, Parameters...), std::decay_t<Parameters>... arguments)
{
    constexpr std::size_t kRoom = 300;
    constexpr std::size_t kGuard = 64;
    std::array<Bytes, 2> payloads;
    for (std::size_t run = 0; run < payloads.size(); ++run) {
        const unsigned char filler = run == 0 ? 0x5A : 0xA5;
        Bytes buffer(kGuard + kRoom + kGuard, filler);

        const unsigned int length = operation(buffer.data() + kGuard, arguments...);

        if (length > kRoom) {
            ADD_FAILURE() << "the payload claims " << length << " bytes";
            return {};
        }
        for (std::size_t i = 0; i < buffer.size(); ++i) {
            if (i >= kGuard && i < kGuard + length) continue;
            EXPECT_EQ(buffer[i], filler) << "written outside the payload, at " << i << " where it is at " << kGuard;
        }
        const auto begin = buffer.begin() + kGuard;
        payloads[run] = Bytes(begin, begin + length);
    }
    EXPECT_EQ(payloads[0], payloads[1]) << "a byte of the payload was not written";
    return payloads[0];
}

} // namespace configtest

#pragma once

#include <cstddef>

namespace protocoltest
{

/// What the tests know of a message, whatever the library's own table holds.
struct KnownMessage
{
    unsigned msgClass;
    unsigned msgId;
    unsigned minimumLength;
    unsigned maximumLength;
    const char* text;
};

inline constexpr std::size_t kKnownMessages = 178;

/// In the order of the library's table.
extern const KnownMessage knownMessages[kKnownMessages];

} // namespace protocoltest

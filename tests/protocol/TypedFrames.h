#pragma once

#include "Parsing.h"

namespace protocoltest
{

inline constexpr const char* kRate = "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39";
inline constexpr const char* kVersionPoll = "B5 62 0A 04 00 00 0E 34";
inline constexpr const char* kItem = "B5 62 06 8B 09 00 01 00 00 00 A3 00 11 20 28 97 08";
inline constexpr const char* kAck = "B5 62 05 01 02 00 06 23 31 5A";
inline constexpr const char* kNak = "B5 62 05 00 02 00 06 31 3E 63";
inline constexpr const char* kLastOfCatalogue = "B5 62 28 00 01 00 11 3A DC";
inline constexpr const char* kUnknown = "B5 62 06 71 01 00 AA 22 8F";
inline constexpr const char* kWrongChecksum = "B5 62 06 08 06 00 E8 03 01 00 01 01 01 39";

/// A buffer of frames and other bytes, typed one after the other.
template <typename... Parts>
Scan parsed(Parts... hex)
{
    return parse(joined({testsupport::bytes(hex)...}));
}

} // namespace protocoltest

#pragma once

#include "simulator/receiver/NavPayloads.h"

#include <string>

namespace ubxsim
{

enum class TextKind : std::uint8_t
{
    error = 0,
    warning = 1,
    notice = 2
};

/// The sentences of one standard NMEA message (class F0) about an epoch; none for a message without content.
std::vector<Bytes> nmeaSentences(std::uint16_t classId, const Report& report);

/// A GNTXT sentence.
Bytes nmeaText(TextKind kind, const std::string& text);

} // namespace ubxsim

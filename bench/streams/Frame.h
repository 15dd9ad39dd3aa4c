#pragma once

#include <cstdint>
#include <vector>

namespace bench
{

using Bytes = std::vector<std::uint8_t>;

/// A whole UBX frame, its checksum made byte by byte.
Bytes makeFrame(std::uint8_t messageClass, std::uint8_t id, const Bytes& payload);

} // namespace bench

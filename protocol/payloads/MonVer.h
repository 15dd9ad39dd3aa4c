#pragma once

#include <cstddef>

/// UBX-MON-VER: texts padded with zero bytes.
namespace ubx::monVer
{

inline constexpr std::size_t swVersion = 0;
inline constexpr std::size_t swVersionWidth = 30;
inline constexpr std::size_t hwVersion = 30;
inline constexpr std::size_t hwVersionWidth = 10;
inline constexpr std::size_t extensions = 40;
inline constexpr std::size_t extensionWidth = 30;

inline constexpr int kReplyTimeLimit = 4; // seconds

} // namespace ubx::monVer

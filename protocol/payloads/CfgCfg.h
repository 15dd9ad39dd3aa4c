#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-CFG: clear, save and load settings.
namespace ubx::cfgCfg
{

inline constexpr Field<std::uint32_t> clearMask{0};
inline constexpr Field<std::uint32_t> saveMask{4};
inline constexpr Field<std::uint32_t> loadMask{8};
inline constexpr Field<std::uint8_t> deviceMask{12};
inline constexpr std::size_t size = 13;
static_assert(deviceMask.end() == size);

// ioPort, msgConf, infMsg, navConf, rxmConf (bits 0 to 4), rinvConf, antConf, logConf, ftsConf (9 to 12); no senConf
// (8).
inline constexpr std::uint32_t kAllSections = 0x00001E1F;
inline constexpr std::uint8_t kBbrFlashAndSpiFlash = 0x13;

} // namespace ubx::cfgCfg

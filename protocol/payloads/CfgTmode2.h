#pragma once

#include <cstdint>

#include "protocol/Field.h"

/// UBX-CFG-TMODE2: survey-in and fixed position.
namespace ubx::cfgTmode2
{

inline constexpr Field<std::uint8_t> timeMode{0};
inline constexpr Field<std::uint16_t> flags{2};
inline constexpr Field<std::int32_t> lat{4};            // 1e-7 degrees
inline constexpr Field<std::int32_t> lon{8};            // 1e-7 degrees
inline constexpr Field<std::int32_t> alt{12};           // cm
inline constexpr Field<std::uint32_t> fixedPosAcc{16};  // mm
inline constexpr Field<std::uint32_t> svinMinDur{20};   // s
inline constexpr Field<std::uint32_t> svinAccLimit{24}; // mm
inline constexpr std::size_t size = 28;
static_assert(svinAccLimit.end() == size);

inline constexpr std::uint8_t kDisabled = 0;
inline constexpr std::uint8_t kSurveyIn = 1;
inline constexpr std::uint8_t kFixed = 2;
inline constexpr std::uint16_t kLatLonAlt = 0x0001;

} // namespace ubx::cfgTmode2

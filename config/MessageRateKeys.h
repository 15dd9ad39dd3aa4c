#pragma once

#include "config/Key.h"

/// CFG-MSGOUT: after how many navigation epochs a message goes out on a port, 0 for never.
/// The five ports of a message have consecutive ids: I2C, UART1, UART2, USB, SPI.
namespace ubx::keys
{

// UBX on I2C
inline constexpr Key<std::uint8_t> msgoutNavTimegpsI2c{0x20910047, "CFG-MSGOUT-UBX_NAV_TIMEGPS_I2C"};
inline constexpr Key<std::uint8_t> msgoutNavTimeutcI2c{0x2091005B, "CFG-MSGOUT-UBX_NAV_TIMEUTC_I2C"};
inline constexpr Key<std::uint8_t> msgoutNavSatI2c{0x20910015, "CFG-MSGOUT-UBX_NAV_SAT_I2C"};
inline constexpr Key<std::uint8_t> msgoutNavSigI2c{0x20910345, "CFG-MSGOUT-UBX_NAV_SIG_I2C"};
inline constexpr Key<std::uint8_t> msgoutNavPvtI2c{0x20910006, "CFG-MSGOUT-UBX_NAV_PVT_I2C"};
inline constexpr Key<std::uint8_t> msgoutNavStatusI2c{0x2091001A, "CFG-MSGOUT-UBX_NAV_STATUS_I2C"};
inline constexpr Key<std::uint8_t> msgoutMonHwI2c{0x209101B4, "CFG-MSGOUT-UBX_MON_HW_I2C"};
inline constexpr Key<std::uint8_t> msgoutTimSvinI2c{0x20910097, "CFG-MSGOUT-UBX_TIM_SVIN_I2C"};
inline constexpr Key<std::uint8_t> msgoutRxmRtcmI2c{0x20910268, "CFG-MSGOUT-UBX_RXM_RTCM_I2C"};

// UBX on USB
inline constexpr Key<std::uint8_t> msgoutNavTimegpsUsb{0x2091004A, "CFG-MSGOUT-UBX_NAV_TIMEGPS_USB"};
inline constexpr Key<std::uint8_t> msgoutNavTimeutcUsb{0x2091005E, "CFG-MSGOUT-UBX_NAV_TIMEUTC_USB"};
inline constexpr Key<std::uint8_t> msgoutNavSatUsb{0x20910018, "CFG-MSGOUT-UBX_NAV_SAT_USB"};
inline constexpr Key<std::uint8_t> msgoutNavSigUsb{0x20910348, "CFG-MSGOUT-UBX_NAV_SIG_USB"};
inline constexpr Key<std::uint8_t> msgoutNavPvtUsb{0x20910009, "CFG-MSGOUT-UBX_NAV_PVT_USB"};
inline constexpr Key<std::uint8_t> msgoutNavStatusUsb{0x2091001D, "CFG-MSGOUT-UBX_NAV_STATUS_USB"};
inline constexpr Key<std::uint8_t> msgoutMonHwUsb{0x209101B7, "CFG-MSGOUT-UBX_MON_HW_USB"};
inline constexpr Key<std::uint8_t> msgoutNavSvinUsb{0x2091008B, "CFG-MSGOUT-UBX_NAV_SVIN_USB"};

// NMEA on I2C
inline constexpr Key<std::uint8_t> msgoutZdaI2c{0x209100D8, "CFG-MSGOUT-NMEA_ID_ZDA_I2C"};
inline constexpr Key<std::uint8_t> msgoutGgaI2c{0x209100BA, "CFG-MSGOUT-NMEA_ID_GGA_I2C"};
inline constexpr Key<std::uint8_t> msgoutRmcI2c{0x209100AB, "CFG-MSGOUT-NMEA_ID_RMC_I2C"};
inline constexpr Key<std::uint8_t> msgoutGllI2c{0x209100C9, "CFG-MSGOUT-NMEA_ID_GLL_I2C"};
inline constexpr Key<std::uint8_t> msgoutGsaI2c{0x209100BF, "CFG-MSGOUT-NMEA_ID_GSA_I2C"};
inline constexpr Key<std::uint8_t> msgoutGsvI2c{0x209100C4, "CFG-MSGOUT-NMEA_ID_GSV_I2C"};
inline constexpr Key<std::uint8_t> msgoutVtgI2c{0x209100B0, "CFG-MSGOUT-NMEA_ID_VTG_I2C"};

// NMEA on UART1
inline constexpr Key<std::uint8_t> msgoutGgaUart1{0x209100BB, "CFG-MSGOUT-NMEA_ID_GGA_UART1"};
inline constexpr Key<std::uint8_t> msgoutGllUart1{0x209100CA, "CFG-MSGOUT-NMEA_ID_GLL_UART1"};
inline constexpr Key<std::uint8_t> msgoutGsaUart1{0x209100C0, "CFG-MSGOUT-NMEA_ID_GSA_UART1"};
inline constexpr Key<std::uint8_t> msgoutGsvUart1{0x209100C5, "CFG-MSGOUT-NMEA_ID_GSV_UART1"};
inline constexpr Key<std::uint8_t> msgoutRmcUart1{0x209100AC, "CFG-MSGOUT-NMEA_ID_RMC_UART1"};
inline constexpr Key<std::uint8_t> msgoutVtgUart1{0x209100B1, "CFG-MSGOUT-NMEA_ID_VTG_UART1"};

// RTCM on UART2
inline constexpr Key<std::uint8_t> msgoutRtcm1005Uart2{0x209102BF, "CFG-MSGOUT-RTCM_3X_TYPE1005_UART2"};
inline constexpr Key<std::uint8_t> msgoutRtcm1077Uart2{0x209102CE, "CFG-MSGOUT-RTCM_3X_TYPE1077_UART2"};
inline constexpr Key<std::uint8_t> msgoutRtcm1087Uart2{0x209102D3, "CFG-MSGOUT-RTCM_3X_TYPE1087_UART2"};
inline constexpr Key<std::uint8_t> msgoutRtcm1097Uart2{0x2091031A, "CFG-MSGOUT-RTCM_3X_TYPE1097_UART2"};
inline constexpr Key<std::uint8_t> msgoutRtcm1127Uart2{0x209102D8, "CFG-MSGOUT-RTCM_3X_TYPE1127_UART2"};
inline constexpr Key<std::uint8_t> msgoutRtcm1230Uart2{0x20910305, "CFG-MSGOUT-RTCM_3X_TYPE1230_UART2"};
inline constexpr Key<std::uint8_t> msgoutRtcm4072Uart2{0x20910383, "CFG-MSGOUT-RTCM_3X_TYPE4072_1_UART2"};

} // namespace ubx::keys

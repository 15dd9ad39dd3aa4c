#pragma once

#include "config/Key.h"

/// The configuration items that the library sets or polls, in the receiver's groups.
namespace ubx::keys
{

// CFG-TP: time pulses. Periods and lengths in microseconds, delays in nanoseconds.
inline constexpr Key<std::int16_t> tpAntCableDelay{0x30050001, "CFG-TP-ANT_CABLEDELAY"};
inline constexpr Key<std::uint8_t> tpPulseDef{0x20050023, "CFG-TP-PULSE_DEF"};
inline constexpr Key<std::uint8_t> tpPulseLengthDef{0x20050030, "CFG-TP-PULSE_LENGTH_DEF"};
inline constexpr Key<bool> tpTp1Ena{0x10050007, "CFG-TP-TP1_ENA"};
inline constexpr Key<std::uint32_t> tpPeriodTp1{0x40050002, "CFG-TP-PERIOD_TP1"};
inline constexpr Key<std::uint32_t> tpPeriodLockTp1{0x40050003, "CFG-TP-PERIOD_LOCK_TP1"};
inline constexpr Key<std::uint32_t> tpLenTp1{0x40050004, "CFG-TP-LEN_TP1"};
inline constexpr Key<std::uint32_t> tpLenLockTp1{0x40050005, "CFG-TP-LEN_LOCK_TP1"};
inline constexpr Key<std::int32_t> tpUserDelayTp1{0x40050006, "CFG-TP-USER_DELAY_TP1"};
inline constexpr Key<std::uint8_t> tpTimegridTp1{0x2005000C, "CFG-TP-TIMEGRID_TP1"};
inline constexpr Key<bool> tpSyncGnssTp1{0x10050008, "CFG-TP-SYNC_GNSS_TP1"};
inline constexpr Key<bool> tpUseLockedTp1{0x10050009, "CFG-TP-USE_LOCKED_TP1"};
inline constexpr Key<bool> tpTp2Ena{0x10050012, "CFG-TP-TP2_ENA"};
inline constexpr Key<std::uint32_t> tpPeriodTp2{0x4005000D, "CFG-TP-PERIOD_TP2"};
inline constexpr Key<std::uint32_t> tpPeriodLockTp2{0x4005000E, "CFG-TP-PERIOD_LOCK_TP2"};
inline constexpr Key<std::uint32_t> tpLenLockTp2{0x40050010, "CFG-TP-LEN_LOCK_TP2"};
inline constexpr Key<std::uint8_t> tpTimegridTp2{0x20050017, "CFG-TP-TIMEGRID_TP2"};
inline constexpr Key<bool> tpSyncGnssTp2{0x10050013, "CFG-TP-SYNC_GNSS_TP2"};
inline constexpr Key<bool> tpUseLockedTp2{0x10050014, "CFG-TP-USE_LOCKED_TP2"};

// CFG-ITFM: interference monitor. Thresholds in dB.
inline constexpr Key<std::uint8_t> itfmBbThreshold{0x20410001, "CFG-ITFM-BBTHRESHOLD"};
inline constexpr Key<std::uint8_t> itfmCwThreshold{0x20410002, "CFG-ITFM-CWTHRESHOLD"};
inline constexpr Key<bool> itfmEnable{0x1041000D, "CFG-ITFM-ENABLE"};
inline constexpr Key<std::uint8_t> itfmAntSetting{0x20410010, "CFG-ITFM-ANTSETTING"};
inline constexpr Key<bool> itfmEnableAux{0x10410013, "CFG-ITFM-ENABLE_AUX"};

// CFG-RATE: navigation rate. Measurement period in milliseconds.
inline constexpr Key<std::uint16_t> rateMeas{0x30210001, "CFG-RATE-MEAS"};
inline constexpr Key<std::uint16_t> rateNav{0x30210002, "CFG-RATE-NAV"};
inline constexpr Key<std::uint8_t> rateTimeref{0x20210003, "CFG-RATE-TIMEREF"};

// CFG-SIGNAL: constellations and their signals.
inline constexpr Key<bool> signalGpsEna{0x1031001F, "CFG-SIGNAL-GPS_ENA"};
inline constexpr Key<bool> signalGpsL1caEna{0x10310001, "CFG-SIGNAL-GPS_L1CA_ENA"};
inline constexpr Key<bool> signalGpsL2cEna{0x10310003, "CFG-SIGNAL-GPS_L2C_ENA"};
inline constexpr Key<bool> signalGpsL5Ena{0x10310004, "CFG-SIGNAL-GPS_L5_ENA"};
inline constexpr Key<bool> signalSbasEna{0x10310020, "CFG-SIGNAL-SBAS_ENA"};
inline constexpr Key<bool> signalSbasL1caEna{0x10310005, "CFG-SIGNAL-SBAS_L1CA_ENA"};
inline constexpr Key<bool> signalGalEna{0x10310021, "CFG-SIGNAL-GAL_ENA"};
inline constexpr Key<bool> signalGalE1Ena{0x10310007, "CFG-SIGNAL-GAL_E1_ENA"};
inline constexpr Key<bool> signalGalE5aEna{0x10310009, "CFG-SIGNAL-GAL_E5A_ENA"};
inline constexpr Key<bool> signalGalE5bEna{0x1031000A, "CFG-SIGNAL-GAL_E5B_ENA"};
inline constexpr Key<bool> signalBdsEna{0x10310022, "CFG-SIGNAL-BDS_ENA"};
inline constexpr Key<bool> signalBdsB1Ena{0x1031000D, "CFG-SIGNAL-BDS_B1_ENA"};
inline constexpr Key<bool> signalBdsB2Ena{0x1031000E, "CFG-SIGNAL-BDS_B2_ENA"};
inline constexpr Key<bool> signalBdsB1cEna{0x1031000F, "CFG-SIGNAL-BDS_B1C_ENA"};
inline constexpr Key<bool> signalBdsB2aEna{0x10310028, "CFG-SIGNAL-BDS_B2A_ENA"};
inline constexpr Key<bool> signalQzssEna{0x10310024, "CFG-SIGNAL-QZSS_ENA"};
inline constexpr Key<bool> signalQzssL1caEna{0x10310012, "CFG-SIGNAL-QZSS_L1CA_ENA"};
inline constexpr Key<bool> signalQzssL1sEna{0x10310014, "CFG-SIGNAL-QZSS_L1S_ENA"};
inline constexpr Key<bool> signalQzssL2cEna{0x10310015, "CFG-SIGNAL-QZSS_L2C_ENA"};
inline constexpr Key<bool> signalQzssL5Ena{0x10310017, "CFG-SIGNAL-QZSS_L5_ENA"};
inline constexpr Key<bool> signalGloEna{0x10310025, "CFG-SIGNAL-GLO_ENA"};
inline constexpr Key<bool> signalGloL1Ena{0x10310018, "CFG-SIGNAL-GLO_L1_ENA"};
inline constexpr Key<bool> signalGloL2Ena{0x1031001A, "CFG-SIGNAL-GLO_L2_ENA"};
inline constexpr Key<bool> signalNavicEna{0x10310026, "CFG-SIGNAL-NAVIC_ENA"};
inline constexpr Key<bool> signalNavicL5Ena{0x1031001D, "CFG-SIGNAL-NAVIC_L5_ENA"};

// CFG-TMODE: survey-in and fixed position. 1e-7 degrees, centimetres, 0.1 mm accuracies, seconds.
inline constexpr Key<std::uint8_t> tmodeMode{0x20030001, "CFG-TMODE-MODE"};
inline constexpr Key<std::uint8_t> tmodePosType{0x20030002, "CFG-TMODE-POS_TYPE"};
inline constexpr Key<std::int32_t> tmodeLat{0x40030009, "CFG-TMODE-LAT"};
inline constexpr Key<std::int32_t> tmodeLon{0x4003000A, "CFG-TMODE-LON"};
inline constexpr Key<std::int32_t> tmodeHeight{0x4003000B, "CFG-TMODE-HEIGHT"};
inline constexpr Key<std::uint32_t> tmodeFixedPosAcc{0x4003000F, "CFG-TMODE-FIXED_POS_ACC"};
inline constexpr Key<std::uint32_t> tmodeSvinMinDur{0x40030010, "CFG-TMODE-SVIN_MIN_DUR"};
inline constexpr Key<std::uint32_t> tmodeSvinAccLimit{0x40030011, "CFG-TMODE-SVIN_ACC_LIMIT"};

// CFG-NAVSPG: navigation filter. Elevation in degrees, carrier-to-noise ratio in dBHz.
inline constexpr Key<std::int8_t> navspgInfilMinElev{0x201100A4, "CFG-NAVSPG-INFIL_MINELEV"};
inline constexpr Key<std::uint8_t> navspgInfilMinCno{0x201100A3, "CFG-NAVSPG-INFIL_MINCNO"};
inline constexpr Key<std::uint8_t> navspgUtcStandard{0x2011001C, "CFG-NAVSPG-UTCSTANDARD"};

// CFG-SBAS, CFG-BDS, CFG-PM: augmentation, BeiDou, power.
inline constexpr Key<bool> sbasUseTestmode{0x10360002, "CFG-SBAS-USE_TESTMODE"};
inline constexpr Key<bool> sbasUseRanging{0x10360003, "CFG-SBAS-USE_RANGING"};
inline constexpr Key<bool> sbasUseDiffcorr{0x10360004, "CFG-SBAS-USE_DIFFCORR"};
inline constexpr Key<bool> sbasUseIntegrity{0x10360005, "CFG-SBAS-USE_INTEGRITY"};
inline constexpr Key<std::uint64_t> sbasPrnScanMask{0x50360006, "CFG-SBAS-PRNSCANMASK"};
inline constexpr Key<bool> bdsUseGeoPrn{0x10340014, "CFG-BDS-USE_GEO_PRN"};
inline constexpr Key<std::uint8_t> pmOperateMode{0x20D00001, "CFG-PM-OPERATEMODE"};

// Ports and their protocols. The line speed is in bit/s.
inline constexpr Key<bool> usbOutProtUbx{0x10780001, "CFG-USBOUTPROT-UBX"};
inline constexpr Key<std::uint32_t> uart1Baudrate{0x40520001, "CFG-UART1-BAUDRATE"};
inline constexpr Key<bool> uart2InProtRtcm3x{0x10750004, "CFG-UART2INPROT-RTCM3X"};
inline constexpr Key<bool> uart2OutProtRtcm3x{0x10760004, "CFG-UART2OUTPROT-RTCM3X"};

} // namespace ubx::keys

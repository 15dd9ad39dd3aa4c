#include "simulator/settings/KeyTable.h"

namespace ubxsim
{

namespace
{

template <typename... Value>
constexpr std::uint64_t only(Value... values)
{
    return ((std::uint64_t{1} << values) | ...);
}

constexpr std::uint64_t kAny = 0;

constexpr KeyRow same(Key key, const char* name, std::uint64_t value, std::uint64_t valid = kAny,
                      Generations who = kAll)
{
    return {key, name, who, value, value, value, valid};
}

constexpr KeyRow each(Key key, const char* name, std::uint64_t neoM8t, std::uint64_t tim20, std::uint64_t tim22,
                      std::uint64_t valid = kAny, Generations who = kAll)
{
    return {key, name, who, neoM8t, tim20, tim22, valid};
}

constexpr KeyRow f9t(Key key, const char* name, std::uint64_t value, std::uint64_t valid = kAny)
{
    return same(key, name, value, valid, kF9t);
}

} // namespace

const std::vector<KeyRow>& keyTable()
{
    using namespace key;
    static const std::vector<KeyRow> table = {
        // Time pulses
        same(antCableDelay, "CFG-TP-ANT_CABLEDELAY", 50),
        same(0xB0050001, "TP5 rfGroupDelay", 0),
        same(pulseDef, "CFG-TP-PULSE_DEF", 0, only(0, 1)),
        each(pulseLengthDef, "CFG-TP-PULSE_LENGTH_DEF", 1, 1, 1, only(0, 1)),
        same(tp1Enable, "CFG-TP-TP1_ENA", 1),
        same(0x40050002, "CFG-TP-PERIOD_TP1", 1000000),
        same(0x40050003, "CFG-TP-PERIOD_LOCK_TP1", 1000000),
        same(0x40050024, "CFG-TP-FREQ_TP1", 1),
        same(0x40050025, "CFG-TP-FREQ_LOCK_TP1", 1),
        same(0x40050004, "CFG-TP-LEN_TP1", 0),
        same(0x40050005, "CFG-TP-LEN_LOCK_TP1", 100000),
        same(0xC0050001, "TP5 pulse ratio 1", 0),
        same(0xC0050002, "TP5 locked pulse ratio 1", 429496730),
        same(0x40050006, "CFG-TP-USER_DELAY_TP1", 0),
        same(0x10050008, "CFG-TP-SYNC_GNSS_TP1", 1),
        same(0x10050009, "CFG-TP-USE_LOCKED_TP1", 1),
        same(0x1005000A, "CFG-TP-ALIGN_TO_TOW_TP1", 1),
        same(0x1005000B, "CFG-TP-POL_TP1", 1),
        each(0x2005000C, "CFG-TP-TIMEGRID_TP1", 1, 0, 1, only(0, 1, 2, 3, 4)),
        same(0xA0050001, "TP5 syncMode 1", 0),
        same(tp2Enable, "CFG-TP-TP2_ENA", 0),
        same(0x4005000D, "CFG-TP-PERIOD_TP2", 1000000),
        same(0x4005000E, "CFG-TP-PERIOD_LOCK_TP2", 1000000),
        same(0x40050026, "CFG-TP-FREQ_TP2", 1),
        same(0x40050027, "CFG-TP-FREQ_LOCK_TP2", 1),
        same(0x4005000F, "CFG-TP-LEN_TP2", 0),
        same(0x40050010, "CFG-TP-LEN_LOCK_TP2", 100000),
        same(0xC0050003, "TP5 pulse ratio 2", 0),
        same(0xC0050004, "TP5 locked pulse ratio 2", 429496730),
        same(0x40050011, "CFG-TP-USER_DELAY_TP2", 0),
        same(0x10050013, "CFG-TP-SYNC_GNSS_TP2", 1),
        same(0x10050014, "CFG-TP-USE_LOCKED_TP2", 1),
        same(0x10050015, "CFG-TP-ALIGN_TO_TOW_TP2", 1),
        same(0x10050016, "CFG-TP-POL_TP2", 1),
        same(0x20050017, "CFG-TP-TIMEGRID_TP2", 0, only(0, 1, 2, 3, 4)),
        same(0xA0050002, "TP5 syncMode 2", 0),

        // Interference monitor
        same(itfmEnable, "CFG-ITFM-ENABLE", 0),
        same(0x10410013, "CFG-ITFM-ENABLE_AUX", 0),
        same(0x20410001, "CFG-ITFM-BBTHRESHOLD", 3),
        same(0x20410002, "CFG-ITFM-CWTHRESHOLD", 15),
        same(antSetting, "CFG-ITFM-ANTSETTING", 0, only(0, 1, 2, 3)),
        same(0xC0410001, "ITFM algorithm bits", 0x16B156),
        same(0xB0410001, "ITFM general bits", 0x31E),

        // Rate
        same(rateMeas, "CFG-RATE-MEAS", 1000),
        same(rateNav, "CFG-RATE-NAV", 1),
        same(rateTimeRef, "CFG-RATE-TIMEREF", 1, only(0, 1, 2, 3, 4, 5)),

        // Time mode
        same(tmodeMode, "CFG-TMODE-MODE", 0, only(0, 1, 2)),
        same(tmodePosType, "CFG-TMODE-POS_TYPE", 0, only(0, 1)),
        same(tmodeEcefX, "CFG-TMODE-ECEF_X", 0),
        same(tmodeEcefY, "CFG-TMODE-ECEF_Y", 0),
        same(tmodeEcefZ, "CFG-TMODE-ECEF_Z", 0),
        f9t(0x20030006, "CFG-TMODE-ECEF_X_HP", 0),
        f9t(0x20030007, "CFG-TMODE-ECEF_Y_HP", 0),
        f9t(0x20030008, "CFG-TMODE-ECEF_Z_HP", 0),
        same(tmodeLat, "CFG-TMODE-LAT", 0),
        same(tmodeLon, "CFG-TMODE-LON", 0),
        same(tmodeHeight, "CFG-TMODE-HEIGHT", 0),
        f9t(0x2003000C, "CFG-TMODE-LAT_HP", 0),
        f9t(0x2003000D, "CFG-TMODE-LON_HP", 0),
        f9t(0x2003000E, "CFG-TMODE-HEIGHT_HP", 0),
        same(tmodeFixedPosAcc, "CFG-TMODE-FIXED_POS_ACC", 0),
        same(tmodeSvinMinDur, "CFG-TMODE-SVIN_MIN_DUR", 0),
        same(tmodeSvinAccLimit, "CFG-TMODE-SVIN_ACC_LIMIT", 0),
        same(0x90030001, "TMODE2 altInv", 0),

        // Navigation
        same(dynModel, "CFG-NAVSPG-DYNMODEL", 2, only(0, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12)),
        same(0x20110011, "CFG-NAVSPG-FIXMODE", 3, only(1, 2, 3)),
        same(0x401100C1, "CFG-NAVSPG-CONSTR_ALT", 0),
        same(0x401100C2, "CFG-NAVSPG-CONSTR_ALTVAR", 10000),
        each(minElev, "CFG-NAVSPG-INFIL_MINELEV", 5, 5, 10),
        same(0xA0110001, "NAV5 drLimit", 0),
        same(0x301100B1, "CFG-NAVSPG-OUTFIL_PDOP", 250),
        same(0x301100B2, "CFG-NAVSPG-OUTFIL_TDOP", 250),
        same(0x301100B3, "CFG-NAVSPG-OUTFIL_PACC", 100),
        same(0x301100B4, "CFG-NAVSPG-OUTFIL_TACC", 350),
        same(0x20250038, "CFG-MOT-GNSSSPEED_THRS", 0),
        same(0x201100C4, "CFG-NAVSPG-CONSTR_DGNSSTO", 60),
        same(0x201100AA, "CFG-NAVSPG-INFIL_NCNOTHRS", 0),
        same(0x201100AB, "CFG-NAVSPG-INFIL_CNOTHRS", 0),
        same(0x3025003B, "CFG-MOT-GNSSDIST_THRS", 0),
        same(0x2011001C, "CFG-NAVSPG-UTCSTANDARD", 0, only(0, 3, 5, 6, 7, 8)),
        same(0x201100A1, "CFG-NAVSPG-INFIL_MINSVS", 3),
        same(0x201100A2, "CFG-NAVSPG-INFIL_MAXSVS", 32),
        each(minCno, "CFG-NAVSPG-INFIL_MINCNO", 6, 9, 9),
        same(0x10110013, "CFG-NAVSPG-INIFIX3D", 0),
        same(0x10110025, "CFG-NAVSPG-ACKAIDING", 0),
        each(0x30110017, "CFG-NAVSPG-WKNROLLOVER", 1867, 2059, 2059),
        same(0x10110019, "CFG-NAVSPG-USE_PPP", 0),
        same(0xA0110002, "NAVX5 sigAttenCompMode", 0),
        same(0xA0110003, "NAVX5 aopCfg", 0),
        same(0xB0110001, "NAVX5 aopOrbMaxErr", 100),
        same(0xA0110004, "NAVX5 useAdr", 0),

        // Power
        same(0xA0D00001, "RXM lpMode", 0, only(0, 1, 4)),
        same(0xD0D00000, "PM2 bytes 0-7", 0x0142100000000002),
        same(0xD0D00001, "PM2 bytes 8-15", 0x0000271000002710),
        same(0xD0D00002, "PM2 bytes 16-23", 0),
        same(0xD0D00003, "PM2 bytes 24-31", 0),
        same(0xD0D00004, "PM2 bytes 32-39", 0),
        same(0xD0D00005, "PM2 bytes 40-47", 0),

        // SBAS
        same(0x90360001, "SBAS mode enabled", 1),
        same(0x10360002, "CFG-SBAS-USE_TESTMODE", 0),
        same(0x10360003, "CFG-SBAS-USE_RANGING", 1),
        same(0x10360004, "CFG-SBAS-USE_DIFFCORR", 1),
        same(0x10360005, "CFG-SBAS-USE_INTEGRITY", 0),
        each(0x50360006, "CFG-SBAS-PRNSCANMASK", 0x72B88, 0x7A389, 0x72B88),
        same(0xA0360001, "SBAS maxSBAS", 3),

        // BeiDou geostationary satellites
        same(0x10340014, "CFG-BDS-USE_GEO_PRN", 1, kAny, kF9tTim22),

        // Constellations and signals
        same(gpsEnable, "CFG-SIGNAL-GPS_ENA", 1),
        same(gpsL1ca, "CFG-SIGNAL-GPS_L1CA_ENA", 1),
        f9t(gpsL2c, "CFG-SIGNAL-GPS_L2C_ENA", 1),
        same(gpsL5, "CFG-SIGNAL-GPS_L5_ENA", 0, kAny, kF9tL5),
        each(sbasEnable, "CFG-SIGNAL-SBAS_ENA", 0, 1, 1),
        each(sbasL1ca, "CFG-SIGNAL-SBAS_L1CA_ENA", 1, 0, 0),
        each(galEnable, "CFG-SIGNAL-GAL_ENA", 0, 1, 1),
        same(galE1, "CFG-SIGNAL-GAL_E1_ENA", 1),
        same(galE5a, "CFG-SIGNAL-GAL_E5A_ENA", 0, kAny, kF9tL5),
        f9t(galE5b, "CFG-SIGNAL-GAL_E5B_ENA", 1),
        each(bdsEnable, "CFG-SIGNAL-BDS_ENA", 0, 1, 1),
        same(bdsB1, "CFG-SIGNAL-BDS_B1_ENA", 1),
        f9t(bdsB2, "CFG-SIGNAL-BDS_B2_ENA", 1),
        same(bdsB1c, "CFG-SIGNAL-BDS_B1C_ENA", 0, kAny, kF9tL5),
        same(bdsB2a, "CFG-SIGNAL-BDS_B2A_ENA", 0, kAny, kF9tL5),
        same(imesEnable, "IMES enabled", 0),
        same(imesL1, "IMES L1", 1),
        same(qzssEnable, "CFG-SIGNAL-QZSS_ENA", 1),
        same(qzssL1ca, "CFG-SIGNAL-QZSS_L1CA_ENA", 1),
        same(qzssL1s, "CFG-SIGNAL-QZSS_L1S_ENA", 0, kAny, kNeoM8t | kF9tTim20),
        f9t(qzssL2c, "CFG-SIGNAL-QZSS_L2C_ENA", 1),
        same(qzssL5, "CFG-SIGNAL-QZSS_L5_ENA", 0, kAny, kF9tL5),
        same(gloEnable, "CFG-SIGNAL-GLO_ENA", 1),
        same(gloL1, "CFG-SIGNAL-GLO_L1_ENA", 1),
        f9t(gloL2, "CFG-SIGNAL-GLO_L2_ENA", 1),
        same(navicEnable, "CFG-SIGNAL-NAVIC_ENA", 0, kAny, kF9tL5),
        same(navicL5, "CFG-SIGNAL-NAVIC_L5_ENA", 0, kAny, kF9tL5),

        // Channels of CFG-GNSS, reserved and highest, by gnssId
        each(0xA0310010, "GPS resTrkCh", 8, 8, 8),
        each(0xA0310020, "GPS maxTrkCh", 16, 16, 16),
        each(0xA0310011, "SBAS resTrkCh", 1, 3, 3),
        each(0xA0310021, "SBAS maxTrkCh", 3, 3, 3),
        each(0xA0310012, "GAL resTrkCh", 4, 10, 10),
        each(0xA0310022, "GAL maxTrkCh", 8, 18, 18),
        each(0xA0310013, "BDS resTrkCh", 8, 4, 4),
        each(0xA0310023, "BDS maxTrkCh", 16, 5, 5),
        each(0xA0310014, "IMES resTrkCh", 0, 0, 0),
        each(0xA0310024, "IMES maxTrkCh", 8, 0, 0),
        each(0xA0310015, "QZSS resTrkCh", 0, 0, 0),
        each(0xA0310025, "QZSS maxTrkCh", 3, 3, 3),
        each(0xA0310016, "GLO resTrkCh", 8, 8, 8),
        each(0xA0310026, "GLO maxTrkCh", 14, 12, 12),

        // Ports: serial parameters
        each(uart1BaudRate, "CFG-UART1-BAUDRATE", 9600, 38400, 38400),
        same(0x20520002, "CFG-UART1-STOPBITS", 1, only(0, 1, 2, 3)),
        same(0x20520003, "CFG-UART1-DATABITS", 0, only(0, 1)),
        same(0x20520004, "CFG-UART1-PARITY", 0, only(0, 1, 2)),
        same(0x10520005, "CFG-UART1-ENABLED", 1),
        each(0x40530001, "CFG-UART2-BAUDRATE", 9600, 38400, 38400),
        same(0x20530002, "CFG-UART2-STOPBITS", 1, only(0, 1, 2, 3)),
        same(0x20530003, "CFG-UART2-DATABITS", 0, only(0, 1)),
        same(0x20530004, "CFG-UART2-PARITY", 0, only(0, 1, 2)),
        same(0x10530005, "CFG-UART2-ENABLED", 1),
        same(0x20510001, "CFG-I2C-ADDRESS", 0x84),

        // Ports: protocols in and out
        same(0x10710001, "CFG-I2CINPROT-UBX", 1),
        same(0x10710002, "CFG-I2CINPROT-NMEA", 1),
        same(0x90710003, "I2C in RTCM2", 1, kAny, kNeoM8t),
        f9t(0x10710004, "CFG-I2CINPROT-RTCM3X", 1),
        same(0x10720001, "CFG-I2COUTPROT-UBX", 1),
        same(0x10720002, "CFG-I2COUTPROT-NMEA", 1),
        f9t(0x10720004, "CFG-I2COUTPROT-RTCM3X", 1),
        same(0x10730001, "CFG-UART1INPROT-UBX", 1),
        same(0x10730002, "CFG-UART1INPROT-NMEA", 1),
        same(0x90730003, "UART1 in RTCM2", 1, kAny, kNeoM8t),
        f9t(0x10730004, "CFG-UART1INPROT-RTCM3X", 1),
        same(0x10740001, "CFG-UART1OUTPROT-UBX", 1),
        same(0x10740002, "CFG-UART1OUTPROT-NMEA", 1),
        f9t(0x10740004, "CFG-UART1OUTPROT-RTCM3X", 1),
        f9t(0x10750001, "CFG-UART2INPROT-UBX", 0),
        f9t(0x10750002, "CFG-UART2INPROT-NMEA", 0),
        f9t(0x10750004, "CFG-UART2INPROT-RTCM3X", 1),
        f9t(0x10760001, "CFG-UART2OUTPROT-UBX", 0),
        f9t(0x10760002, "CFG-UART2OUTPROT-NMEA", 0),
        f9t(0x10760004, "CFG-UART2OUTPROT-RTCM3X", 1),
        same(0x10770001, "CFG-USBINPROT-UBX", 1),
        same(0x10770002, "CFG-USBINPROT-NMEA", 1),
        same(0x90770003, "USB in RTCM2", 1, kAny, kNeoM8t),
        f9t(0x10770004, "CFG-USBINPROT-RTCM3X", 1),
        same(0x10780001, "CFG-USBOUTPROT-UBX", 1),
        same(0x10780002, "CFG-USBOUTPROT-NMEA", 1),
        f9t(0x10780004, "CFG-USBOUTPROT-RTCM3X", 1),
        same(0x10790001, "CFG-SPIINPROT-UBX", 1),
        same(0x10790002, "CFG-SPIINPROT-NMEA", 1),
        f9t(0x10790004, "CFG-SPIINPROT-RTCM3X", 1),
        same(0x107A0001, "CFG-SPIOUTPROT-UBX", 1),
        same(0x107A0002, "CFG-SPIOUTPROT-NMEA", 1),
        f9t(0x107A0004, "CFG-SPIOUTPROT-RTCM3X", 1),

        // Information messages: error, warning and notice
        same(0x20920001, "CFG-INFMSG-UBX_I2C", 0),
        same(0x20920002, "CFG-INFMSG-UBX_UART1", 0),
        same(0x20920003, "CFG-INFMSG-UBX_UART2", 0),
        same(0x20920004, "CFG-INFMSG-UBX_USB", 0),
        same(0x20920005, "CFG-INFMSG-UBX_SPI", 0),
        same(0x20920006, "CFG-INFMSG-NMEA_I2C", 7),
        same(0x20920007, "CFG-INFMSG-NMEA_UART1", 7),
        same(0x20920008, "CFG-INFMSG-NMEA_UART2", 7),
        same(0x20920009, "CFG-INFMSG-NMEA_USB", 7),
        same(0x2092000A, "CFG-INFMSG-NMEA_SPI", 7),
    };
    return table;
}

} // namespace ubxsim

#include <cstddef>
#include <cstdint>
#include <set>
#include <stdexcept>
#include <string>
#include <type_traits>
#include <utility>

#include <gtest/gtest.h>

#include "config/KeyValuePayload.h"
#include "config/Keys.h"
#include "config/MessageRateKeys.h"

namespace keys = ubx::keys;

namespace
{

/// What a key says of itself.
struct Facts
{
    template <typename Value>
    Facts(const ubx::Key<Value>& key)
        : id(key.id()), name(key.name()), width(sizeof(Value)), isSigned(std::is_signed_v<Value>)
    {}

    std::uint32_t id;
    std::string name;
    std::size_t width;
    bool isSigned;
};

enum Sign
{
    kUnsigned,
    kSigned
};

struct Row
{
    Facts key;
    std::uint32_t id;
    const char* name;
    std::size_t width;
    Sign sign = kUnsigned;
};

const Row kRows[] = {
    {keys::tpAntCableDelay, 0x30050001, "CFG-TP-ANT_CABLEDELAY", 2, kSigned},
    {keys::tpPulseDef, 0x20050023, "CFG-TP-PULSE_DEF", 1},
    {keys::tpPulseLengthDef, 0x20050030, "CFG-TP-PULSE_LENGTH_DEF", 1},
    {keys::tpTp1Ena, 0x10050007, "CFG-TP-TP1_ENA", 1},
    {keys::tpPeriodTp1, 0x40050002, "CFG-TP-PERIOD_TP1", 4},
    {keys::tpPeriodLockTp1, 0x40050003, "CFG-TP-PERIOD_LOCK_TP1", 4},
    {keys::tpLenTp1, 0x40050004, "CFG-TP-LEN_TP1", 4},
    {keys::tpLenLockTp1, 0x40050005, "CFG-TP-LEN_LOCK_TP1", 4},
    {keys::tpUserDelayTp1, 0x40050006, "CFG-TP-USER_DELAY_TP1", 4, kSigned},
    {keys::tpTimegridTp1, 0x2005000C, "CFG-TP-TIMEGRID_TP1", 1},
    {keys::tpSyncGnssTp1, 0x10050008, "CFG-TP-SYNC_GNSS_TP1", 1},
    {keys::tpUseLockedTp1, 0x10050009, "CFG-TP-USE_LOCKED_TP1", 1},
    {keys::tpTp2Ena, 0x10050012, "CFG-TP-TP2_ENA", 1},
    {keys::tpPeriodTp2, 0x4005000D, "CFG-TP-PERIOD_TP2", 4},
    {keys::tpPeriodLockTp2, 0x4005000E, "CFG-TP-PERIOD_LOCK_TP2", 4},
    {keys::tpLenLockTp2, 0x40050010, "CFG-TP-LEN_LOCK_TP2", 4},
    {keys::tpTimegridTp2, 0x20050017, "CFG-TP-TIMEGRID_TP2", 1},
    {keys::tpSyncGnssTp2, 0x10050013, "CFG-TP-SYNC_GNSS_TP2", 1},
    {keys::tpUseLockedTp2, 0x10050014, "CFG-TP-USE_LOCKED_TP2", 1},

    {keys::itfmBbThreshold, 0x20410001, "CFG-ITFM-BBTHRESHOLD", 1},
    {keys::itfmCwThreshold, 0x20410002, "CFG-ITFM-CWTHRESHOLD", 1},
    {keys::itfmEnable, 0x1041000D, "CFG-ITFM-ENABLE", 1},
    {keys::itfmAntSetting, 0x20410010, "CFG-ITFM-ANTSETTING", 1},
    {keys::itfmEnableAux, 0x10410013, "CFG-ITFM-ENABLE_AUX", 1},

    {keys::rateMeas, 0x30210001, "CFG-RATE-MEAS", 2},
    {keys::rateNav, 0x30210002, "CFG-RATE-NAV", 2},
    {keys::rateTimeref, 0x20210003, "CFG-RATE-TIMEREF", 1},

    {keys::signalGpsEna, 0x1031001F, "CFG-SIGNAL-GPS_ENA", 1},
    {keys::signalGpsL1caEna, 0x10310001, "CFG-SIGNAL-GPS_L1CA_ENA", 1},
    {keys::signalGpsL2cEna, 0x10310003, "CFG-SIGNAL-GPS_L2C_ENA", 1},
    {keys::signalGpsL5Ena, 0x10310004, "CFG-SIGNAL-GPS_L5_ENA", 1},
    {keys::signalSbasEna, 0x10310020, "CFG-SIGNAL-SBAS_ENA", 1},
    {keys::signalSbasL1caEna, 0x10310005, "CFG-SIGNAL-SBAS_L1CA_ENA", 1},
    {keys::signalGalEna, 0x10310021, "CFG-SIGNAL-GAL_ENA", 1},
    {keys::signalGalE1Ena, 0x10310007, "CFG-SIGNAL-GAL_E1_ENA", 1},
    {keys::signalGalE5aEna, 0x10310009, "CFG-SIGNAL-GAL_E5A_ENA", 1},
    {keys::signalGalE5bEna, 0x1031000A, "CFG-SIGNAL-GAL_E5B_ENA", 1},
    {keys::signalBdsEna, 0x10310022, "CFG-SIGNAL-BDS_ENA", 1},
    {keys::signalBdsB1Ena, 0x1031000D, "CFG-SIGNAL-BDS_B1_ENA", 1},
    {keys::signalBdsB2Ena, 0x1031000E, "CFG-SIGNAL-BDS_B2_ENA", 1},
    {keys::signalBdsB1cEna, 0x1031000F, "CFG-SIGNAL-BDS_B1C_ENA", 1},
    {keys::signalBdsB2aEna, 0x10310028, "CFG-SIGNAL-BDS_B2A_ENA", 1},
    {keys::signalQzssEna, 0x10310024, "CFG-SIGNAL-QZSS_ENA", 1},
    {keys::signalQzssL1caEna, 0x10310012, "CFG-SIGNAL-QZSS_L1CA_ENA", 1},
    {keys::signalQzssL1sEna, 0x10310014, "CFG-SIGNAL-QZSS_L1S_ENA", 1},
    {keys::signalQzssL2cEna, 0x10310015, "CFG-SIGNAL-QZSS_L2C_ENA", 1},
    {keys::signalQzssL5Ena, 0x10310017, "CFG-SIGNAL-QZSS_L5_ENA", 1},
    {keys::signalGloEna, 0x10310025, "CFG-SIGNAL-GLO_ENA", 1},
    {keys::signalGloL1Ena, 0x10310018, "CFG-SIGNAL-GLO_L1_ENA", 1},
    {keys::signalGloL2Ena, 0x1031001A, "CFG-SIGNAL-GLO_L2_ENA", 1},
    {keys::signalNavicEna, 0x10310026, "CFG-SIGNAL-NAVIC_ENA", 1},
    {keys::signalNavicL5Ena, 0x1031001D, "CFG-SIGNAL-NAVIC_L5_ENA", 1},

    {keys::tmodeMode, 0x20030001, "CFG-TMODE-MODE", 1},
    {keys::tmodePosType, 0x20030002, "CFG-TMODE-POS_TYPE", 1},
    {keys::tmodeLat, 0x40030009, "CFG-TMODE-LAT", 4, kSigned},
    {keys::tmodeLon, 0x4003000A, "CFG-TMODE-LON", 4, kSigned},
    {keys::tmodeHeight, 0x4003000B, "CFG-TMODE-HEIGHT", 4, kSigned},
    {keys::tmodeFixedPosAcc, 0x4003000F, "CFG-TMODE-FIXED_POS_ACC", 4},
    {keys::tmodeSvinMinDur, 0x40030010, "CFG-TMODE-SVIN_MIN_DUR", 4},
    {keys::tmodeSvinAccLimit, 0x40030011, "CFG-TMODE-SVIN_ACC_LIMIT", 4},

    {keys::navspgInfilMinElev, 0x201100A4, "CFG-NAVSPG-INFIL_MINELEV", 1, kSigned},
    {keys::navspgInfilMinCno, 0x201100A3, "CFG-NAVSPG-INFIL_MINCNO", 1},
    {keys::navspgUtcStandard, 0x2011001C, "CFG-NAVSPG-UTCSTANDARD", 1},

    {keys::sbasUseTestmode, 0x10360002, "CFG-SBAS-USE_TESTMODE", 1},
    {keys::sbasUseRanging, 0x10360003, "CFG-SBAS-USE_RANGING", 1},
    {keys::sbasUseDiffcorr, 0x10360004, "CFG-SBAS-USE_DIFFCORR", 1},
    {keys::sbasUseIntegrity, 0x10360005, "CFG-SBAS-USE_INTEGRITY", 1},
    {keys::sbasPrnScanMask, 0x50360006, "CFG-SBAS-PRNSCANMASK", 8},
    {keys::bdsUseGeoPrn, 0x10340014, "CFG-BDS-USE_GEO_PRN", 1},
    {keys::pmOperateMode, 0x20D00001, "CFG-PM-OPERATEMODE", 1},

    {keys::usbOutProtUbx, 0x10780001, "CFG-USBOUTPROT-UBX", 1},
    {keys::uart1Baudrate, 0x40520001, "CFG-UART1-BAUDRATE", 4},
    {keys::uart2InProtRtcm3x, 0x10750004, "CFG-UART2INPROT-RTCM3X", 1},
    {keys::uart2OutProtRtcm3x, 0x10760004, "CFG-UART2OUTPROT-RTCM3X", 1},

    {keys::msgoutNavTimegpsI2c, 0x20910047, "CFG-MSGOUT-UBX_NAV_TIMEGPS_I2C", 1},
    {keys::msgoutNavTimeutcI2c, 0x2091005B, "CFG-MSGOUT-UBX_NAV_TIMEUTC_I2C", 1},
    {keys::msgoutNavSatI2c, 0x20910015, "CFG-MSGOUT-UBX_NAV_SAT_I2C", 1},
    {keys::msgoutNavSigI2c, 0x20910345, "CFG-MSGOUT-UBX_NAV_SIG_I2C", 1},
    {keys::msgoutNavPvtI2c, 0x20910006, "CFG-MSGOUT-UBX_NAV_PVT_I2C", 1},
    {keys::msgoutNavStatusI2c, 0x2091001A, "CFG-MSGOUT-UBX_NAV_STATUS_I2C", 1},
    {keys::msgoutMonHwI2c, 0x209101B4, "CFG-MSGOUT-UBX_MON_HW_I2C", 1},
    {keys::msgoutTimSvinI2c, 0x20910097, "CFG-MSGOUT-UBX_TIM_SVIN_I2C", 1},
    {keys::msgoutRxmRtcmI2c, 0x20910268, "CFG-MSGOUT-UBX_RXM_RTCM_I2C", 1},
    {keys::msgoutNavTimegpsUsb, 0x2091004A, "CFG-MSGOUT-UBX_NAV_TIMEGPS_USB", 1},
    {keys::msgoutNavTimeutcUsb, 0x2091005E, "CFG-MSGOUT-UBX_NAV_TIMEUTC_USB", 1},
    {keys::msgoutNavSatUsb, 0x20910018, "CFG-MSGOUT-UBX_NAV_SAT_USB", 1},
    {keys::msgoutNavSigUsb, 0x20910348, "CFG-MSGOUT-UBX_NAV_SIG_USB", 1},
    {keys::msgoutNavPvtUsb, 0x20910009, "CFG-MSGOUT-UBX_NAV_PVT_USB", 1},
    {keys::msgoutNavStatusUsb, 0x2091001D, "CFG-MSGOUT-UBX_NAV_STATUS_USB", 1},
    {keys::msgoutMonHwUsb, 0x209101B7, "CFG-MSGOUT-UBX_MON_HW_USB", 1},
    {keys::msgoutNavSvinUsb, 0x2091008B, "CFG-MSGOUT-UBX_NAV_SVIN_USB", 1},

    {keys::msgoutZdaI2c, 0x209100D8, "CFG-MSGOUT-NMEA_ID_ZDA_I2C", 1},
    {keys::msgoutGgaI2c, 0x209100BA, "CFG-MSGOUT-NMEA_ID_GGA_I2C", 1},
    {keys::msgoutRmcI2c, 0x209100AB, "CFG-MSGOUT-NMEA_ID_RMC_I2C", 1},
    {keys::msgoutGllI2c, 0x209100C9, "CFG-MSGOUT-NMEA_ID_GLL_I2C", 1},
    {keys::msgoutGsaI2c, 0x209100BF, "CFG-MSGOUT-NMEA_ID_GSA_I2C", 1},
    {keys::msgoutGsvI2c, 0x209100C4, "CFG-MSGOUT-NMEA_ID_GSV_I2C", 1},
    {keys::msgoutVtgI2c, 0x209100B0, "CFG-MSGOUT-NMEA_ID_VTG_I2C", 1},
    {keys::msgoutGgaUart1, 0x209100BB, "CFG-MSGOUT-NMEA_ID_GGA_UART1", 1},
    {keys::msgoutGllUart1, 0x209100CA, "CFG-MSGOUT-NMEA_ID_GLL_UART1", 1},
    {keys::msgoutGsaUart1, 0x209100C0, "CFG-MSGOUT-NMEA_ID_GSA_UART1", 1},
    {keys::msgoutGsvUart1, 0x209100C5, "CFG-MSGOUT-NMEA_ID_GSV_UART1", 1},
    {keys::msgoutRmcUart1, 0x209100AC, "CFG-MSGOUT-NMEA_ID_RMC_UART1", 1},
    {keys::msgoutVtgUart1, 0x209100B1, "CFG-MSGOUT-NMEA_ID_VTG_UART1", 1},

    {keys::msgoutRtcm1005Uart2, 0x209102BF, "CFG-MSGOUT-RTCM_3X_TYPE1005_UART2", 1},
    {keys::msgoutRtcm1077Uart2, 0x209102CE, "CFG-MSGOUT-RTCM_3X_TYPE1077_UART2", 1},
    {keys::msgoutRtcm1087Uart2, 0x209102D3, "CFG-MSGOUT-RTCM_3X_TYPE1087_UART2", 1},
    {keys::msgoutRtcm1097Uart2, 0x2091031A, "CFG-MSGOUT-RTCM_3X_TYPE1097_UART2", 1},
    {keys::msgoutRtcm1127Uart2, 0x209102D8, "CFG-MSGOUT-RTCM_3X_TYPE1127_UART2", 1},
    {keys::msgoutRtcm1230Uart2, 0x20910305, "CFG-MSGOUT-RTCM_3X_TYPE1230_UART2", 1},
    {keys::msgoutRtcm4072Uart2, 0x20910383, "CFG-MSGOUT-RTCM_3X_TYPE4072_1_UART2", 1},
};

/// Whether a key takes a value of a type, in braces as the recipes write it.
template <typename KeyType, typename Given, typename = void>
constexpr bool kTakes = false;

template <typename Value, typename Given>
constexpr bool
    kTakes<ubx::Key<Value>, Given,
           std::void_t<decltype(ubx::Setting<Value>{std::declval<ubx::Key<Value>>(), std::declval<Given>()})>> = true;

} // namespace

TEST(Keys, EachHasItsPublishedIdNameAndWidth)
{
    for (const Row& row : kRows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(row.key.id, row.id);
        EXPECT_EQ(row.key.name, row.name);
        EXPECT_EQ(row.key.width, row.width);
        EXPECT_EQ(row.key.isSigned, row.sign == kSigned);
    }
}

TEST(Keys, NoTwoShareAnIdOrAName)
{
    std::set<std::uint32_t> ids;
    std::set<std::string> names;

    for (const Row& row : kRows) {
        EXPECT_TRUE(ids.insert(row.key.id).second) << row.name;
        EXPECT_TRUE(names.insert(row.key.name).second) << row.name;
    }
}

TEST(Keys, WidthFollowsFromTheSizeInTheId)
{
    EXPECT_EQ(ubx::valueWidth(0x10050007), 1U);
    EXPECT_EQ(ubx::valueWidth(0x20050023), 1U);
    EXPECT_EQ(ubx::valueWidth(0x30050001), 2U);
    EXPECT_EQ(ubx::valueWidth(0x40050002), 4U);
    EXPECT_EQ(ubx::valueWidth(0x50360006), 8U);
    EXPECT_EQ(ubx::valueWidth(0x00050001), 0U);
    EXPECT_EQ(ubx::valueWidth(0x60050001), 0U);
    EXPECT_EQ(ubx::valueWidth(0x70050001), 0U);
}

// A constant that throws while it is computed does not compile.
TEST(Keys, TypeThatDoesNotFitTheIdIsRefused)
{
    EXPECT_THROW(ubx::Key<std::uint8_t>(0x30050001, "two bytes as one"), std::logic_error);
    EXPECT_THROW(ubx::Key<std::uint32_t>(0x30050001, "two bytes as four"), std::logic_error);
    EXPECT_THROW(ubx::Key<std::uint32_t>(0x50360006, "eight bytes as four"), std::logic_error);
    EXPECT_THROW(ubx::Key<bool>(0x20050023, "a number as a bit"), std::logic_error);
    EXPECT_THROW(ubx::Key<std::uint8_t>(0x10050007, "a bit as a number"), std::logic_error);
    EXPECT_THROW(ubx::Key<std::uint8_t>(0x00050007, "no size"), std::logic_error);
    EXPECT_NO_THROW(ubx::Key<std::uint64_t>(0x50360006, "eight bytes"));
}

TEST(Keys, ValueTooWideForItsKeyDoesNotCompile)
{
    EXPECT_TRUE((kTakes<ubx::Key<std::int16_t>, std::int16_t>));
    EXPECT_TRUE((kTakes<ubx::Key<bool>, bool>));
    EXPECT_FALSE((kTakes<ubx::Key<std::int16_t>, int>));
    EXPECT_FALSE((kTakes<ubx::Key<std::uint8_t>, unsigned int>));
    EXPECT_FALSE((kTakes<ubx::Key<std::uint32_t>, int>));
    EXPECT_FALSE((kTakes<ubx::Key<bool>, unsigned char>));
}

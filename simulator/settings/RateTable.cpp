#include "simulator/settings/KeyTable.h"

namespace ubxsim
{

namespace
{

// Messages of the NEO-M8T alone have no published key.
constexpr Key unpublished(std::uint16_t number)
{
    return kPrivateBit | 0x20910000 | number;
}

} // namespace

const std::vector<RateRow>& rateTable()
{
    static const std::vector<RateRow> table = {
        {0x0101, 0x20910024, "CFG-MSGOUT-UBX_NAV_POSECEF", kAll, 0},
        {0x0102, 0x20910029, "CFG-MSGOUT-UBX_NAV_POSLLH", kAll, 0},
        {0x0103, 0x2091001A, "CFG-MSGOUT-UBX_NAV_STATUS", kAll, 0},
        {0x0104, 0x20910038, "CFG-MSGOUT-UBX_NAV_DOP", kAll, 0},
        {0x0106, unpublished(0xF000), "NAV-SOL", kNeoM8t, 0},
        {0x0107, 0x20910006, "CFG-MSGOUT-UBX_NAV_PVT", kAll, 0},
        {0x0111, 0x2091003D, "CFG-MSGOUT-UBX_NAV_VELECEF", kAll, 0},
        {0x0112, 0x20910042, "CFG-MSGOUT-UBX_NAV_VELNED", kAll, 0},
        {0x0120, 0x20910047, "CFG-MSGOUT-UBX_NAV_TIMEGPS", kAll, 0},
        {0x0121, 0x2091005B, "CFG-MSGOUT-UBX_NAV_TIMEUTC", kAll, 0},
        {0x0122, 0x20910065, "CFG-MSGOUT-UBX_NAV_CLOCK", kAll, 0},
        {0x0126, 0x20910060, "CFG-MSGOUT-UBX_NAV_TIMELS", kAll, 0},
        {0x0135, 0x20910015, "CFG-MSGOUT-UBX_NAV_SAT", kAll, 0},
        {0x0143, 0x20910345, "CFG-MSGOUT-UBX_NAV_SIG", kF9t, 0},
        {0x0161, 0x2091015F, "CFG-MSGOUT-UBX_NAV_EOE", kAll, 0},
        {0x0A09, 0x209101B4, "CFG-MSGOUT-UBX_MON_HW", kAll, 0},
        {0x0A38, 0x20910359, "CFG-MSGOUT-UBX_MON_RF", kF9t, 0},
        {0x0D01, 0x2091017D, "CFG-MSGOUT-UBX_TIM_TP", kAll, 0},
        {0x0D04, 0x20910097, "CFG-MSGOUT-UBX_TIM_SVIN", kAll, 0},
        // Knows the rate, has nothing to put out: NAV-SVIN never came from these timing receivers, and nobody sends
        // the simulator corrections or raw measurements.
        {0x013B, 0x20910088, "CFG-MSGOUT-UBX_NAV_SVIN", kF9tTim20, 0},
        {0x0215, 0x209102A4, "CFG-MSGOUT-UBX_RXM_RAWX", kAll, 0},
        {0x0213, 0x20910231, "CFG-MSGOUT-UBX_RXM_SFRBX", kAll, 0},
        {0x0232, 0x20910268, "CFG-MSGOUT-UBX_RXM_RTCM", kF9t, 0},
        {0x0D03, 0x20910178, "CFG-MSGOUT-UBX_TIM_TM2", kAll, 0},
        {0xF505, 0x209102BD, "CFG-MSGOUT-RTCM_3X_TYPE1005", kF9t, 0},
        {0xF54D, 0x209102CC, "CFG-MSGOUT-RTCM_3X_TYPE1077", kF9t, 0},
        {0xF557, 0x209102D1, "CFG-MSGOUT-RTCM_3X_TYPE1087", kF9t, 0},
        {0xF561, 0x20910318, "CFG-MSGOUT-RTCM_3X_TYPE1097", kF9t, 0},
        {0xF57F, 0x209102D6, "CFG-MSGOUT-RTCM_3X_TYPE1127", kF9t, 0},
        {0xF5E6, 0x20910303, "CFG-MSGOUT-RTCM_3X_TYPE1230", kF9t, 0},
        {0xF5FE, 0x209102FE, "CFG-MSGOUT-RTCM_3X_TYPE4072_0", kF9t, 0},
        {0xF5FD, 0x20910381, "CFG-MSGOUT-RTCM_3X_TYPE4072_1", kF9t, 0},
        {0xF000, 0x209100BA, "CFG-MSGOUT-NMEA_ID_GGA", kAll, kAll},
        {0xF001, 0x209100C9, "CFG-MSGOUT-NMEA_ID_GLL", kAll, kAll},
        {0xF002, 0x209100BF, "CFG-MSGOUT-NMEA_ID_GSA", kAll, kAll},
        {0xF003, 0x209100C4, "CFG-MSGOUT-NMEA_ID_GSV", kAll, kAll},
        {0xF004, 0x209100AB, "CFG-MSGOUT-NMEA_ID_RMC", kAll, kAll},
        {0xF005, 0x209100B0, "CFG-MSGOUT-NMEA_ID_VTG", kAll, kAll},
        {0xF006, 0x209100CE, "CFG-MSGOUT-NMEA_ID_GRS", kAll, 0},
        {0xF007, 0x209100D3, "CFG-MSGOUT-NMEA_ID_GST", kAll, 0},
        {0xF008, 0x209100D8, "CFG-MSGOUT-NMEA_ID_ZDA", kAll, kNeoM8t},
        {0xF009, 0x209100DD, "CFG-MSGOUT-NMEA_ID_GBS", kAll, 0},
        {0xF00A, 0x209100A6, "CFG-MSGOUT-NMEA_ID_DTM", kAll, 0},
        {0xF00D, 0x209100B5, "CFG-MSGOUT-NMEA_ID_GNS", kAll, 0},
        {0xF00F, 0x209100E7, "CFG-MSGOUT-NMEA_ID_VLW", kAll, 0},
    };
    return table;
}

} // namespace ubxsim

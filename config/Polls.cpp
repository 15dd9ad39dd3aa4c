#include <ZedF9tUbxMessageBuilder.h>

#include "config/KeyValuePayload.h"
#include "config/Keys.h"

namespace keys = ubx::keys;
using ubx::pollPayload;

unsigned int ZedF9tUbxMessageBuilder::poll_AntennaTimeBias(unsigned char* buffer)
{
    return pollPayload(buffer, keys::tpAntCableDelay);
}

unsigned int ZedF9tUbxMessageBuilder::poll_Jamming(unsigned char* buffer)
{
    return pollPayload(buffer, keys::itfmEnable);
}

unsigned int ZedF9tUbxMessageBuilder::poll_AntennaType(unsigned char* buffer)
{
    return pollPayload(buffer, keys::itfmAntSetting);
}

unsigned int ZedF9tUbxMessageBuilder::polll_CFG_RATE(unsigned char* buffer)
{
    return pollPayload(buffer, keys::rateTimeref);
}

unsigned int ZedF9tUbxMessageBuilder::poll_SIGNALConfiguration(unsigned char* buffer)
{
    return pollPayload(buffer, keys::signalGpsEna, keys::signalSbasEna, keys::signalGalEna, keys::signalBdsEna,
                       keys::signalQzssEna, keys::signalGloEna);
}

unsigned int ZedF9tUbxMessageBuilder::poll_SIGNALConfigurationForTim2_20(unsigned char* buffer)
{
    return pollPayload(buffer, keys::signalGpsEna, keys::signalSbasEna, keys::signalGalEna, keys::signalBdsEna,
                       keys::signalQzssEna, keys::signalGloEna, keys::signalNavicEna);
}

unsigned int ZedF9tUbxMessageBuilder::poll_CFG_TP_Enable(unsigned char* buffer, unsigned char pulse)
{
    if (pulse == 0) return pollPayload(buffer, keys::tpTp1Ena);
    if (pulse == 1) return pollPayload(buffer, keys::tpTp2Ena);
    return pollPayload(buffer);
}

unsigned int ZedF9tUbxMessageBuilder::poll_TMODE(unsigned char* buffer)
{
    return pollPayload(buffer, keys::tmodeMode);
}

unsigned int ZedF9tUbxMessageBuilder::poll_SvinMinDurConfiguration(unsigned char* buffer)
{
    return pollPayload(buffer, keys::tmodeSvinMinDur);
}

unsigned int ZedF9tUbxMessageBuilder::poll_SurveyAccuracyConfiguration(unsigned char* buffer)
{
    return pollPayload(buffer, keys::tmodeSvinAccLimit);
}

unsigned int ZedF9tUbxMessageBuilder::poll_CFG_TMODE(unsigned char* buffer)
{
    return pollPayload(buffer, keys::tmodeMode, keys::tmodePosType, keys::tmodeLat, keys::tmodeLon, keys::tmodeHeight,
                       keys::tmodeFixedPosAcc, keys::tmodeSvinMinDur, keys::tmodeSvinAccLimit);
}

unsigned int ZedF9tUbxMessageBuilder::poll_NAV5Elevation(unsigned char* buffer)
{
    return pollPayload(buffer, keys::navspgInfilMinElev);
}

unsigned int ZedF9tUbxMessageBuilder::poll_NAV5UtcStandard(unsigned char* buffer)
{
    return pollPayload(buffer, keys::navspgUtcStandard);
}

unsigned int ZedF9tUbxMessageBuilder::poll_NAVX5(unsigned char* buffer)
{
    return pollPayload(buffer, keys::navspgInfilMinCno);
}

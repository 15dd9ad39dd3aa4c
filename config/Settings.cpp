#include <ZedF9tUbxMessageBuilder.h>

#include <cstdint>

#include "config/KeyValuePayload.h"
#include "config/Keys.h"

namespace keys = ubx::keys;
using ubx::setPayload;
using ubx::Setting;

namespace
{

constexpr std::uint16_t kMeasurementPeriodMs = 1000;
constexpr std::uint16_t kMeasurementsPerSolution = 1;
constexpr std::uint8_t kLatitudeLongitudeHeight = 1;
constexpr std::uint8_t kFullPower = 0;

/// Bit n stands for PRN 120 + n: 120, 123, 125 to 129, 133, 135 to 138, 140, 141.
constexpr std::uint64_t kSbasPrns = 0x37A3E9;

} // namespace

unsigned int ZedF9tUbxMessageBuilder::configureITFM(unsigned char* buffer, bool enable, unsigned char bbThreshold,
                                                    unsigned char cwThreshold, bool enableAux,
                                                    unsigned char antennaSetting)
{
    return setPayload(buffer,                                        //
                      Setting{keys::itfmBbThreshold, bbThreshold},   //
                      Setting{keys::itfmCwThreshold, cwThreshold},   //
                      Setting{keys::itfmEnable, enable},             //
                      Setting{keys::itfmAntSetting, antennaSetting}, //
                      Setting{keys::itfmEnableAux, enableAux});
}

unsigned int ZedF9tUbxMessageBuilder::configureJamming(unsigned char* buffer, bool enable, unsigned char bbThreshold,
                                                       unsigned char cwThreshold, bool enableAux)
{
    return setPayload(buffer,                                      //
                      Setting{keys::itfmBbThreshold, bbThreshold}, //
                      Setting{keys::itfmCwThreshold, cwThreshold}, //
                      Setting{keys::itfmEnable, enable},           //
                      Setting{keys::itfmEnableAux, enableAux});
}

unsigned int ZedF9tUbxMessageBuilder::configureAntennaType(unsigned char* buffer, unsigned char type)
{
    return setPayload(buffer, Setting{keys::itfmAntSetting, type});
}

unsigned int ZedF9tUbxMessageBuilder::configureNAV5Elevation(unsigned char* buffer, unsigned char degrees)
{
    return setPayload(buffer, Setting{keys::navspgInfilMinElev, static_cast<std::int8_t>(degrees)});
}

unsigned int ZedF9tUbxMessageBuilder::configureNAV5UtcStandard(unsigned char* buffer, unsigned char standard)
{
    return setPayload(buffer, Setting{keys::navspgUtcStandard, standard});
}

unsigned int ZedF9tUbxMessageBuilder::configureNAV5(unsigned char* buffer, unsigned char degrees,
                                                    unsigned char standard)
{
    return setPayload(buffer,                                                               //
                      Setting{keys::navspgInfilMinElev, static_cast<std::int8_t>(degrees)}, //
                      Setting{keys::navspgUtcStandard, standard});
}

unsigned int ZedF9tUbxMessageBuilder::configureNAVX5(unsigned char* buffer, unsigned char minCNo)
{
    return setPayload(buffer, Setting{keys::navspgInfilMinCno, minCNo});
}

unsigned int ZedF9tUbxMessageBuilder::setAntennaTimeBias(unsigned char* buffer, int nanoseconds)
{
    return setPayload(buffer, Setting{keys::tpAntCableDelay, static_cast<std::int16_t>(nanoseconds)});
}

unsigned int ZedF9tUbxMessageBuilder::setGnssGroupDelay(unsigned char* buffer, int delay)
{
    return setPayload(buffer, Setting{keys::tpUserDelayTp1, delay});
}

unsigned int ZedF9tUbxMessageBuilder::configureRATE(unsigned char* buffer, unsigned char timeReference)
{
    return setPayload(buffer,                                           //
                      Setting{keys::rateMeas, kMeasurementPeriodMs},    //
                      Setting{keys::rateNav, kMeasurementsPerSolution}, //
                      Setting{keys::rateTimeref, timeReference});
}

unsigned int ZedF9tUbxMessageBuilder::configureTMODE(unsigned char* buffer, unsigned char mode, int lat, int lon,
                                                     int height, unsigned int fixedPosAcc, unsigned int svinMinDur,
                                                     unsigned int svinAccLimit)
{
    return setPayload(buffer,                                                //
                      Setting{keys::tmodeMode, mode},                        //
                      Setting{keys::tmodePosType, kLatitudeLongitudeHeight}, //
                      Setting{keys::tmodeLat, lat},                          //
                      Setting{keys::tmodeLon, lon},                          //
                      Setting{keys::tmodeHeight, height},                    //
                      Setting{keys::tmodeFixedPosAcc, fixedPosAcc},          //
                      Setting{keys::tmodeSvinMinDur, svinMinDur},            //
                      Setting{keys::tmodeSvinAccLimit, svinAccLimit});
}

unsigned int ZedF9tUbxMessageBuilder::configureSurveyInMode(unsigned char* buffer, unsigned char mode,
                                                            unsigned int svinMinDur, unsigned int svinAccLimit)
{
    return setPayload(buffer,                                         //
                      Setting{keys::tmodeSvinMinDur, svinMinDur},     //
                      Setting{keys::tmodeSvinAccLimit, svinAccLimit}, //
                      Setting{keys::tmodeMode, mode});
}

unsigned int ZedF9tUbxMessageBuilder::configureFixedMode(unsigned char* buffer, unsigned char mode, int lat, int lon,
                                                         int height, unsigned int fixedPosAcc)
{
    return setPayload(buffer,                                                //
                      Setting{keys::tmodePosType, kLatitudeLongitudeHeight}, //
                      Setting{keys::tmodeLat, lat},                          //
                      Setting{keys::tmodeLon, lon},                          //
                      Setting{keys::tmodeHeight, height},                    //
                      Setting{keys::tmodeFixedPosAcc, fixedPosAcc},          //
                      Setting{keys::tmodeMode, mode});
}

unsigned int ZedF9tUbxMessageBuilder::configureSBAS(unsigned char* buffer)
{
    return setPayload(buffer,                                 //
                      Setting{keys::sbasUseTestmode, true},   //
                      Setting{keys::sbasUseRanging, true},    //
                      Setting{keys::sbasUseDiffcorr, true},   //
                      Setting{keys::sbasUseIntegrity, false}, //
                      Setting{keys::sbasPrnScanMask, kSbasPrns});
}

unsigned int ZedF9tUbxMessageBuilder::configureBdsSystemConfig(unsigned char* buffer)
{
    return setPayload(buffer, Setting{keys::bdsUseGeoPrn, true});
}

// Full power whatever is asked for: that is meant, a timing receiver is never to save power.
unsigned int ZedF9tUbxMessageBuilder::configureExtendedPowerManagement(unsigned char* buffer, unsigned char /*mode*/)
{
    return setPayload(buffer, Setting{keys::pmOperateMode, kFullPower});
}

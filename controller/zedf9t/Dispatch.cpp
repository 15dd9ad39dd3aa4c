#include <utility>

#include "controller/zedf9t/Parts.h"

// The operations that exist in two forms. Which one is meant is decided here, at each call, and nowhere else.

namespace
{

using Self = ubxController_ZEDF9T;

} // namespace

template <typename... Parameters, typename... Arguments>
int ubxController_ZEDF9T::dispatch(int (ubxController_ZEDF9T::*legacy)(Parameters...),
                                   int (ubxController_ZEDF9T::*configInterface)(Parameters...),
                                   Arguments&&... arguments)
{
    const auto form = parts_->configurationInterfaceMode ? configInterface : legacy;
    return (this->*form)(std::forward<Arguments>(arguments)...);
}

int ubxController_ZEDF9T::isOn(bool& on)
{
    return dispatch(&Self::isOnForLegacy, &Self::isOnForConfigInterface, on);
}

int ubxController_ZEDF9T::setAntennaDelay(int delayNs)
{
    return dispatch(&Self::setAntennaDelayForLegacy, &Self::setAntennaDelayForConfigInterface, delayNs);
}

int ubxController_ZEDF9T::getAntennaDelay(int& delayNs)
{
    return dispatch(&Self::getAntennaDelayForLegacy, &Self::getAntennaDelayForConfigInterface, delayNs);
}

int ubxController_ZEDF9T::setAntennaType(std::string type)
{
    return dispatch(&Self::setAntennaTypeForLegacy, &Self::setAntennaTypeForConfigInterface, std::move(type));
}

int ubxController_ZEDF9T::getAntennaType(std::string& type)
{
    return dispatch(&Self::getAntennaTypeForLegacy, &Self::getAntennaTypeForConfigInterface, type);
}

int ubxController_ZEDF9T::setGnssSystem(unsigned short gnssMask, bool dualBand)
{
    return dispatch(&Self::setGnssSystemForLegacy, &Self::setGnssSystemForConfigInterface, gnssMask, dualBand);
}

int ubxController_ZEDF9T::setGnssSystem(unsigned short gnssMask)
{
    return dispatch(&Self::setGnssSystemForLegacy, &Self::setGnssSystemForConfigInterface, gnssMask, true);
}

int ubxController_ZEDF9T::getGnssSystem(unsigned short& gnssMask)
{
    return dispatch(&Self::getGnssSystemForLegacy, &Self::getGnssSystemForConfigInterface, gnssMask);
}

int ubxController_ZEDF9T::setJammingDetection(bool on)
{
    return dispatch(&Self::setJammingDetectionForLegacy, &Self::setJammingDetectionForConfigInterface, on);
}

int ubxController_ZEDF9T::getJammingDetection(bool& on)
{
    return dispatch(&Self::getJammingDetectionForLegacy, &Self::getJammingDetectionForConfigInterface, on);
}

int ubxController_ZEDF9T::getSurveyMode(std::string& mode)
{
    return dispatch(&Self::getSurveyModeForLegacy, &Self::getSurveyModeForConfigInterface, mode);
}

int ubxController_ZEDF9T::setSurveyStatic(double latitude, double longitude, double height, double accuracy)
{
    return dispatch(&Self::setSurveyStaticForLegacy, &Self::setSurveyStaticForConfigInterface, latitude, longitude,
                    height, accuracy);
}

int ubxController_ZEDF9T::setSurveyAuto(unsigned int duration, float accuracy)
{
    return dispatch(&Self::setSurveyAutoForLegacy, &Self::setSurveyAutoForConfigInterface, duration, accuracy);
}

int ubxController_ZEDF9T::setSurveyDynamic()
{
    return dispatch(&Self::setSurveyDynamicForLegacy, &Self::setSurveyDynamicForConfigInterface);
}

int ubxController_ZEDF9T::setMinCNo(signed char minCNo)
{
    return dispatch(&Self::setMinCNoForLegacy, &Self::setMinCNoForConfigInterface, minCNo);
}

int ubxController_ZEDF9T::getMinCNo(signed char& minCNo)
{
    return dispatch(&Self::getMinCNoForLegacy, &Self::getMinCNoForConfigInterface, minCNo);
}

int ubxController_ZEDF9T::setElevationLimit(unsigned char degrees)
{
    return dispatch(&Self::setElevationLimitForLegacy, &Self::setElevationLimitForConfigInterface, degrees);
}

int ubxController_ZEDF9T::getElevationLimit(unsigned char& degrees)
{
    return dispatch(&Self::getElevationLimitForLegacy, &Self::getElevationLimitForConfigInterface, degrees);
}

int ubxController_ZEDF9T::setTimeReference(std::string reference)
{
    return dispatch(&Self::setTimeReferenceForLegacy, &Self::setTimeReferenceForConfigInterface, std::move(reference));
}

int ubxController_ZEDF9T::getTimeReference(std::string& reference)
{
    return dispatch(&Self::getTimeReferenceForLegacy, &Self::getTimeReferenceForConfigInterface, reference);
}

int ubxController_ZEDF9T::setUtcStandardAuto()
{
    return dispatch(&Self::setUtcStandardAutoForLegacy, &Self::setUtcStandardAutoForConfigInterface);
}

int ubxController_ZEDF9T::setUtsStandardTime(signed char gnssMask)
{
    return dispatch(&Self::setUtsStandardTimeForLegacy, &Self::setUtsStandardTimeForConfigInterface, gnssMask);
}

int ubxController_ZEDF9T::configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active)
{
    return dispatch(&Self::configTimePulseForLegacy, &Self::configTimePulseForConfigInterface, gnssMask, pulse, active);
}

#include "controller/zedf9t/Parts.h"

int ubxController_ZEDF9T::isOnForLegacy(bool& on)
{
    return parts_->legacy.isOn(on);
}

int ubxController_ZEDF9T::setAntennaDelayForLegacy(int delayNs)
{
    return parts_->legacy.setAntennaDelay(delayNs);
}

int ubxController_ZEDF9T::getAntennaDelayForLegacy(int& delayNs)
{
    return parts_->legacy.getAntennaDelay(delayNs);
}

int ubxController_ZEDF9T::setAntennaTypeForLegacy(std::string type)
{
    return parts_->legacy.setAntennaType(type);
}

int ubxController_ZEDF9T::getAntennaTypeForLegacy(std::string& type)
{
    return parts_->legacy.getAntennaType(type);
}

int ubxController_ZEDF9T::setGnssSystemForLegacy(unsigned short gnssMask, bool dualBand)
{
    return parts_->legacy.setGnssSystem(gnssMask, dualBand);
}

int ubxController_ZEDF9T::getGnssSystemForLegacy(unsigned short& gnssMask)
{
    return parts_->legacy.getGnssSystem(gnssMask);
}

int ubxController_ZEDF9T::setJammingDetectionForLegacy(bool on)
{
    return parts_->legacy.setJammingDetection(on);
}

int ubxController_ZEDF9T::getJammingDetectionForLegacy(bool& on)
{
    return parts_->legacy.getJammingDetection(on);
}

int ubxController_ZEDF9T::getSurveyModeForLegacy(std::string& mode)
{
    return parts_->legacy.getSurveyMode(mode);
}

int ubxController_ZEDF9T::setSurveyStaticForLegacy(double latitude, double longitude, double height, double accuracy)
{
    return parts_->legacy.setSurveyStatic(latitude, longitude, height, accuracy);
}

int ubxController_ZEDF9T::setSurveyAutoForLegacy(unsigned int duration, float accuracy)
{
    return parts_->legacy.setSurveyAuto(duration, accuracy);
}

int ubxController_ZEDF9T::setSurveyDynamicForLegacy()
{
    return parts_->legacy.setSurveyDynamic();
}

int ubxController_ZEDF9T::setMinCNoForLegacy(signed char minCNo)
{
    return parts_->legacy.setMinCNo(minCNo);
}

int ubxController_ZEDF9T::getMinCNoForLegacy(signed char& minCNo)
{
    return parts_->legacy.getMinCNo(minCNo);
}

int ubxController_ZEDF9T::setElevationLimitForLegacy(unsigned char degrees)
{
    return parts_->legacy.setElevationLimit(degrees);
}

int ubxController_ZEDF9T::getElevationLimitForLegacy(unsigned char& degrees)
{
    return parts_->legacy.getElevationLimit(degrees);
}

int ubxController_ZEDF9T::setTimeReferenceForLegacy(std::string reference)
{
    return parts_->legacy.setTimeReference(reference);
}

int ubxController_ZEDF9T::getTimeReferenceForLegacy(std::string& reference)
{
    return parts_->legacy.getTimeReference(reference);
}

int ubxController_ZEDF9T::setUtcStandardAutoForLegacy()
{
    return parts_->legacy.setUtcStandardAuto();
}

int ubxController_ZEDF9T::setUtsStandardTimeForLegacy(signed char gnssMask)
{
    return parts_->legacy.setUtsStandardTime(gnssMask);
}

int ubxController_ZEDF9T::configTimePulseForLegacy(unsigned short gnssMask, unsigned char pulse, bool active)
{
    return parts_->legacy.configTimePulse(gnssMask, pulse, active);
}

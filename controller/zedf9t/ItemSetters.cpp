#include <ZedF9tUbxMessageBuilder.h>

#include "controller/SettingLimits.h"
#include "controller/zedf9t/ItemWords.h"
#include "controller/zedf9t/Parts.h"
#include "protocol/payloads/Units.h"

// What was set is read back through the object's own operation, in whatever mode it is.

using Builder = ZedF9tUbxMessageBuilder;
using ubx::mismatch;

namespace
{

constexpr unsigned char kDisabled = 0;
constexpr unsigned char kSurveyIn = 1;
constexpr unsigned char kFixed = 2;

// UTC standard by GNSS mask: 1 for masks with GPS, else 2 with Galileo, 3 with GLONASS, 4 with BeiDou. Others:
// automatic.
constexpr ubx::UtcStandardRow kUtcStandards[] = {{1, 1},  {3, 1},  {4, 2},  {5, 1},  {6, 2},  {8, 4},  {9, 1}, {10, 4},
                                                 {64, 3}, {65, 1}, {66, 3}, {67, 1}, {68, 3}, {71, 1}, {72, 3}};

} // namespace

int ubxController_ZEDF9T::setAntennaDelayForConfigInterface(int delayNs)
{
    if (!ubx::isCableDelay(delayNs)) return ubx::status::kRefused;

    int status = parts_->items.set(Builder::setAntennaTimeBias, delayNs);
    int readBack = 0;
    status |= getAntennaDelay(readBack);
    return status | mismatch(readBack != delayNs);
}

int ubxController_ZEDF9T::setAntennaTypeForConfigInterface(std::string type)
{
    const ubx::Word* const word = ubx::findWord(ubx::items::kAntennaTypes, type);
    if (word == nullptr) return ubx::status::kRefused;

    int status = parts_->items.set(Builder::configureAntennaType, word->value);
    std::string readBack;
    status |= getAntennaType(readBack);
    return status | mismatch(readBack != type);
}

int ubxController_ZEDF9T::setJammingDetectionForConfigInterface(bool on)
{
    constexpr unsigned char kBroadbandThreshold = 3;
    constexpr unsigned char kCwThreshold = 5;

    int status = parts_->items.set(Builder::configureJamming, on, kBroadbandThreshold, kCwThreshold, false);
    bool readBack = false;
    status |= getJammingDetection(readBack);
    return status | mismatch(readBack != on);
}

int ubxController_ZEDF9T::setSurveyStaticForConfigInterface(double latitude, double longitude, double height,
                                                            double accuracy)
{
    using namespace ubx::units;
    if (!ubx::isFixedPosition(latitude, longitude, height, accuracy)) return ubx::status::kRefused;

    int status =
        parts_->items.set(Builder::configureFixedMode, kFixed, static_cast<int>(latitude * kDegreesScale),
                          static_cast<int>(longitude * kDegreesScale), static_cast<int>(height * kCentimetresPerMetre),
                          static_cast<unsigned int>(accuracy * kMillimetresPerMetre));
    std::string mode;
    status |= getSurveyMode(mode);
    return status | mismatch(mode != "STATIC");
}

int ubxController_ZEDF9T::setSurveyAutoForConfigInterface(unsigned int duration, float accuracy)
{
    constexpr unsigned int kTenthsOfMillimetre = 10;
    if (!ubx::isSurvey(duration, accuracy)) return ubx::status::kRefused;

    const double accuracyMm = static_cast<double>(accuracy) * ubx::units::kMillimetresPerMetre;
    const unsigned int accuracyLimit = static_cast<unsigned int>(accuracyMm) * kTenthsOfMillimetre;
    int status = parts_->items.set(Builder::configureSurveyInMode, kSurveyIn, duration, accuracyLimit);

    std::string mode;
    status |= getSurveyMode(mode);
    unsigned int durationReadBack = 0;
    status |= getDurationConfiguration(durationReadBack);
    unsigned int limitReadBack = 0;
    status |= getAccuracyConfiguration(limitReadBack);
    return status | mismatch(mode != "AUTO" || durationReadBack != duration || limitReadBack != accuracyLimit);
}

int ubxController_ZEDF9T::setSurveyDynamicForConfigInterface()
{
    int status = parts_->items.set(Builder::configureSurveyInMode, kDisabled, 0U, 0U);
    std::string mode;
    status |= getSurveyMode(mode);
    return status | mismatch(mode != "DYNAMIC");
}

int ubxController_ZEDF9T::setMinCNoForConfigInterface(signed char minCNo)
{
    if (!ubx::isMinCNo(minCNo)) return ubx::status::kRefused;

    int status = parts_->items.set(Builder::configureNAVX5, static_cast<unsigned char>(minCNo));
    signed char readBack = 0;
    status |= getMinCNo(readBack);
    return status | mismatch(readBack != minCNo);
}

int ubxController_ZEDF9T::setElevationLimitForConfigInterface(unsigned char degrees)
{
    if (!ubx::isElevationLimit(degrees)) return ubx::status::kRefused;

    int status = parts_->items.set(Builder::configureNAV5Elevation, degrees);
    unsigned char readBack = 0;
    status |= getElevationLimit(readBack);
    return status | mismatch(readBack != degrees);
}

int ubxController_ZEDF9T::setUtcStandardAutoForConfigInterface()
{
    return parts_->items.set(Builder::configureNAV5UtcStandard, ubx::kUtcStandardAutomatic);
}

int ubxController_ZEDF9T::setUtsStandardTimeForConfigInterface(signed char gnssMask)
{
    return parts_->items.set(Builder::configureNAV5UtcStandard, ubx::utcStandardFor(gnssMask, kUtcStandards));
}

int ubxController_ZEDF9T::setTimeReferenceForConfigInterface(std::string reference)
{
    const ubx::Word* const word = ubx::findWord(ubx::items::kTimeReferences, reference);
    if (word == nullptr) return ubx::status::kRefused;

    int status = parts_->items.set(Builder::configureRATE, word->value);
    std::string readBack;
    status |= getTimeReference(readBack);
    return status | mismatch(readBack != reference);
}

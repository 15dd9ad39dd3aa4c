#include "controller/SettingLimits.h"
#include "controller/legacy/LegacyOperations.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgTmode2.h"
#include "protocol/payloads/Units.h"

namespace ubx
{

namespace
{

constexpr Word kModes[] = {
    {"DYNAMIC", cfgTmode2::kDisabled}, {"AUTO", cfgTmode2::kSurveyIn}, {"STATIC", cfgTmode2::kFixed}};

int verifyMode(UBXControlInterface& self, const char* wanted)
{
    std::string mode;
    const int status = self.getSurveyMode(mode);
    return status | mismatch(mode != wanted);
}

} // namespace

int LegacyOperations::setSurveyStatic(double latitude, double longitude, double height, double accuracy)
{
    if (!isFixedPosition(latitude, longitude, height, accuracy)) return status::kRefused;

    const int status =
        link_.send(Payload<cfgTmode2::size>()
                       .set(cfgTmode2::timeMode, cfgTmode2::kFixed)
                       .set(cfgTmode2::flags, cfgTmode2::kLatLonAlt)
                       .set(cfgTmode2::lat, static_cast<std::int32_t>(latitude * units::kDegreesScale))
                       .set(cfgTmode2::lon, static_cast<std::int32_t>(longitude * units::kDegreesScale))
                       .set(cfgTmode2::alt, static_cast<std::int32_t>(height * units::kCentimetresPerMetre))
                       .set(cfgTmode2::fixedPosAcc, static_cast<std::uint32_t>(accuracy * units::kMillimetresPerMetre))
                       .as(UBX_CFG_TMODE2));
    return status | verifyMode(self_, "STATIC");
}

int LegacyOperations::setSurveyAuto(unsigned int duration, float accuracy)
{
    if (!isSurvey(duration, accuracy)) return status::kRefused;

    const double accuracyMm = static_cast<double>(accuracy) * units::kMillimetresPerMetre;
    const int status = link_.send(Payload<cfgTmode2::size>()
                                      .set(cfgTmode2::timeMode, cfgTmode2::kSurveyIn)
                                      .set(cfgTmode2::svinMinDur, duration)
                                      .set(cfgTmode2::svinAccLimit, static_cast<std::uint32_t>(accuracyMm))
                                      .as(UBX_CFG_TMODE2));
    return status | verifyMode(self_, "AUTO");
}

int LegacyOperations::setSurveyAuto()
{
    return self_.setSurveyAuto(kDefaultSurveyDuration, kDefaultSurveyAccuracy);
}

int LegacyOperations::setSurveyDynamic()
{
    const int status = link_.send(Payload<cfgTmode2::size>().as(UBX_CFG_TMODE2));
    return status | verifyMode(self_, "DYNAMIC");
}

int LegacyOperations::getSurveyMode(std::string& mode)
{
    const Reply reply = link_.poll(emptyPoll(UBX_CFG_TMODE2));
    if (!reply) return reply.status();
    if (const Word* const word = findWord(kModes, reply.payload().get(cfgTmode2::timeMode))) mode = word->text;
    return status::kDone;
}

} // namespace ubx

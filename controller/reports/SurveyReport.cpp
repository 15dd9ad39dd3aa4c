#include <cstdint>

#include "controller/reports/StatusReports.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgTmode2.h"
#include "protocol/payloads/NavPosllh.h"
#include "protocol/payloads/NavPvt.h"
#include "protocol/payloads/Units.h"

namespace ubx::reports
{

namespace
{

struct Mode
{
    const char* word;
    std::uint8_t timeMode;
    std::uint16_t flags;
};

constexpr Mode kModes[] = {{"AUTO", cfgTmode2::kSurveyIn, 0},
                           {"STATIC", cfgTmode2::kFixed, cfgTmode2::kLatLonAlt},
                           {"DYNAMIC", cfgTmode2::kDisabled, 0}};

const Mode* findMode(const std::string& word)
{
    for (const Mode& mode : kModes)
        if (word == mode.word) return &mode;
    return nullptr;
}

} // namespace

int setSurveyMode(ReceiverLink& link, const std::string& mode)
{
    const Mode* const wanted = findMode(mode);
    if (wanted == nullptr) return refuseWord(link, mode);

    Payload<cfgTmode2::size> payload;
    payload.set(cfgTmode2::timeMode, wanted->timeMode).set(cfgTmode2::flags, wanted->flags);

    ubxIO port;
    if (const Reply pvt = link.poll(port, UBXMessage(UBX_NAV_PVT, 0, nullptr))) {
        // Longitude and latitude change places on the way, for every mode. Meant so: devices in the field rely on it.
        payload.set(cfgTmode2::lat, pvt.payload().get(navPvt::lon))
            .set(cfgTmode2::lon, pvt.payload().get(navPvt::lat))
            .set(cfgTmode2::alt, pvt.payload().get(navPvt::height) / units::kMillimetresPerCentimetre);
    }
    if (const Reply present = link.poll(port, UBXMessage(UBX_CFG_TMODE2, 0, nullptr))) {
        for (const auto parameter : {cfgTmode2::fixedPosAcc, cfgTmode2::svinMinDur, cfgTmode2::svinAccLimit}) {
            payload.set(parameter, present.payload().get(parameter));
        }
    }
    return link.send(payload.as(UBX_CFG_TMODE2));
}

int getSurveyInfo(ReceiverLink& link, unsigned char& mode, double& latitude, double& longitude, double& height,
                  double& accuracy, unsigned int& duration, float& accuracyLimit)
{
    const Reply settings = link.poll(UBXMessage(UBX_CFG_TMODE2, 0, nullptr));
    if (!settings) return settings.status();
    mode = settings.payload().get(cfgTmode2::timeMode);
    accuracy = settings.payload().get(cfgTmode2::fixedPosAcc) / units::kMillimetresPerMetre;
    duration = settings.payload().get(cfgTmode2::svinMinDur);
    accuracyLimit = static_cast<float>(settings.payload().get(cfgTmode2::svinAccLimit)) /
                    static_cast<float>(units::kMillimetresPerMetre);

    const Reply position = link.poll(UBXMessage(UBX_NAV_POSLLH, 0, nullptr));
    if (!position) return position.status();
    longitude = position.payload().get(navPosllh::lon) / units::kDegreesScale;
    latitude = position.payload().get(navPosllh::lat) / units::kDegreesScale;
    height = position.payload().get(navPosllh::height) / units::kMillimetresPerMetre;
    return status::kDone;
}

} // namespace ubx::reports

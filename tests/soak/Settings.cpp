#include "Settings.h"

namespace soak
{

namespace
{

long number(const ubxsim::Bytes& payload, std::size_t at, std::size_t width)
{
    long value = 0;
    for (std::size_t i = width; i-- > 0;)
        value = value * 256 + payload.at(at + i);
    return value;
}

long signedItem(const ubxsim::ReceiverSimulator& receiver, std::uint32_t key)
{
    return static_cast<std::int32_t>(receiver.keyValue(key).value_or(0));
}

/// Those that are read the same way of both models.
Settings ofBoth(const ubxsim::ReceiverSimulator& receiver)
{
    Settings settings{};
    settings[positionType] = number(receiver.legacyPayload(0x063D), 2, 2);
    settings[latitude] = signedItem(receiver, 0x40030009);
    settings[longitude] = signedItem(receiver, 0x4003000A);
    settings[height] = signedItem(receiver, 0x4003000B);
    settings[ecefX] = signedItem(receiver, 0x40030003);
    settings[ecefY] = signedItem(receiver, 0x40030004);
    settings[ecefZ] = signedItem(receiver, 0x40030005);
    settings[jammingByte] = number(receiver.legacyPayload(0x0639), 4, 1);
    settings[rxMode] = number(receiver.legacyPayload(0x0611), 1, 1);
    settings[powerUpdatePeriod] = number(receiver.legacyPayload(0x063B), 8, 4);
    settings[sbasSatellites] = number(receiver.legacyPayload(0x0616), 4, 4);
    settings[gsaRate] = static_cast<long>(receiver.outputRate(0xF002));
    settings[ggaRate] = static_cast<long>(receiver.outputRate(0xF000));
    return settings;
}

Settings ofNeoM8t(const ubxsim::ReceiverSimulator& receiver)
{
    const ubxsim::Bytes navigation = receiver.legacyPayload(0x0624);
    const ubxsim::Bytes interference = receiver.legacyPayload(0x0639);
    const ubxsim::Bytes timeMode2 = receiver.legacyPayload(0x063D);
    const ubxsim::Bytes gnss = receiver.legacyPayload(0x063E);
    Settings settings = ofBoth(receiver);
    settings[minCNo] = number(receiver.legacyPayload(0x0623), 12, 1);
    settings[elevation] = number(navigation, 12, 1);
    settings[dynamicModel] = number(navigation, 2, 1);
    settings[fixMode] = number(navigation, 3, 1);
    settings[utcStandard] = number(navigation, 30, 1);
    settings[cableDelay] = number(receiver.legacyPayload(0x0631), 4, 2);
    settings[firstPulse] = number(receiver.legacyPayload(0x0631, 0), 28, 1) & 1;
    settings[secondPulse] = number(receiver.legacyPayload(0x0631, 1), 28, 1) & 1;
    settings[timeMode] = number(timeMode2, 0, 1);
    settings[positionAccuracy] = number(timeMode2, 16, 4);
    settings[surveyDuration] = number(timeMode2, 20, 4);
    settings[surveyLimit] = number(timeMode2, 24, 4);
    settings[timeReference] = number(receiver.legacyPayload(0x0608), 4, 2);
    settings[antennaType] = number(interference, 5, 1) >> 4 & 3;
    settings[jamming] = number(interference, 3, 1) >> 7;
    for (std::size_t block = 0; block < 7; ++block)
        settings[constellations] |= number(gnss, 8 + 8 * block, 1) << block;
    settings[outProtocols] = number(receiver.legacyPayload(0x0600), 14, 2);
    settings[satelliteRate] = static_cast<long>(receiver.outputRate(0x0135));
    return settings;
}

Settings ofZedF9t(const ubxsim::ReceiverSimulator& receiver)
{
    const auto item = [&](std::uint32_t key) { return static_cast<long>(receiver.keyValue(key).value_or(0)); };
    Settings settings = ofBoth(receiver);
    settings[minCNo] = item(0x201100A3);
    settings[elevation] = item(0x201100A4);
    settings[dynamicModel] = item(0x20110021);
    settings[fixMode] = item(0x20110011);
    settings[utcStandard] = item(0x2011001C);
    settings[cableDelay] = item(0x30050001);
    settings[firstPulse] = item(0x10050007);
    settings[secondPulse] = item(0x10050012);
    settings[timeMode] = item(0x20030001);
    settings[positionAccuracy] = item(0x4003000F);
    settings[surveyDuration] = item(0x40030010);
    settings[surveyLimit] = item(0x40030011);
    settings[timeReference] = item(0x20210003);
    settings[antennaType] = item(0x20410010);
    settings[jamming] = item(0x1041000D);
    settings[constellations] = item(0x1031001F) | item(0x10310020) << 1 | item(0x10310021) << 2 |
                               item(0x10310022) << 3 | item(0x10310024) << 5 | item(0x10310025) << 6;
    settings[secondBand] = item(0x10310003);
    settings[outProtocols] = item(0x10780001) | item(0x10780002) << 1 | item(0x10780004) << 5;
    settings[satelliteRate] = item(0x20910015);
    return settings;
}

} // namespace

Settings settingsOf(const ubxsim::ReceiverSimulator& receiver, bool zedF9t)
{
    return zedF9t ? ofZedF9t(receiver) : ofNeoM8t(receiver);
}

const char* nameOf(Field field)
{
    static constexpr const char* kNames[kFields] = {"minimum C/N0",
                                                    "elevation limit",
                                                    "dynamic model",
                                                    "fix mode",
                                                    "UTC standard",
                                                    "cable delay",
                                                    "first time pulse",
                                                    "second time pulse",
                                                    "timing mode",
                                                    "position type",
                                                    "latitude",
                                                    "longitude",
                                                    "height",
                                                    "ECEF X",
                                                    "ECEF Y",
                                                    "ECEF Z",
                                                    "position accuracy",
                                                    "survey duration",
                                                    "survey limit",
                                                    "time reference",
                                                    "antenna type",
                                                    "jamming",
                                                    "byte of the jamming detection",
                                                    "constellations",
                                                    "second band of GPS",
                                                    "power mode",
                                                    "update period",
                                                    "SBAS satellites",
                                                    "output protocols",
                                                    "rate of satellites",
                                                    "rate of GSA",
                                                    "rate of GGA"};
    return kNames[field];
}

} // namespace soak

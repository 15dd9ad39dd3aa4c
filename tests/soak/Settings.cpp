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

Settings ofNeoM8t(const ubxsim::ReceiverSimulator& receiver)
{
    const ubxsim::Bytes navigation = receiver.legacyPayload(0x0624);
    const ubxsim::Bytes interference = receiver.legacyPayload(0x0639);
    const ubxsim::Bytes timeMode2 = receiver.legacyPayload(0x063D);
    const ubxsim::Bytes gnss = receiver.legacyPayload(0x063E);
    Settings settings{};
    settings[minCNo] = number(receiver.legacyPayload(0x0623), 12, 1);
    settings[elevation] = number(navigation, 12, 1);
    settings[dynamicModel] = number(navigation, 2, 1);
    settings[fixMode] = number(navigation, 3, 1);
    settings[cableDelay] = number(receiver.legacyPayload(0x0631), 4, 2);
    settings[timeMode] = number(timeMode2, 0, 1);
    settings[surveyDuration] = number(timeMode2, 20, 4);
    settings[surveyLimit] = number(timeMode2, 24, 4);
    settings[timeReference] = number(receiver.legacyPayload(0x0608), 4, 2);
    settings[antennaType] = number(interference, 5, 1) >> 4 & 3;
    settings[jamming] = number(interference, 4, 1);
    for (std::size_t block = 0; block < 7; ++block)
        settings[constellations] |= number(gnss, 8 + 8 * block, 1) << block;
    return settings;
}

Settings ofZedF9t(const ubxsim::ReceiverSimulator& receiver)
{
    const auto item = [&](std::uint32_t key) { return static_cast<long>(receiver.keyValue(key).value_or(0)); };
    Settings settings{};
    settings[minCNo] = item(0x201100A3);
    settings[elevation] = item(0x201100A4);
    settings[dynamicModel] = item(0x20110021);
    settings[fixMode] = item(0x20110011);
    settings[cableDelay] = item(0x30050001);
    settings[timeMode] = item(0x20030001);
    settings[surveyDuration] = item(0x40030010);
    settings[surveyLimit] = item(0x40030011);
    settings[timeReference] = item(0x20210003);
    settings[antennaType] = item(0x20410010);
    settings[jamming] = item(0x1041000D);
    settings[constellations] = item(0x1031001F) | item(0x10310020) << 1 | item(0x10310021) << 2 |
                               item(0x10310022) << 3 | item(0x10310024) << 5 | item(0x10310025) << 6;
    return settings;
}

} // namespace

Settings settingsOf(const ubxsim::ReceiverSimulator& receiver, bool zedF9t)
{
    return zedF9t ? ofZedF9t(receiver) : ofNeoM8t(receiver);
}

const char* nameOf(Field field)
{
    static constexpr const char* kNames[kFields] = {
        "minimum C/N0",    "elevation limit", "dynamic model",  "fix mode",     "cable delay", "timing mode",
        "survey duration", "survey limit",    "time reference", "antenna type", "jamming",     "constellations"};
    return kNames[field];
}

} // namespace soak

#include "simulator/receiver/NavPayloads.h"
#include "simulator/settings/GnssBlocks.h"
#include "simulator/wire/LittleEndian.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

void appendText(Bytes& payload, const std::string& text, std::size_t width)
{
    Bytes field(width);
    std::copy_n(text.begin(), std::min(width, text.size()), field.begin());
    payload.insert(payload.end(), field.begin(), field.end());
}

constexpr std::uint8_t kAntennaOk = 2;
constexpr std::uint8_t kAntennaShort = 3;
constexpr std::uint8_t kAntennaOpen = 4;
constexpr std::uint8_t kAntennaPowerOn = 1;

std::uint8_t antennaStatus(const Epoch& epoch)
{
    switch (epoch.reception.antenna) {
    case AntennaState::shorted:
        return kAntennaShort;
    case AntennaState::open:
        return kAntennaOpen;
    case AntennaState::ok:
        break;
    }
    return kAntennaOk;
}

// 0: the monitor is off, 1: nothing found, 3: critical.
std::uint8_t jammingState(const Report& report)
{
    if (report.store.get(key::itfmEnable) == 0) {
        return 0;
    }
    return report.epoch.reception.jammed ? 3 : 1;
}

struct RadioFrontEnd
{
    std::uint16_t noise;
    std::uint16_t gain;
    std::uint8_t jammingIndicator;
};

RadioFrontEnd frontEnd(const Epoch& epoch)
{
    if (epoch.reception.jammed) {
        return {310, 1400, 210};
    }
    return epoch.reception.antenna == AntennaState::ok ? RadioFrontEnd{81, 4900, 12} : RadioFrontEnd{65, 8100, 5};
}

// MON-GNSS counts the constellations in an order of its own.
constexpr std::pair<std::uint8_t, Key> kMonGnssBits[] = {
    {0x01, key::gpsEnable}, {0x02, key::gloEnable}, {0x04, key::bdsEnable}, {0x08, key::galEnable}};

} // namespace

Bytes monVer(const Report& report)
{
    constexpr std::size_t kSoftwareField = 30;
    constexpr std::size_t kHardwareField = 10;
    Bytes payload;
    appendText(payload, report.profile.swVersion, kSoftwareField);
    appendText(payload, report.profile.hwVersion, kHardwareField);
    for (const std::string& extension : report.profile.extensions) {
        appendText(payload, extension, kSoftwareField);
    }
    return payload;
}

Bytes monHw(const Report& report)
{
    const RadioFrontEnd radio = frontEnd(report.epoch);
    Bytes payload(60);
    put(payload, 16, radio.noise);
    put(payload, 18, radio.gain);
    put(payload, 20, antennaStatus(report.epoch));
    put(payload, 21, kAntennaPowerOn);
    put(payload, 22, static_cast<std::uint8_t>(0x01 | jammingState(report) << 2));
    put(payload, 45, radio.jammingIndicator);
    return payload;
}

Bytes monGnss(const Report& report)
{
    Bytes payload(8);
    for (const auto& [bit, enable] : kMonGnssBits) {
        payload[1] = static_cast<std::uint8_t>(payload[1] | bit);
        if (report.store.stored(Layer::factory, enable).value_or(0) != 0) {
            payload[2] = static_cast<std::uint8_t>(payload[2] | bit);
        }
        if (report.store.get(enable) != 0) {
            payload[3] = static_cast<std::uint8_t>(payload[3] | bit);
        }
    }
    payload[4] = report.profile.majorGnssAtOnce;
    return payload;
}

Bytes monRf(const Report& report)
{
    constexpr std::uint8_t kBands = 2;
    const RadioFrontEnd radio = frontEnd(report.epoch);
    Bytes payload = {0, kBands, 0, 0};
    for (std::uint8_t band = 0; band < kBands; ++band) {
        append(payload, band);
        append(payload, jammingState(report));
        append(payload, antennaStatus(report.epoch));
        append(payload, kAntennaPowerOn);
        appendZeros(payload, 8);
        append(payload, radio.noise);
        append(payload, radio.gain);
        append(payload, radio.jammingIndicator);
        appendZeros(payload, 7);
    }
    return payload;
}

Bytes secUniqId(const Report& report)
{
    Bytes payload = {1, 0, 0, 0};
    for (std::size_t i = 0; i + 1 < report.profile.uniqueId.size(); i += 2) {
        payload.push_back(static_cast<std::uint8_t>(std::stoul(report.profile.uniqueId.substr(i, 2), nullptr, 16)));
    }
    return payload;
}

} // namespace ubxsim

#include "Settings.h"

#include <stdexcept>

namespace demo
{

namespace
{

constexpr const char* kConstellations[] = {"GPS", "SBAS", "Galileo", "BeiDou", "IMES", "QZSS", "GLONASS"};

std::string onOff(bool on)
{
    return on ? "on" : "off";
}

/// Reads a value and says it in words: only when it was read.
template <typename Value, typename Words>
auto reading(int (UBXControlInterface::*getter)(Value&), Words words)
{
    return [getter, words](UBXControlInterface& receiver, std::string& text) {
        Value value{};
        const int status = (receiver.*getter)(value);
        if (status == 0) text = words(value);
        return status;
    };
}

std::string itself(const std::string& word)
{
    return word;
}

int readDynamics(UBXControlInterface& receiver, std::string& text)
{
    unsigned char model = 0;
    unsigned char fixMode = 0;
    const int status = receiver.getDynamicModel(model, fixMode);
    if (status == 0) text = dynamics(model, fixMode);
    return status;
}

template <typename Number>
auto inUnit(const char* unit)
{
    return [unit](Number number) { return std::to_string(static_cast<int>(number)) + ' ' + unit; };
}

} // namespace

const std::vector<Readable>& readables()
{
    using Control = UBXControlInterface;
    static const std::vector<Readable> all = {
        {"constellations", UBX_CFG_GNSS, reading(&Control::getGnssSystem, constellations)},
        {"antenna type", UBX_CFG_ITFM, reading(&Control::getAntennaType, itself)},
        {"antenna cable delay", UBX_CFG_TP5, reading(&Control::getAntennaDelay, inUnit<int>("ns"))},
        {"jamming detection", UBX_CFG_ITFM, reading(&Control::getJammingDetection, onOff)},
        {"minimum C/N0", UBX_CFG_NAVX5, reading(&Control::getMinCNo, inUnit<signed char>("dBHz"))},
        {"elevation limit", UBX_CFG_NAV5, reading(&Control::getElevationLimit, inUnit<unsigned char>("degrees"))},
        {"dynamic model", UBX_CFG_NAV5, readDynamics},
        {"time reference", UBX_CFG_RATE, reading(&Control::getTimeReference, itself)},
        {"power mode", UBX_CFG_RXM, reading(&Control::getRxMode, itself)},
        {"second time pulse", UBX_CFG_TP5, reading(&Control::isOn, onOff)},
        {"timing mode", UBX_CFG_TMODE2, reading(&Control::getSurveyMode, itself)},
    };
    return all;
}

const Readable& readable(const std::string& name)
{
    for (const Readable& each : readables()) {
        if (each.name == name) return each;
    }
    throw std::out_of_range("no setting is called " + name);
}

std::string constellations(unsigned short gnssMask)
{
    std::string text;
    unsigned int bit = 1;
    for (const char* const name : kConstellations) {
        if ((gnssMask & bit) != 0) text += (text.empty() ? "" : ", ") + std::string(name);
        bit <<= 1U;
    }
    return text.empty() ? "none" : text;
}

std::string dynamics(unsigned char model, unsigned char fixMode)
{
    const std::string models[] = {"portable", "model 1", "stationary", "pedestrian", "automotive", "sea", "airborne"};
    const std::string fixModes[] = {"fix mode 0", "2D only", "3D only", "2D or 3D"};

    return (model < std::size(models) ? models[model] : "model " + std::to_string(model)) + ", " +
           (fixMode < std::size(fixModes) ? fixModes[fixMode] : "fix mode " + std::to_string(fixMode));
}

} // namespace demo

#include <string>

#include <UBXMessage.h>

#include "session/Failure.h"
#include "settings/Setting.h"
#include "settings/TimingModeSetting.h"

namespace ubxctl
{

namespace
{

// Getters and setters of the control interface by the type of their value.

template <typename Number, int (UBXControlInterface::*operation)(Number&)>
Reading getNumber(Receiver& receiver)
{
    Number value{};
    const int status = (receiver.control().*operation)(value);
    return status == kDone ? Reading{kDone, static_cast<long>(value)} : Reading{status};
}

template <typename Number, int (UBXControlInterface::*operation)(Number)>
int setNumber(Receiver& receiver, const Value& value)
{
    return receiver.write(
        [&](UBXControlInterface& control) { return (control.*operation)(static_cast<Number>(std::get<long>(value))); });
}

using Words = const std::vector<Word>& (*)();

/// A word that is not in the list, or none, counts as a setting that the receiver does not have.
template <Words words, int (UBXControlInterface::*operation)(std::string&)>
Reading getWord(Receiver& receiver)
{
    std::string text;
    const int status = (receiver.control().*operation)(text);
    if (status != kDone) return {status};
    for (const Word& word : words()) {
        if (text == word.text) return {kDone, word.value};
    }
    return {};
}

template <Words words, int (UBXControlInterface::*operation)(std::string)>
int setWord(Receiver& receiver, const Value& value)
{
    for (const Word& word : words()) {
        if (word.value == std::get<long>(value)) {
            return receiver.write([&](UBXControlInterface& control) { return (control.*operation)(word.text); });
        }
    }
    return kRefused;
}

const std::vector<Word>& antennaTypes()
{
    static const std::vector<Word> words = {{"active", 2}, {"passive", 1}, {"unknown", 0}};
    return words;
}

const std::vector<Word>& timeReferences()
{
    static const std::vector<Word> words = {{"UTC", 0}, {"GPS", 1}, {"GLO", 2}, {"BDS", 3}, {"GAL", 4}};
    return words;
}

const std::vector<Word>& receiverModes()
{
    static const std::vector<Word> words = {{"CONTINUOUS", 0}, {"POWERSAVE", 1}, {"ECO", 4}};
    return words;
}

constexpr std::size_t kCfgNav5UtcStandard = 30;
constexpr std::uint32_t kUtcStandardItem = 0x2011001C;

enum UtcStandard : long
{
    kUtcAuto = 0,
    kUsno = 3,
    kEuropean = 5,
    kRussian = 6,
    kChinese = 7
};

Reading getUtcStandard(Receiver& receiver)
{
    if (receiver.usesItems()) {
        std::map<std::uint32_t, std::uint64_t> values;
        const int status = receiver.items({kUtcStandardItem}, values);
        return status == kDone ? Reading{kDone, static_cast<long>(values[kUtcStandardItem])} : Reading{status};
    }
    const Answer answer = receiver.exchange().ask({UBX_CFG_NAV5});
    if (answer.status != kDone) return {answer.status};
    return {kDone, static_cast<long>(numberAt<std::uint8_t>(answer.payload, kCfgNav5UtcStandard))};
}

/// The constellations alone that the library translates into a UTC standard.
signed char maskOf(long standard)
{
    switch (standard) {
    case kEuropean:
        return 4;
    case kRussian:
        return 64;
    case kChinese:
        return 8;
    default:
        return 1;
    }
}

int setUtcStandard(Receiver& receiver, const Value& value)
{
    const long standard = std::get<long>(value);
    if (standard == kUtcAuto) {
        return receiver.write([](UBXControlInterface& control) { return control.setUtcStandardAuto(); });
    }
    const auto choose = [&](UBXControlInterface& control) { return control.setUtsStandardTime(maskOf(standard)); };
    // By items, the number that goes out is not the one the receiver has for the standard; the message's is.
    return receiver.language() == Language::automatic && receiver.identity().isZedF9t() ? receiver.inMessages(choose)
                                                                                        : receiver.write(choose);
}

Reading getDynamicModel(Receiver& receiver)
{
    unsigned char model = 0, fixMode = 0;
    const int status = receiver.control().getDynamicModel(model, fixMode);
    return status == kDone ? Reading{kDone, static_cast<long>(model)} : Reading{status};
}

Reading getFixMode(Receiver& receiver)
{
    unsigned char model = 0, fixMode = 0;
    const int status = receiver.control().getDynamicModel(model, fixMode);
    return status == kDone ? Reading{kDone, static_cast<long>(fixMode)} : Reading{status};
}

using Control = UBXControlInterface;

} // namespace

const std::vector<Setting>& allSettings()
{
    static const std::vector<Setting> settings = {
        {"constellations",
         "constellations",
         "Constellations",
         "satellite systems that are used, such as GPS,GAL,GLO",
         Format::constellations(),
         getNumber<unsigned short, &Control::getGnssSystem>,
         setNumber<unsigned short, &Control::setGnssSystem>,
         {"cable-delay"}}, // the time pulses are set along with them, and their message holds a delay of 0
        {"antenna-type",
         "antenna_type",
         "Antenna type",
         "of the interference monitor",
         Format::word(antennaTypes()),
         getWord<antennaTypes, &Control::getAntennaType>,
         setWord<antennaTypes, &Control::setAntennaType>,
         {"jamming-detection"}}, // its message holds a byte that the NEO-M8T's detection is read from
        {"jamming-detection", "jamming_detection", "Jamming detection", "whether interference is looked for",
         Format::word({{"off", 0}, {"on", 1}}), getNumber<bool, &Control::getJammingDetection>,
         setNumber<bool, &Control::setJammingDetection>},
        {"cable-delay", "cable_delay_ns", "Antenna cable delay", "that the time pulse makes up for",
         Format::number({-32768, 32767}, "ns"), getNumber<int, &Control::getAntennaDelay>,
         setNumber<int, &Control::setAntennaDelay>},
        {"min-cno", "min_cno_dbhz", "Lowest C/N0", "signal level below which a satellite is not used",
         Format::number({0, 50}, "dBHz"), getNumber<signed char, &Control::getMinCNo>,
         setNumber<signed char, &Control::setMinCNo>},
        {"elevation", "elevation_deg", "Lowest elevation",
         "height above the horizon below which a satellite is not used", Format::number({5, 60}, "deg"),
         getNumber<unsigned char, &Control::getElevationLimit>, setNumber<unsigned char, &Control::setElevationLimit>},
        {"dynamic-model", "dynamic_model", "Dynamic model", "how the antenna moves",
         Format::word({{"portable", 0},
                       {"stationary", 2},
                       {"pedestrian", 3},
                       {"automotive", 4},
                       {"sea", 5},
                       {"airborne-1g", 6},
                       {"airborne-2g", 7},
                       {"airborne-4g", 8},
                       {"wrist", 9},
                       {"bike", 10}}),
         getDynamicModel, setNumber<unsigned char, &Control::setDynamicModel>},
        {"fix-mode", "fix_mode", "Fix mode", "whether the height is computed",
         Format::word({{"2D", 1}, {"3D", 2}, {"auto", 3}}), getFixMode, setNumber<unsigned char, &Control::setFixMode>},
        {"time-reference", "time_reference", "Time reference", "what measurements are aligned to",
         Format::word(timeReferences()), getWord<timeReferences, &Control::getTimeReference>,
         setWord<timeReferences, &Control::setTimeReference>},
        {"receiver-mode", "receiver_mode", "Receiver mode", "power mode; a ZED-F9T from TIM 2.20 on has none",
         Format::word(receiverModes()), getWord<receiverModes, &Control::getRxMode>,
         setWord<receiverModes, &Control::setRxMode>},
        {"utc-standard", "utc_standard", "UTC standard", "whose UTC; a NEO-M8T can only be set to auto",
         Format::word({{"auto", kUtcAuto}, {"USNO", kUsno}, {"EU", kEuropean}, {"SU", kRussian}, {"NTSC", kChinese}}),
         getUtcStandard, setUtcStandard},
        {"timing-mode", "timing_mode", "Timing mode", "what the receiver does about its own position",
         Format::timingMode(), getTimingMode, setTimingMode},
    };
    return settings;
}

} // namespace ubxctl

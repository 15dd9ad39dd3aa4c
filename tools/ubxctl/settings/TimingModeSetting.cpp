#include "settings/TimingModeSetting.h"

#include <UBXMessage.h>

#include "session/Failure.h"

namespace ubxctl
{

namespace
{

namespace cfgTmode2
{
constexpr std::size_t timeMode = 0, lat = 4, lon = 8, alt = 12, fixedPosAcc = 16, svinMinDur = 20, svinAccLimit = 24;
} // namespace cfgTmode2

namespace key
{
constexpr std::uint32_t mode = 0x20030001, lat = 0x40030009, lon = 0x4003000A, height = 0x4003000B,
                        accuracy = 0x4003000F, duration = 0x40030010, limit = 0x40030011;
} // namespace key

constexpr double kDegreesPerUnit = 1e-7;
constexpr double kMetresPerCentimetre = 1e-2;
constexpr double kMetresPerMillimetre = 1e-3;
constexpr double kMetresPerTenthMillimetre = 1e-4;

/// The fields of either language.
struct Fields
{
    unsigned int mode;
    std::int32_t lat, lon, height;
    std::uint32_t accuracy, duration, limit;
    double metresPerAccuracyUnit;
};

std::optional<Value> timingModeOf(const Fields& fields)
{
    TimingMode mode;
    switch (fields.mode) {
    case 0:
        return mode;
    case 1:
        mode.kind = TimingMode::Kind::survey;
        mode.duration = fields.duration;
        mode.accuracy = fields.limit * fields.metresPerAccuracyUnit;
        return mode;
    case 2:
        mode.kind = TimingMode::Kind::fixed;
        mode.position = {fields.lat * kDegreesPerUnit, fields.lon * kDegreesPerUnit,
                         fields.height * kMetresPerCentimetre};
        mode.accuracy = fields.accuracy * fields.metresPerAccuracyUnit;
        return mode;
    default:
        return std::nullopt;
    }
}

Reading readMessage(Receiver& receiver)
{
    const Answer answer = receiver.exchange().ask({UBX_CFG_TMODE2});
    if (answer.status != kDone) return {answer.status};
    const Bytes& payload = answer.payload;
    return {kDone,
            timingModeOf(
                {numberAt<std::uint8_t>(payload, cfgTmode2::timeMode), numberAt<std::int32_t>(payload, cfgTmode2::lat),
                 numberAt<std::int32_t>(payload, cfgTmode2::lon), numberAt<std::int32_t>(payload, cfgTmode2::alt),
                 numberAt<std::uint32_t>(payload, cfgTmode2::fixedPosAcc),
                 numberAt<std::uint32_t>(payload, cfgTmode2::svinMinDur),
                 numberAt<std::uint32_t>(payload, cfgTmode2::svinAccLimit), kMetresPerMillimetre})};
}

Reading readItems(Receiver& receiver)
{
    std::map<std::uint32_t, std::uint64_t> values;
    const int status =
        receiver.items({key::mode, key::lat, key::lon, key::height, key::accuracy, key::duration, key::limit}, values);
    if (status != kDone) return {status};
    const auto number = [&](std::uint32_t item) { return static_cast<std::uint32_t>(values[item]); };
    return {kDone, timingModeOf({number(key::mode), static_cast<std::int32_t>(number(key::lat)),
                                 static_cast<std::int32_t>(number(key::lon)),
                                 static_cast<std::int32_t>(number(key::height)), number(key::accuracy),
                                 number(key::duration), number(key::limit), kMetresPerTenthMillimetre})};
}

} // namespace

Reading getTimingMode(Receiver& receiver)
{
    return receiver.usesItems() ? readItems(receiver) : readMessage(receiver);
}

int setTimingMode(Receiver& receiver, const Value& value)
{
    constexpr double kWorstByItems = 20; // m; see below
    const auto& mode = std::get<TimingMode>(value);
    const bool byItems =
        receiver.usesItems() && !(mode.kind == TimingMode::Kind::fixed && receiver.language() == Language::automatic &&
                                  mode.accuracy > kWorstByItems);
    const auto operation = [&](UBXControlInterface& control) {
        switch (mode.kind) {
        case TimingMode::Kind::survey:
            return control.setSurveyAuto(mode.duration, static_cast<float>(mode.accuracy));
        case TimingMode::Kind::fixed: {
            // By items, the receiver counts the accuracy in tenths of a millimetre, and it is handed millimetres.
            // It takes 200 m at most, so a worse position than 20 m goes by message.
            const double accuracy = byItems ? mode.accuracy * 10 : mode.accuracy;
            return control.setSurveyStatic(mode.position.latitude, mode.position.longitude, mode.position.height,
                                           accuracy);
        }
        case TimingMode::Kind::dynamic:
            break;
        }
        return control.setSurveyDynamic();
    };
    return byItems ? receiver.write(operation) : receiver.inMessages(operation);
}

} // namespace ubxctl

#include "commands/SettingsReport.h"

#include "session/Failure.h"

namespace ubxctl
{

std::string shownWithUnit(const Setting& setting, const Value& value)
{
    const std::string& unit = setting.format.unit();
    return setting.format.show(value) + (unit.empty() ? "" : " " + unit);
}

int addSetting(Report& report, Receiver& receiver, const Setting& setting)
{
    const Reading reading = setting.get(receiver);
    if (reading.status != kDone) {
        report.missing(setting.label, setting.jsonKey, reading.status == kRefused ? "refused" : "no reply");
    } else if (!reading.value.has_value()) {
        report.missing(setting.label, setting.jsonKey, "not on this receiver");
    } else {
        report.fact(setting.label, setting.jsonKey, setting.format.json(*reading.value),
                    shownWithUnit(setting, *reading.value));
    }
    return reading.status;
}

int addSettings(Report& report, Receiver& receiver)
{
    int status = kDone;
    int unanswered = 0;
    for (const Setting& setting : allSettings()) {
        // One setting may be unknown to a receiver; three in a row that are not answered mean that nobody is there.
        constexpr int kSilent = 3;
        if (unanswered == kSilent) {
            report.missing(setting.label, setting.jsonKey, "not asked for");
            continue;
        }
        const int one = addSetting(report, receiver, setting);
        unanswered = (one & kNoReply) != 0 ? unanswered + 1 : 0;
        status |= one;
    }
    return status;
}

} // namespace ubxctl

#include "apply/Apply.h"

#include <algorithm>
#include <iterator>

#include "commands/SettingsReport.h"
#include "session/Failure.h"

namespace ubxctl
{

namespace
{

struct FateRow
{
    const char* word;
    Tone tone;
};

constexpr FateRow kFates[] = {{"unchanged", Tone::dim}, {"would change", Tone::attention},  {"applied", Tone::good},
                              {"refused", Tone::bad},   {"not confirmed", Tone::attention}, {"no reply", Tone::bad}};

const FateRow& rowOf(Fate fate)
{
    return kFates[static_cast<std::size_t>(fate)];
}

std::string shown(const Setting& setting, const std::optional<Value>& value)
{
    return value.has_value() ? shownWithUnit(setting, *value) : "-";
}

Json jsonOf(const Setting& setting, const std::optional<Value>& value)
{
    return value.has_value() ? setting.format.json(*value) : Json();
}

bool isAsWanted(const WantedSetting& wanted, const std::optional<Value>& value)
{
    return value.has_value() && wanted.setting->format.same(*value, wanted.value);
}

void writeOne(Receiver& receiver, Difference& difference)
{
    const Change result = change(receiver, *difference.wanted.setting, difference.wanted.value);
    difference.status = result.status;
    difference.after = result.holds;
    if (isAsWanted(difference.wanted, result.holds)) {
        difference.fate = Fate::applied;
    } else if ((result.status & (kNoReply | kNotWritten)) != 0) {
        difference.fate = Fate::notConfirmed;
    } else {
        difference.fate = Fate::refused;
        difference.status |= kRefused;
    }
}

/// Settings that came out right and were changed again by a later one.
void lookOnceMore(Receiver& receiver, Difference& difference)
{
    if (difference.fate != Fate::unchanged && difference.fate != Fate::applied) return;
    const Reading now = difference.wanted.setting->get(receiver);
    difference.after = now.value;
    difference.status |= now.status;
    if (now.status != kDone) {
        difference.fate = Fate::notConfirmed;
    } else if (!isAsWanted(difference.wanted, now.value)) {
        writeOne(receiver, difference);
    }
}

} // namespace

const char* wordFor(Fate fate)
{
    return rowOf(fate).word;
}

std::vector<Difference> compare(Receiver& receiver, const std::vector<WantedSetting>& wanted)
{
    std::vector<Difference> differences;
    for (const WantedSetting& one : wanted) {
        const Reading reading = one.setting->get(receiver);
        Difference difference{one, reading.value, reading.value};
        difference.status = reading.status;
        if (reading.status != kDone) {
            difference.fate = (reading.status & (kNoReply | kNotWritten)) != 0 ? Fate::noReply : Fate::refused;
        } else if (!reading.value.has_value()) {
            difference.fate = Fate::refused;
            difference.status = kRefused;
        } else {
            difference.fate = isAsWanted(one, reading.value) ? Fate::unchanged : Fate::different;
        }
        differences.push_back(difference);
    }
    return differences;
}

void apply(Receiver& receiver, std::vector<Difference>& differences)
{
    bool written = false;
    for (Difference& difference : differences) {
        if (difference.fate != Fate::different) continue;
        writeOne(receiver, difference);
        written = true;
    }
    if (!written) return;
    for (Difference& difference : differences)
        lookOnceMore(receiver, difference);
}

Outcome reportOf(const std::vector<Difference>& differences, bool dryRun)
{
    Outcome outcome{Report("apply")};
    std::vector<std::vector<Cell>> rows;
    Json objects = Json::array();
    for (const Difference& difference : differences) {
        const Setting& setting = *difference.wanted.setting;
        const FateRow& fate = rowOf(difference.fate);
        rows.push_back({setting.key,
                        shown(setting, difference.before),
                        shown(setting, difference.wanted.value),
                        {fate.word, fate.tone}});
        objects.push_back({{"setting", setting.key},
                           {"before", jsonOf(setting, difference.before)},
                           {"wanted", jsonOf(setting, difference.wanted.value)},
                           {"after", jsonOf(setting, difference.after)},
                           {"result", fate.word},
                           {"status", difference.status}});
        outcome.status |= difference.status;
    }
    outcome.report.data("dry_run", dryRun);
    if (differences.empty()) outcome.report.line(Cell("There is no setting in the file.", Tone::attention));
    outcome.report.table("settings", {{"SETTING"}, {"WAS"}, {"WANTED"}, {"RESULT"}}, std::move(rows),
                         std::move(objects));

    const auto bad = std::find_if(differences.begin(), differences.end(),
                                  [](const Difference& difference) { return difference.status != kDone; });
    if (bad != differences.end()) {
        outcome.advice = std::string(bad->wanted.setting->key) + ": " + wordFor(bad->fate) +
                         ((bad->status & (kNoReply | kNotWritten)) != 0
                              ? "; try: ubxctl doctor, then apply the file again"
                              : "; the receiver does not take this value, or has no such setting");
    }
    return outcome;
}

} // namespace ubxctl

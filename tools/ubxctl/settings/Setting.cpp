#include "settings/Setting.h"

#include "session/Failure.h"

namespace ubxctl
{

const Setting* findSetting(std::string_view key)
{
    for (const Setting& setting : allSettings()) {
        if (key == setting.key) return &setting;
    }
    return nullptr;
}

Change change(Receiver& receiver, const Setting& setting, const Value& value)
{
    Preserved others(receiver, setting.disturbs);
    Change result{setting.set(receiver, value)};

    // A receiver that is silent or can't be reached is not asked again.
    if ((result.status & (kNoReply | kNotWritten)) == 0) {
        const Reading back = setting.get(receiver);
        result.holds = back.value;
        result.status |= back.status;
        if (back.status == kDone && !(back.value.has_value() && setting.format.same(*back.value, value))) {
            result.status |= kRefused;
        }
        result.status |= others.restore();
    }
    return result;
}

Preserved::Preserved(Receiver& receiver, const std::vector<const char*>& keys) : receiver_(receiver)
{
    for (const char* key : keys) {
        const Setting* const setting = findSetting(key);
        const Reading before = setting->get(receiver);
        if (before.status == kDone && before.value.has_value()) values_.emplace_back(setting, *before.value);
    }
}

int Preserved::restore()
{
    int status = kDone;
    for (const auto& [setting, value] : values_) {
        const Reading now = setting->get(receiver_);
        status |= now.status;
        if (now.value.has_value() && !setting->format.same(*now.value, value)) {
            status |= change(receiver_, *setting, value).status;
        }
    }
    return status;
}

} // namespace ubxctl

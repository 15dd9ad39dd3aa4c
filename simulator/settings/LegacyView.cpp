#include "simulator/settings/LegacyView.h"

#include "simulator/wire/LittleEndian.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

constexpr std::uint64_t kHighestU4 = 0xFFFFFFFF;

std::uint64_t lowBits(std::uint8_t bits)
{
    return bits >= 64 ? ~std::uint64_t{0} : (std::uint64_t{1} << bits) - 1;
}

std::uint64_t fieldOf(const LegacyField& field, const Bytes& payload)
{
    return getBytes(payload, field.offset, field.width) >> field.shift & lowBits(field.bits);
}

bool isMasked(LegacyRule rule)
{
    return rule == LegacyRule::maskAtOffset0 || rule == LegacyRule::maskAtOffset2;
}

bool isChosen(const LegacyMessage& message, const LegacyField& field, const Bytes& payload)
{
    if (isMasked(message.rule)) {
        const std::size_t maskOffset = message.rule == LegacyRule::maskAtOffset0 ? 0 : 2;
        return field.maskBit >= 0 && (getBytes(payload, maskOffset, 2) >> field.maskBit & 1) != 0;
    }
    const LegacyField& mode = message.fields.front();
    return message.rule != LegacyRule::modeOnlyWhenOff || &field == &mode || fieldOf(mode, payload) != 0;
}

// The value that a setting will have: from the changes made so far, else from the store.
std::uint64_t valueAfter(const Changes& changes, const SettingsStore& store, Key key)
{
    const auto found =
        std::find_if(changes.rbegin(), changes.rend(), [key](const auto& change) { return change.first == key; });
    return found != changes.rend() ? found->second : store.get(key);
}

} // namespace

const LegacyMessage* findLegacyMessage(const ModelProfile& profile, std::uint16_t classId, std::uint8_t index)
{
    for (const LegacyMessage& message : legacyTable()) {
        const Generations who = profile.strictLegacy ? message.strict : message.generations;
        if (message.classId == classId && message.index == index && (who & profile.generations) != 0) {
            return &message;
        }
    }
    return nullptr;
}

Bytes readLegacy(const LegacyMessage& message, const SettingsStore& store)
{
    Bytes payload(message.size);
    for (const LegacyConstant& constant : message.constants) {
        putBytes(payload, constant.offset, constant.value, constant.width);
    }
    for (const LegacyField& field : message.fields) {
        if (field.whenKey != 0 && store.get(field.whenKey) != field.whenValue) {
            continue;
        }
        const std::uint64_t value = store.get(field.key) / field.unitsPerField & lowBits(field.bits);
        const std::uint64_t others =
            getBytes(payload, field.offset, field.width) & ~(lowBits(field.bits) << field.shift);
        putBytes(payload, field.offset, others | value << field.shift, field.width);
    }
    return payload;
}

std::optional<Changes> legacyChanges(const LegacyMessage& message, const SettingsStore& store, const Bytes& payload)
{
    if (payload.size() != message.size && (message.otherSize == 0 || payload.size() != message.otherSize)) {
        return std::nullopt;
    }
    for (const LegacyConstant& constant : message.constants) {
        if (constant.required && getBytes(payload, constant.offset, constant.width) != constant.value) {
            return std::nullopt;
        }
    }
    Changes changes;
    for (const LegacyField& field : message.fields) {
        const bool applies = field.whenKey == 0 || valueAfter(changes, store, field.whenKey) == field.whenValue;
        if (applies && isChosen(message, field, payload)) {
            std::uint64_t value = fieldOf(field, payload) * field.unitsPerField;
            if (field.unitsPerField != 1) {
                value = std::min(value, kHighestU4);
            }
            changes.emplace_back(field.key, value);
        }
    }
    if (!areValid(changes, store)) {
        return std::nullopt;
    }
    return changes;
}

bool areValid(const Changes& changes, const SettingsStore& store)
{
    return std::all_of(changes.begin(), changes.end(),
                       [&](const auto& change) { return store.isValid(change.first, change.second); });
}

} // namespace ubxsim

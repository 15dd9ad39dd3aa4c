#include "simulator/settings/SettingsStore.h"

namespace ubxsim
{

namespace
{

constexpr std::uint32_t kInfoMessageGroup = 0x092;

std::uint64_t cut(Key key, std::uint64_t value)
{
    const std::size_t width = widthOf(key);
    return width >= 8 ? value : value & ((std::uint64_t{1} << (8 * width)) - 1);
}

} // namespace

SettingsStore::SettingsStore(const ModelProfile& profile, bool quiet)
{
    for (const KeyRow& row : keyTable()) {
        if ((row.generations & profile.generations) != 0) {
            const bool silenced = quiet && groupOf(row.key) == kInfoMessageGroup;
            add(row.key, silenced ? 0 : row.defaultFor(profile.generations), row.validValues);
        }
    }
    for (const RateRow& row : rateTable()) {
        if ((row.generations & profile.generations) != 0) {
            const bool on = !quiet && (row.onByDefault & profile.generations) != 0;
            for (Key port = 0; port < kPorts; ++port) {
                add(row.firstKey + port, on ? 1 : 0, 0);
            }
        }
    }
}

void SettingsStore::add(Key key, std::uint64_t factory, std::uint64_t validValues)
{
    Item item;
    item.factory = factory;
    item.ram = factory;
    item.validValues = isOneBit(key) ? 3 : validValues;
    items_.emplace(key, item);
}

bool SettingsStore::isValid(Key key, std::uint64_t value) const
{
    const auto found = items_.find(key);
    if (found == items_.end()) {
        return false;
    }
    const std::uint64_t valid = found->second.validValues;
    return valid == 0 || (value < 64 && (valid >> value & 1) != 0);
}

std::uint64_t SettingsStore::get(Key key) const
{
    return stored(Layer::ram, key).value_or(0);
}

std::optional<std::uint64_t> SettingsStore::stored(Layer layer, Key key) const
{
    const auto found = items_.find(key);
    if (found == items_.end()) {
        return std::nullopt;
    }
    const Item& item = found->second;
    switch (layer) {
    case Layer::ram:
        return item.ram;
    case Layer::batteryBacked:
        return item.batteryBacked;
    case Layer::flash:
        return item.flash;
    case Layer::factory:
        return item.factory;
    }
    return std::nullopt;
}

void SettingsStore::set(Layer layer, Key key, std::uint64_t value)
{
    const auto found = items_.find(key);
    if (found == items_.end()) {
        return;
    }
    switch (layer) {
    case Layer::ram:
        found->second.ram = cut(key, value);
        break;
    case Layer::batteryBacked:
        found->second.batteryBacked = cut(key, value);
        break;
    case Layer::flash:
        found->second.flash = cut(key, value);
        break;
    case Layer::factory:
        break;
    }
}

void SettingsStore::remove(Layer layer, Key key)
{
    const auto found = items_.find(key);
    if (found == items_.end()) {
        return;
    }
    if (layer == Layer::batteryBacked) {
        found->second.batteryBacked.reset();
    } else if (layer == Layer::flash) {
        found->second.flash.reset();
    }
}

std::vector<Key> SettingsStore::allKeys() const
{
    std::vector<Key> keys;
    for (const auto& entry : items_) {
        keys.push_back(entry.first);
    }
    return keys;
}

std::vector<Key> SettingsStore::publishedKeys() const
{
    std::vector<Key> keys;
    for (const auto& entry : items_) {
        if (!isPrivate(entry.first)) {
            keys.push_back(entry.first);
        }
    }
    return keys;
}

} // namespace ubxsim

#pragma once

#include "simulator/settings/KeyTable.h"

#include <map>
#include <optional>

namespace ubxsim
{

/// Where a setting is kept besides the RAM.
enum class Layer
{
    ram,
    batteryBacked,
    flash,
    factory
};

/// The one store of settings behind every message. RAM counts; the others fill it when the receiver starts.
class SettingsStore
{
public:
    /// `quiet` receivers put nothing out on their own until told to.
    SettingsStore(const ModelProfile& profile, bool quiet);

    bool has(Key key) const { return items_.count(key) != 0; }
    bool isValid(Key key, std::uint64_t value) const;

    /// The value in RAM; 0 for a key that this receiver lacks.
    std::uint64_t get(Key key) const;
    std::optional<std::uint64_t> stored(Layer layer, Key key) const;

    /// Writes one layer; a value is cut to the width of its key. Unknown keys are ignored.
    void set(Layer layer, Key key, std::uint64_t value);
    void remove(Layer layer, Key key);

    /// RAM as after a start: factory values under flash under battery-backed RAM. Only the keys that `wanted` accepts.
    template <typename Predicate>
    void load(Predicate wanted)
    {
        for (auto& [key, item] : items_) {
            if (wanted(key)) {
                item.ram = item.batteryBacked.value_or(item.flash.value_or(item.factory));
            }
        }
    }

    /// The published keys in ascending order.
    std::vector<Key> publishedKeys() const;
    /// All keys, in ascending order.
    std::vector<Key> allKeys() const;

private:
    struct Item
    {
        std::uint64_t factory = 0;
        std::uint64_t ram = 0;
        std::optional<std::uint64_t> batteryBacked;
        std::optional<std::uint64_t> flash;
        std::uint64_t validValues = 0;
    };

    void add(Key key, std::uint64_t factory, std::uint64_t validValues);

    std::map<Key, Item> items_;
};

} // namespace ubxsim

#include "simulator/settings/ConfigurationInterface.h"

#include "simulator/wire/LittleEndian.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

constexpr std::uint16_t kValGet = 0x068B;
constexpr std::size_t kHeaderSize = 4;
constexpr std::size_t kKeySize = 4;
constexpr std::size_t kMostItems = 64; // in one message, either way

constexpr std::uint8_t kRamBit = 1;
constexpr std::uint8_t kBatteryBackedBit = 2;
constexpr std::uint8_t kFlashBit = 4;

std::optional<Layer> layerOf(std::uint8_t number)
{
    switch (number) {
    case 0:
        return Layer::ram;
    case 1:
        return Layer::batteryBacked;
    case 2:
        return Layer::flash;
    case 7:
        return Layer::factory;
    default:
        return std::nullopt;
    }
}

// 0xGGGGFFFF stands for a group; 0x0FFF0000 and 0x0FFFFFFF for everything. The size bits don't matter.
bool isWildcard(Key key)
{
    return (key & 0xFFFF) == 0xFFFF || groupOf(key) == 0xFFF;
}

bool matches(Key wildcard, Key key)
{
    return groupOf(wildcard) == 0xFFF || groupOf(wildcard) == groupOf(key);
}

} // namespace

ConfigurationInterface::ConfigurationInterface(SettingsStore& store, std::function<bool(const Changes&)> isLegal)
    : store_(store), isLegal_(std::move(isLegal))
{}

Answer ConfigurationInterface::get(const Bytes& payload) const
{
    const auto layer = payload.size() >= kHeaderSize ? layerOf(payload[1]) : std::nullopt;
    const std::size_t requested = payload.size() < kHeaderSize ? 0 : (payload.size() - kHeaderSize) / kKeySize;
    if (!layer || payload[0] != 0 || (payload.size() - kHeaderSize) % kKeySize != 0 || requested > kMostItems ||
        requested == 0) {
        return Answer::refused();
    }

    std::vector<Key> keys;
    for (std::size_t i = 0; i < requested; ++i) {
        const auto asked = ubxsim::get<Key>(payload, kHeaderSize + kKeySize * i);
        if (isWildcard(asked)) {
            const std::vector<Key> all = store_.publishedKeys();
            std::copy_if(all.begin(), all.end(), std::back_inserter(keys),
                         [&](Key key) { return matches(asked, key); });
        } else if (isPrivate(asked) || !store_.has(asked)) {
            return Answer::refused();
        } else {
            keys.push_back(asked);
        }
    }
    keys.erase(std::remove_if(keys.begin(), keys.end(), [&](Key key) { return !store_.stored(*layer, key); }),
               keys.end());

    const std::size_t position = ubxsim::get<std::uint16_t>(payload, 2);
    if (position >= keys.size()) {
        return Answer::refused();
    }
    Bytes reply = {1, payload[1], payload[2], payload[3]};
    for (std::size_t i = position; i < std::min(keys.size(), position + kMostItems); ++i) {
        append(reply, keys[i]);
        const std::size_t at = reply.size();
        reply.resize(at + widthOf(keys[i]));
        putBytes(reply, at, *store_.stored(*layer, keys[i]), widthOf(keys[i]));
    }
    return Answer::acked({kValGet, reply});
}

Answer ConfigurationInterface::set(const Bytes& payload)
{
    if (payload.size() < kHeaderSize || payload[0] > 1) {
        cancelTransaction();
        return Answer::refused();
    }
    Changes changes;
    for (std::size_t at = kHeaderSize; at < payload.size();) {
        const auto key = ubxsim::get<Key>(payload, at);
        const std::size_t width = widthOf(key);
        if (isPrivate(key) || !store_.has(key) || at + kKeySize + width > payload.size()) {
            cancelTransaction();
            return Answer::refused();
        }
        changes.emplace_back(key, getBytes(payload, at + kKeySize, width));
        at += kKeySize + width;
    }
    const std::uint8_t step = payload[0] == 1 ? payload[2] & 3 : 0;
    return carryOut(static_cast<Step>(step), false, payload[1], std::move(changes));
}

Answer ConfigurationInterface::remove(const Bytes& payload)
{
    if (payload.size() < kHeaderSize || payload[0] > 1 || (payload.size() - kHeaderSize) % kKeySize != 0 ||
        (payload[1] & kRamBit) != 0) {
        cancelTransaction();
        return Answer::refused();
    }
    Changes changes;
    for (std::size_t at = kHeaderSize; at < payload.size(); at += kKeySize) {
        const auto key = ubxsim::get<Key>(payload, at);
        if (isPrivate(key) || !store_.has(key)) {
            cancelTransaction();
            return Answer::refused();
        }
        changes.emplace_back(key, 0);
    }
    const std::uint8_t step = payload[0] == 1 ? payload[2] & 3 : 0;
    return carryOut(static_cast<Step>(step), true, payload[1], std::move(changes));
}

void ConfigurationInterface::cancelTransaction()
{
    transaction_ = {};
}

// Values are judged only when RAM is written.
bool ConfigurationInterface::mayApply(std::uint8_t layers, const Changes& changes) const
{
    return (layers & kRamBit) == 0 || (areValid(changes, store_) && isLegal_(changes));
}

Answer ConfigurationInterface::carryOut(Step step, bool removes, std::uint8_t layers, Changes changes)
{
    constexpr std::uint8_t kLayers = kRamBit | kBatteryBackedBit | kFlashBit;
    const bool continues = step == Step::proceed || step == Step::finish;
    const bool fits =
        !continues || (transaction_.open && transaction_.layers == layers && transaction_.removes == removes);
    if ((layers & kLayers) == 0 || (layers & ~kLayers) != 0 || changes.size() > kMostItems || !fits) {
        cancelTransaction();
        return Answer::refused();
    }
    if (step == Step::start || step == Step::none) {
        cancelTransaction();
    }
    changes.insert(changes.begin(), transaction_.changes.begin(), transaction_.changes.end());
    if (!removes && !mayApply(layers, changes)) {
        cancelTransaction();
        return Answer::refused();
    }
    if (step == Step::start || step == Step::proceed) {
        transaction_ = {true, removes, layers, std::move(changes)};
        return Answer::acked();
    }
    cancelTransaction();
    apply(removes, layers, changes);
    return Answer::acked();
}

void ConfigurationInterface::apply(bool removes, std::uint8_t layers, const Changes& changes)
{
    const std::pair<std::uint8_t, Layer> targets[] = {
        {kRamBit, Layer::ram}, {kBatteryBackedBit, Layer::batteryBacked}, {kFlashBit, Layer::flash}};
    for (const auto& [bit, layer] : targets) {
        if ((layers & bit) == 0) {
            continue;
        }
        for (const auto& [key, value] : changes) {
            if (removes) {
                store_.remove(layer, key);
            } else {
                store_.set(layer, key, value);
            }
        }
    }
}

} // namespace ubxsim

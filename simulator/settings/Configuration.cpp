#include "simulator/settings/Configuration.h"

#include "simulator/settings/GnssBlocks.h"
#include "simulator/settings/LegacyView.h"
#include "simulator/wire/LittleEndian.h"

#include <algorithm>

namespace ubxsim
{

namespace
{

constexpr std::uint16_t kCfgPrt = 0x0600;
constexpr std::uint16_t kCfgMsg = 0x0601;
constexpr std::uint16_t kCfgInf = 0x0602;
constexpr std::uint16_t kCfgCfg = 0x0609;
constexpr std::uint16_t kCfgTp5 = 0x0631;
constexpr std::uint16_t kCfgGnss = 0x063E;
constexpr std::uint16_t kCfgValSet = 0x068A;
constexpr std::uint16_t kCfgValGet = 0x068B;
constexpr std::uint16_t kCfgValDel = 0x068C;

// Which section of CFG-CFG a group of keys belongs to.
struct Section
{
    std::uint32_t firstGroup;
    std::uint32_t lastGroup;
    std::uint32_t bit;
};

constexpr Section kSections[] = {
    {0x051, 0x053, 0}, {0x071, 0x07A, 0},                                       // ports
    {0x091, 0x091, 1},                                                          // messages
    {0x092, 0x092, 2},                                                          // information messages
    {0x003, 0x003, 3}, {0x011, 0x011, 3}, {0x021, 0x021, 3}, {0x025, 0x025, 3}, // navigation
    {0x005, 0x005, 4}, {0x031, 0x031, 4}, {0x034, 0x034, 4}, {0x036, 0x036, 4},
    {0x041, 0x041, 4}, {0x0D0, 0x0D0, 4}, // receiver manager
};

bool isIn(Key key, std::uint32_t sections)
{
    return std::any_of(std::begin(kSections), std::end(kSections), [&](const Section& section) {
        return groupOf(key) >= section.firstGroup && groupOf(key) <= section.lastGroup &&
               (sections >> section.bit & 1) != 0;
    });
}

constexpr std::uint8_t kBatteryBackedDevice = 0x01;
constexpr std::uint8_t kFlashDevices = 0x02 | 0x10; // flash and SPI flash

const RateRow* findRate(const SettingsStore& store, std::uint16_t classId)
{
    for (const RateRow& row : rateTable()) {
        if (row.classId == classId && store.has(row.firstKey)) {
            return &row;
        }
    }
    return nullptr;
}

// From TIM 2.20 on nobody has seen CFG-GNSS answered.
bool lacksGnss(const ModelProfile& profile)
{
    return profile.strictLegacy && (profile.generations & kF9tTim22) != 0;
}

constexpr std::uint8_t kUbxProtocol = 0;
constexpr std::uint8_t kNmeaProtocol = 1;
constexpr std::size_t kInfBlockSize = 10;

Key informationKey(std::uint8_t protocol, std::size_t port)
{
    return static_cast<Key>((protocol == kUbxProtocol ? 0x20920001U : 0x20920006U) + port);
}

} // namespace

Configuration::Configuration(const ModelProfile& profile, Port port, bool quiet)
    : profile_(profile),
      port_(port),
      store_(profile, quiet),
      interface_(store_, [this](const Changes& changes) { return isLegalCombination(profile_, store_, changes); })
{}

bool Configuration::isPoll(const Frame& request)
{
    switch (request.classId) {
    case kCfgMsg:
        return request.payload.size() == 2;
    case kCfgPrt:
    case kCfgInf:
    case kCfgTp5:
        return request.payload.size() <= 1;
    case kCfgValGet:
        return true;
    default:
        return request.payload.empty();
    }
}

Answer Configuration::handle(const Frame& request)
{
    if (profile_.configurationInterface) {
        switch (request.classId) {
        case kCfgValGet:
            return interface_.get(request.payload);
        case kCfgValSet:
            return interface_.set(request.payload);
        case kCfgValDel:
            return interface_.remove(request.payload);
        default:
            interface_.cancelTransaction();
        }
    }
    if (isPoll(request)) {
        return poll(request);
    }
    switch (request.classId) {
    case kCfgMsg:
        return setMessageRate(request.payload);
    case kCfgInf:
        return setInformation(request.payload);
    case kCfgCfg:
        return saveLoadClear(request.payload);
    default:
        break;
    }
    const auto changes = changesOf(request);
    if (!changes) {
        return Answer::refused();
    }
    for (const auto& [key, value] : *changes) {
        store_.set(Layer::ram, key, value);
    }
    return Answer::acked();
}

std::optional<Changes> Configuration::changesOf(const Frame& request) const
{
    if (request.classId == kCfgPrt) {
        return portChanges(store_, request.payload);
    }
    if (request.classId == kCfgGnss) {
        return lacksGnss(profile_) ? std::nullopt : gnssChanges(profile_, store_, request.payload);
    }
    const std::uint8_t index = request.classId == kCfgTp5 ? request.payload[0] : std::uint8_t{0};
    const LegacyMessage* message = findLegacyMessage(profile_, request.classId, index);
    return message != nullptr ? legacyChanges(*message, store_, request.payload) : std::nullopt;
}

std::optional<Bytes> Configuration::read(std::uint16_t classId, std::uint8_t index) const
{
    if (classId == kCfgPrt) {
        const auto port = static_cast<Port>(index);
        return hasPort(store_, port) ? std::optional<Bytes>(readPort(store_, port)) : std::nullopt;
    }
    if (classId == kCfgGnss) {
        return lacksGnss(profile_) ? std::nullopt : std::optional<Bytes>(readGnss(profile_, store_));
    }
    if (classId == kCfgInf) {
        if (index > kNmeaProtocol) {
            return std::nullopt;
        }
        Bytes payload = {index, 0, 0, 0};
        for (std::size_t port = 0; port < kPorts; ++port) {
            append(payload, static_cast<std::uint8_t>(store_.get(informationKey(index, port))));
        }
        append(payload, std::uint8_t{0});
        return payload;
    }
    const LegacyMessage* message = findLegacyMessage(profile_, classId, index);
    return message != nullptr ? std::optional<Bytes>(readLegacy(*message, store_)) : std::nullopt;
}

Answer Configuration::poll(const Frame& request) const
{
    if (request.classId == kCfgMsg) {
        return pollMessageRate(request.payload);
    }
    const std::uint8_t byDefault = request.classId == kCfgPrt ? static_cast<std::uint8_t>(port_) : std::uint8_t{0};
    const auto payload = read(request.classId, request.payload.empty() ? byDefault : request.payload[0]);
    return payload ? Answer::acked({request.classId, *payload}) : Answer::refused();
}

Answer Configuration::pollMessageRate(const Bytes& payload) const
{
    const auto reply = readMessageRates(static_cast<std::uint16_t>(payload[0] << 8 | payload[1]));
    return reply ? Answer::acked({kCfgMsg, *reply}) : Answer::refused();
}

std::optional<Bytes> Configuration::readMessageRates(std::uint16_t classId) const
{
    const RateRow* row = findRate(store_, classId);
    if (row == nullptr) {
        return std::nullopt;
    }
    Bytes payload = {static_cast<std::uint8_t>(classId >> 8), static_cast<std::uint8_t>(classId & 0xFF)};
    for (Key port = 0; port < kPorts; ++port) {
        append(payload, static_cast<std::uint8_t>(store_.get(row->firstKey + port)));
    }
    append(payload, std::uint8_t{0});
    return payload;
}

Answer Configuration::setMessageRate(const Bytes& payload)
{
    constexpr std::size_t kCurrentPortSize = 3;
    constexpr std::size_t kAllPortsSize = 8;
    if (payload.size() != kCurrentPortSize && payload.size() != kAllPortsSize) {
        return Answer::refused();
    }
    const RateRow* row = findRate(store_, static_cast<std::uint16_t>(payload[0] << 8 | payload[1]));
    if (row == nullptr) {
        return Answer::refused();
    }
    if (payload.size() == kCurrentPortSize) {
        store_.set(Layer::ram, row->firstKey + static_cast<Key>(port_), payload[2]);
    } else {
        for (Key port = 0; port < kPorts; ++port) {
            store_.set(Layer::ram, row->firstKey + port, payload[2 + port]);
        }
    }
    return Answer::acked();
}

std::uint64_t Configuration::outputRate(std::uint16_t classId) const
{
    const RateRow* row = findRate(store_, classId);
    return row != nullptr ? store_.get(row->firstKey + static_cast<Key>(port_)) : 0;
}

Answer Configuration::setInformation(const Bytes& payload)
{
    if (payload.size() % kInfBlockSize != 0) {
        return Answer::refused();
    }
    for (std::size_t at = 0; at < payload.size(); at += kInfBlockSize) {
        if (payload[at] > kNmeaProtocol) {
            return Answer::refused();
        }
    }
    for (std::size_t at = 0; at < payload.size(); at += kInfBlockSize) {
        for (std::size_t port = 0; port < kPorts; ++port) {
            store_.set(Layer::ram, informationKey(payload[at], port), payload[at + 4 + port]);
        }
    }
    return Answer::acked();
}

Answer Configuration::saveLoadClear(const Bytes& payload)
{
    constexpr std::size_t kSizeWithoutDevices = 12;
    constexpr std::size_t kSizeWithDevices = 13;
    if (payload.size() != kSizeWithoutDevices && payload.size() != kSizeWithDevices) {
        return Answer::refused();
    }
    const auto sections = [&](std::size_t offset) {
        const auto mask = get<std::uint32_t>(payload, offset);
        return profile_.anyCfgCfgBitMeansAll && mask != 0 ? 0xFFFFFFFF : mask;
    };
    const std::uint8_t devices =
        payload.size() == kSizeWithDevices ? payload[12] : std::uint8_t{kBatteryBackedDevice | kFlashDevices};

    const std::uint32_t clear = sections(0);
    for (const Key key : store_.allKeys()) {
        if (isIn(key, clear)) {
            if ((devices & kBatteryBackedDevice) != 0) {
                store_.remove(Layer::batteryBacked, key);
            }
            if ((devices & kFlashDevices) != 0) {
                store_.remove(Layer::flash, key);
            }
        }
    }
    save(sections(4), devices);
    if (powerLost_) {
        return Answer::silence();
    }
    const std::uint32_t load = sections(8);
    store_.load([load](Key key) { return isIn(key, load); });
    return Answer::acked();
}

void Configuration::save(std::uint32_t sections, std::uint8_t devices)
{
    std::vector<Key> keys;
    for (const Key key : store_.allKeys()) {
        if (isIn(key, sections)) {
            keys.push_back(key);
        }
    }
    if (losePowerInSave_ && !keys.empty()) {
        losePowerInSave_ = false;
        powerLost_ = true;
        keys.resize(keys.size() / 2);
    }
    for (const Key key : keys) {
        if ((devices & kBatteryBackedDevice) != 0) {
            store_.set(Layer::batteryBacked, key, store_.get(key));
        }
        if ((devices & kFlashDevices) != 0) {
            store_.set(Layer::flash, key, store_.get(key));
        }
    }
}

bool Configuration::takePowerLoss()
{
    return std::exchange(powerLost_, false);
}

void Configuration::loadAll()
{
    interface_.cancelTransaction();
    store_.load([](Key) { return true; });
}

void Configuration::forgetBatteryBacked()
{
    for (const Key key : store_.allKeys()) {
        store_.remove(Layer::batteryBacked, key);
    }
}

} // namespace ubxsim

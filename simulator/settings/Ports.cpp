#include "simulator/settings/Ports.h"

#include "simulator/wire/LittleEndian.h"

#include <algorithm>
#include <array>

namespace ubxsim
{

namespace
{

constexpr std::size_t kPortPayload = 20;

struct ProtocolBit
{
    std::uint16_t mask;
    Key number; // within the key group of the port and direction
};

constexpr std::array<ProtocolBit, 4> kProtocols = {{{kUbxBit, 0x10000001},
                                                    {kNmeaBit, 0x10000002},
                                                    {0x04, 0x90000003}, // RTCM 2: no published key
                                                    {0x20, 0x10000004}}};

constexpr std::array<std::uint32_t, 9> kLineSpeeds = {4800, 9600, 19200, 38400, 57600, 115200, 230400, 460800, 921600};

// CFG-I2CINPROT is group 0x071, CFG-I2COUTPROT 0x072, and so on through the ports.
Key protocolKey(const ProtocolBit& protocol, Port port, Direction direction)
{
    const Key group = 0x071 + 2 * static_cast<Key>(port) + (direction == Direction::out ? 1 : 0);
    return protocol.number | group << 16;
}

bool isUart(Port port)
{
    return port == Port::uart1 || port == Port::uart2;
}

Key uartKey(Key numberAndSize, Port port)
{
    return numberAndSize | (port == Port::uart1 ? 0x00520000U : 0x00530000U);
}

// One row per value: what the key holds and what CFG-PRT's mode field holds in its place.
struct ModeValue
{
    std::uint64_t keyValue;
    std::uint32_t modeValue;
};

struct ModeField
{
    Key key;
    std::uint8_t shift;
    std::uint32_t bits;
    std::array<ModeValue, 4> values;
};

constexpr std::array<ModeField, 3> kModeFields = {{
    {0x20000003, 6, 0x3, {{{0, 3}, {1, 2}, {0, 3}, {1, 2}}}},  // data bits
    {0x20000004, 9, 0x7, {{{0, 4}, {0, 5}, {1, 1}, {2, 0}}}},  // parity
    {0x20000002, 12, 0x3, {{{0, 3}, {1, 0}, {2, 1}, {3, 2}}}}, // stop bits
}};

} // namespace

std::uint16_t protocolMask(const SettingsStore& store, Port port, Direction direction)
{
    std::uint16_t mask = 0;
    for (const ProtocolBit& protocol : kProtocols) {
        if (store.get(protocolKey(protocol, port, direction)) != 0) {
            mask = static_cast<std::uint16_t>(mask | protocol.mask);
        }
    }
    return mask;
}

bool hasPort(const SettingsStore& store, Port port)
{
    return port <= Port::spi && store.has(protocolKey(kProtocols[0], port, Direction::in));
}

Bytes readPort(const SettingsStore& store, Port port)
{
    Bytes payload(kPortPayload);
    put(payload, 0, static_cast<std::uint8_t>(port));
    if (isUart(port)) {
        std::uint32_t mode = 0;
        for (const ModeField& field : kModeFields) {
            const std::uint64_t value = store.get(uartKey(field.key, port));
            const auto found = std::find_if(field.values.begin(), field.values.end(),
                                            [value](const ModeValue& row) { return row.keyValue == value; });
            mode |= (found != field.values.end() ? found->modeValue : 0) << field.shift;
        }
        put(payload, 4, mode);
        put(payload, 8, static_cast<std::uint32_t>(store.get(uartKey(0x40000001, port))));
    } else if (port == Port::i2c) {
        put(payload, 4, static_cast<std::uint32_t>(store.get(0x20510001)));
    }
    put(payload, 12, protocolMask(store, port, Direction::in));
    put(payload, 14, protocolMask(store, port, Direction::out));
    return payload;
}

std::optional<Changes> portChanges(const SettingsStore& store, const Bytes& payload)
{
    const auto port = static_cast<Port>(getBytes(payload, 0, 1));
    if (payload.size() != kPortPayload || !hasPort(store, port)) {
        return std::nullopt;
    }
    Changes changes;
    if (isUart(port)) {
        const auto mode = get<std::uint32_t>(payload, 4);
        for (const ModeField& field : kModeFields) {
            const auto found = std::find_if(field.values.begin(), field.values.end(), [&](const ModeValue& row) {
                return row.modeValue == (mode >> field.shift & field.bits);
            });
            if (found == field.values.end()) {
                return std::nullopt;
            }
            changes.emplace_back(uartKey(field.key, port), found->keyValue);
        }
        const auto speed = get<std::uint32_t>(payload, 8);
        if (std::find(kLineSpeeds.begin(), kLineSpeeds.end(), speed) == kLineSpeeds.end()) {
            return std::nullopt;
        }
        changes.emplace_back(uartKey(0x40000001, port), speed);
    } else if (port == Port::i2c) {
        changes.emplace_back(0x20510001, getBytes(payload, 4, 1));
    }
    for (const Direction direction : {Direction::in, Direction::out}) {
        const auto mask = get<std::uint16_t>(payload, direction == Direction::in ? 12 : 14);
        for (const ProtocolBit& protocol : kProtocols) {
            const Key key = protocolKey(protocol, port, direction);
            if (store.has(key)) {
                changes.emplace_back(key, (mask & protocol.mask) != 0 ? 1 : 0);
            }
        }
    }
    return changes;
}

} // namespace ubxsim

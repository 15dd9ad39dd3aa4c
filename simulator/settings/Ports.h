#pragma once

#include "simulator/settings/LegacyView.h"

namespace ubxsim
{

/// The interfaces of the receiver, numbered as CFG-PRT numbers them and in the order of the message-rate keys.
enum class Port : std::uint8_t
{
    i2c,
    uart1,
    uart2,
    usb,
    spi
};

enum class Direction
{
    in,
    out
};

inline constexpr std::uint16_t kUbxBit = 0x01;
inline constexpr std::uint16_t kNmeaBit = 0x02;

/// The protocol mask of a port, as CFG-PRT shows it.
std::uint16_t protocolMask(const SettingsStore& store, Port port, Direction direction);

/// True when the receiver has this port.
bool hasPort(const SettingsStore& store, Port port);

/// The payload of a CFG-PRT reply, and what a set of it changes; empty when the receiver refuses it.
Bytes readPort(const SettingsStore& store, Port port);
std::optional<Changes> portChanges(const SettingsStore& store, const Bytes& payload);

} // namespace ubxsim

#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <type_traits>

namespace ubx
{

/// Bytes that a key's value takes on the wire. The receiver codes it in bits 28 to 30 of the key id; 0 means no known
/// size.
constexpr std::size_t valueWidth(std::uint32_t keyId)
{
    constexpr std::size_t kWidths[] = {0, 1, 1, 2, 4, 8, 0, 0};
    return kWidths[keyId >> 28 & 0x7];
}

static_assert(valueWidth(0x00000000) == 0 && valueWidth(0x60000000) == 0 && valueWidth(0x70000000) == 0);

/// Whether a key holds a single bit, which still takes a whole byte on the wire.
constexpr bool isOneBit(std::uint32_t keyId)
{
    return (keyId >> 28 & 0x7) == 1;
}

/// Whether values of this type are what a key id stands for.
template <typename Value>
constexpr bool fits(std::uint32_t keyId)
{
    return valueWidth(keyId) == sizeof(Value) && isOneBit(keyId) == std::is_same_v<Value, bool>;
}
static_assert(fits<bool>(0x10000000) && fits<std::uint8_t>(0x20000000));
static_assert(!fits<std::uint8_t>(0x10000000) && !fits<bool>(0x20000000) && !fits<std::uint8_t>(0x30000000));

/// A configuration item of the receiver: its id, its published name and the type of its value.
/// A constant whose type does not fit its id does not compile.
template <typename Value>
class Key
{
public:
    static_assert(std::is_integral_v<Value>, "values are booleans and whole numbers");

    constexpr Key(std::uint32_t id, const char* name) : id_(checked(id)), name_(name) {}

    constexpr std::uint32_t id() const { return id_; }
    constexpr const char* name() const { return name_; }

private:
    static constexpr std::uint32_t checked(std::uint32_t id)
    {
        if (!fits<Value>(id)) throw std::logic_error("the type of this key does not have the size that its id states");
        return id;
    }

    std::uint32_t id_;
    const char* name_;
};

} // namespace ubx

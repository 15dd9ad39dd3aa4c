#pragma once

#include <array>

#include "config/KeyValuePayload.h"
#include "link/ReceiverLink.h"
#include "protocol/Field.h"

namespace ubx
{

/// A CFG-VALGET reply: a header, then each item's key and value in the order of the poll. Values are taken by position.
namespace cfgValget
{

template <typename T>
inline constexpr Field<T> firstValue{8};

/// The value at this place among items of one byte.
constexpr Field<std::uint8_t> byteValue(std::size_t index)
{
    constexpr std::size_t kKeyAndByte = 5;
    return Field<std::uint8_t>{firstValue<std::uint8_t>.offset + index * kKeyAndByte};
}

} // namespace cfgValget

/// Sends and asks for configuration items. What is sent is made by a function that fills a payload and returns its
/// length.
class ConfigurationItems
{
public:
    explicit ConfigurationItems(ReceiverLink& link) : link_(link) {}

    /// Sets items. @return 0, as every command.
    template <typename Recipe, typename... Arguments>
    int set(Recipe recipe, Arguments... arguments)
    {
        return link_.send(message(UBX_CFG_VALSET, recipe, arguments...));
    }

    /// Asks for items.
    /// @param label  what the log calls them if they do not come.
    template <typename Recipe, typename... Arguments>
    Reply get(const char* label, Recipe recipe, Arguments... arguments)
    {
        // Open before the poll goes out on a port of its own, and there while the reply comes.
        ubxIO listener;
        link_.send(message(UBX_CFG_VALGET, recipe, arguments...));
        return link_.await(listener, UBX_CFG_VALGET, label);
    }

    template <typename Recipe, typename... Arguments>
    UBXMessage message(UBXMessageClassIdValues classId, Recipe recipe, Arguments... arguments)
    {
        payload_.fill(0);
        const unsigned int length = recipe(payload_.data(), arguments...);
        return UBXMessage(classId, length, payload_.data());
    }

private:
    ReceiverLink& link_;
    std::array<unsigned char, kConfigBufferSize> payload_{};
};

} // namespace ubx

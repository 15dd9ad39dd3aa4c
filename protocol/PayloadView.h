#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <type_traits>

#include <UBXMessage.h>

#include "protocol/Field.h"

namespace ubx
{

/// A received payload, read field by field. A byte that is not there counts as 0, whatever the reply claims to hold.
class PayloadView
{
public:
    PayloadView(const unsigned char* data, std::size_t size) : data_(data), size_(size) {}
    explicit PayloadView(const UBXMessage& message) : PayloadView(message.getPayloadData(), message.getPayloadLength())
    {}

    std::size_t size() const { return size_; }

    unsigned char byteAt(std::size_t offset) const
    {
        return offset < size_ ? data_[offset] : static_cast<unsigned char>(0);
    }

    template <typename T>
    T get(Field<T> field) const
    {
        using Unsigned = std::make_unsigned_t<T>;
        std::uint64_t value = 0;
        for (std::size_t i = 0; i < field.width; ++i)
            value |= std::uint64_t{byteAt(field.offset + i)} << (8 * i);
        return static_cast<T>(static_cast<Unsigned>(value));
    }

    /// The text from `offset` to its zero byte, the end of `width` bytes or the end of the payload.
    std::string text(std::size_t offset, std::size_t width) const
    {
        std::string result;
        for (std::size_t i = offset; i - offset < width && byteAt(i) != 0; ++i)
            result += static_cast<char>(data_[i]);
        return result;
    }

private:
    const unsigned char* data_;
    std::size_t size_;
};

} // namespace ubx

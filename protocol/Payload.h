#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include <UBXMessage.h>

#include "protocol/Field.h"

namespace ubx
{

/// Writes a field into payload bytes, little-endian.
template <typename T>
void store(unsigned char* payload, Field<T> field, typename Field<T>::Value value)
{
    const auto bits = static_cast<std::uint64_t>(value);
    for (std::size_t i = 0; i < field.width; ++i) {
        payload[field.offset + i] = static_cast<unsigned char>((bits >> (8 * i)) & 0xFF);
    }
}

/// A payload of fixed size to be filled field by field; what is not set stays 0.
template <std::size_t Size>
class Payload
{
public:
    template <typename T>
    Payload& set(Field<T> field, typename Field<T>::Value value)
    {
        store(bytes_.data(), field, value);
        return *this;
    }

    unsigned char* data() { return bytes_.data(); }

    UBXMessage as(UBXMessageClassIdValues classId) const { return UBXMessage(classId, Size, bytes_.data()); }

private:
    std::array<unsigned char, Size> bytes_{};
};

} // namespace ubx

#pragma once

#include <cstddef>
#include <initializer_list>
#include <string>
#include <string_view>

namespace testsupport
{

// Frames and payloads as hexadecimal text, for expectations that are typed by hand. The checksum has its own code here:
// the library's would agree with itself.

/// The whole frame "B5 62 06 23 ..." of a class, an id and a payload: frame("06 23", "02 00 08").
std::string frame(std::string_view classAndId, std::string_view payload = "");

/// So many bytes 00.
std::string zeros(std::size_t count);

/// Bytes that stand at a place of a payload.
struct At
{
    std::size_t offset;
    std::string_view bytes;
};

/// A payload of this size, of zeros but for the bytes given: payload(40, {{0, "02 00"}, {12, "28"}}).
/// @throws std::out_of_range for bytes that would lie behind its end.
std::string payload(std::size_t size, std::initializer_list<At> fields);

} // namespace testsupport

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace testsupport
{

using Bytes = std::vector<std::uint8_t>;

/// The bytes of a text such as "B5 62 06 23 00 00", typed by hand: two hexadecimal digits each, white space between.
/// @throws std::invalid_argument that shows the place of anything else, so that a typing error can't pass.
Bytes bytes(std::string_view hex);

/// The reverse, upper case with single blanks, for messages that a person compares.
std::string hex(const Bytes& bytes);

} // namespace testsupport

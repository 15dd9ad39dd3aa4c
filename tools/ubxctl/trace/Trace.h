#pragma once

#include <string>

#include "output/Report.h"
#include "wire/Stream.h"

namespace ubxctl
{

/// A line for a person: a frame with its name from the catalogue, a sentence as it stands, the rest as bytes.
std::string describe(const Piece& piece);

/// The same for programs.
Json jsonOf(const Piece& piece, const std::string& time);

/// Whether a sentence's checksum is right.
bool hasGoodChecksum(const Bytes& sentence);

} // namespace ubxctl

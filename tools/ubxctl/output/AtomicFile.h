#pragma once

#include <string>

namespace ubxctl
{

/// Writes a file so that readers see the old one or the new one, whole; nothing is left behind when that fails.
/// @throws Failure
void writeAtomically(const std::string& path, const std::string& contents);

} // namespace ubxctl

#pragma once

#include <string>

namespace ubxctl
{

/// Writes a file so that readers see the old one or the new one, whole; nothing is left behind when that fails. A
/// link stays one. Devices and pipes are written to as they are.
/// @throws Failure
void writeAtomically(const std::string& name, const std::string& contents);

} // namespace ubxctl

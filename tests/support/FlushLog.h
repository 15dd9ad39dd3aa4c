#pragma once

#include <vector>

/// What was asked of tcflush() in this program and in the shared libraries that it uses.
///
/// The flush itself is done as it shows on the receiver's real port: see sandbox/TtyFlush.h.
namespace flushlog
{

/// The queue selectors (TCIFLUSH, TCOFLUSH, TCIOFLUSH) in the order in which they were asked for.
std::vector<int> asked();

void clear();

} // namespace flushlog

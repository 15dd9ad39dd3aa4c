#pragma once

namespace sandbox
{

/// tcflush() as it shows on the receiver's real port, for use on a pseudo terminal.
///
/// A real port has sent what was written before by the time that it is opened again; a pseudo terminal still holds what
/// the other side has not read, and a flush of output would throw it away. So output is left alone here; input that was
/// not read is discarded as ever. Results and errno are those of tcflush().
int flushLikeRealPort(int fd, int queue) noexcept;

} // namespace sandbox

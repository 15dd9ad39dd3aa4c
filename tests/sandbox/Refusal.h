#pragma once

/// Makes the kernel refuse a system call with EPERM from now on, for this process and all that it starts: what a
/// container without private namespaces does.
/// @param number  SYS_unshare, for one.
void refuseSystemCall(long number);

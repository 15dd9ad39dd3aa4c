#pragma once

namespace testsupport
{

/// Whether these tests were built for a machine of another kind and are run by an emulator. Then there are no user
/// namespaces and no seccomp filters, and the machine's own commands can't load libraries of this build.
bool emulated();

} // namespace testsupport

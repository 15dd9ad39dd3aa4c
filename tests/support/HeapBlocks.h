#pragma once

namespace testsupport
{

/// How many blocks from operator new are in use in this program and its libraries: the same number before and after
/// means that nothing was lost, and nothing freed twice.
///
/// Always 0 in a build with the address sanitizer, whose own book-keeping then finds both.
long heapBlocks();

} // namespace testsupport

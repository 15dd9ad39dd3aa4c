#include "Emulation.h"

namespace testsupport
{

bool emulated()
{
    return UBX_EMULATED != 0;
}

} // namespace testsupport

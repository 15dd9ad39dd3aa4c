#include <cstdio>

#include <UBloxChipEnableInterface.h>
#include <moduleInventory.h>

int main()
{
    std::printf("%s %s\n", getModuleHardwareID(1).c_str(), getSolutionSpiDev(1).c_str());
    VrbUBloxChipInterface().resetUBloxChip();
    QsbUBloxChipInterface().antennaPowerEnable("on");
    return 0;
}

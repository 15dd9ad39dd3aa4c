#include <UBloxChipEnableInterface.h>

#include <SysfsUtil.h>
#include <moduleInventory.h>

#include "board/ExpanderLines.h"
#include "board/PowerState.h"

namespace
{

constexpr unsigned int kCarrierModule = 1;
constexpr const char* kKtbPtbBus = "/dev/i2c-13";
constexpr int kQsbAntennaGpio = 116;

//                                     reset      antenna
constexpr ubx::ExpanderLines kVrbLines{{1, 0x20}, {1, 0x01}};
constexpr ubx::ExpanderLines kKtbPtbLines{{0, 0x80}, {0, 0x20}};

std::string vrbBus()
{
    return "/dev/" + getSolutionI2C(kCarrierModule);
}

} // namespace

UBloxChipEnableInterface::~UBloxChipEnableInterface() = default;

VrbUBloxChipInterface::~VrbUBloxChipInterface() = default;

int VrbUBloxChipInterface::resetUBloxChip()
{
    return ubx::releaseReset(vrbBus(), kVrbLines);
}

int VrbUBloxChipInterface::antennaPowerEnable(std::string state)
{
    return ubx::switchAntenna(vrbBus(), kVrbLines, state);
}

KtbPtbUBloxChipInterface::~KtbPtbUBloxChipInterface() = default;

int KtbPtbUBloxChipInterface::resetUBloxChip()
{
    return ubx::releaseReset(kKtbPtbBus, kKtbPtbLines);
}

int KtbPtbUBloxChipInterface::antennaPowerEnable(std::string state)
{
    return ubx::switchAntenna(kKtbPtbBus, kKtbPtbLines, state);
}

QsbUBloxChipInterface::~QsbUBloxChipInterface() = default;

int QsbUBloxChipInterface::resetUBloxChip()
{
    return 0;
}

int QsbUBloxChipInterface::antennaPowerEnable(std::string state)
{
    SysfsUtil gpios;
    const ubx::PowerState power = ubx::powerStateOf(state);
    if (power == ubx::PowerState::unknown) return 1;
    gpios.setGpioValue(kQsbAntennaGpio, power == ubx::PowerState::on);
    return 0;
}

#include "Board.h"

#include <moduleInventory.h>

#include <cstdint>
#include <string>
#include <vector>

#include <SimulatedPlatform.h>

namespace demo
{

namespace
{

constexpr unsigned int kCarrier = 1;
constexpr std::uint8_t kExpanderAddress = 0x21;

/// A line of the expander: its bit in port 1 of the output and the configuration register.
struct Line
{
    const char* name;
    unsigned int mask;
    const char* high;
    const char* low;
};

constexpr unsigned int kOutput = 3;
constexpr unsigned int kConfiguration = 7;
constexpr Line kReset{"reset line", 0x20, "released (port 1 bit 5 high)", "held (port 1 bit 5 low)"};
constexpr Line kAntenna{"antenna supply", 0x01, "on (port 1 bit 0 high)", "off (port 1 bit 0 low)"};

std::string level(const std::string& bus, const Line& line)
{
    const unsigned int inputs = ubxplatform::expanderRegister(bus, kExpanderAddress, kConfiguration);
    if ((inputs & line.mask) != 0) return "not driven";
    const unsigned int levels = ubxplatform::expanderRegister(bus, kExpanderAddress, kOutput);
    return (levels & line.mask) != 0 ? line.high : line.low;
}

} // namespace

void showInventory(Transcript& transcript)
{
    transcript.fact("hardware id", getModuleHardwareID(kCarrier));
    transcript.fact("I2C bus, SPI device", getSolutionI2C(kCarrier) + ", " + getSolutionSpiDev(kCarrier));
    transcript.fact("PCIe BARs", checkForEndpointInEEPROM(kCarrier) ? "as many as recorded" : "not as recorded");
}

void ExpanderView::show()
{
    std::string name = "I/O expander";
    const std::vector<ubxplatform::Transfer> all = ubxplatform::transfers();
    for (; shown_ < all.size(); ++shown_) {
        transcript_.fact(name, ubxplatform::describe(all[shown_]));
        name.clear();
    }
    const std::string bus = "/dev/" + getSolutionI2C(kCarrier);
    for (const Line& line : {kReset, kAntenna})
        transcript_.fact(line.name, level(bus, line));
}

} // namespace demo

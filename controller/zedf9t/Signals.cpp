#include <algorithm>
#include <array>
#include <iostream>

#include <UBXMessageCatalogue.h>
#include <ZedF9tUbxMessageBuilder.h>

#include "controller/zedf9t/Parts.h"

using Builder = ZedF9tUbxMessageBuilder;

namespace
{

constexpr unsigned short kBeiDouMask = 1U << UBX_GNSS_BEIDOU;

struct MaskText
{
    unsigned short gnssMask;
    const char* text;
};

// As they are printed, the missing blank of mask 67 included.
constexpr MaskText kMaskTexts[] = {
    {1, "GNSS_FLAG_GPS\n"},
    {3, "GNSS_FLAG_GPS | GNSS_FLAG_SBAS\n"},
    {4, "GNSS_FLAG_GAL\n"},
    {5, "GNSS_FLAG_GPS | GNSS_FLAG_GAL\n"},
    {6, "GNSS_FLAG_GAL | GNSS_FLAG_SBAS\n"},
    {8, "GNSS_FLAG_BEIDOU\n"},
    {9, "GNSS_FLAG_GPS | GNSS_FLAG_BEIDOU\n"},
    {16, "GNSS_FLAG_IMES\n"},
    {32, "GNSS_FLAG_QZSS\n"},
    {64, "GNSS_FLAG_GLONASS\n"},
    {65, "GNSS_FLAG_GPS | GNSS_FLAG_GLONASS\n"},
    {66, "GNSS_FLAG_GLONASS | GNSS_FLAG_SBAS\n"},
    {67, "GNSS_FLAG_GPS | GNSS_FLAG_GLONASS |GNSS_FLAG_SBAS\n"},
    {68, "GNSS_FLAG_GAL | GNSS_FLAG_GLONASS\n"},
    {71, "GNSS_FLAG_GPS | GNSS_FLAG_GLONASS | GNSS_FLAG_GAL | GNSS_FLAG_SBAS\n"},
    {72, "GNSS_FLAG_GLONASS | GNSS_FLAG_BEIDOU\n"},
};

void printSystems(unsigned short gnssMask)
{
    const auto* const row = std::find_if(std::begin(kMaskTexts), std::end(kMaskTexts),
                                         [&](const MaskText& candidate) { return candidate.gnssMask == gnssMask; });
    if (row != std::end(kMaskTexts)) std::cout << row->text << std::flush;
}

} // namespace

int ubxController_ZEDF9T::setGnssSystemForConfigInterface(unsigned short gnssMask, bool dualBand)
{
    std::array<bool, 8> enabled{}; // by gnssId; the last one stays off
    for (std::size_t system = 0; system < 7; ++system)
        enabled[system] = ((gnssMask >> system) & 1) != 0;

    // SBAS and BeiDou together: BeiDou without SBAS, and from here on the selection counts as BeiDou alone, whatever
    // else it holds. Meant so: a wider selection is set, but reported as a mismatch.
    unsigned short effectiveMask = gnssMask;
    if (enabled[UBX_GNSS_SBAS] && enabled[UBX_GNSS_BEIDOU]) {
        enabled[UBX_GNSS_SBAS] = false;
        effectiveMask = kBeiDouMask;
    }
    printSystems(effectiveMask);

    const auto recipe = checkUbloxChipFirmVer() != 0 ? Builder::configureSIGNAL : Builder::configureSIGNALForTim2_20;
    int status = parts_->items.set(recipe, enabled.data(), dualBand);
    if (enabled[UBX_GNSS_BEIDOU] && checkUbloxChipFirmVer() == 0) {
        status |= parts_->items.set(Builder::configureBdsSystemConfig);
    }

    status |= configTimePulse(effectiveMask, 0, true);
    status |= configTimePulse(effectiveMask, 1, true);
    unsigned short readBack = 0;
    status |= getGnssSystem(readBack);
    return status | ubx::mismatch(readBack != effectiveMask);
}

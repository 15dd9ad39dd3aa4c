#include <ZedF9tUbxMessageBuilder.h>

#include "controller/zedf9t/ItemWords.h"
#include "controller/zedf9t/Parts.h"

// Some labels belong to other items. Meant so: these are the texts that readers of the logs know.

using ubx::cfgValget::byteValue;
using ubx::cfgValget::firstValue;
using Builder = ZedF9tUbxMessageBuilder;

namespace
{

constexpr const char* kCableDelayLabel = "Antenna cable delay";
constexpr const char* kModeLabel = "Receiver mode";
constexpr const char* kElevationLabel = "Minimum elevation for a GNSS satellite to be used in navigation";

// The bit of each system in the order of the poll. That of later firmware asks for one more, which has no bit.
constexpr unsigned kPolledSystems[] = {1U << 0, 1U << 1, 1U << 2, 1U << 3, 1U << 5, 1U << 6};

// Replaces the text by the word for the first value; one without a word leaves it.
void readWord(const ubx::Reply& reply, const ubx::Table<ubx::Word>& words, std::string& text)
{
    if (const ubx::Word* const word = findWord(words, reply.payload().get(firstValue<std::uint8_t>))) text = word->text;
}

} // namespace

int ubxController_ZEDF9T::getAntennaDelayForConfigInterface(int& delayNs)
{
    const ubx::Reply reply = parts_->items.get(kCableDelayLabel, Builder::poll_AntennaTimeBias);
    if (reply) delayNs = reply.payload().get(firstValue<std::int16_t>);
    return reply.status();
}

int ubxController_ZEDF9T::getAntennaTypeForConfigInterface(std::string& type)
{
    const ubx::Reply reply = parts_->items.get("Antenna setting", Builder::poll_AntennaType);
    if (reply) readWord(reply, ubx::items::kAntennaTypes, type);
    return reply.status();
}

int ubxController_ZEDF9T::getGnssSystemForConfigInterface(unsigned short& gnssMask)
{
    const auto poll =
        checkUbloxChipFirmVer() != 0 ? Builder::poll_SIGNALConfiguration : Builder::poll_SIGNALConfigurationForTim2_20;
    const ubx::Reply reply = parts_->items.get(kCableDelayLabel, poll);
    if (!reply) return reply.status();

    unsigned mask = gnssMask; // the caller's bits stay, on purpose
    std::size_t index = 0;
    for (const unsigned bit : kPolledSystems) {
        if (reply.payload().get(byteValue(index++)) != 0) mask |= bit;
    }
    gnssMask = static_cast<unsigned short>(mask);
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::getJammingDetectionForConfigInterface(bool& on)
{
    const ubx::Reply reply = parts_->items.get("Enable interference detection", Builder::poll_Jamming);
    if (reply) on = reply.payload().get(firstValue<std::uint8_t>) != 0;
    return reply.status();
}

int ubxController_ZEDF9T::getSurveyModeForConfigInterface(std::string& mode)
{
    const ubx::Reply reply = parts_->items.get(kModeLabel, Builder::poll_TMODE);
    if (reply) readWord(reply, ubx::items::kTimingModes, mode);
    return reply.status();
}

int ubxController_ZEDF9T::getDurationConfiguration(unsigned int& duration)
{
    const ubx::Reply reply = parts_->items.get(kModeLabel, Builder::poll_SvinMinDurConfiguration);
    if (reply) duration = reply.payload().get(firstValue<std::uint32_t>);
    return reply.status();
}

int ubxController_ZEDF9T::getAccuracyConfiguration(unsigned int& accuracyLimit)
{
    const ubx::Reply reply = parts_->items.get(kModeLabel, Builder::poll_SurveyAccuracyConfiguration);
    if (reply) accuracyLimit = reply.payload().get(firstValue<std::uint32_t>);
    return reply.status();
}

int ubxController_ZEDF9T::getMinCNoForConfigInterface(signed char& minCNo)
{
    const ubx::Reply reply = parts_->items.get("Minimum satellite signal level for navigation", Builder::poll_NAVX5);
    if (reply) minCNo = reply.payload().get(firstValue<signed char>);
    return reply.status();
}

int ubxController_ZEDF9T::getElevationLimitForConfigInterface(unsigned char& degrees)
{
    const ubx::Reply reply = parts_->items.get(kElevationLabel, Builder::poll_NAV5Elevation);
    if (reply) degrees = reply.payload().get(firstValue<std::uint8_t>);
    return reply.status();
}

int ubxController_ZEDF9T::getTimeReferenceForConfigInterface(std::string& reference)
{
    const ubx::Reply reply = parts_->items.get(kElevationLabel, Builder::polll_CFG_RATE);
    if (!reply) return reply.status();
    reference = "UTC"; // also for a value without a word
    readWord(reply, ubx::items::kTimeReferences, reference);
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::isOnForConfigInterface(bool& on)
{
    constexpr unsigned char kSecondPulse = 1;
    const ubx::Reply reply = parts_->items.get(kElevationLabel, Builder::poll_CFG_TP_Enable, kSecondPulse);
    if (reply) on = reply.payload().get(firstValue<std::uint8_t>) != 0;
    return reply.status();
}

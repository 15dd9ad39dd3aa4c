#include <ZedF9tUbxMessageBuilder.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <tuple>

#include "config/KeyValuePayload.h"
#include "config/Keys.h"
#include "config/MessageRateKeys.h"

namespace keys = ubx::keys;
using ubx::setPayload;
using ubx::Setting;

namespace
{

using RateKey = ubx::Key<std::uint8_t>;

constexpr std::uint8_t kOff = 0;
constexpr std::uint8_t kEachEpoch = 1;

constexpr std::array kUbxOnI2c = {keys::msgoutNavTimegpsI2c, keys::msgoutNavTimeutcI2c, keys::msgoutNavSatI2c,
                                  keys::msgoutNavSigI2c,     keys::msgoutNavPvtI2c,     keys::msgoutNavStatusI2c,
                                  keys::msgoutMonHwI2c,      keys::msgoutTimSvinI2c};

constexpr std::array kDualUbxOnI2c = {keys::msgoutNavSigI2c, keys::msgoutMonHwI2c};

// The last one is NAV-SVIN where I2C has TIM-SVIN. That is meant.
constexpr std::array kUbxOnUsb = {keys::msgoutNavTimegpsUsb, keys::msgoutNavTimeutcUsb, keys::msgoutNavSatUsb,
                                  keys::msgoutNavSigUsb,     keys::msgoutNavPvtUsb,     keys::msgoutNavStatusUsb,
                                  keys::msgoutMonHwUsb,      keys::msgoutNavSvinUsb};

constexpr std::array kDualUbxOnUsb = {keys::msgoutNavSigUsb, keys::msgoutMonHwUsb};

constexpr std::array kNmeaOnI2c = {keys::msgoutZdaI2c, keys::msgoutGgaI2c};

// RTCM goes out on UART2; the report on RTCM that came in goes out on I2C.
constexpr std::array kRtcm = {keys::msgoutRtcm1005Uart2, keys::msgoutRtcm1077Uart2, keys::msgoutRtcm1087Uart2,
                              keys::msgoutRtcm1097Uart2, keys::msgoutRtcm1127Uart2, keys::msgoutRtcm1230Uart2,
                              keys::msgoutRtcm4072Uart2, keys::msgoutRxmRtcmI2c};

constexpr std::array kNmeaOnUart1 = {keys::msgoutGgaUart1, keys::msgoutGllUart1, keys::msgoutGsaUart1,
                                     keys::msgoutGsvUart1, keys::msgoutRmcUart1, keys::msgoutVtgUart1};

/// The same rate for all of the messages.
template <std::size_t count>
std::array<Setting<std::uint8_t>, count> each(const std::array<RateKey, count>& messages, std::uint8_t rate)
{
    return std::apply([rate](const auto&... message) { return std::array{Setting{message, rate}...}; }, messages);
}

} // namespace

unsigned int ZedF9tUbxMessageBuilder::setMessageRateForUbxForI2C(unsigned char* buffer, const unsigned char& rate)
{
    return setPayload(buffer, each(kUbxOnI2c, rate));
}

unsigned int ZedF9tUbxMessageBuilder::setMessageRateForDualUbxForI2C(unsigned char* buffer, const unsigned char& rate)
{
    return setPayload(buffer, each(kDualUbxOnI2c, rate));
}

unsigned int ZedF9tUbxMessageBuilder::setMessageRateForUbxForUSB(unsigned char* buffer, const unsigned char& rate)
{
    return setPayload(buffer, Setting{keys::usbOutProtUbx, true}, each(kUbxOnUsb, rate));
}

unsigned int ZedF9tUbxMessageBuilder::setMessageRateForDualUbxForUSB(unsigned char* buffer, const unsigned char& rate)
{
    return setPayload(buffer, each(kDualUbxOnUsb, rate));
}

unsigned int ZedF9tUbxMessageBuilder::setMessageRateForNmea(unsigned char* buffer, const unsigned char& rate)
{
    return setPayload(buffer, each(kNmeaOnI2c, rate));
}

unsigned int ZedF9tUbxMessageBuilder::setMessageRateForRtcm(unsigned char* buffer, const unsigned char& rate)
{
    return setPayload(buffer, each(kRtcm, rate));
}

unsigned int ZedF9tUbxMessageBuilder::configureI2C(unsigned char* buffer)
{
    return setPayload(buffer,                                  //
                      Setting{keys::msgoutGgaI2c, kEachEpoch}, //
                      Setting{keys::msgoutZdaI2c, kOff},       //
                      Setting{keys::msgoutRmcI2c, kEachEpoch}, //
                      Setting{keys::msgoutGllI2c, kOff},       //
                      Setting{keys::msgoutGsaI2c, kOff},       //
                      Setting{keys::msgoutGsvI2c, kOff},       //
                      Setting{keys::msgoutVtgI2c, kOff});
}

unsigned int ZedF9tUbxMessageBuilder::configureUART(unsigned char* buffer, unsigned int baudRate)
{
    return setPayload(buffer, Setting{keys::uart1Baudrate, baudRate}, each(kNmeaOnUart1, kOff),
                      Setting{keys::uart2InProtRtcm3x, true}, Setting{keys::uart2OutProtRtcm3x, true});
}

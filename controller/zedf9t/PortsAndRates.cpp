#include <cstdio>
#include <iostream>

#include <ZedF9tUbxMessageBuilder.h>
#include <ubloxChipInfo.h>

#include "controller/NmeaMessages.h"
#include "controller/zedf9t/Parts.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgPrt.h"
#include "protocol/payloads/CfgRst.h"

using Builder = ZedF9tUbxMessageBuilder;

namespace
{

constexpr const char* kNotSupported = "It is not supported by the current firmware.";

struct MessageRate
{
    unsigned short classId;
    bool wanted; // at the rate asked for; else off
};

// NAV-TIMEGPS, NAV-PVT, NAV-SOL and TIM-SVIN off, NAV-SAT and NAV-SIG on.
constexpr MessageRate kUsbMessages[] = {{0x0120, false}, {0x0107, false}, {0x0106, false},
                                        {0x0D04, false}, {0x0135, true},  {0x0143, true}};

bool isOnUsb()
{
    return ubloxChipInfo::getUbloxInterfaceInfo() == 0;
}

void printBytes(const ubx::Reply& reply, const char* format)
{
    std::string text;
    for (std::size_t i = 0; i < reply.payload().size(); ++i) {
        char byte[8];
        std::snprintf(byte, sizeof byte, format, static_cast<unsigned>(reply.payload().byteAt(i)));
        text += byte;
    }
    std::cout << text << std::flush;
}

} // namespace

int ubxController_ZEDF9T::configureProtocols()
{
    ubxIO port;
    const ubx::Reply reply = parts_->link.poll(port, ubx::emptyPoll(UBX_CFG_PRT));
    if (!reply) return reply.status();

    UBXMessage& settings = reply.message();
    if (!isOnUsb()) ubx::change(settings, ubx::cfgPrt::portId, ubx::cfgPrt::kUsbPort);
    ubx::change(settings, ubx::cfgPrt::inProtoMask, ubx::cfgPrt::kUbxAndNmea);
    ubx::change(settings, ubx::cfgPrt::outProtoMask, ubx::cfgPrt::kUbxAndNmea);
    return parts_->link.write(port, settings);
}

int ubxController_ZEDF9T::configureUbxPolling(unsigned char rate)
{
    if (isOnUsb()) {
        for (const MessageRate& message : kUsbMessages) {
            parts_->legacy.sendMessageRate(message.classId, message.wanted ? rate : static_cast<unsigned char>(0));
        }
    } else {
        parts_->items.set(Builder::setMessageRateForUbxForI2C, rate);
    }
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::configurNmeaPollingPartial(unsigned char rate)
{
    parts_->legacy.sendMessageRate(ubx::nmea::kGsa, rate);
    parts_->legacy.sendMessageRate(ubx::nmea::kGsv, rate);
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::configExtendedPowerManagment()
{
    if (checkUbloxChipFirmVer() != 0) return parts_->legacy.configExtendedPowerManagment();
    parts_->link.log(kNotSupported);
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::setRxMode(std::string mode)
{
    if (checkUbloxChipFirmVer() != 0) return parts_->legacy.setRxMode(mode);
    parts_->link.log(kNotSupported);
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::getRxMode(std::string& mode)
{
    if (checkUbloxChipFirmVer() != 0) return parts_->legacy.getRxMode(mode);
    parts_->link.log(kNotSupported);
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::getUtcGridForConfigInterface(unsigned short gnssMask)
{
    constexpr unsigned short kGpsAlone = 1;
    constexpr int kUtc = 0;
    constexpr int kGps = 1;
    return gnssMask == kGpsAlone ? kGps : kUtc;
}

int ubxController_ZEDF9T::configTimePulseForConfigInterface(unsigned short gnssMask, unsigned char pulse, bool active)
{
    const auto timeGrid = static_cast<unsigned char>(getUtcGridForConfigInterface(gnssMask));
    return parts_->items.set(Builder::configureTP, pulse, timeGrid, active);
}

int ubxController_ZEDF9T::programGroupDelayCal(int delayNs)
{
    // The class and id of a poll around the payload of a setting: meant so.
    return parts_->link.send(parts_->items.message(UBX_CFG_VALGET, Builder::setGnssGroupDelay, delayNs));
}

int ubxController_ZEDF9T::getResetInfo()
{
    constexpr int kTimeLimit = 4; // seconds, whatever the others use

    ubxIO port;
    UBXMessage request = ubx::Payload<ubx::cfgRst::size>().as(UBX_CFG_RST);
    port.SendMessage(&request); // twice, on purpose; only the second one is looked at
    if (const int failure = parts_->link.write(port, request)) return failure;
    const ubx::Reply reply = parts_->link.await(port, request, kTimeLimit);
    if (reply) printBytes(reply, "0x%X\n");
    return reply.status();
}

int ubxController_ZEDF9T::configPollTest()
{
    ubxIO listener;
    const UBXMessage request = parts_->items.message(UBX_CFG_VALGET, Builder::poll_CFG_TMODE);
    const int status = parts_->link.send(request);
    if (const ubx::Reply reply = parts_->link.await(listener, request)) {
        printBytes(reply, "%02X ");
        std::cout << std::endl;
    }
    return status;
}

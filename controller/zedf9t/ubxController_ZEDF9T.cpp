#include <ubxController_ZEDF9T.h>

#include <iostream>
#include <utility>

#include "controller/reports/StatusReports.h"
#include "controller/zedf9t/Parts.h"
#include "link/TimeStamp.h"
#include "protocol/Payload.h"
#include "protocol/payloads/CfgRst.h"

std::array<unsigned char, 32> ubxController_ZEDF9T::cfg_tps_data_buffer = ubx::kTimePulseTemplate;

namespace
{

/// Legacy messages for as long as this lives, whatever way it ends.
class LegacyModeGuard
{
public:
    explicit LegacyModeGuard(bool& mode) : mode_(mode), saved_(std::exchange(mode, false)) {}
    LegacyModeGuard(const LegacyModeGuard&) = delete;
    LegacyModeGuard& operator=(const LegacyModeGuard&) = delete;
    ~LegacyModeGuard() { mode_ = saved_; }

private:
    bool& mode_;
    bool saved_;
};

} // namespace

ubxController_ZEDF9T::ubxController_ZEDF9T(std::string firmwareVersion, bool configurationInterfaceMode)
    : parts_(std::make_unique<Parts>(*this, std::move(firmwareVersion), configurationInterfaceMode))
{}

ubxController_ZEDF9T::~ubxController_ZEDF9T() = default;

int ubxController_ZEDF9T::Init()
{
    return ubx::status::kDone;
}

int ubxController_ZEDF9T::setAntennaPower(std::string)
{
    return ubx::status::kDone; // the board's business
}

int ubxController_ZEDF9T::setZedf9tConfigurationInterfaceMode(bool on)
{
    parts_->configurationInterfaceMode = on;
    return ubx::status::kDone;
}

std::string ubxController_ZEDF9T::timeStamp()
{
    return ubx::timeStamp();
}

int ubxController_ZEDF9T::resetFactoryDefaults()
{
    const LegacyModeGuard legacyMode(parts_->configurationInterfaceMode);
    return parts_->legacy.resetFactoryDefaults();
}

int ubxController_ZEDF9T::setDefaultConfiguration()
{
    const LegacyModeGuard legacyMode(parts_->configurationInterfaceMode);
    return parts_->legacy.setDefaultConfiguration();
}

int ubxController_ZEDF9T::setApplicationDefaults()
{
    constexpr unsigned char kPortable = 0;
    constexpr unsigned char kAutomaticFix = 3;

    const LegacyModeGuard legacyMode(parts_->configurationInterfaceMode);
    int status = configureProtocols();
    status |= setDynamicModel(kPortable, kAutomaticFix);
    status |= setUtcStandardAuto();
    return status;
}

int ubxController_ZEDF9T::save()
{
    return parts_->legacy.save();
}

int ubxController_ZEDF9T::load()
{
    return parts_->legacy.load();
}

int ubxController_ZEDF9T::resetUbloxDefaults()
{
    return parts_->legacy.resetUbloxDefaults();
}

int ubxController_ZEDF9T::restart(bool hot)
{
    return parts_->legacy.restart(hot);
}

int ubxController_ZEDF9T::turnOff()
{
    return parts_->legacy.turnOff();
}

int ubxController_ZEDF9T::turnOn()
{
    return parts_->legacy.turnOn();
}

int ubxController_ZEDF9T::getInfo(std::string& info)
{
    return ubx::reports::getInfo(parts_->link, info);
}

int ubxController_ZEDF9T::getNavsolution(std::string what, std::string& solution)
{
    return ubx::reports::getNavsolution(parts_->link, what, solution);
}

int ubxController_ZEDF9T::setSurveyMode(std::string mode)
{
    return ubx::reports::setSurveyMode(parts_->link, mode);
}

int ubxController_ZEDF9T::setSurveyAuto()
{
    return parts_->legacy.setSurveyAuto();
}

int ubxController_ZEDF9T::getSurveyInfo(unsigned char& mode, double& latitude, double& longitude, double& height,
                                        double& accuracy, unsigned int& duration, float& accuracyLimit)
{
    return ubx::reports::getSurveyInfo(parts_->link, mode, latitude, longitude, height, accuracy, duration,
                                       accuracyLimit);
}

int ubxController_ZEDF9T::getSatelliteInfo(std::string& satellites)
{
    return ubx::reports::getSatelliteInfo(parts_->link, satellites);
}

int ubxController_ZEDF9T::getNofSatellitesInNavSol(unsigned char& count)
{
    return ubx::reports::getNofSatellitesInNavSol(parts_->link, count);
}

int ubxController_ZEDF9T::setDynamicModel(unsigned char model)
{
    return parts_->legacy.setDynamicModel(model);
}

int ubxController_ZEDF9T::setDynamicModel(unsigned char model, unsigned char fixMode)
{
    return parts_->legacy.setDynamicModel(model, fixMode);
}

int ubxController_ZEDF9T::getDynamicModel(unsigned char& model, unsigned char& fixMode)
{
    return parts_->legacy.getDynamicModel(model, fixMode);
}

int ubxController_ZEDF9T::setFixMode(unsigned char fixMode)
{
    return parts_->legacy.setFixMode(fixMode);
}

int ubxController_ZEDF9T::configureSBAS()
{
    return parts_->legacy.configureSBAS();
}

int ubxController_ZEDF9T::configureNmeaPolling(unsigned char rate)
{
    return parts_->legacy.configureNmeaPolling(rate);
}

int ubxController_ZEDF9T::getUtcGrid(unsigned short gnssMask)
{
    return parts_->legacy.getUtcGrid(gnssMask);
}

int ubxController_ZEDF9T::checkUbloxChipFirmVer()
{
    constexpr int kNewKeys = 0;
    constexpr int kOldKeys = 1;
    constexpr int kNoTimingFirmware = 999;
    constexpr double kFirstWithNewKeys = 2.2;
    static const std::string kTag = "TIM";

    const std::string& version = parts_->firmwareVersion;
    const std::size_t tag = version.find(kTag);
    if (tag == std::string::npos) return kNoTimingFirmware;
    const double number = std::stof(version.substr(tag + kTag.size() + 1));
    return number >= kFirstWithNewKeys ? kNewKeys : kOldKeys;
}

unsigned int ubxController_ZEDF9T::sendUBXMessage(UBXMessage message)
{
    return static_cast<unsigned int>(parts_->link.send(message));
}

UBXMessage ubxController_ZEDF9T::constructGNSSOffMessage(bool keepNavigationData)
{
    return ubx::LegacyOperations::constructGNSSOffMessage(keepNavigationData);
}

UBXMessage ubxController_ZEDF9T::constructGNSSOnMessage()
{
    return ubx::LegacyOperations::constructGNSSOnMessage();
}

UBXMessage ubxController_ZEDF9T::constructGNSSResetMessage()
{
    std::cout << "constructGNSSResetMessage\n" << std::flush;
    return ubx::Payload<ubx::cfgRst::size>().set(ubx::cfgRst::resetMode, ubx::cfgRst::kHardwareReset).as(UBX_CFG_RST);
}

UBXMessage ubxController_ZEDF9T::createMessageRateByClassIDMessage(unsigned short classId, unsigned char rate)
{
    return ubx::LegacyOperations::createMessageRateByClassIDMessage(classId, rate);
}

#include <ubxController_NEOM8T.h>

#include "controller/legacy/LegacyOperations.h"
#include "controller/neom8t/NeoM8tProfile.h"
#include "controller/reports/StatusReports.h"
#include "link/TimeStamp.h"

std::array<unsigned char, 32> ubxController_NEOM8T::cfg_tps_data_buffer = ubx::kTimePulseTemplate;

struct ubxController_NEOM8T::Parts
{
    explicit Parts(ubxController_NEOM8T& self) : operations(self, link, ubx::kNeoM8tProfile, cfg_tps_data_buffer) {}

    ubx::ReceiverLink link{"/var/log/rxtool-neom8t-errors.log"};
    ubx::LegacyOperations operations;
};

ubxController_NEOM8T::ubxController_NEOM8T() : parts_(std::make_unique<Parts>(*this)) {}

ubxController_NEOM8T::~ubxController_NEOM8T() = default;

int ubxController_NEOM8T::Init()
{
    return ubx::status::kDone;
}

int ubxController_NEOM8T::save()
{
    return parts_->operations.save();
}

int ubxController_NEOM8T::load()
{
    return parts_->operations.load();
}

int ubxController_NEOM8T::resetFactoryDefaults()
{
    return parts_->operations.resetFactoryDefaults();
}

int ubxController_NEOM8T::resetUbloxDefaults()
{
    return parts_->operations.resetUbloxDefaults();
}

int ubxController_NEOM8T::restart(bool hot)
{
    return parts_->operations.restart(hot);
}

int ubxController_NEOM8T::setDefaultConfiguration()
{
    return parts_->operations.setDefaultConfiguration();
}

int ubxController_NEOM8T::setApplicationDefaults()
{
    constexpr unsigned char kPortable = 0;
    constexpr unsigned char kAutomaticFix = 3;

    int status = configureSBAS();
    status |= setDynamicModel(kPortable, kAutomaticFix);
    status |= setUtcStandardAuto();
    return status;
}

int ubxController_NEOM8T::turnOff()
{
    return parts_->operations.turnOff();
}

int ubxController_NEOM8T::turnOn()
{
    return parts_->operations.turnOn();
}

int ubxController_NEOM8T::isOn(bool& on)
{
    return parts_->operations.isOn(on);
}

int ubxController_NEOM8T::getResetInfo()
{
    return ubx::status::kDone;
}

int ubxController_NEOM8T::getInfo(std::string& info)
{
    return ubx::reports::getInfo(parts_->link, info);
}

int ubxController_NEOM8T::setAntennaPower(std::string)
{
    return ubx::status::kDone;
}

int ubxController_NEOM8T::setAntennaDelay(int delayNs)
{
    return parts_->operations.setAntennaDelay(delayNs);
}

int ubxController_NEOM8T::getAntennaDelay(int& delayNs)
{
    return parts_->operations.getAntennaDelay(delayNs);
}

int ubxController_NEOM8T::setAntennaType(std::string type)
{
    return parts_->operations.setAntennaType(type);
}

int ubxController_NEOM8T::getAntennaType(std::string& type)
{
    return parts_->operations.getAntennaType(type);
}

int ubxController_NEOM8T::setGnssSystem(unsigned short gnssMask, bool)
{
    return setGnssSystem(gnssMask); // there is one band only
}

int ubxController_NEOM8T::setGnssSystem(unsigned short gnssMask)
{
    return parts_->operations.setGnssSystem(gnssMask, false);
}

int ubxController_NEOM8T::getGnssSystem(unsigned short& gnssMask)
{
    return parts_->operations.getGnssSystem(gnssMask);
}

int ubxController_NEOM8T::setJammingDetection(bool on)
{
    return parts_->operations.setJammingDetection(on);
}

int ubxController_NEOM8T::getJammingDetection(bool& on)
{
    return parts_->operations.getJammingDetection(on);
}

int ubxController_NEOM8T::getNavsolution(std::string what, std::string& solution)
{
    return ubx::reports::getNavsolution(parts_->link, what, solution);
}

int ubxController_NEOM8T::setSurveyMode(std::string mode)
{
    return ubx::reports::setSurveyMode(parts_->link, mode);
}

int ubxController_NEOM8T::getSurveyMode(std::string& mode)
{
    return parts_->operations.getSurveyMode(mode);
}

int ubxController_NEOM8T::setSurveyStatic(double latitude, double longitude, double height, double accuracy)
{
    return parts_->operations.setSurveyStatic(latitude, longitude, height, accuracy);
}

int ubxController_NEOM8T::setSurveyAuto(unsigned int duration, float accuracy)
{
    return parts_->operations.setSurveyAuto(duration, accuracy);
}

int ubxController_NEOM8T::setSurveyAuto()
{
    return parts_->operations.setSurveyAuto();
}

int ubxController_NEOM8T::setSurveyDynamic()
{
    return parts_->operations.setSurveyDynamic();
}

int ubxController_NEOM8T::getSurveyInfo(unsigned char& mode, double& latitude, double& longitude, double& height,
                                        double& accuracy, unsigned int& duration, float& accuracyLimit)
{
    return ubx::reports::getSurveyInfo(parts_->link, mode, latitude, longitude, height, accuracy, duration,
                                       accuracyLimit);
}

int ubxController_NEOM8T::getSatelliteInfo(std::string& satellites)
{
    return ubx::reports::getSatelliteInfo(parts_->link, satellites);
}

int ubxController_NEOM8T::getNofSatellitesInNavSol(unsigned char& count)
{
    return ubx::reports::getNofSatellitesInNavSol(parts_->link, count);
}

int ubxController_NEOM8T::setMinCNo(signed char minCNo)
{
    return parts_->operations.setMinCNo(minCNo);
}

int ubxController_NEOM8T::getMinCNo(signed char& minCNo)
{
    return parts_->operations.getMinCNo(minCNo);
}

int ubxController_NEOM8T::setElevationLimit(unsigned char degrees)
{
    return parts_->operations.setElevationLimit(degrees);
}

int ubxController_NEOM8T::getElevationLimit(unsigned char& degrees)
{
    return parts_->operations.getElevationLimit(degrees);
}

int ubxController_NEOM8T::setDynamicModel(unsigned char model)
{
    return parts_->operations.setDynamicModel(model);
}

int ubxController_NEOM8T::setDynamicModel(unsigned char model, unsigned char fixMode)
{
    return parts_->operations.setDynamicModel(model, fixMode);
}

int ubxController_NEOM8T::getDynamicModel(unsigned char& model, unsigned char& fixMode)
{
    return parts_->operations.getDynamicModel(model, fixMode);
}

int ubxController_NEOM8T::setFixMode(unsigned char fixMode)
{
    return parts_->operations.setFixMode(fixMode);
}

int ubxController_NEOM8T::setTimeReference(std::string reference)
{
    return parts_->operations.setTimeReference(reference);
}

int ubxController_NEOM8T::getTimeReference(std::string& reference)
{
    return parts_->operations.getTimeReference(reference);
}

int ubxController_NEOM8T::setRxMode(std::string mode)
{
    return parts_->operations.setRxMode(mode);
}

int ubxController_NEOM8T::getRxMode(std::string& mode)
{
    return parts_->operations.getRxMode(mode);
}

int ubxController_NEOM8T::setUtcStandardAuto()
{
    return parts_->operations.setUtcStandardAuto();
}

int ubxController_NEOM8T::setUtsStandardTime(signed char)
{
    return ubx::status::kDone;
}

int ubxController_NEOM8T::configureUbxPolling(unsigned char rate)
{
    return parts_->operations.configureUbxPolling(rate);
}

int ubxController_NEOM8T::configureSBAS()
{
    return parts_->operations.configureSBAS();
}

int ubxController_NEOM8T::configureNmeaPolling(unsigned char rate)
{
    return parts_->operations.configureNmeaPolling(rate);
}

int ubxController_NEOM8T::configurNmeaPollingPartial(unsigned char rate)
{
    return parts_->operations.configurNmeaPollingPartial(rate);
}

int ubxController_NEOM8T::configureProtocols()
{
    return parts_->operations.configureProtocols();
}

int ubxController_NEOM8T::configExtendedPowerManagment()
{
    return parts_->operations.configExtendedPowerManagment();
}

int ubxController_NEOM8T::getUtcGrid(unsigned short gnssMask)
{
    return parts_->operations.getUtcGrid(gnssMask);
}

int ubxController_NEOM8T::configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active)
{
    return parts_->operations.configTimePulse(gnssMask, pulse, active);
}

std::string ubxController_NEOM8T::timeStamp()
{
    return ubx::timeStamp();
}

int ubxController_NEOM8T::setZedf9tConfigurationInterfaceMode(bool)
{
    return ubx::status::kDone;
}

int ubxController_NEOM8T::programGroupDelayCal(int)
{
    return ubx::status::kDone;
}

unsigned int ubxController_NEOM8T::sendUBXMessage(UBXMessage message)
{
    return static_cast<unsigned int>(parts_->link.send(message));
}

UBXMessage ubxController_NEOM8T::constructGNSSOffMessage(bool hot)
{
    return ubx::LegacyOperations::constructGNSSOffMessage(hot);
}

UBXMessage ubxController_NEOM8T::constructGNSSOnMessage()
{
    return ubx::LegacyOperations::constructGNSSOnMessage();
}

UBXMessage ubxController_NEOM8T::createMessageRateByClassIDMessage(unsigned short classId, unsigned char rate)
{
    return ubx::LegacyOperations::createMessageRateByClassIDMessage(classId, rate);
}

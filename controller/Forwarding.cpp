#include <utility>

#include "controller/FacadeParts.h"

// Every operation but two is the model controller's: called with the same arguments, its result returned.

int ubxController::Init()
{
    return parts_->model->Init();
}

int ubxController::save()
{
    return parts_->model->save();
}

int ubxController::load()
{
    return parts_->model->load();
}

int ubxController::resetFactoryDefaults()
{
    return parts_->model->resetFactoryDefaults();
}

int ubxController::resetUbloxDefaults()
{
    return parts_->model->resetUbloxDefaults();
}

int ubxController::restart(bool hot)
{
    return parts_->model->restart(hot);
}

int ubxController::setDefaultConfiguration()
{
    return parts_->model->setDefaultConfiguration();
}

int ubxController::setApplicationDefaults()
{
    return parts_->model->setApplicationDefaults();
}

int ubxController::turnOff()
{
    return parts_->model->turnOff();
}

int ubxController::turnOn()
{
    return parts_->model->turnOn();
}

int ubxController::isOn(bool& on)
{
    return parts_->model->isOn(on);
}

int ubxController::getResetInfo()
{
    return parts_->model->getResetInfo();
}

int ubxController::getInfo(std::string& info)
{
    return parts_->model->getInfo(info);
}

int ubxController::setAntennaDelay(int delayNs)
{
    return parts_->model->setAntennaDelay(delayNs);
}

int ubxController::getAntennaDelay(int& delayNs)
{
    return parts_->model->getAntennaDelay(delayNs);
}

int ubxController::setAntennaType(std::string type)
{
    return parts_->model->setAntennaType(std::move(type));
}

int ubxController::getAntennaType(std::string& type)
{
    return parts_->model->getAntennaType(type);
}

int ubxController::setGnssSystem(unsigned short gnssMask, bool dualBand)
{
    return parts_->model->setGnssSystem(gnssMask, dualBand);
}

int ubxController::setGnssSystem(unsigned short gnssMask)
{
    return parts_->model->setGnssSystem(gnssMask);
}

int ubxController::getGnssSystem(unsigned short& gnssMask)
{
    return parts_->model->getGnssSystem(gnssMask);
}

int ubxController::setJammingDetection(bool on)
{
    return parts_->model->setJammingDetection(on);
}

int ubxController::getJammingDetection(bool& on)
{
    return parts_->model->getJammingDetection(on);
}

int ubxController::getNavsolution(std::string what, std::string& solution)
{
    return parts_->model->getNavsolution(std::move(what), solution);
}

int ubxController::setSurveyMode(std::string mode)
{
    return parts_->model->setSurveyMode(std::move(mode));
}

int ubxController::getSurveyMode(std::string& mode)
{
    return parts_->model->getSurveyMode(mode);
}

int ubxController::setSurveyStatic(double latitude, double longitude, double height, double accuracy)
{
    return parts_->model->setSurveyStatic(latitude, longitude, height, accuracy);
}

int ubxController::setSurveyAuto(unsigned int duration, float accuracy)
{
    return parts_->model->setSurveyAuto(duration, accuracy);
}

int ubxController::setSurveyAuto()
{
    return parts_->model->setSurveyAuto();
}

int ubxController::setSurveyDynamic()
{
    return parts_->model->setSurveyDynamic();
}

int ubxController::getSurveyInfo(unsigned char& mode, double& latitude, double& longitude, double& height,
                                 double& accuracy, unsigned int& duration, float& accuracyLimit)
{
    return parts_->model->getSurveyInfo(mode, latitude, longitude, height, accuracy, duration, accuracyLimit);
}

int ubxController::getSatelliteInfo(std::string& satellites)
{
    return parts_->model->getSatelliteInfo(satellites);
}

int ubxController::getNofSatellitesInNavSol(unsigned char& count)
{
    return parts_->model->getNofSatellitesInNavSol(count);
}

int ubxController::setMinCNo(signed char minCNo)
{
    return parts_->model->setMinCNo(minCNo);
}

int ubxController::getMinCNo(signed char& minCNo)
{
    return parts_->model->getMinCNo(minCNo);
}

int ubxController::setElevationLimit(unsigned char degrees)
{
    return parts_->model->setElevationLimit(degrees);
}

int ubxController::getElevationLimit(unsigned char& degrees)
{
    return parts_->model->getElevationLimit(degrees);
}

int ubxController::setDynamicModel(unsigned char model)
{
    return parts_->model->setDynamicModel(model);
}

int ubxController::setDynamicModel(unsigned char model, unsigned char fixMode)
{
    return parts_->model->setDynamicModel(model, fixMode);
}

int ubxController::getDynamicModel(unsigned char& model, unsigned char& fixMode)
{
    return parts_->model->getDynamicModel(model, fixMode);
}

int ubxController::setFixMode(unsigned char fixMode)
{
    return parts_->model->setFixMode(fixMode);
}

int ubxController::setTimeReference(std::string reference)
{
    return parts_->model->setTimeReference(std::move(reference));
}

int ubxController::getTimeReference(std::string& reference)
{
    return parts_->model->getTimeReference(reference);
}

int ubxController::setRxMode(std::string mode)
{
    return parts_->model->setRxMode(std::move(mode));
}

int ubxController::getRxMode(std::string& mode)
{
    return parts_->model->getRxMode(mode);
}

int ubxController::setUtcStandardAuto()
{
    return parts_->model->setUtcStandardAuto();
}

int ubxController::setUtsStandardTime(signed char gnssMask)
{
    return parts_->model->setUtsStandardTime(gnssMask);
}

int ubxController::configureUbxPolling(unsigned char rate)
{
    return parts_->model->configureUbxPolling(rate);
}

int ubxController::configureSBAS()
{
    return parts_->model->configureSBAS();
}

int ubxController::configureNmeaPolling(unsigned char rate)
{
    return parts_->model->configureNmeaPolling(rate);
}

int ubxController::configurNmeaPollingPartial(unsigned char rate)
{
    return parts_->model->configurNmeaPollingPartial(rate);
}

int ubxController::configureProtocols()
{
    return parts_->model->configureProtocols();
}

int ubxController::configExtendedPowerManagment()
{
    return parts_->model->configExtendedPowerManagment();
}

int ubxController::getUtcGrid(unsigned short gnssMask)
{
    return parts_->model->getUtcGrid(gnssMask);
}

int ubxController::configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active)
{
    return parts_->model->configTimePulse(gnssMask, pulse, active);
}

int ubxController::setZedf9tConfigurationInterfaceMode(bool on)
{
    return parts_->model->setZedf9tConfigurationInterfaceMode(on);
}

int ubxController::programGroupDelayCal(int delayNs)
{
    return parts_->model->programGroupDelayCal(delayNs);
}

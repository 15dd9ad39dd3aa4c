#pragma once

#include <array>
#include <memory>
#include <string>

#include <UBXControlInterface.h>
#include <UBXMessage.h>
#include <ubxExport.h>

/// A NEO-M8T: every setting through its own UBX-CFG message. The operations are described in UBXControlInterface.
///
/// Errors are written to "/var/log/rxtool-neom8t-errors.log". Nothing is sent while it is constructed. The time-pulse
/// settings that were written last (cable delay, index, flags) are shared by all controllers of this model.
class UBXCONTROL_API ubxController_NEOM8T : public UBXControlInterface
{
public:
    ubxController_NEOM8T();
    ubxController_NEOM8T(const ubxController_NEOM8T&) = delete;
    ubxController_NEOM8T& operator=(const ubxController_NEOM8T&) = delete;
    virtual ~ubxController_NEOM8T();

    int Init() override;
    int save() override;
    int load() override;
    int resetFactoryDefaults() override;
    int resetUbloxDefaults() override;
    int restart(bool hot) override;
    int setDefaultConfiguration() override;
    int setApplicationDefaults() override;
    int turnOff() override;
    int turnOn() override;
    int isOn(bool& on) override;
    int getResetInfo() override;
    int getInfo(std::string& info) override;
    int setAntennaPower(std::string state) override;
    int setAntennaDelay(int delayNs) override;
    int getAntennaDelay(int& delayNs) override;
    int setAntennaType(std::string type) override;
    int getAntennaType(std::string& type) override;
    int setGnssSystem(unsigned short gnssMask, bool dualBand) override;
    int setGnssSystem(unsigned short gnssMask) override;
    int getGnssSystem(unsigned short& gnssMask) override;
    int setJammingDetection(bool on) override;
    int getJammingDetection(bool& on) override;
    int getNavsolution(std::string what, std::string& solution) override;
    int setSurveyMode(std::string mode) override;
    int getSurveyMode(std::string& mode) override;
    int setSurveyStatic(double latitude, double longitude, double height, double accuracy) override;
    int setSurveyAuto(unsigned int duration, float accuracy) override;
    int setSurveyAuto() override;
    int setSurveyDynamic() override;
    int getSurveyInfo(unsigned char& mode, double& latitude, double& longitude, double& height, double& accuracy,
                      unsigned int& duration, float& accuracyLimit) override;
    int getSatelliteInfo(std::string& satellites) override;
    int getNofSatellitesInNavSol(unsigned char& count) override;
    int setMinCNo(signed char minCNo) override;
    int getMinCNo(signed char& minCNo) override;
    int setElevationLimit(unsigned char degrees) override;
    int getElevationLimit(unsigned char& degrees) override;
    int setDynamicModel(unsigned char model) override;
    int setDynamicModel(unsigned char model, unsigned char fixMode) override;
    int getDynamicModel(unsigned char& model, unsigned char& fixMode) override;
    int setFixMode(unsigned char fixMode) override;
    int setTimeReference(std::string reference) override;
    int getTimeReference(std::string& reference) override;
    int setRxMode(std::string mode) override;
    int getRxMode(std::string& mode) override;
    int setUtcStandardAuto() override;
    int setUtsStandardTime(signed char gnssMask) override;
    int configureUbxPolling(unsigned char rate) override;
    int configureSBAS() override;
    int configureNmeaPolling(unsigned char rate) override;
    int configurNmeaPollingPartial(unsigned char rate) override;
    int configureProtocols() override;
    int configExtendedPowerManagment() override;
    int getUtcGrid(unsigned short gnssMask) override;
    int configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active) override;
    std::string timeStamp() override;
    int setZedf9tConfigurationInterfaceMode(bool on) override;
    int programGroupDelayCal(int delayNs) override;

    /// Writes a command; no acknowledgement is awaited. A failure is only logged. @return 0.
    unsigned int sendUBXMessage(UBXMessage message);

    /// Stops the satellite search. @param hot  true keeps the navigation data.
    UBXMessage constructGNSSOffMessage(bool hot);

    /// Starts the satellite search.
    UBXMessage constructGNSSOnMessage();

    /// Sets the output rate of a message on the current port. @param rate  every rate-th solution, 0 off.
    UBXMessage createMessageRateByClassIDMessage(unsigned short classId, unsigned char rate);

private:
    static std::array<unsigned char, 32> cfg_tps_data_buffer;

    struct UBXCONTROL_INTERNAL Parts;
    std::unique_ptr<Parts> parts_;
};

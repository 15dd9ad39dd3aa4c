#pragma once

#include <array>
#include <memory>
#include <string>

#include <UBXControlInterface.h>
#include <UBXMessage.h>
#include <ubxExport.h>

/// A ZED-F9T. Most settings can be made in two ways: through the configuration interface, as items with a key, or
/// through the legacy UBX-CFG messages of earlier receivers. The mode chooses between them at each call; see
/// setZedf9tConfigurationInterfaceMode(). The operations are described in UBXControlInterface.
///
/// setDefaultConfiguration(), setApplicationDefaults() and resetFactoryDefaults() use legacy messages whatever the
/// mode, and leave the mode as it was.
///
/// Errors are written to "/var/log/rxtool-zedf9t-errors.log". Nothing is sent while it is constructed. The settings of
/// the legacy time pulse that were written last (cable delay, index, flags) are shared by all controllers of this
/// model.
class UBXCONTROL_API ubxController_ZEDF9T : public UBXControlInterface
{
public:
    /// @param firmwareVersion             the receiver's firmware version, "TIM 2.20".
    /// @param configurationInterfaceMode  true for the configuration interface, false for legacy messages.
    ubxController_ZEDF9T(std::string firmwareVersion, bool configurationInterfaceMode);
    ubxController_ZEDF9T(const ubxController_ZEDF9T&) = delete;
    ubxController_ZEDF9T& operator=(const ubxController_ZEDF9T&) = delete;
    virtual ~ubxController_ZEDF9T();

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

    // The operations that exist in two forms, through legacy messages. What they verify and set along with it goes
    // through the operation of the present mode.

    int setAntennaDelayForLegacy(int delayNs);
    int getAntennaDelayForLegacy(int& delayNs);
    int setAntennaTypeForLegacy(std::string type);
    int getAntennaTypeForLegacy(std::string& type);
    int setGnssSystemForLegacy(unsigned short gnssMask, bool dualBand);
    int getGnssSystemForLegacy(unsigned short& gnssMask);
    int setJammingDetectionForLegacy(bool on);
    int getJammingDetectionForLegacy(bool& on);
    int setSurveyStaticForLegacy(double latitude, double longitude, double height, double accuracy);
    int setSurveyAutoForLegacy(unsigned int duration, float accuracy);
    int setSurveyDynamicForLegacy();
    int getSurveyModeForLegacy(std::string& mode);
    int setMinCNoForLegacy(signed char minCNo);
    int getMinCNoForLegacy(signed char& minCNo);
    int setElevationLimitForLegacy(unsigned char degrees);
    int getElevationLimitForLegacy(unsigned char& degrees);
    int setUtcStandardAutoForLegacy();
    int setUtsStandardTimeForLegacy(signed char gnssMask);
    int setTimeReferenceForLegacy(std::string reference);
    int getTimeReferenceForLegacy(std::string& reference);
    int isOnForLegacy(bool& on);
    int configTimePulseForLegacy(unsigned short gnssMask, unsigned char pulse, bool active);

    // The same through the configuration interface. A getter whose poll can't be written reports 4, not 8.

    int setAntennaDelayForConfigInterface(int delayNs);
    int getAntennaDelayForConfigInterface(int& delayNs);
    int setAntennaTypeForConfigInterface(std::string type);
    int getAntennaTypeForConfigInterface(std::string& type);
    int setGnssSystemForConfigInterface(unsigned short gnssMask, bool dualBand);
    int getGnssSystemForConfigInterface(unsigned short& gnssMask);
    int setJammingDetectionForConfigInterface(bool on);
    int getJammingDetectionForConfigInterface(bool& on);
    int setSurveyStaticForConfigInterface(double latitude, double longitude, double height, double accuracy);
    int setSurveyAutoForConfigInterface(unsigned int duration, float accuracy);
    int setSurveyDynamicForConfigInterface();
    int getSurveyModeForConfigInterface(std::string& mode);
    int setMinCNoForConfigInterface(signed char minCNo);
    int getMinCNoForConfigInterface(signed char& minCNo);
    int setElevationLimitForConfigInterface(unsigned char degrees);
    int getElevationLimitForConfigInterface(unsigned char& degrees);
    int setUtcStandardAutoForConfigInterface();
    int setUtsStandardTimeForConfigInterface(signed char gnssMask);
    int setTimeReferenceForConfigInterface(std::string reference);
    int getTimeReferenceForConfigInterface(std::string& reference);
    int isOnForConfigInterface(bool& on);
    int configTimePulseForConfigInterface(unsigned short gnssMask, unsigned char pulse, bool active);

    /// The shortest duration of a survey-in, s, through the configuration interface. Blocks for 1 reply. @return 0
    /// or 4.
    int getDurationConfiguration(unsigned int& duration);

    /// The accuracy limit of a survey-in, 0.1 mm, through the configuration interface. Blocks for 1 reply. @return 0
    /// or 4.
    int getAccuracyConfiguration(unsigned int& accuracyLimit);

    /// Which set of keys the firmware has.
    /// @return 0 for 2.20 or later; 1 for an earlier one; 999 when the version does not say "TIM".
    /// @throws std::invalid_argument or std::out_of_range when no number follows "TIM". The operations that depend on
    ///         the firmware let it pass: constellations, power management and power mode.
    int checkUbloxChipFirmVer();

    /// Time grid of the pulses through the configuration interface. @return 1 (GPS) for GPS alone, else 0 (UTC).
    int getUtcGridForConfigInterface(unsigned short gnssMask);

    /// A diagnostic: asks for the timing mode's items and prints the reply in hexadecimal on standard output.
    /// Blocks for 1 reply. @return 0.
    int configPollTest();

    /// Writes a command; no acknowledgement is awaited. A failure is only logged. @return 0.
    unsigned int sendUBXMessage(UBXMessage message);

    /// Stops the satellite search. @param keepNavigationData  false drops what the receiver knows of the satellites.
    UBXMessage constructGNSSOffMessage(bool keepNavigationData);

    /// Starts the satellite search.
    UBXMessage constructGNSSOnMessage();

    /// Resets the hardware at once. Prints its name on standard output. No operation uses it.
    UBXMessage constructGNSSResetMessage();

    /// Sets the output rate of a message on the current port. @param rate  every rate-th solution, 0 off.
    UBXMessage createMessageRateByClassIDMessage(unsigned short classId, unsigned char rate);

private:
    static std::array<unsigned char, 32> cfg_tps_data_buffer;

    // Calls one of two forms of an operation, by the present mode.
    template <typename... Parameters, typename... Arguments>
    UBXCONTROL_INTERNAL int dispatch(int (ubxController_ZEDF9T::*legacy)(Parameters...),
                                     int (ubxController_ZEDF9T::*configInterface)(Parameters...),
                                     Arguments&&... arguments);

    struct UBXCONTROL_INTERNAL Parts;
    std::unique_ptr<Parts> parts_;
};

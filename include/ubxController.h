#pragma once

#include <memory>
#include <string>

#include <UBXControlInterface.h>
#include <ubxExport.h>

/// The device's timing receiver: what callers create and hold.
///
/// The constructor finds the carrier board, releases the receiver from reset, identifies it and creates the controller
/// of its model, to which every operation is forwarded. It neither calls Init() nor switches antenna power. A receiver
/// that does not answer counts as a NEO-M8T; its operations then report what fails.
///
/// Blocks for up to about 9 seconds while it is constructed. Failures of the identification are written to
/// "/var/log/rxtool-errors.log". Exceptions of the device's inventory service pass through. One thread at a time.
class UBXCONTROL_API ubxController : public UBXControlInterface
{
public:
    ubxController();
    ubxController(const ubxController&) = delete;
    ubxController& operator=(const ubxController&) = delete;
    virtual ~ubxController();

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

    // Port set-up and version poll, as the identification does them.

    /// Makes the port in use put out UBX and NMEA. Blocks for up to 5 seconds.
    /// @return 0; 4 no reply (logged, on purpose, as "Could not send : "); 8 not sent (logged as "Did not receive : ").
    int configuraProtocolsDefault();

    /// configuraProtocolsDefault(), then the version record on one line, its texts joined by ": ". Blocks for up to 9
    /// seconds.
    /// @param info  empty when it fails. @return 0; 4 no reply; 8 not sent.
    int getDefaultInfo(std::string& info);

    // Identification.

    /// Takes hardware, firmware and protocol version and the module's name out of a version line.
    /// @param info  consumed up to its last separator; what follows that is not looked at. @return 0.
    int parserGnssChipInfo(std::string& info);

    /// Whether this is the hardware version of a known receiver.
    bool isVersionValid(std::string hardwareVersion);
    bool isZedF9t();
    bool isNeoM8t();
    std::string getZedF9t(); ///< hardware version of the ZED-F9T, "00190000"
    std::string getNeoM8t(); ///< hardware version of the NEO-M8T, "00080000"

    /// Asks the receiver what it is, creates the controller of its model in place of the present one and saves the
    /// chip-info file. Blocks for up to 9 seconds.
    void checkUbloxCheckId();

    /// Writes "/tmp/ubloxChip-info.txt" unless there is one. One that can't be created is skipped silently.
    void saveUbloxChipInfo();

private:
    struct UBXCONTROL_INTERNAL Parts;
    std::unique_ptr<Parts> parts_;
};

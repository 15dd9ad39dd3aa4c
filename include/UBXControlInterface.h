#pragma once

#include <string>

#include <ubxExport.h>

/// What can be done with a timing receiver: 58 operations, in this slot order.
///
/// Status: every operation returns 0 for success or these bits, combined over its steps:
///   1  an argument was refused and nothing was sent, or the receiver holds another value than was written;
///   4  no reply arrived within the time limit;
///   8  a poll could not be written.
/// A step that fails does not stop the later ones. Commands are written and not acknowledged: one that could not be
/// written is only visible in the error log. A getter that fails leaves its outputs as they were, unless said
/// otherwise.
///
/// Blocking: a poll waits at most 5 seconds for its reply; commands return at once. "Blocks for n replies" below means
/// at most n times that. Nothing is awaited between calls.
///
/// Threads: none inside. One thread at a time, and one receiver conversation at a time in the whole device.
///
/// GNSS masks: bit 0 GPS, 1 SBAS, 2 Galileo, 3 BeiDou, 4 IMES, 5 QZSS, 6 GLONASS.
///
/// Nothing is deleted through this interface.
class UBXCONTROL_API UBXControlInterface
{
public:
    /// Model-specific start-up configuration; neither model needs any. Nothing is sent. @return 0.
    virtual int Init() = 0;

    /// Stores the present settings in battery-backed RAM and flash. @return 0.
    virtual int save() = 0;

    /// Loads the stored settings. @return 0.
    virtual int load() = 0;

    /// Clears the stored settings, applies the library's power, output and default configuration and stores that.
    /// Blocks for 9 replies.
    virtual int resetFactoryDefaults() = 0;

    /// Clears the stored settings, then stores the receiver's present ones. @return 0.
    virtual int resetUbloxDefaults() = 0;

    /// Stops and starts the satellite search. @param hot  true keeps the navigation data, false drops it. @return 0.
    virtual int restart(bool hot) = 0;

    /// Applies the library's defaults: protocols, cable delay 28 ns, GPS only, 9 dBHz, 10 degrees, stationary, 3D fix,
    /// survey-in of three hours to 1 m, SBAS, automatic UTC standard. Blocks for 5 replies.
    virtual int setDefaultConfiguration() = 0;

    /// Applies the defaults of an application that moves: portable, automatic 2D/3D fix, automatic UTC standard.
    virtual int setApplicationDefaults() = 0;

    /// Stops the satellite search, dropping the navigation data. @return 1 when the second time pulse stays active.
    /// The time pulse is only touched when the constellations can't be read. Blocks for 2 replies.
    virtual int turnOff() = 0;

    /// Starts the satellite search. @return 1 when the second time pulse is not active. Blocks for 2 replies.
    virtual int turnOn() = 0;

    /// Whether the receiver counts as on: its second time pulse is active. Blocks for 1 reply.
    virtual int isOn(bool& on) = 0;

    /// ZED-F9T: asks for the reset record and prints it, one byte a line, on standard output; blocks for up to 4
    /// seconds. NEO-M8T: nothing. @return 0, 4 or 8.
    virtual int getResetInfo() = 0;

    /// The receiver's version record on one line: software, hardware, then the extensions, joined by ": ". Empty when
    /// it fails. Blocks for up to 4 seconds.
    virtual int getInfo(std::string& info) = 0;

    /// Switches the antenna supply, through the board and not the receiver. @param state  "ON" or "OFF", in any case of
    /// letters. @return 0, also when the board's expander does not answer; 1 for another word. A model controller does
    /// nothing and returns 0.
    virtual int setAntennaPower(std::string state) = 0;

    /// Sets the antenna cable delay, then reads it back. @param delayNs  -32768 to 32767 ns. Blocks for 1 reply.
    virtual int setAntennaDelay(int delayNs) = 0;

    /// The antenna cable delay, ns. Blocks for 1 reply.
    virtual int getAntennaDelay(int& delayNs) = 0;

    /// Sets the antenna type of the interference monitor. @param type  "active" or "passive"; the ZED-F9T also
    /// "unknown". Blocks for 1 reply.
    virtual int setAntennaType(std::string type) = 0;

    /// "active", "passive" or "unknown". Blocks for 1 reply.
    virtual int getAntennaType(std::string& type) = 0;

    /// Selects the constellations, sets both time pulses to go with them and reads the selection back.
    /// @param gnssMask  see above; every value is sent.
    /// @param dualBand  whether the second frequency band is used too; only the ZED-F9T has one.
    /// @return 1 when the receiver reports another selection. Blocks for 1 reply.
    virtual int setGnssSystem(unsigned short gnssMask, bool dualBand) = 0;

    /// As above, with both bands.
    virtual int setGnssSystem(unsigned short gnssMask) = 0;

    /// The selected constellations. Blocks for 1 reply. The NEO-M8T and the legacy messages of the ZED-F9T set the mask
    /// to 0 first, also when they fail; through the configuration interface the bits are added to those of the caller.
    virtual int getGnssSystem(unsigned short& gnssMask) = 0;

    /// Switches interference detection. Blocks for 1 reply.
    virtual int setJammingDetection(bool on) = 0;

    virtual int getJammingDetection(bool& on) = 0;

    /// The navigation solution as text, whatever its validity.
    /// @param what      "TIME" (2024-03-07T09:05+42:00, UTC), "FIX" (for example 3D-FIX), "POS" (latitude and longitude
    /// in
    ///                  degrees, height above the ellipsoid in metres) or "ALL"; empty means "ALL".
    /// @param solution  the parts, joined by commas.
    /// @return 0; 1 for another word; 4 or 8. Blocks for 1 reply.
    virtual int getNavsolution(std::string what, std::string& solution) = 0;

    /// Changes the timing mode and keeps the survey parameters that the receiver holds. A poll that fails leaves the
    /// fields that it would have filled at 0 and is only logged.
    /// @param mode  "AUTO" (survey-in), "STATIC" (fixed position) or "DYNAMIC" (off). @return 0; 1 for another word.
    /// Blocks for 2 replies.
    virtual int setSurveyMode(std::string mode) = 0;

    /// "AUTO", "STATIC" or "DYNAMIC"; unchanged when the receiver reports none of them. Blocks for 1 reply.
    virtual int getSurveyMode(std::string& mode) = 0;

    /// Sets a fixed position, then reads the mode back.
    /// @param latitude   -90 to 90 degrees.
    /// @param longitude  -180 to 180 degrees.
    /// @param height     -1000 to 10000 m above the ellipsoid.
    /// @param accuracy   0.01 to 200 m.
    /// @return 1 out of range, or when the receiver is in another mode. Blocks for 1 reply.
    virtual int setSurveyStatic(double latitude, double longitude, double height, double accuracy) = 0;

    /// Starts a survey-in, then reads it back.
    /// @param duration  shortest duration, 1 to 30,000,000 s.
    /// @param accuracy  accuracy limit, 0.01 to 50 m.
    /// @return 1 out of range, or when the receiver is in another mode. Blocks for 1 reply; through the configuration
    ///         interface for 3.
    virtual int setSurveyAuto(unsigned int duration, float accuracy) = 0;

    /// Survey-in of three hours to 1 m.
    virtual int setSurveyAuto() = 0;

    /// Switches the timing mode off, then reads it back. Blocks for 1 reply.
    virtual int setSurveyDynamic() = 0;

    /// The timing mode's settings and the present position. Blocks for 2 replies; without the first the second is not
    /// asked for, without the second the position stays as it was.
    /// @param mode       0 off, 1 survey-in, 2 fixed position.
    /// @param latitude   degrees.
    /// @param longitude  degrees.
    /// @param height     m above the ellipsoid.
    /// @param accuracy   accuracy of the fixed position, m.
    /// @param duration   shortest survey-in duration, s.
    /// @param accuracyLimit  survey-in accuracy limit, m.
    virtual int getSurveyInfo(unsigned char& mode, double& latitude, double& longitude, double& height,
                              double& accuracy, unsigned int& duration, float& accuracyLimit) = 0;

    /// The tracked satellites, one line each: number, constellation, "Used    " or "Not Used", quality 0 to 7 and C/N0
    /// in dBHz, separated by tabs. Blocks for 1 reply.
    virtual int getSatelliteInfo(std::string& satellites) = 0;

    /// How many satellites the navigation solution uses. Blocks for 1 reply.
    virtual int getNofSatellitesInNavSol(unsigned char& count) = 0;

    /// Sets the lowest C/N0 of a satellite used for navigation, then reads it back. @param minCNo  0 to 50 dBHz.
    /// Blocks for 1 reply.
    virtual int setMinCNo(signed char minCNo) = 0;

    /// The lowest C/N0 of a satellite used for navigation, dBHz. Blocks for 1 reply. The legacy messages set it to 0
    /// first, also when they fail.
    virtual int getMinCNo(signed char& minCNo) = 0;

    /// Sets the elevation mask. @param degrees  5 to 60. Read back only through the configuration interface.
    virtual int setElevationLimit(unsigned char degrees) = 0;

    /// The elevation mask, degrees. Blocks for 1 reply.
    virtual int getElevationLimit(unsigned char& degrees) = 0;

    /// Sets the dynamic platform model. @param model  the receiver's dynModel, not checked: 0 portable, 2 stationary.
    virtual int setDynamicModel(unsigned char model) = 0;

    /// As above, with the fix mode. @param fixMode  not checked: 1 2D only, 2 3D only, 3 automatic.
    virtual int setDynamicModel(unsigned char model, unsigned char fixMode) = 0;

    /// Reads both. Blocks for 1 reply.
    virtual int getDynamicModel(unsigned char& model, unsigned char& fixMode) = 0;

    /// Sets the fix mode. @param fixMode  as above.
    virtual int setFixMode(unsigned char fixMode) = 0;

    /// Sets what the navigation epochs are aligned to. @param reference  "UTC" or "GPS"; the ZED-F9T also "GLO", "BDS"
    /// and "GAL", which its legacy messages write as "GPS". Blocks for 1 reply.
    virtual int setTimeReference(std::string reference) = 0;

    /// The time reference. Legacy messages: "UTC" or "GPS", unchanged for others. Configuration interface: one of the
    /// five, "UTC" for others. Blocks for 1 reply.
    virtual int getTimeReference(std::string& reference) = 0;

    /// Sets the power mode. @param mode  "CONTINUOUS", "POWERSAVE" or "ECO". Blocks for 1 reply.
    /// ZED-F9T firmware from 2.20 on has none: one line in the log, nothing is sent, 0.
    virtual int setRxMode(std::string mode) = 0;

    /// The power mode, unchanged when the receiver reports none of the three. Blocks for 1 reply.
    virtual int getRxMode(std::string& mode) = 0;

    /// Lets the receiver choose the UTC standard.
    virtual int setUtcStandardAuto() = 0;

    /// Sets the UTC standard that goes with a GNSS mask (1 to 72; automatic for others). NEO-M8T: nothing. @return 0.
    virtual int setUtsStandardTime(signed char gnssMask) = 0;

    /// Output rate of the UBX messages that the device listens to. @param rate  every rate-th solution, 0 off. @return
    /// 0.
    virtual int configureUbxPolling(unsigned char rate) = 0;

    /// Switches SBAS on for ranging and corrections. @return 0.
    virtual int configureSBAS() = 0;

    /// Output rate of seven NMEA sentences: GGA, GLL, GSA, GSV, RMC, VTG, ZDA. @param rate  as above. @return 0.
    virtual int configureNmeaPolling(unsigned char rate) = 0;

    /// A reduced set. NEO-M8T: GSA and GSV off, GGA, GLL and ZDA at this rate. ZED-F9T: GSA and GSV at this rate.
    /// @return 0.
    virtual int configurNmeaPollingPartial(unsigned char rate) = 0;

    /// Makes the port put out UBX and NMEA; the ZED-F9T's to take both in, too. Blocks for 1 reply.
    virtual int configureProtocols() = 0;

    /// Sets up extended power management. ZED-F9T firmware from 2.20 on has none: one line in the log, nothing is sent.
    /// @return 0.
    virtual int configExtendedPowerManagment() = 0;

    /// The flags of a legacy time-pulse message for a GNSS mask, with the active bit clear. Nothing is sent.
    /// @return 0x76 for the time grid of UTC, 0xF6 for that of GPS.
    virtual int getUtcGrid(unsigned short gnssMask) = 0;

    /// Sets up a time pulse: one second, 100 ms long when locked, on the time grid that goes with the mask.
    /// @param pulse  0 or 1. @return 0.
    virtual int configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active) = 0;

    /// The local time of day as log lines begin: "14:03:07_042: ".
    virtual std::string timeStamp() = 0;

    /// ZED-F9T: true configures through the configuration interface, false through legacy messages, from the next call
    /// on. NEO-M8T: nothing. @return 0.
    virtual int setZedf9tConfigurationInterfaceMode(bool on) = 0;

    /// ZED-F9T: sends the group delay of the first time pulse. NEO-M8T: nothing. @param delayNs  ns. @return 0.
    virtual int programGroupDelayCal(int delayNs) = 0;

protected:
    UBXControlInterface() = default;
    UBXControlInterface(const UBXControlInterface&) = default;
    UBXControlInterface& operator=(const UBXControlInterface&) = default;
    ~UBXControlInterface() = default;
};

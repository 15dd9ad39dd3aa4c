#pragma once

#include <string>

#include <ubxExport.h>

/// What can be done with a timing receiver: 58 operations, in this slot order.
///
/// Status: every operation returns 0 for success or these bits, combined over its steps:
///   - 1: an argument was refused and nothing was sent, or the receiver holds another value than was written;
///   - 4: no reply arrived within the time limit;
///   - 8: a poll could not be written.
///
/// A step that fails does not stop the later ones. Commands are written and not acknowledged: one that could not be
/// written is only visible in the error log. Getters set their outputs when a reply was read and leave them as they
/// were otherwise, unless said so. Through the configuration interface of a ZED-F9T a poll that can't be written counts
/// as one without a reply.
///
/// Blocking: a poll waits at most 5 seconds for its reply, by the wall clock; "blocks for n replies" means at most n
/// times that. Operations without such a line return as soon as the port has taken what they send. A clock that is set
/// forward during a wait ends it early, one that is set back makes it longer by as much; a reply always ends it.
/// Signals end no wait, and are held back for the moments in which the port is opened, written and closed.
///
/// Threads: none inside. One thread at a time, and one conversation with the receiver at a time in the whole device.
///
/// GNSS masks: bit 0 GPS, 1 SBAS, 2 Galileo, 3 BeiDou, 4 IMES, 5 QZSS, 6 GLONASS.
///
/// "Legacy" are the UBX-CFG messages of a NEO-M8T, and of a ZED-F9T when it is told to use them; "configuration
/// interface" is the ZED-F9T's other way, see setZedf9tConfigurationInterfaceMode().
///
/// Nothing is deleted through this interface.
class UBXCONTROL_API UBXControlInterface
{
public:
    /// Model-specific start-up configuration. Neither model needs any.
    /// @sends nothing.
    /// @return 0.
    virtual int Init() = 0;

    /// Stores the present settings in battery-backed RAM and flash.
    /// @sends CFG-CFG, save mask 0x1E1F, device mask 0x13.
    /// @return 0.
    virtual int save() = 0;

    /// Loads the stored settings.
    /// @sends CFG-CFG, load mask 0x1E1F, device mask 0x13.
    /// @return 0.
    virtual int load() = 0;

    /// Clears the stored settings, applies the library's power, output and default configuration and stores that.
    /// @sends CFG-CFG with the clear mask, then what configExtendedPowerManagment(), configureUbxPolling(1), without a
    ///        USB node configureNmeaPolling(0), setDefaultConfiguration() and save() send.
    /// @return the statuses of all steps.
    /// @blocks for 5 replies.
    /// @models ZED-F9T: legacy messages, whatever the mode.
    virtual int resetFactoryDefaults() = 0;

    /// Clears the stored settings, then stores the receiver's present ones.
    /// @sends CFG-CFG with the clear mask 0x1E1F, then CFG-CFG with the save mask.
    /// @return 0.
    virtual int resetUbloxDefaults() = 0;

    /// Stops and starts the satellite search.
    /// @param hot  true keeps the navigation data, false drops it (cold start).
    /// @sends CFG-RST with reset mode 8 (stop), then with 9 (start).
    /// @return 0.
    virtual int restart(bool hot) = 0;

    /// Applies the library's defaults: protocols, cable delay 28 ns, GPS only, 9 dBHz, 10 degrees, stationary, 3D fix
    /// only, survey-in of three hours to 1 m, SBAS, automatic UTC standard.
    /// @sends what configureProtocols(), setAntennaDelay(28), setGnssSystem(1), setMinCNo(9), setElevationLimit(10),
    ///        setDynamicModel(2, 2), setSurveyAuto(), configureSBAS() and setUtcStandardAuto() send, in this order.
    /// @return the statuses of all steps.
    /// @blocks for 5 replies.
    /// @models ZED-F9T: legacy messages, whatever the mode.
    virtual int setDefaultConfiguration() = 0;

    /// Applies the defaults of an application that moves: portable, automatic 2D/3D fix, automatic UTC standard.
    /// @sends NEO-M8T: CFG-SBAS, CFG-NAV5, CFG-NAV5. ZED-F9T: what configureProtocols() sends, CFG-NAV5, CFG-NAV5.
    /// @return the statuses of all steps.
    /// @blocks NEO-M8T: not. ZED-F9T: for 1 reply.
    /// @models ZED-F9T: legacy messages, whatever the mode.
    virtual int setApplicationDefaults() = 0;

    /// Stops the satellite search, dropping the navigation data. The second time pulse is switched off only when the
    /// constellations can't be read.
    /// @sends the poll of getGnssSystem(); when that failed, what configTimePulse() sends; CFG-RST with reset mode 8;
    ///        the poll of isOn().
    /// @return 1 when the second time pulse is active; 4, 8.
    /// @blocks for 2 replies.
    virtual int turnOff() = 0;

    /// Starts the satellite search. The second time pulse is switched on only when the constellations can't be read.
    /// @sends CFG-RST with reset mode 9; the poll of getGnssSystem(); when that failed, what configTimePulse() sends;
    ///        the poll of isOn().
    /// @return 1 when the second time pulse is not active; 4, 8.
    /// @blocks for 2 replies.
    virtual int turnOn() = 0;

    /// Whether the receiver counts as on: its second time pulse is active.
    /// @param on  set when a reply arrived.
    /// @sends legacy: a poll of CFG-TP5 with index 1. Configuration interface: a poll of CFG-TP-TP2_ENA.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int isOn(bool& on) = 0;

    /// Asks for the reset record and prints it on standard output, a byte a line.
    /// @sends ZED-F9T: CFG-RST with four zeros, twice. NEO-M8T: nothing.
    /// @return 0, 4, 8.
    /// @blocks ZED-F9T: for up to 4 seconds.
    virtual int getResetInfo() = 0;

    /// The receiver's version record.
    /// @param info  one line: software, hardware, then the extensions, joined by ": ". Empty when it fails.
    /// @sends a poll of MON-VER.
    /// @return 0, 4, 8.
    /// @blocks for up to 4 seconds.
    virtual int getInfo(std::string& info) = 0;

    /// Switches the antenna supply, through the board and not the receiver.
    /// @param state  "ON" or "OFF", in upper or lower case letters.
    /// @sends nothing to the receiver.
    /// @return 0, also when the board's expander does not answer; 1 for another word.
    /// @models A model controller by itself does nothing and returns 0.
    virtual int setAntennaPower(std::string state) = 0;

    /// Sets the antenna cable delay.
    /// @param delayNs  ns, -32768 to 32767.
    /// @sends legacy: CFG-TP5 with the settings of the time pulse written last, and a poll of CFG-TP5. Configuration
    ///        interface: CFG-TP-ANT_CABLEDELAY, and a poll of it.
    /// @return 0; 1 out of range or read back different; 4, 8.
    /// @blocks for 1 reply.
    virtual int setAntennaDelay(int delayNs) = 0;

    /// The antenna cable delay.
    /// @param delayNs  ns.
    /// @sends legacy: a poll of CFG-TP5. Configuration interface: a poll of CFG-TP-ANT_CABLEDELAY.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getAntennaDelay(int& delayNs) = 0;

    /// Tells the interference monitor what antenna is fitted.
    /// @param type  "active" or "passive"; ZED-F9T also "unknown".
    /// @sends legacy: a poll of CFG-ITFM, then the reply with the antenna setting changed. Configuration interface:
    ///        CFG-ITFM-ANTSETTING, and a poll of it.
    /// @return 0; 1 for another word; 4, 8. Configuration interface also 1 when read back different.
    /// @blocks for 1 reply.
    virtual int setAntennaType(std::string type) = 0;

    /// The antenna type.
    /// @param type  "active", "passive" or "unknown". Configuration interface: unchanged for a value without a word.
    /// @sends legacy: a poll of CFG-ITFM. Configuration interface: a poll of CFG-ITFM-ANTSETTING.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getAntennaType(std::string& type) = 0;

    /// Selects the constellations and sets both time pulses to go with them.
    /// @param gnssMask  every value is sent.
    /// @param dualBand  whether the second frequency band is used too; NEO-M8T: ignored.
    /// @sends legacy: CFG-GNSS, CFG-TP5 for both pulses, and a poll of CFG-GNSS. Configuration interface: the CFG-
    ///        SIGNAL items, from firmware 2.20 on with BeiDou also CFG-BDS-USE_GEO_PRN, both time pulses, and a poll of
    ///        the constellations.
    /// @return 0; 1 when the receiver reports another selection; 4, 8.
    /// @blocks for 1 reply.
    /// @models Configuration interface: prints the selection on standard output. SBAS together with BeiDou is sent as
    ///         BeiDou without SBAS and verified as BeiDou alone; IMES is never read back. May throw what the firmware's
    ///         version calls for, see ubxController_ZEDF9T::checkUbloxChipFirmVer().
    virtual int setGnssSystem(unsigned short gnssMask, bool dualBand) = 0;

    /// As above, with both bands.
    /// @param gnssMask  every value is sent.
    /// @sends as above.
    /// @return as above.
    /// @blocks for 1 reply.
    virtual int setGnssSystem(unsigned short gnssMask) = 0;

    /// The selected constellations.
    /// @param gnssMask  legacy: set to 0 first, also when it fails. Configuration interface: the bits are added to the
    ///                  caller's.
    /// @sends legacy: a poll of CFG-GNSS. Configuration interface: a poll of the CFG-SIGNAL constellation items.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    /// @models Configuration interface: may throw as setGnssSystem().
    virtual int getGnssSystem(unsigned short& gnssMask) = 0;

    /// Switches interference detection.
    /// @param on  whether interference is looked for.
    /// @sends legacy: a poll of CFG-ITFM, then the reply changed. Configuration interface: CFG-ITFM-BBTHRESHOLD 3,
    ///        -CWTHRESHOLD 5, -ENABLE and -ENABLE_AUX 0, and a poll of CFG-ITFM-ENABLE.
    /// @return 0, 4, 8; configuration interface also 1 when read back different.
    /// @blocks for 1 reply.
    virtual int setJammingDetection(bool on) = 0;

    /// Whether interference detection is on.
    /// @param on  set when a reply arrived.
    /// @sends legacy: a poll of CFG-ITFM. Configuration interface: a poll of CFG-ITFM-ENABLE.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getJammingDetection(bool& on) = 0;

    /// The navigation solution as text, whatever its validity.
    /// @param what      "TIME" (2024-03-07T09:05+42:00, UTC), "FIX" (3D-FIX, for example), "POS" (latitude and
    ///                  longitude in degrees, height above the ellipsoid in metres) or "ALL"; empty means "ALL".
    /// @param solution  the parts, joined by commas.
    /// @sends a poll of NAV-PVT.
    /// @return 0; 1 for another word (logged); 4, 8.
    /// @blocks for 1 reply.
    virtual int getNavsolution(std::string what, std::string& solution) = 0;

    /// Changes the timing mode and keeps the survey parameters that the receiver holds. A poll that fails leaves the
    /// fields that it would have filled at 0 and is only logged.
    /// @param mode  "AUTO" (survey-in), "STATIC" (fixed position) or "DYNAMIC" (off).
    /// @sends polls of NAV-PVT and CFG-TMODE2, then CFG-TMODE2.
    /// @return 0; 1 for another word (logged).
    /// @blocks for 2 replies.
    /// @models Both: legacy messages. The receiver's latitude field gets the present longitude and the other way about.
    virtual int setSurveyMode(std::string mode) = 0;

    /// The timing mode.
    /// @param mode  "AUTO", "STATIC" or "DYNAMIC"; unchanged when the receiver reports none of them.
    /// @sends legacy: a poll of CFG-TMODE2. Configuration interface: a poll of CFG-TMODE-MODE.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getSurveyMode(std::string& mode) = 0;

    /// Sets a fixed position.
    /// @param latitude   degrees, -90 to 90.
    /// @param longitude  degrees, -180 to 180.
    /// @param height     m above the ellipsoid, -1000 to 10000.
    /// @param accuracy   m, 0.01 to 200.
    /// @sends legacy: CFG-TMODE2, and a poll of it. Configuration interface: the CFG-TMODE items of a fixed position,
    ///        and a poll of CFG-TMODE-MODE.
    /// @return 0; 1 out of range or when the receiver is in another mode; 4, 8.
    /// @blocks for 1 reply.
    virtual int setSurveyStatic(double latitude, double longitude, double height, double accuracy) = 0;

    /// Starts a survey-in.
    /// @param duration  shortest duration, s, 1 to 30,000,000.
    /// @param accuracy  accuracy limit, m, 0.01 to 50.
    /// @sends legacy: CFG-TMODE2, and a poll of it. Configuration interface: CFG-TMODE-SVIN_MIN_DUR, -SVIN_ACC_LIMIT
    ///        and -MODE, and a poll of each.
    /// @return 0; 1 out of range or read back different; 4, 8.
    /// @blocks legacy: for 1 reply. Configuration interface: for 3.
    virtual int setSurveyAuto(unsigned int duration, float accuracy) = 0;

    /// Survey-in of three hours to 1 m.
    /// @sends what setSurveyAuto(10800, 1.0) sends.
    /// @return as setSurveyAuto(10800, 1.0).
    /// @blocks as setSurveyAuto(10800, 1.0).
    virtual int setSurveyAuto() = 0;

    /// Switches the timing mode off.
    /// @sends legacy: CFG-TMODE2 with zeros, and a poll of it. Configuration interface: CFG-TMODE-SVIN_MIN_DUR,
    ///        -SVIN_ACC_LIMIT and -MODE 0, and a poll of CFG-TMODE-MODE.
    /// @return 0; 1 when the receiver is in another mode; 4, 8.
    /// @blocks for 1 reply.
    virtual int setSurveyDynamic() = 0;

    /// The timing mode's settings and the present position. Without the first reply the second is not asked for;
    /// without the second the position stays as it was.
    /// @param mode           0 off, 1 survey-in, 2 fixed position.
    /// @param latitude       degrees.
    /// @param longitude      degrees.
    /// @param height         m above the ellipsoid.
    /// @param accuracy       accuracy of the fixed position, m.
    /// @param duration       shortest survey-in duration, s.
    /// @param accuracyLimit  survey-in accuracy limit, m.
    /// @sends polls of CFG-TMODE2 and NAV-POSLLH.
    /// @return 0, 4, 8.
    /// @blocks for 2 replies.
    virtual int getSurveyInfo(unsigned char& mode, double& latitude, double& longitude, double& height,
                              double& accuracy, unsigned int& duration, float& accuracyLimit) = 0;

    /// The tracked satellites.
    /// @param satellites  a line each: number, constellation, "Used    " or "Not Used", quality 0 to 7 and C/N0 in
    ///                    dBHz, separated by tabs.
    /// @sends a poll of NAV-SAT.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getSatelliteInfo(std::string& satellites) = 0;

    /// How many satellites the navigation solution uses.
    /// @param count  satellites.
    /// @sends a poll of NAV-PVT.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getNofSatellitesInNavSol(unsigned char& count) = 0;

    /// Sets the lowest C/N0 of a satellite used for navigation.
    /// @param minCNo  dBHz, 0 to 50.
    /// @sends legacy: CFG-NAVX5, and a poll of it. Configuration interface: CFG-NAVSPG-INFIL_MINCNO, and a poll of it.
    /// @return 0; 1 out of range or read back different; 4, 8.
    /// @blocks for 1 reply.
    virtual int setMinCNo(signed char minCNo) = 0;

    /// The lowest C/N0 of a satellite used for navigation.
    /// @param minCNo  dBHz. Legacy: set to 0 first, also when it fails.
    /// @sends legacy: a poll of CFG-NAVX5. Configuration interface: a poll of CFG-NAVSPG-INFIL_MINCNO.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getMinCNo(signed char& minCNo) = 0;

    /// Sets the elevation mask.
    /// @param degrees  degrees, 5 to 60.
    /// @sends legacy: CFG-NAV5. Configuration interface: CFG-NAVSPG-INFIL_MINELEV, and a poll of it.
    /// @return 0; 1 out of range; configuration interface also 1 read back different, 4.
    /// @blocks legacy: not. Configuration interface: for 1 reply.
    virtual int setElevationLimit(unsigned char degrees) = 0;

    /// The elevation mask.
    /// @param degrees  degrees.
    /// @sends legacy: a poll of CFG-NAV5. Configuration interface: a poll of CFG-NAVSPG-INFIL_MINELEV.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getElevationLimit(unsigned char& degrees) = 0;

    /// Sets the dynamic platform model.
    /// @param model  the receiver's dynModel, not checked: 0 portable, 2 stationary.
    /// @sends CFG-NAV5.
    /// @return 0.
    virtual int setDynamicModel(unsigned char model) = 0;

    /// Sets the dynamic platform model and the fix mode.
    /// @param model    as above.
    /// @param fixMode  the receiver's fixMode, not checked: 1 2D only, 2 3D only, 3 automatic.
    /// @sends CFG-NAV5.
    /// @return 0.
    virtual int setDynamicModel(unsigned char model, unsigned char fixMode) = 0;

    /// The dynamic platform model and the fix mode.
    /// @param model    as above.
    /// @param fixMode  as above.
    /// @sends a poll of CFG-NAV5.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getDynamicModel(unsigned char& model, unsigned char& fixMode) = 0;

    /// Sets the fix mode.
    /// @param fixMode  as above.
    /// @sends CFG-NAV5.
    /// @return 0.
    virtual int setFixMode(unsigned char fixMode) = 0;

    /// Sets what the navigation epochs are aligned to.
    /// @param reference  "UTC" or "GPS"; ZED-F9T also "GLO", "BDS" and "GAL", which its legacy messages write as "GPS".
    /// @sends legacy: a poll of CFG-RATE, then the reply changed. Configuration interface: CFG-RATE-MEAS 1000 ms, -NAV
    ///        1, -TIMEREF, and a poll of CFG-RATE-TIMEREF.
    /// @return 0; 1 for another word; 4, 8. Configuration interface also 1 when read back different.
    /// @blocks for 1 reply.
    virtual int setTimeReference(std::string reference) = 0;

    /// The time reference.
    /// @param reference  legacy: "UTC" or "GPS", unchanged for others. Configuration interface: one of the five, "UTC"
    ///                   for others.
    /// @sends legacy: a poll of CFG-RATE. Configuration interface: a poll of CFG-RATE-TIMEREF.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    virtual int getTimeReference(std::string& reference) = 0;

    /// Sets the power mode.
    /// @param mode  "CONTINUOUS", "POWERSAVE" or "ECO".
    /// @sends a poll of CFG-RXM, then the reply changed.
    /// @return 0; 1 for another word; 4, 8.
    /// @blocks for 1 reply.
    /// @models ZED-F9T firmware from 2.20 on has none: nothing is sent, a line in the log, 0. May throw as
    ///         setGnssSystem().
    virtual int setRxMode(std::string mode) = 0;

    /// The power mode.
    /// @param mode  "CONTINUOUS", "POWERSAVE" or "ECO"; unchanged when the receiver reports none of them.
    /// @sends a poll of CFG-RXM.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    /// @models ZED-F9T firmware from 2.20 on: as setRxMode().
    virtual int getRxMode(std::string& mode) = 0;

    /// Lets the receiver choose the UTC standard.
    /// @sends legacy: CFG-NAV5. Configuration interface: CFG-NAVSPG-UTCSTANDARD 0.
    /// @return 0.
    virtual int setUtcStandardAuto() = 0;

    /// Sets the UTC standard that goes with a GNSS mask.
    /// @param gnssMask  1 to 72; automatic for masks that have none.
    /// @sends legacy: CFG-NAV5. Configuration interface: CFG-NAVSPG-UTCSTANDARD.
    /// @return 0.
    /// @models NEO-M8T: nothing is sent.
    virtual int setUtsStandardTime(signed char gnssMask) = 0;

    /// Output rate of the UBX messages that the device listens to.
    /// @param rate  every rate-th solution, 0 off.
    /// @sends NEO-M8T: CFG-MSG for NAV-SAT. ZED-F9T with a USB node: CFG-MSG for NAV-TIMEGPS, NAV-PVT, NAV-SOL and TIM-
    ///        SVIN, off, and NAV-SAT and NAV-SIG at the rate. ZED-F9T without: the CFG-MSGOUT items of the I2C port.
    /// @return 0.
    virtual int configureUbxPolling(unsigned char rate) = 0;

    /// Switches SBAS on for ranging and corrections.
    /// @sends CFG-SBAS.
    /// @return 0.
    virtual int configureSBAS() = 0;

    /// Output rate of seven NMEA sentences: GGA, GLL, GSA, GSV, RMC, VTG, ZDA.
    /// @param rate  every rate-th solution, 0 off.
    /// @sends CFG-MSG for each.
    /// @return 0.
    virtual int configureNmeaPolling(unsigned char rate) = 0;

    /// Output rate of a reduced set of NMEA sentences.
    /// @param rate  every rate-th solution, 0 off.
    /// @sends NEO-M8T: CFG-MSG for GSA and GSV, off, and GGA, GLL and ZDA at the rate. ZED-F9T: CFG-MSG for GSA and GSV
    ///        at the rate.
    /// @return 0.
    virtual int configurNmeaPollingPartial(unsigned char rate) = 0;

    /// Makes the port put out UBX and NMEA.
    /// @sends a poll of CFG-PRT, then the reply changed.
    /// @return 0, 4, 8.
    /// @blocks for 1 reply.
    /// @models ZED-F9T: the port takes both in, too; without a USB node the settings go to the receiver's USB port.
    virtual int configureProtocols() = 0;

    /// Sets up extended power management.
    /// @sends CFG-PM2.
    /// @return 0.
    /// @models ZED-F9T firmware from 2.20 on has none: nothing is sent, a line in the log, 0. May throw as
    ///         setGnssSystem().
    virtual int configExtendedPowerManagment() = 0;

    /// The flags of a legacy time-pulse message for a GNSS mask, with the active bit clear.
    /// @param gnssMask  the constellations in use.
    /// @sends nothing.
    /// @return 0x76 for the time grid of UTC, 0xF6 for that of GPS: no status.
    /// @models UTC for the masks 8, 10, 64, 66, 72; ZED-F9T also 4, 6 and 68.
    virtual int getUtcGrid(unsigned short gnssMask) = 0;

    /// Sets up a time pulse: one second, 100 ms long when locked, on the time grid that goes with the constellations.
    /// @param gnssMask  the constellations in use.
    /// @param pulse     0 or 1.
    /// @param active    whether the pulse is put out.
    /// @sends legacy: CFG-TP5, with the cable delay written last. Configuration interface: the CFG-TP items of the
    ///        pulse, with the cable delay set to 0.
    /// @return 0.
    virtual int configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active) = 0;

    /// The local time of day as log lines begin: "14:03:07_042: ".
    /// @sends nothing.
    /// @return the text.
    virtual std::string timeStamp() = 0;

    /// Chooses how a ZED-F9T is configured, from the next call on.
    /// @param on  true: configuration interface; false: legacy messages.
    /// @sends nothing.
    /// @return 0.
    /// @models NEO-M8T: nothing happens.
    virtual int setZedf9tConfigurationInterfaceMode(bool on) = 0;

    /// Sends the group delay of the first time pulse.
    /// @param delayNs  ns.
    /// @sends ZED-F9T: CFG-TP-USER_DELAY_TP1 in a frame of CFG-VALGET. NEO-M8T: nothing.
    /// @return 0.
    virtual int programGroupDelayCal(int delayNs) = 0;

protected:
    UBXControlInterface() = default;
    UBXControlInterface(const UBXControlInterface&) = default;
    UBXControlInterface& operator=(const UBXControlInterface&) = default;
    ~UBXControlInterface() = default;
};

#pragma once

#include <ubxExport.h>

/// Fills the payloads with which a ZED-F9T is set and asked through its configuration items.
///
/// Every operation takes the caller's buffer first, writes a payload from its first byte on and returns the payload's
/// length in bytes; nothing behind that length is touched. The caller sends it in a UBXMessage: what a `configure...`
/// or `set...` operation made as UBX-CFG-VALSET (0x068A), what a `poll...` operation made as UBX-CFG-VALGET (0x068B).
/// Settings go to the receiver's RAM only and are lost with its power.
///
/// No payload reaches 300 bytes, so a buffer of that size serves all of them; the size is not checked. Arguments are
/// written as they are: ranges are the caller's business. Nothing fails, blocks, allocates or is remembered, so that
/// any number of threads may call, each with a buffer of its own. The operations are static and may also be called on
/// an object.
class UBXCONTROL_API ZedF9tUbxMessageBuilder
{
public:
    // Single fields, for payloads of the caller's own. Each writes at `position`, lowest byte first, moves `position`
    // behind what it wrote and returns it. The first field of a payload stands at position 4, behind the header.

    /// Writes the 4 bytes of a configuration key's id.
    static unsigned short configureKeyId(unsigned char* buffer, unsigned short& position, unsigned int keyId);
    /// Writes a value of 1 byte: booleans (0 or 1), enumerations and small numbers.
    static unsigned short configureData1(unsigned char* buffer, unsigned short& position, unsigned char value);
    /// Writes a value of 2 bytes.
    static unsigned short configureData2(unsigned char* buffer, unsigned short& position, unsigned short value);
    /// Writes a value of 4 bytes.
    static unsigned short configureData4(unsigned char* buffer, unsigned short& position, unsigned int value);
    /// Writes a value of 8 bytes.
    static unsigned short configureData8(unsigned char* buffer, unsigned short& position, unsigned long value);
    /// Writes the header of a setting, bytes 0 to 3: version 0, RAM layer. A poll has 0 in bytes 0 and 1.
    static void configureCfgHeader(unsigned char* buffer);

    // Polls. The reply holds a header of 4 bytes, then each key with its value in the order given here.

    /// Antenna cable delay.
    static unsigned int poll_AntennaTimeBias(unsigned char* buffer);
    /// Whether interference detection is on.
    static unsigned int poll_Jamming(unsigned char* buffer);
    /// Antenna type of the interference monitor.
    static unsigned int poll_AntennaType(unsigned char* buffer);
    /// Time reference of the navigation solution.
    static unsigned int polll_CFG_RATE(unsigned char* buffer);
    /// Whether GPS, SBAS, Galileo, BeiDou, QZSS and GLONASS are on, in this order.
    static unsigned int poll_SIGNALConfiguration(unsigned char* buffer);
    /// The same and NavIC, which firmware before TIM 2.20 does not know.
    static unsigned int poll_SIGNALConfigurationForTim2_20(unsigned char* buffer);
    /// Whether a time pulse is on.
    /// @param pulse 0 for the first, 1 for the second; with any other number the payload is the header alone.
    static unsigned int poll_CFG_TP_Enable(unsigned char* buffer, unsigned char pulse);
    /// Timing mode.
    static unsigned int poll_TMODE(unsigned char* buffer);
    /// Least duration of a survey.
    static unsigned int poll_SvinMinDurConfiguration(unsigned char* buffer);
    /// Accuracy that a survey has to reach.
    static unsigned int poll_SurveyAccuracyConfiguration(unsigned char* buffer);
    /// All of the timing mode: mode, position type, latitude, longitude, height, position accuracy, survey duration,
    /// survey accuracy.
    static unsigned int poll_CFG_TMODE(unsigned char* buffer);
    /// Least elevation of a satellite used for navigation.
    static unsigned int poll_NAV5Elevation(unsigned char* buffer);
    /// UTC standard.
    static unsigned int poll_NAV5UtcStandard(unsigned char* buffer);
    /// Least carrier-to-noise ratio of a satellite used for navigation.
    static unsigned int poll_NAVX5(unsigned char* buffer);

    // Message output. A rate is the number of navigation epochs from one output to the next, 0 for none.

    /// NAV-TIMEGPS, NAV-TIMEUTC, NAV-SAT, NAV-SIG, NAV-PVT, NAV-STATUS, MON-HW and TIM-SVIN on I2C.
    static unsigned int setMessageRateForUbxForI2C(unsigned char* buffer, const unsigned char& rate);
    /// NAV-SIG and MON-HW on I2C.
    static unsigned int setMessageRateForDualUbxForI2C(unsigned char* buffer, const unsigned char& rate);
    /// Lets UBX out on USB, then NAV-TIMEGPS, NAV-TIMEUTC, NAV-SAT, NAV-SIG, NAV-PVT, NAV-STATUS, MON-HW and NAV-SVIN
    /// there. Firmware TIM 2.20 does not know NAV-SVIN and refuses the whole payload.
    static unsigned int setMessageRateForUbxForUSB(unsigned char* buffer, const unsigned char& rate);
    /// NAV-SIG and MON-HW on USB.
    static unsigned int setMessageRateForDualUbxForUSB(unsigned char* buffer, const unsigned char& rate);
    /// NMEA ZDA and GGA on I2C.
    static unsigned int setMessageRateForNmea(unsigned char* buffer, const unsigned char& rate);
    /// RTCM 1005, 1077, 1087, 1097, 1127, 1230 and 4072.1 on UART2, and RXM-RTCM on I2C.
    static unsigned int setMessageRateForRtcm(unsigned char* buffer, const unsigned char& rate);
    /// NMEA on I2C: GGA and RMC each epoch; no ZDA, GLL, GSA, GSV or VTG.
    static unsigned int configureI2C(unsigned char* buffer);
    /// UART1: the line speed, and no NMEA (GGA, GLL, GSA, GSV, RMC, VTG). UART2: RTCM 3 both ways.
    /// @param baudRate bit/s of UART1.
    static unsigned int configureUART(unsigned char* buffer, unsigned int baudRate);

    // Settings

    /// The whole interference monitor.
    /// @param enable turns the monitor on.
    /// @param bbThreshold, cwThreshold broadband and continuous-wave detection thresholds in dB.
    /// @param enableAux also watches the auxiliary band.
    /// @param antennaSetting 0 unknown, 1 passive, 2 active.
    static unsigned int configureITFM(unsigned char* buffer, bool enable, unsigned char bbThreshold,
                                      unsigned char cwThreshold, bool enableAux, unsigned char antennaSetting);
    /// The interference monitor without its antenna type; arguments as for configureITFM().
    static unsigned int configureJamming(unsigned char* buffer, bool enable, unsigned char bbThreshold,
                                         unsigned char cwThreshold, bool enableAux);
    /// @param type antenna type of the interference monitor: 0 unknown, 1 passive, 2 active.
    static unsigned int configureAntennaType(unsigned char* buffer, unsigned char type);
    /// @param degrees least elevation of a satellite used for navigation; the receiver reads the byte as signed.
    static unsigned int configureNAV5Elevation(unsigned char* buffer, unsigned char degrees);
    /// @param standard the receiver's number of a UTC standard, 0 for automatic.
    static unsigned int configureNAV5UtcStandard(unsigned char* buffer, unsigned char standard);
    /// Both of the above.
    static unsigned int configureNAV5(unsigned char* buffer, unsigned char degrees, unsigned char standard);
    /// @param minCNo least carrier-to-noise ratio, in dBHz, of a satellite used for navigation.
    static unsigned int configureNAVX5(unsigned char* buffer, unsigned char minCNo);
    /// @param nanoseconds antenna cable delay, -32768 to 32767; of any other number the low 16 bits are written.
    static unsigned int setAntennaTimeBias(unsigned char* buffer, int nanoseconds);
    /// @param delay group delay of the first time pulse in nanoseconds.
    static unsigned int setGnssGroupDelay(unsigned char* buffer, int delay);
    /// One navigation solution per second, each from one measurement.
    /// @param timeReference of the solution: 0 UTC, 1 GPS, 2 GLONASS, 3 BeiDou, 4 Galileo.
    static unsigned int configureRATE(unsigned char* buffer, unsigned char timeReference);
    /// The whole timing mode; the position is given as latitude, longitude and height.
    /// @param mode 0 off, 1 survey-in, 2 fixed position.
    /// @param lat, lon 1e-7 degrees.
    /// @param height centimetres.
    /// @param fixedPosAcc accuracy of the fixed position, 0.1 mm.
    /// @param svinMinDur least duration of a survey, seconds.
    /// @param svinAccLimit accuracy that a survey has to reach, 0.1 mm.
    static unsigned int configureTMODE(unsigned char* buffer, unsigned char mode, int lat, int lon, int height,
                                       unsigned int fixedPosAcc, unsigned int svinMinDur, unsigned int svinAccLimit);
    /// The survey, then the timing mode; arguments as for configureTMODE().
    static unsigned int configureSurveyInMode(unsigned char* buffer, unsigned char mode, unsigned int svinMinDur,
                                              unsigned int svinAccLimit);
    /// The fixed position, then the timing mode; arguments as for configureTMODE().
    static unsigned int configureFixedMode(unsigned char* buffer, unsigned char mode, int lat, int lon, int height,
                                           unsigned int fixedPosAcc);
    /// SBAS: satellites in test mode, ranging and corrections are used, integrity information is not; the PRNs searched
    /// for are 120, 123, 125 to 129, 133, 135 to 138, 140 and 141.
    static unsigned int configureSBAS(unsigned char* buffer);
    /// Lets the receiver use the geostationary BeiDou satellites.
    static unsigned int configureBdsSystemConfig(unsigned char* buffer);
    /// Full power. Firmware without power modes refuses the payload.
    /// @param mode not looked at: a timing receiver is never to save power.
    static unsigned int configureExtendedPowerManagement(unsigned char* buffer, unsigned char mode);
    /// A time pulse of one second and, while locked to GNSS time, 100 ms; without lock there is no pulse. Also sets the
    /// antenna cable delay to 0, so that a delay has to be set again afterwards.
    /// @param pulse 0 for the first, 1 for the second; any other number sets only what both share.
    /// @param timeGrid 0 UTC, 1 GPS, 2 GLONASS, 3 BeiDou, 4 Galileo.
    /// @param enable turns the pulse on.
    static unsigned int configureTP(unsigned char* buffer, unsigned char pulse, unsigned char timeGrid, bool enable);
    /// Constellations and their signals, for firmware before TIM 2.20.
    /// @param gnss seven flags: GPS, SBAS, Galileo, BeiDou, IMES (not looked at), QZSS, GLONASS. Read only.
    /// @param dualBand also uses the second band of each constellation that is on.
    static unsigned int configureSIGNAL(unsigned char* buffer, bool* gnss, bool dualBand);
    /// The same for firmware from TIM 2.20 on. Also turns off the signals of units with other bands: GPS L5, Galileo
    /// E5a, BeiDou B1C and B2a, QZSS L5, NavIC L5.
    /// @param gnss eight flags: the seven above and NavIC. Read only.
    /// @param dualBand as above.
    static unsigned int configureSIGNALForTim2_20(unsigned char* buffer, bool* gnss, bool dualBand);
};

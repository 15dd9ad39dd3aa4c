#include "Configuration.h"

#include <cmath>
#include <string>

#include "Settings.h"

namespace demo
{

namespace
{

constexpr unsigned short kGps = 0x01;
constexpr unsigned short kGalileo = 0x04;
constexpr unsigned short kBeiDou = 0x08;
constexpr unsigned short kGlonass = 0x40;

class Form
{
public:
    Form(UBXControlInterface& receiver, Transcript& transcript) : receiver_(receiver), transcript_(transcript) {}

    /// Sets, then reads the setting of this name. @param status  what setting it returned.
    void verified(const std::string& name, const std::string& wanted, int status)
    {
        std::string readBack;
        status |= readable(name).read(receiver_, readBack);
        // Firmware without power modes leaves the word empty and says so in the error log.
        if (readBack.empty() && status == 0) readBack = "not in this firmware";
        transcript_.setting(name, wanted, readBack, status);
    }

    void unverified(const std::string& name, const std::string& wanted, int status)
    {
        transcript_.setting(name, wanted, "-", status);
    }

private:
    UBXControlInterface& receiver_;
    Transcript& transcript_;
};

/// "47.38 N 8.54 E"
std::string place(const Wanted& wanted)
{
    return measured(std::abs(wanted.latitude), 2, wanted.latitude < 0 ? "S " : "N ") +
           measured(std::abs(wanted.longitude), 2, wanted.longitude < 0 ? "W" : "E");
}

} // namespace

const Wanted kThroughConfigurationInterface{
    kGps | kGalileo | kBeiDou, "active", 28, true, 20, 12, 2, 2, "GPS", 47.3769, 8.5417, 455.0, 0.5, 60, 5.0F};
const Wanted kThroughLegacyMessages{
    kGps | kGalileo | kGlonass, "passive", 50, false, 9, 10, 0, 3, "UTC", -33.8568, 151.2153, 25.0, 1.0, 90, 2.0F};
const Wanted kForNeoM8t{kGps | kGlonass, "active", 28,     true,  20,  12, 2,   2,
                        "GPS",           47.3769,  8.5417, 455.0, 0.5, 60, 5.0F};

void configure(UBXControlInterface& receiver, const Wanted& wanted, Transcript& transcript)
{
    Form form(receiver, transcript);
    transcript.settingColumns();

    form.unverified("protocols", "UBX and NMEA", receiver.configureProtocols());
    form.verified("constellations", constellations(wanted.gnssMask), receiver.setGnssSystem(wanted.gnssMask));
    form.unverified("SBAS", "ranging and corrections", receiver.configureSBAS());
    // The type first: as a legacy message it takes the jamming detection's bit with it.
    form.verified("antenna type", wanted.antennaType, receiver.setAntennaType(wanted.antennaType));
    form.verified("jamming detection", wanted.jammingDetection ? "on" : "off",
                  receiver.setJammingDetection(wanted.jammingDetection));
    form.verified("antenna cable delay", std::to_string(wanted.cableDelayNs) + " ns",
                  receiver.setAntennaDelay(wanted.cableDelayNs));
    form.verified("minimum C/N0", std::to_string(wanted.minCNo) + " dBHz", receiver.setMinCNo(wanted.minCNo));
    form.verified("elevation limit", std::to_string(wanted.elevationLimit) + " degrees",
                  receiver.setElevationLimit(wanted.elevationLimit));
    form.verified("dynamic model", dynamics(wanted.dynamicModel, wanted.fixMode),
                  receiver.setDynamicModel(wanted.dynamicModel, wanted.fixMode));
    form.verified("time reference", wanted.timeReference, receiver.setTimeReference(wanted.timeReference));
    form.unverified("UTC standard", "automatic", receiver.setUtcStandardAuto());
    form.verified("power mode", "CONTINUOUS", receiver.setRxMode("CONTINUOUS"));
    form.unverified("first time pulse", "on", receiver.configTimePulse(wanted.gnssMask, 0, true));
    form.verified("second time pulse", "on", receiver.configTimePulse(wanted.gnssMask, 1, true));
    form.unverified("UBX output", "every solution", receiver.configureUbxPolling(1));
    form.unverified("NMEA output", "every solution", receiver.configureNmeaPolling(1));
    form.verified("timing mode", "STATIC at " + place(wanted),
                  receiver.setSurveyStatic(wanted.latitude, wanted.longitude, wanted.height, wanted.accuracy));
    form.verified("timing mode",
                  "AUTO: " + std::to_string(wanted.surveyDuration) + " s, " + measured(wanted.surveyAccuracy, 1, "m"),
                  receiver.setSurveyAuto(wanted.surveyDuration, wanted.surveyAccuracy));
    form.unverified("stored settings", "all of these", receiver.save());
}

} // namespace demo

#pragma once

#include <array>
#include <string>

#include <UBXControlInterface.h>
#include <UBXMessage.h>

#include "controller/legacy/LegacyProfile.h"
#include "link/ReceiverLink.h"
#include "protocol/payloads/CfgTp5.h"

namespace ubx
{

/// A complete CFG-TP5 payload.
using TimePulseTemplate = std::array<unsigned char, cfgTp5::size>;

/// As both models begin with it: pulse 0, no delays, one second, 100 ms long when locked, on the time grid of GPS,
/// active.
inline constexpr TimePulseTemplate kTimePulseTemplate = {
    0,    1,    0,    0,    // tpIdx, version
    0,    0,    0,    0,    // antCableDelay, rfGroupDelay: 0 ns
    0x40, 0x42, 0x0F, 0x00, // freqPeriod: 1000000 us
    0x40, 0x42, 0x0F, 0x00, // freqPeriodLock: 1000000 us
    0x00, 0x00, 0x00, 0x00, // pulseLenRatio: 0 us
    0xA0, 0x86, 0x01, 0x00, // pulseLenRatioLock: 100000 us
    0x00, 0x00, 0x00, 0x00, // userConfigDelay: 0 ns
    0xF7, 0x00, 0x00, 0x00, // flags
};

/// Commands and queries through the per-topic UBX-CFG messages, for every model.
///
/// All commands read the same way: check, fill, send, verify. Values are verified through the controller's own
/// operations, so that a controller which reads them in another way is asked in that way.
class LegacyOperations
{
public:
    /// @param self               the controller that these operations belong to.
    /// @param timePulseTemplate  changed in place and shared by all controllers of a model: the delay written once
    ///                           stays in every later time-pulse message.
    LegacyOperations(UBXControlInterface& self, ReceiverLink& link, const LegacyProfile& profile,
                     TimePulseTemplate& timePulseTemplate)
        : self_(self), link_(link), profile_(profile), timePulseTemplate_(timePulseTemplate)
    {}

    // Storage.cpp
    int save();
    int load();
    int resetUbloxDefaults();
    int resetFactoryDefaults();
    int setDefaultConfiguration();

    // RunControl.cpp
    static UBXMessage constructGNSSOffMessage(bool hot);
    static UBXMessage constructGNSSOnMessage();
    int restart(bool hot);
    int turnOff();
    int turnOn();
    int isOn(bool& on);

    // TimePulse.cpp
    int setAntennaDelay(int delayNs);
    int getAntennaDelay(int& delayNs);
    int getUtcGrid(unsigned short gnssMask) const;
    int configTimePulse(unsigned short gnssMask, unsigned char pulse, bool active);

    // Constellations.cpp
    int setGnssSystem(unsigned short gnssMask, bool dualBand);
    int getGnssSystem(unsigned short& gnssMask);
    int configureSBAS();

    // TimingMode.cpp
    int setSurveyStatic(double latitude, double longitude, double height, double accuracy);
    int setSurveyAuto(unsigned int duration, float accuracy);
    int setSurveyAuto();
    int setSurveyDynamic();
    int getSurveyMode(std::string& mode);

    // Navigation.cpp
    int setMinCNo(signed char minCNo);
    int getMinCNo(signed char& minCNo);
    int setElevationLimit(unsigned char degrees);
    int getElevationLimit(unsigned char& degrees);
    int setDynamicModel(unsigned char model);
    int setDynamicModel(unsigned char model, unsigned char fixMode);
    int getDynamicModel(unsigned char& model, unsigned char& fixMode);
    int setFixMode(unsigned char fixMode);
    int setUtcStandardAuto();
    int setUtsStandardTime(signed char gnssMask);

    // Interference.cpp
    int setAntennaType(const std::string& type);
    int getAntennaType(std::string& type);
    int setJammingDetection(bool on);
    int getJammingDetection(bool& on);

    // Receiver.cpp
    int setTimeReference(const std::string& reference);
    int getTimeReference(std::string& reference);
    int setRxMode(const std::string& mode);
    int getRxMode(std::string& mode);
    int configExtendedPowerManagment();

    // Output.cpp
    static UBXMessage createMessageRateByClassIDMessage(unsigned short classId, unsigned char rate);
    void sendMessageRate(unsigned short classId, unsigned char rate);
    int configureUbxPolling(unsigned char rate);
    int configureNmeaPolling(unsigned char rate);
    int configurNmeaPollingPartial(unsigned char rate);
    int configureProtocols();

private:
    UBXControlInterface& self_;
    ReceiverLink& link_;
    const LegacyProfile& profile_;
    TimePulseTemplate& timePulseTemplate_;

    int sendTimePulseTemplate();
};

/// A poll of the message of this class/id.
inline UBXMessage emptyPoll(UBXMessageClassIdValues classId)
{
    return UBXMessage(classId, 0, nullptr);
}

/// The reply once more, to be changed and sent back, as long as it came.
inline UBXMessage copyOf(const Reply& reply)
{
    return UBXMessage(reply.message());
}

/// Writes a field of a message; bytes that the message does not have stay not there.
template <typename T>
void change(UBXMessage& message, Field<T> field, typename Field<T>::Value value)
{
    for (std::size_t i = 0; i < field.width; ++i) {
        message.setByte(field.offset + i, static_cast<unsigned char>((value >> (8 * i)) & 0xFF));
    }
}

} // namespace ubx

#pragma once

#include <UBXControlInterface.h>

#include "Transcript.h"

namespace demo
{

/// What the demo sets. Two sets with other values show that the second is what the receiver holds afterwards.
struct Wanted
{
    unsigned short gnssMask;
    const char* antennaType;
    int cableDelayNs;
    bool jammingDetection;
    signed char minCNo;
    unsigned char elevationLimit;
    unsigned char dynamicModel;
    unsigned char fixMode;
    const char* timeReference;
    double latitude, longitude, height, accuracy;
    unsigned int surveyDuration; // s
    float surveyAccuracy;        // m
};

/// For the configuration interface of a ZED-F9T, for its legacy messages, and for a NEO-M8T, which has those only.
extern const Wanted kThroughConfigurationInterface;
extern const Wanted kThroughLegacyMessages;
extern const Wanted kForNeoM8t;

/// Sets everything, reads back what can be read and shows both.
void configure(UBXControlInterface& receiver, const Wanted& wanted, Transcript& transcript);

} // namespace demo

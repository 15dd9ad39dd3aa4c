#pragma once

#include "simulator/faults/Script.h"
#include "simulator/receiver/SimTime.h"
#include "simulator/receiver/Sky.h"

#include <variant>

namespace ubxsim
{

enum class EventKind
{
    say,         // `bytes` appear on the line
    hangUp,      // the device goes away
    comeBack,    // and returns
    stopReading, // the host's writes meet a full line
    resumeReading,
    restart,   // the receiver restarts by itself
    losePower, // and has kept its battery-backed memory
    losePowerAndBattery,
    jamming,    // on or off
    satellites, // on or off
    antenna,
    hopelessSurvey, // on or off
    leapSecond,     // ten seconds from now
    weekRollover,   // ten seconds from now
    clearFaults,
};

/// Something that happens to the receiver, whatever the host asks.
struct Event
{
    EventKind kind = EventKind::restart;
    Bytes bytes;
    bool on = true;
    AntennaState antenna = AntennaState::ok;
};

/// A fault that comes into force, or an event, at a time of the receiver.
struct Action
{
    SimTime at{0};
    std::variant<Fault, Event> what;
};

} // namespace ubxsim

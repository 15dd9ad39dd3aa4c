#pragma once

#include <functional>

#include <UBXControlInterface.h>
#include <UBXMessage.h>

#include "Transcript.h"

namespace demo
{

/// Whether a receiver can be asked for a message. A recording holds only some.
using CanAnswer = std::function<bool(UBXMessageClassIdValues)>;

/// Every setting as the receiver holds it.
void showSettings(UBXControlInterface& receiver, const CanAnswer& canAnswer, Transcript& transcript);

/// Waits, for 40 seconds at most: a change of the constellations makes the receiver look for the satellites anew.
void waitForFix(UBXControlInterface& receiver, Transcript& transcript);

/// Versions, navigation solution, survey and satellites.
void showReports(UBXControlInterface& receiver, const CanAnswer& canAnswer, Transcript& transcript);

} // namespace demo

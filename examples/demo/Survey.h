#pragma once

#include <UBXControlInterface.h>

#include "Transcript.h"

namespace demo
{

/// Starts a survey of three hours and watches it, a line a second, until it has ended or stands still for 30 seconds.
///
/// Meant for a receiver whose time runs fast.
/// @return whether it ended valid, with a time-only fix.
bool watchSurvey(UBXControlInterface& receiver, Transcript& transcript);

} // namespace demo

#pragma once

#include "output/Report.h"
#include "session/Receiver.h"
#include "settings/Setting.h"

namespace ubxctl
{

/// Reads one setting and adds it. @return the status of the reading.
int addSetting(Report& report, Receiver& receiver, const Setting& setting);

/// All of them. @return their status; stops asking a receiver that does not answer.
int addSettings(Report& report, Receiver& receiver);

/// "28 ns"
std::string shownWithUnit(const Setting& setting, const Value& value);

} // namespace ubxctl

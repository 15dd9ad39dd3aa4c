#pragma once

#include <functional>
#include <string>

#include "commandline/Command.h"

namespace ubxctl
{

/// Runs an operation that writes on the identified receiver and says how it went.
Outcome write(Session& session, const std::string& command, const std::function<int(UBXControlInterface&)>& operation);

/// A command that is one operation without arguments.
std::function<Action(CLI::App&)> writing(const std::string& command, int (UBXControlInterface::*operation)());

/// "done", "refused", "no reply" or "not written".
const char* resultWord(int status);

} // namespace ubxctl

#include "commands/Write.h"

#include "session/Failure.h"

namespace ubxctl
{

const char* resultWord(int status)
{
    if ((status & kNotWritten) != 0) return "not written";
    if ((status & kNoReply) != 0) return "no reply";
    return status == kDone ? "done" : "refused";
}

Outcome write(Session& session, const std::string& command, const std::function<int(UBXControlInterface&)>& operation)
{
    Outcome outcome{Report(command)};
    outcome.status = session.knownReceiver().write(operation);
    outcome.report.data("result", resultWord(outcome.status));
    outcome.report.line(Cell(resultWord(outcome.status), outcome.status == kDone ? Tone::good : Tone::bad));
    return outcome;
}

std::function<Action(CLI::App&)> writing(const std::string& command, int (UBXControlInterface::*operation)())
{
    return plain([command, operation](Session& session) {
        return write(session, command, [operation](UBXControlInterface& control) { return (control.*operation)(); });
    });
}

} // namespace ubxctl

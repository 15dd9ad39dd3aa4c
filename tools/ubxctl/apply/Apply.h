#pragma once

#include <optional>
#include <string>
#include <vector>

#include "apply/StateFile.h"
#include "session/Session.h"

namespace ubxctl
{

/// What became of a setting.
enum class Fate
{
    unchanged,    ///< it was so already
    different,    ///< a dry run: it would be written
    applied,      ///< written, and read back as wanted
    refused,      ///< the receiver holds another value, or has no such setting
    notConfirmed, ///< written, but not read back
    noReply       ///< it could not be read, and was not written
};

/// As shown: "not confirmed".
const char* wordFor(Fate fate);

struct Difference
{
    WantedSetting wanted;
    std::optional<Value> before = {};
    std::optional<Value> after = {};
    Fate fate = Fate::unchanged;
    int status = 0;
};

/// Reads the wanted settings and tells which differ. Nothing is written.
std::vector<Difference> compare(Receiver& receiver, const std::vector<WantedSetting>& wanted);

/// Writes what differs, and looks at everything once more at the end: what was right first may have been disturbed.
void apply(Receiver& receiver, std::vector<Difference>& differences);

/// The table that apply ends with, and the statuses together.
Outcome reportOf(const std::vector<Difference>& differences, bool dryRun);

} // namespace ubxctl

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "session/Receiver.h"
#include "settings/Value.h"

namespace ubxctl
{

struct Reading
{
    int status = 0;
    std::optional<Value> value = {}; ///< None with status 0: this receiver has no such setting.
};

/// One setting of the receiver, and all that ubxctl knows of it.
struct Setting
{
    const char* key;     ///< as typed: "cable-delay"
    const char* jsonKey; ///< "cable_delay_ns"
    const char* label;   ///< "Antenna cable delay"
    const char* help;
    Format format;
    Reading (*get)(Receiver&);
    int (*set)(Receiver&, const Value&);
    /// Settings that writing this one changes on the way, by key. They come later in the table.
    std::vector<const char*> disturbs = {};
};

/// In the order in which they are to be written.
const std::vector<Setting>& allSettings();

/// Null when there is none.
const Setting* findSetting(std::string_view key);

/// What came of writing a setting.
struct Change
{
    int status = 0;
    std::optional<Value> holds = {}; ///< What the receiver holds afterwards, where it could be read.
};

/// Writes a setting, reads it back, and puts right what was disturbed on the way.
Change change(Receiver& receiver, const Setting& setting, const Value& value);

/// Keeps settings as they are over something that disturbs them.
class Preserved
{
public:
    Preserved(Receiver& receiver, const std::vector<const char*>& keys);

    /// Writes again those that have changed. @return their status.
    int restore();

private:
    Receiver& receiver_;
    std::vector<std::pair<const Setting*, Value>> values_;
};

} // namespace ubxctl

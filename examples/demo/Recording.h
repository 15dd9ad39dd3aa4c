#pragma once

#include <map>
#include <string>

#include <UBXMessage.h>

namespace demo
{

/// What a recording of a receiver holds.
class Recording
{
public:
    /// Looks through the file for frames. @throws std::runtime_error where it can't be read or holds none.
    explicit Recording(const std::string& file);

    bool holds(UBXMessageClassIdValues message) const { return messages_.count(message) != 0; }

    /// How many frames of which kind, in words: the name the catalogue has for them, and their number.
    const std::map<UBXMessageClassIdValues, std::pair<std::string, int>>& messages() const { return messages_; }

private:
    std::map<UBXMessageClassIdValues, std::pair<std::string, int>> messages_;
};

} // namespace demo

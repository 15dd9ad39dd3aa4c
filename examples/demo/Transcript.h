#pragma once

#include <iosfwd>
#include <string>

namespace demo
{

/// What the demo did, as a person reads it, and whether it succeeded.
class Transcript
{
public:
    /// @param colours  for a terminal that shows them.
    Transcript(std::ostream& out, bool colours);

    void title(const std::string& text);
    void heading(const std::string& text);
    void note(const std::string& text);
    void fact(const std::string& name, const std::string& value);
    void line(const std::string& text); ///< one that belongs to the fact above it
    void row(const std::string& text);  ///< of a table
    void absent(const std::string& name, const std::string& why);

    /// The names of the columns of the settings that follow.
    void settingColumns();

    /// A setting: what was set, what the receiver says that it holds, and what the operations returned, combined.
    /// @param readBack  empty for settings that can't be read.
    void setting(const std::string& name, const std::string& wanted, const std::string& readBack, int status);

    /// An operation with nothing to show but what it returned.
    void operation(const std::string& name, const std::string& detail, int status);

    /// Says how many operations there were, and which of them failed.
    /// @return whether all of them returned 0.
    bool summary();

private:
    std::string outcome(int status);
    void count(const std::string& name, int status);

    std::ostream& out_;
    bool colours_;
    int operations_ = 0;
    int failures_ = 0;
    std::string failed_;
};

/// A number with so many digits behind the point, and its unit.
std::string measured(double value, int digits, const std::string& unit);

} // namespace demo

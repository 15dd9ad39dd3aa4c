#pragma once

#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "messages/Survey.h"
#include "output/Report.h"

namespace ubxctl
{

/// What the receiver does about its own position.
struct TimingMode
{
    enum class Kind
    {
        dynamic,
        survey,
        fixed
    };

    Kind kind = Kind::dynamic;
    unsigned int duration = 0; ///< s, of a survey: at least
    double accuracy = 0;       ///< m: that a survey has to reach, or of the fixed position
    Position position{};       ///< the fixed position
};

/// A setting's value: a number, or what a word stands for, or a mask of constellations, or the timing mode.
using Value = std::variant<long, TimingMode>;

/// A value that can't be taken. The text says what can.
struct BadValue : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

struct NumberRange
{
    long lowest;
    long highest;
};

struct Word
{
    const char* text;
    long value;
};

/// How the values of a setting look. Exactly one of range and words for most; none for the timing mode.
class Format
{
public:
    static Format number(NumberRange range, const char* unit);
    static Format word(std::vector<Word> words);
    static Format constellations();
    static Format timingMode();

    /// @throws BadValue
    Value parse(const std::string& text) const;
    std::string show(const Value& value) const; ///< as parse() takes it
    Json json(const Value& value) const;
    bool same(const Value& one, const Value& other) const; ///< to what the receiver can tell apart
    std::string choices() const;                           ///< "-32768 to 32767 ns", "active, passive, unknown"
    const std::string& unit() const { return unit_; }
    std::vector<std::string> words() const; ///< for completion

private:
    enum class Kind
    {
        number,
        word,
        constellations,
        timingMode
    };

    explicit Format(Kind kind) : kind_(kind) {}

    Kind kind_;
    NumberRange range_{};
    std::string unit_;
    std::vector<Word> words_;
};

/// "GPS,GAL,GLO" and its mask. @throws BadValue
unsigned short parseConstellations(const std::string& text);
std::string showConstellations(unsigned short mask);

/// Ranges of the survey and of the fixed position, as the library accepts them. @throws BadValue
void checkTimingMode(const TimingMode& mode);

} // namespace ubxctl

#include "settings/Value.h"

#include <algorithm>
#include <cmath>
#include <sstream>

#include "messages/Navigation.h"
#include "settings/Quantity.h"

namespace ubxctl
{

namespace
{

// What the receiver resolves, and half a step for what truncation takes.
constexpr double kDegreesStep = 1.5e-7;
constexpr double kHeightStep = 0.015;
constexpr double kAccuracyStep = 0.0015;

constexpr double kLongestSurvey = 30'000'000;
constexpr int kDegreeDigits = 7;
constexpr int kHeightDigits = 2;
constexpr int kAccuracyDigits = 4;

bool near(double one, double other, double step)
{
    return std::abs(one - other) <= step;
}

void require(bool met, const char* what)
{
    if (!met) throw BadValue(what);
}

double required(std::optional<double> number, const std::string& word, const char* what)
{
    if (!number.has_value()) throw BadValue("\"" + word + "\" is no " + what);
    return *number;
}

constexpr const char* kTimingModeChoices =
    "\"dynamic\", \"survey DURATION ACCURACY\" (survey 3h 1m) or \"fixed LATITUDE LONGITUDE HEIGHT ACCURACY\" "
    "(fixed 47.3769 8.54169 455.1m 5cm)";

TimingMode parseTimingMode(const std::string& text)
{
    std::istringstream stream(text);
    std::vector<std::string> words;
    for (std::string word; stream >> word;)
        words.push_back(lowerCase(word));

    TimingMode mode;
    if (words.size() == 1 && words[0] == "dynamic") return mode;
    if (words.size() == 3 && words[0] == "survey") {
        mode.kind = TimingMode::Kind::survey;
        const double duration = required(parseDuration(words[1]), words[1], "duration");
        require(duration >= 1 && duration <= kLongestSurvey, "a survey lasts 1 to 30000000 s");
        mode.duration = static_cast<unsigned int>(duration);
        mode.accuracy = required(parseLength(words[2]), words[2], "accuracy");
    } else if (words.size() == 5 && words[0] == "fixed") {
        mode.kind = TimingMode::Kind::fixed;
        mode.position.latitude = required(parseNumber(words[1]), words[1], "latitude");
        mode.position.longitude = required(parseNumber(words[2]), words[2], "longitude");
        mode.position.height = required(parseLength(words[3]), words[3], "height");
        mode.accuracy = required(parseLength(words[4]), words[4], "accuracy");
    } else {
        throw BadValue(std::string("it takes ") + kTimingModeChoices);
    }
    checkTimingMode(mode);
    return mode;
}

std::string showTimingMode(const TimingMode& mode)
{
    const std::string accuracy = shortNumber(mode.accuracy, kAccuracyDigits) + "m";
    switch (mode.kind) {
    case TimingMode::Kind::survey:
        return "survey " + std::to_string(mode.duration) + "s " + accuracy;
    case TimingMode::Kind::fixed:
        return "fixed " + fixedPoint(mode.position.latitude, kDegreeDigits) + " " +
               fixedPoint(mode.position.longitude, kDegreeDigits) + " " +
               fixedPoint(mode.position.height, kHeightDigits) + "m " + accuracy;
    case TimingMode::Kind::dynamic:
        break;
    }
    return "dynamic";
}

Json jsonOf(const TimingMode& mode)
{
    switch (mode.kind) {
    case TimingMode::Kind::survey:
        return {{"mode", "survey"}, {"duration_s", mode.duration}, {"accuracy_m", mode.accuracy}};
    case TimingMode::Kind::fixed:
        return {{"mode", "fixed"},
                {"latitude_deg", mode.position.latitude},
                {"longitude_deg", mode.position.longitude},
                {"height_m", mode.position.height},
                {"accuracy_m", mode.accuracy}};
    case TimingMode::Kind::dynamic:
        break;
    }
    return {{"mode", "dynamic"}};
}

bool sameTimingMode(const TimingMode& one, const TimingMode& other)
{
    if (one.kind != other.kind) return false;
    if (one.kind == TimingMode::Kind::dynamic) return true;
    if (!near(one.accuracy, other.accuracy, kAccuracyStep)) return false;
    if (one.kind == TimingMode::Kind::survey) return one.duration == other.duration;
    return near(one.position.latitude, other.position.latitude, kDegreesStep) &&
           near(one.position.longitude, other.position.longitude, kDegreesStep) &&
           near(one.position.height, other.position.height, kHeightStep);
}

} // namespace

void checkTimingMode(const TimingMode& mode)
{
    switch (mode.kind) {
    case TimingMode::Kind::dynamic:
        return;
    case TimingMode::Kind::survey:
        require(mode.duration >= 1 && mode.duration <= kLongestSurvey, "a survey lasts 1 to 30000000 s");
        require(mode.accuracy >= 0.01 && mode.accuracy <= 50, "the accuracy of a survey is 0.01 to 50 m");
        return;
    case TimingMode::Kind::fixed:
        require(std::abs(mode.position.latitude) <= 90, "a latitude is -90 to 90 degrees");
        require(std::abs(mode.position.longitude) <= 180, "a longitude is -180 to 180 degrees");
        require(mode.position.height >= -1000 && mode.position.height <= 10000, "a height is -1000 to 10000 m");
        require(mode.accuracy >= 0.01 && mode.accuracy <= 200, "the accuracy of a position is 0.01 to 200 m");
        return;
    }
}

Format Format::number(NumberRange range, const char* unit)
{
    Format format(Kind::number);
    format.range_ = range;
    format.unit_ = unit;
    return format;
}

Format Format::word(std::vector<Word> words)
{
    Format format(Kind::word);
    format.words_ = std::move(words);
    return format;
}

Format Format::constellations()
{
    return Format(Kind::constellations);
}

Format Format::timingMode()
{
    return Format(Kind::timingMode);
}

Value Format::parse(const std::string& text) const
{
    switch (kind_) {
    case Kind::timingMode:
        return parseTimingMode(text);
    case Kind::constellations:
        return static_cast<long>(parseConstellations(text));
    case Kind::word:
        for (const Word& word : words_) {
            if (lowerCase(word.text) == lowerCase(text)) return word.value;
        }
        throw BadValue("it takes one of " + choices());
    case Kind::number:
        break;
    }
    std::string digits = text;
    if (const std::size_t at = digits.size() - std::min(unit_.size(), digits.size());
        at > 0 && lowerCase(digits.substr(at)) == lowerCase(unit_)) {
        digits = std::string(trimmed(digits.substr(0, at)));
    }
    const auto number = parseWhole(digits);
    if (!number.has_value() || *number < range_.lowest || *number > range_.highest) {
        throw BadValue("it takes " + choices());
    }
    return *number;
}

std::string Format::show(const Value& value) const
{
    if (kind_ == Kind::timingMode) return showTimingMode(std::get<TimingMode>(value));
    const long number = std::get<long>(value);
    if (kind_ == Kind::constellations) return showConstellations(static_cast<unsigned short>(number));
    for (const Word& word : words_) {
        if (word.value == number) return word.text;
    }
    return std::to_string(number);
}

Json Format::json(const Value& value) const
{
    if (kind_ == Kind::timingMode) return jsonOf(std::get<TimingMode>(value));
    if (kind_ == Kind::number) return std::get<long>(value);
    if (kind_ == Kind::word) {
        const bool isSwitch = words_.size() == 2 && std::string(words_[0].text) == "off";
        return isSwitch ? Json(std::get<long>(value) != 0) : Json(show(value));
    }
    Json list = Json::array();
    const auto mask = static_cast<unsigned long>(std::get<long>(value));
    for (std::size_t bit = 0; bit < kGnssSystems; ++bit) {
        if ((mask >> bit & 1U) != 0) list.push_back(kGnssTable[bit].word);
    }
    return list;
}

bool Format::same(const Value& one, const Value& other) const
{
    if (kind_ == Kind::timingMode) return sameTimingMode(std::get<TimingMode>(one), std::get<TimingMode>(other));
    return std::get<long>(one) == std::get<long>(other);
}

std::string Format::choices() const
{
    switch (kind_) {
    case Kind::timingMode:
        return kTimingModeChoices;
    case Kind::number:
        return std::to_string(range_.lowest) + " to " + std::to_string(range_.highest) +
               (unit_.empty() ? "" : " " + unit_);
    case Kind::constellations:
    case Kind::word:
        break;
    }
    std::string list;
    for (const std::string& word : words())
        list += (list.empty() ? "" : ", ") + word;
    return kind_ == Kind::word ? list : "a list, with commas, of " + list;
}

std::vector<std::string> Format::words() const
{
    std::vector<std::string> words;
    for (const Word& word : words_)
        words.emplace_back(word.text);
    if (kind_ == Kind::constellations) {
        for (const GnssSystem& system : kGnssTable)
            words.emplace_back(system.word);
    }
    if (kind_ == Kind::timingMode) words = {"dynamic", "survey", "fixed"};
    return words;
}

unsigned short parseConstellations(const std::string& text)
{
    unsigned int mask = 0;
    std::istringstream stream(text);
    for (std::string item; std::getline(stream, item, ',');) {
        const std::string word = upperCase(std::string(trimmed(item)));
        const auto* const system =
            std::find_if(std::begin(kGnssTable), std::end(kGnssTable),
                         [&](const GnssSystem& known) { return word == known.word || word == upperCase(known.name); });
        if (system == std::end(kGnssTable)) {
            throw BadValue("\"" + item + "\" is no constellation; it takes " + Format::constellations().choices());
        }
        mask |= 1U << (system - std::begin(kGnssTable));
    }
    if (mask == 0) throw BadValue("it takes " + Format::constellations().choices());
    return static_cast<unsigned short>(mask);
}

std::string showConstellations(unsigned short mask)
{
    std::string list;
    for (std::size_t bit = 0; bit < kGnssSystems; ++bit) {
        if ((mask >> bit & 1) != 0) list += (list.empty() ? "" : ",") + std::string(kGnssTable[bit].word);
    }
    return list.empty() ? "none" : list;
}

} // namespace ubxctl

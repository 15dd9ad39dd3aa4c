#include "simulator/faults/ActionText.h"

#include "simulator/wire/HexText.h"
#include "simulator/wire/MessageNames.h"

#include <algorithm>
#include <deque>
#include <sstream>
#include <stdexcept>

namespace ubxsim
{

namespace
{

using Words = std::deque<std::string>;

enum class Argument
{
    none,
    size,
    delay,
    sizeAndDelay,
    bytes
};

struct FaultWord
{
    const char* word;
    FaultKind kind;
    Argument argument;
    const char* usage;
    const char* meaning;
};

constexpr FaultWord kFaultWords[] = {
    {"ignore", FaultKind::ignore, Argument::none, "ignore MSG", "neither applied nor answered"},
    {"refuse", FaultKind::refuse, Argument::none, "refuse MSG", "not applied, ACK-NAK"},
    {"keep-value", FaultKind::keepValue, Argument::none, "keep-value MSG", "a set is acknowledged, not applied"},
    {"answer", FaultKind::answerWith, Argument::bytes, "answer MSG BYTES", "a poll is answered with this payload"},
    {"answer-raw", FaultKind::answerRaw, Argument::bytes, "answer-raw MSG BYTES", "these bytes instead of any answer"},
    {"late", FaultKind::late, Argument::delay, "late MSG TIME", "the answer comes so much later"},
    {"twice", FaultKind::twice, Argument::none, "twice MSG", "the answer comes twice"},
    {"out-of-order", FaultKind::outOfOrder, Argument::none, "out-of-order MSG", "the next answer comes first"},
    {"pieces", FaultKind::pieces, Argument::sizeAndDelay, "pieces MSG SIZE TIME",
     "in pieces of SIZE bytes, TIME apart"},
    {"checksum", FaultKind::checksum, Argument::none, "checksum MSG", "wrong checksum"},
    {"truncate", FaultKind::truncate, Argument::size, "truncate MSG SIZE", "the frame ends after SIZE bytes"},
    {"wrong-length", FaultKind::wrongLength, Argument::size, "wrong-length MSG SIZE",
     "the length field is SIZE too large"},
    {"precede", FaultKind::precede, Argument::bytes, "precede MSG BYTES", "these bytes come before the answer"},
    {"power-loss", FaultKind::losePower, Argument::none, "power-loss MSG", "the supply fails in the middle of a save"},
    {"hang-up", FaultKind::hangUp, Argument::none, "hang-up MSG", "the device goes away instead of answering"},
    {"restart", FaultKind::restart, Argument::none, "restart MSG", "the receiver restarts instead of answering"},
};

struct EventWord
{
    const char* words; // all of them
    EventKind kind;
    bool on;
    AntennaState antenna;
    const char* meaning;
};

constexpr EventWord kEventWords[] = {
    {"hang-up", EventKind::hangUp, true, AntennaState::ok, "the device goes away"},
    {"come-back", EventKind::comeBack, true, AntennaState::ok, "and returns"},
    {"stop-reading", EventKind::stopReading, true, AntennaState::ok, "the host's writes meet a full line"},
    {"resume-reading", EventKind::resumeReading, true, AntennaState::ok, "and go through again"},
    {"restart", EventKind::restart, true, AntennaState::ok, "the receiver restarts by itself"},
    {"power-loss", EventKind::losePower, true, AntennaState::ok, "the supply fails; the backup battery is there"},
    {"power-loss no-battery", EventKind::losePowerAndBattery, true, AntennaState::ok, "the backup battery too"},
    {"jamming on", EventKind::jamming, true, AntennaState::ok, "a jammer nearby"},
    {"jamming off", EventKind::jamming, false, AntennaState::ok, "no more"},
    {"antenna open", EventKind::antenna, true, AntennaState::open, "the antenna cable is cut"},
    {"antenna short", EventKind::antenna, true, AntennaState::shorted, "the antenna cable is shorted"},
    {"antenna ok", EventKind::antenna, true, AntennaState::ok, "repaired"},
    {"satellites off", EventKind::satellites, false, AntennaState::ok, "nothing in view"},
    {"satellites on", EventKind::satellites, true, AntennaState::ok, "all in view again"},
    {"survey hopeless", EventKind::hopelessSurvey, true, AntennaState::ok, "the mean position never gets good"},
    {"survey normal", EventKind::hopelessSurvey, false, AntennaState::ok, "it does again"},
    {"leap-second", EventKind::leapSecond, true, AntennaState::ok, "the clock goes to 10 s before one"},
    {"week-rollover", EventKind::weekRollover, true, AntennaState::ok, "the clock goes to 10 s before one"},
    {"clear-faults", EventKind::clearFaults, true, AntennaState::ok, "forgets all faults not yet played"},
};

std::string take(Words& words, const char* what)
{
    if (words.empty()) {
        throw std::invalid_argument(std::string(what) + " is missing");
    }
    std::string word = words.front();
    words.pop_front();
    return word;
}

std::size_t number(const std::string& word, std::size_t highest)
{
    std::size_t used = 0;
    unsigned long value = 0;
    try {
        value = std::stoul(word, &used);
    } catch (const std::logic_error&) {
        used = 0;
    }
    if (used != word.size() || word.empty() || word[0] == '-' || value > highest) {
        throw std::invalid_argument("\"" + word + "\" is no number from 0 to " + std::to_string(highest));
    }
    return value;
}

// "300ms", "2.5s", "20us".
std::chrono::microseconds duration(const std::string& word)
{
    std::size_t used = 0;
    double value = -1;
    try {
        value = std::stod(word, &used);
    } catch (const std::logic_error&) {
        used = 0;
    }
    const std::string unit = word.substr(used);
    const double factor = unit == "us" ? 1 : unit == "ms" ? 1e3 : unit == "s" ? 1e6 : 0;
    if (used == 0 || factor == 0 || !(value >= 0) || value * factor > 1e15) {
        throw std::invalid_argument("\"" + word + "\" is no time, such as 300ms, 2.5s or 20us");
    }
    return std::chrono::microseconds(static_cast<std::int64_t>(value * factor));
}

std::uint16_t message(const std::string& word)
{
    if (word == "*") {
        return kEveryMessage;
    }
    const auto classId = messageByName(word);
    if (!classId) {
        throw std::invalid_argument("\"" + word + "\" is no message, such as CFG-NAVX5, 0623 or * for every one");
    }
    return *classId;
}

constexpr std::size_t kMostBytes = 1000000;
constexpr const char* kSentence = "$GNGLL,3157.02999,S,11551.63037,E,031405.00,A,A*62\r\n";

// "nmea 6", "noise 200", "false-sync 10", "frame NAV-PVT 00 01" or plain hexadecimal.
Bytes bytes(Words& words)
{
    const std::string first = take(words, "what bytes");
    Bytes result;
    if (first == "nmea") {
        const std::string sentence = kSentence;
        for (std::size_t count = number(take(words, "the number of sentences"), kMostBytes / 100); count > 0; --count) {
            result.insert(result.end(), sentence.begin(), sentence.end());
        }
        return result;
    }
    if (first == "noise") {
        // Everything but the first sync character, so that it is noise and no frame begins by chance.
        std::uint32_t state = 12345;
        for (std::size_t count = number(take(words, "the number of bytes"), kMostBytes); count > 0; --count) {
            state = state * 1103515245 + 12345;
            const auto value = static_cast<std::uint8_t>(state >> 16);
            result.push_back(value == 0xB5 ? std::uint8_t{0x5B} : value);
        }
        return result;
    }
    if (first == "false-sync") {
        for (std::size_t count = number(take(words, "the number of pairs"), kMostBytes / 2); count > 0; --count) {
            result.insert(result.end(), {0xB5, 0x62});
        }
        return result;
    }
    const bool isFrame = first == "frame";
    const std::uint16_t classId = isFrame ? message(take(words, "the message of the frame")) : kEveryMessage;
    std::string hex = isFrame ? "" : first;
    while (!words.empty()) {
        hex += " " + take(words, "");
    }
    result = bytesFromHex(hex);
    return isFrame ? frame(classId, result) : result;
}

void readSuffixes(Words& words, Fault& fault)
{
    while (!words.empty()) {
        const std::string& last = words.back();
        if (last == "polls" || last == "sets") {
            fault.requests = last == "polls" ? RequestKind::poll : RequestKind::set;
        } else if (last.size() > 1 && last[0] == 'x' && last.find_first_not_of("0123456789", 1) == std::string::npos) {
            fault.times = static_cast<int>(number(last.substr(1), 1000000));
        } else {
            return;
        }
        words.pop_back();
    }
}

Fault readFault(const FaultWord& row, Words words)
{
    Fault fault;
    fault.kind = row.kind;
    readSuffixes(words, fault);
    fault.classId = message(take(words, "the message"));
    switch (row.argument) {
    case Argument::none:
        break;
    case Argument::size:
        fault.size = number(take(words, "the size"), kMostBytes);
        break;
    case Argument::delay:
        fault.delay = duration(take(words, "the time"));
        break;
    case Argument::sizeAndDelay:
        fault.size = number(take(words, "the size"), kMostBytes);
        fault.delay = duration(take(words, "the time"));
        break;
    case Argument::bytes:
        fault.bytes = bytes(words);
        break;
    }
    if (!words.empty()) {
        throw std::invalid_argument("\"" + words.front() + "\" is one word too many; it is: " + row.usage +
                                    " [polls|sets] [xTIMES]");
    }
    return fault;
}

Event readEvent(const std::string& text, Words words)
{
    Event event;
    if (words.front() == "say") {
        words.pop_front();
        event.kind = EventKind::say;
        event.bytes = bytes(words);
        if (!words.empty()) {
            throw std::invalid_argument("\"" + words.front() + "\" is one word too many");
        }
        return event;
    }
    const auto* row = std::find_if(std::begin(kEventWords), std::end(kEventWords),
                                   [&](const EventWord& candidate) { return text == candidate.words; });
    if (row == std::end(kEventWords)) {
        throw std::invalid_argument("\"" + text + "\" is no fault and no event; see ubxsim --help-faults");
    }
    event.kind = row->kind;
    event.on = row->on;
    event.antenna = row->antenna;
    return event;
}

Words split(const std::string& line)
{
    std::istringstream stream(line.substr(0, line.find('#')));
    Words words;
    for (std::string word; stream >> word;) {
        words.push_back(word);
    }
    return words;
}

std::string join(const Words& words)
{
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

} // namespace

Action parseAction(const std::string& line)
{
    Words words = split(line);
    Action action;
    if (!words.empty() && words.front() == "at") {
        words.pop_front();
        action.at = duration(take(words, "the time"));
    }
    if (words.empty()) {
        throw std::invalid_argument("there is nothing to do");
    }
    const auto* row = std::find_if(std::begin(kFaultWords), std::end(kFaultWords),
                                   [&](const FaultWord& candidate) { return words.front() == candidate.word; });
    const std::string text = join(words);
    const bool isEvent = std::any_of(std::begin(kEventWords), std::end(kEventWords),
                                     [&](const EventWord& candidate) { return text == candidate.words; });
    if (row != std::end(kFaultWords) && !isEvent) {
        words.pop_front();
        action.what = readFault(*row, std::move(words));
    } else {
        action.what = readEvent(text, words);
    }
    return action;
}

std::vector<Action> parseScript(std::istream& script, const std::string& name)
{
    std::vector<Action> actions;
    std::string line;
    for (int number = 1; std::getline(script, line); ++number) {
        if (split(line).empty()) {
            continue;
        }
        try {
            actions.push_back(parseAction(line));
        } catch (const std::invalid_argument& error) {
            throw std::invalid_argument(name + ", line " + std::to_string(number) + ": " + error.what());
        }
    }
    return actions;
}

std::string actionHelp()
{
    std::ostringstream text;
    const auto row = [&text](std::string usage, const char* meaning) {
        usage.resize(std::max<std::size_t>(usage.size(), 24), ' ');
        text << "  " << usage << " " << meaning << "\n";
    };
    text << "Faults, for requests of one message:\n";
    for (const FaultWord& fault : kFaultWords) {
        row(fault.usage, fault.meaning);
    }
    text << "\n  MSG is a name (CFG-NAVX5), four digits (0623) or * for every message. At the end \"polls\" or "
            "\"sets\"\n"
            "  restricts a fault to these, and xN has it happen N times; without, it happens for ever.\n"
            "  BYTES: hexadecimal (B5 62 ...), nmea N, noise N, false-sync N, or frame MSG HEX for a good frame.\n"
            "\nEvents:\n";
    for (const EventWord& event : kEventWords) {
        row(event.words, event.meaning);
    }
    row("say BYTES", "these bytes appear on the line");
    text << "\n  \"at TIME\" before either: when the receiver has been on for so long (500ms, 20s).\n";
    return text.str();
}

} // namespace ubxsim

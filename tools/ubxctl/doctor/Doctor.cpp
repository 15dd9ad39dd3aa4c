#include "doctor/Doctor.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

#include "doctor/Listening.h"
#include "messages/Hardware.h"
#include "messages/Navigation.h"
#include "session/Failure.h"
#include "settings/Setting.h"

namespace fs = std::filesystem;

namespace ubxctl
{

namespace
{

constexpr std::uint16_t kMonVer = 0x0A04;
constexpr std::uint16_t kCfgPrt = 0x0600;
constexpr std::size_t kPrtInMask = 12, kPrtOutMask = 14;
constexpr unsigned int kUbxAndNmea = 3;

constexpr auto kListening = std::chrono::milliseconds(2500); // two rounds of a receiver that speaks each second

constexpr std::pair<speed_t, int> kSpeeds[] = {{B4800, 4800},     {B9600, 9600},     {B19200, 19200},
                                               {B38400, 38400},   {B57600, 57600},   {B115200, 115200},
                                               {B230400, 230400}, {B460800, 460800}, {B921600, 921600}};

std::string speedOf(int fd)
{
    termios settings{};
    if (::tcgetattr(fd, &settings) != 0) return "";
    for (const auto& [code, speed] : kSpeeds) {
        if (code == ::cfgetospeed(&settings)) return " at " + std::to_string(speed) + " baud";
    }
    return "";
}

/// The first text of a version record.
std::string softwareOf(const Bytes& payload)
{
    constexpr std::size_t kField = 30;
    std::string text;
    for (std::size_t i = 0; i < std::min(kField, payload.size()) && payload[i] != 0; ++i)
        text += payload[i] >= 0x20 && payload[i] < 0x7F ? static_cast<char>(payload[i]) : '?';
    return text;
}

/// Whether the library can append to a log: to the file, or else a new one in its directory.
bool isWritable(const fs::path& log)
{
    std::error_code unknown;
    const fs::space_info space = fs::space(log.parent_path(), unknown);
    if (!unknown && space.available == 0) return false;
    if (::access(log.c_str(), F_OK) == 0) return ::access(log.c_str(), W_OK) == 0;
    return ::access(log.parent_path().c_str(), W_OK) == 0;
}

} // namespace

void Doctor::good(const std::string& subject, const std::string& key, const std::string& found)
{
    findings_.push_back({subject, key, Finding::Verdict::good, found});
}

void Doctor::attention(const std::string& subject, const std::string& key, const std::string& found,
                       const std::string& advice)
{
    findings_.push_back({subject, key, Finding::Verdict::attention, found, advice});
}

void Doctor::bad(int status, const std::string& subject, const std::string& key, const std::string& found,
                 const std::string& advice)
{
    findings_.push_back({subject, key, Finding::Verdict::bad, found, advice});
    // A missing device is all there is to say; the other ways to fail add up.
    status_ = status == kDevice || status_ == kDevice ? kDevice : status_ | status;
}

void Doctor::examine()
{
    if (device() && claim()) {
        stream();
        if (version()) {
            protocols();
            model();
            antenna();
            sky();
            timeMode();
        } else {
            findings_.push_back({"Model and fix", "receiver", Finding::Verdict::skipped, "not looked at: no replies"});
        }
    } else {
        findings_.push_back({"Receiver", "receiver", Finding::Verdict::skipped, "not looked at"});
    }
    logs();
}

bool Doctor::device()
{
    const std::string path = kDevicePath;
    struct stat node
    {};
    if (::stat(path.c_str(), &node) != 0) {
        bad(kDevice, "Device node", "device_node", path + ": " + std::strerror(errno),
            "see whether the receiver's module is fitted and powered, and the rule that names its device installed");
        return false;
    }
    std::error_code noLink;
    const fs::path target = fs::read_symlink(path, noLink);
    good("Device node", "device_node", noLink ? path : path + " -> " + target.string());

    const int fd = ::open(path.c_str(), O_RDWR | O_NOCTTY | O_NONBLOCK | O_CLOEXEC);
    if (fd < 0) {
        bad(kDevice, "Access", "access", std::string("it can't be opened: ") + std::strerror(errno),
            errno == EACCES ? "use sudo, or join the group of the device: ls -lL " + path
                            : "see what the system log says of the device: dmesg");
        return false;
    }
    good("Access", "access", "it can be opened for reading and writing");
    const bool terminal = ::isatty(fd) == 1;
    if (terminal) {
        good("Serial port", "serial_port", "it is one" + speedOf(fd));
    } else {
        bad(kDevice, "Serial port", "serial_port", "it is something else",
            "see what the rule links it to: ls -lL " + path);
    }
    ::close(fd);

    const std::vector<DeviceUser> users = usersOf(node);
    if (users.empty()) {
        good("Other users", "other_users", "nobody else has it open");
    } else {
        attention("Other users", "other_users", users.front().description() + " has it open",
                  "stop it: two readers take each other's replies");
    }
    return terminal;
}

bool Doctor::claim()
{
    try {
        session_.claim();
        return true;
    } catch (const Failure& failure) {
        bad(kDevice, "Claim", "claim", failure.what(), "wait until it is done");
        return false;
    }
}

bool Doctor::stream()
{
    const Heard heard = listen(kListening);
    if (heard.bytes == 0) {
        attention("Bytes", "bytes", "none in " + std::to_string(kListening.count()) + " ms",
                  "a silent receiver is held in reset, has its output off, or is wired to another port");
        return false;
    }
    good("Bytes", "bytes", std::to_string(heard.bytes) + " in " + std::to_string(heard.duration.count()) + " ms");
    if (heard.sentences + heard.frames == 0 || heard.noise * 2 > heard.bytes) {
        bad(kRefused, "Messages", "messages", "most of it can't be understood",
            "the line speed does not match: see stty -F " + std::string(kDevicePath) + " speed");
        return false;
    }
    if (heard.sentences > 0) {
        good("NMEA", "nmea", std::to_string(heard.sentences) + " sentences");
    } else {
        attention("NMEA", "nmea", "no sentences", "if they are wanted: ubxctl rates nmea 1");
    }
    good("UBX", "ubx",
         heard.frames > 0 ? std::to_string(heard.frames) + " frames" : "none unasked, which is how receivers come");
    return true;
}

bool Doctor::version()
{
    const Answer answer = session_.exchange().ask({kMonVer});
    if (answer.status == kDone) {
        good("Version reply", "version_reply", softwareOf(answer.payload));
        return true;
    }
    bad(answer.status, "Version reply", "version_reply",
        (answer.status & kNotWritten) != 0 ? "the question could not be written" : "none",
        "the receiver may not take UBX on this port, or not get what is sent: check the wiring of its input, then its "
        "reset line and power");
    return false;
}

void Doctor::protocols()
{
    const Answer answer = session_.exchange().ask({kCfgPrt});
    if (answer.status != kDone) {
        bad(answer.status, "Protocols", "protocols", "the port's settings are not told", "try: ubxctl protocols");
        return;
    }
    const unsigned int in = numberAt<std::uint16_t>(answer.payload, kPrtInMask);
    const unsigned int out = numberAt<std::uint16_t>(answer.payload, kPrtOutMask);
    if ((in & 1) != 0 && (out & kUbxAndNmea) == kUbxAndNmea) {
        good("Protocols", "protocols", "UBX is taken, UBX and NMEA are put out");
    } else {
        attention("Protocols", "protocols", "not all of UBX and NMEA are on", "try: ubxctl protocols");
    }
}

void Doctor::model()
{
    const Identity& identity = session_.receiver().identity();
    if (identity.isKnown()) {
        good("Model", "model", identity.modelName() + ", " + identity.firmware);
    } else {
        bad(kNoReply, "Model", "model", "a receiver this library does not know",
            "see its version record with: ubxctl info");
    }
}

void Doctor::antenna()
{
    const Answer answer = session_.exchange().ask({kMonHw});
    if (answer.status != kDone) {
        attention("Antenna", "antenna", "the receiver does not tell", "go by the satellites");
        return;
    }
    const HardwareStatus hardware = decodeMonHw(answer.payload);
    if (hardware.antennaBad()) {
        bad(kRefused, "Antenna", "antenna", hardware.antennaWord(),
            "check cable and connectors; is the supply on? try: ubxctl antenna on");
    } else {
        good("Antenna", "antenna", hardware.antennaWord());
    }
    if (hardware.jammed()) {
        attention("Interference", "interference", hardware.jammingWord(),
                  "look for a transmitter near the antenna: ubxctl monitor shows when it comes and goes");
    } else {
        good("Interference", "interference", hardware.jammingWord());
    }
}

void Doctor::sky()
{
    const std::vector<Answer> answers = session_.exchange().askAll({{kNavSat}, {kNavPvt}});
    const std::vector<Satellite> satellites = decodeNavSat(answers[0].payload);
    int strongest = 0;
    for (const Satellite& satellite : satellites)
        strongest = std::max(strongest, satellite.signal);
    constexpr int kWeak = 35;
    const std::string count =
        std::to_string(satellites.size()) + " tracked, the strongest at " + std::to_string(strongest) + " dBHz";
    if (satellites.empty() || strongest == 0) {
        attention("Satellites", "satellites", "none",
                  "check antenna, cable and supply; after a cold start it takes half a minute");
    } else if (strongest < kWeak) {
        attention("Satellites", "satellites", count, "weak: check cable, connectors and the antenna's view of the sky");
    } else {
        good("Satellites", "satellites", count);
    }

    const NavigationSolution solution = decodeNavPvt(answers[1].payload);
    const std::string fix = nameOf(solution.fix) + ", " + std::to_string(solution.satellitesUsed) + " satellites used";
    if (answers[1].status == kDone && solution.fixOk) {
        good("Fix", "fix", fix);
    } else {
        attention("Fix", "fix", answers[1].status == kDone ? fix : "the receiver does not tell",
                  "is the search on? try: ubxctl on; and are the limits too strict? see: ubxctl get");
    }
}

void Doctor::timeMode()
{
    const Setting& setting = *findSetting("timing-mode");
    const Reading reading = setting.get(session_.receiver());
    if (!reading.value.has_value()) {
        attention("Timing mode", "timing_mode", "the receiver does not tell",
                  "try: ubxctl --interface messages get "
                  "timing-mode");
        return;
    }
    const std::string mode = setting.format.show(*reading.value);
    if (std::get<TimingMode>(*reading.value).kind == TimingMode::Kind::dynamic) {
        attention("Timing mode", "timing_mode", mode,
                  "for the best time, survey the antenna: ubxctl survey auto --wait --freeze");
    } else {
        good("Timing mode", "timing_mode", mode);
    }
}

void Doctor::logs()
{
    for (const fs::path& log : ErrorLogs::paths()) {
        if (isWritable(log)) continue;
        attention("Error logs", "error_logs", log.string() + " can't be written",
                  "the library's errors are lost: run as a user who may, or free the disk");
        return;
    }
    good("Error logs", "error_logs", "they can be written");
}

Outcome reportOf(const Doctor& doctor)
{
    struct Look
    {
        const char* word;
        Tone tone;
    };
    constexpr Look kLooks[] = {
        {"good", Tone::good}, {"attention", Tone::attention}, {"bad", Tone::bad}, {"skipped", Tone::dim}};

    Outcome outcome{Report("doctor"), doctor.status()};
    std::vector<std::vector<Cell>> rows;
    Json objects = Json::array();
    for (const Finding& finding : doctor.findings()) {
        const Look& look = kLooks[static_cast<std::size_t>(finding.verdict)];
        rows.push_back({{look.word, look.tone}, finding.subject, finding.found});
        if (!finding.advice.empty()) rows.push_back({"", "", Cell("> " + finding.advice, Tone::dim)});
        objects.push_back({{"check", finding.key},
                           {"verdict", look.word},
                           {"found", finding.found},
                           {"advice", finding.advice.empty() ? Json() : Json(finding.advice)}});
        if (finding.verdict == Finding::Verdict::bad && outcome.advice.empty()) {
            outcome.advice = finding.subject + ": " + finding.found + "; " + finding.advice;
        }
    }
    outcome.report.table("checks", {{""}, {""}, {""}}, std::move(rows), std::move(objects));
    return outcome;
}

} // namespace ubxctl

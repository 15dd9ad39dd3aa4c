#include "simulator/receiver/Receiver.h"

#include "simulator/receiver/NavMessages.h"
#include "simulator/settings/GnssBlocks.h"
#include "simulator/wire/LittleEndian.h"

#include <algorithm>

namespace ubxsim
{

using std::chrono::milliseconds;
using std::chrono::seconds;

namespace
{

constexpr std::uint8_t kConfigurationClass = 0x06;
constexpr std::uint8_t kNmeaClass = 0xF0;
constexpr std::uint8_t kNavigationClass = 0x01;
constexpr std::uint16_t kCfgRst = 0x0604;

constexpr SimTime kBootTime = seconds(1);
constexpr SimTime kHotFix = seconds(2);
constexpr SimTime kColdFix = seconds(26);
constexpr SimTime kFixAfterGnssReset = seconds(2);
constexpr SimTime kShortestInterval = milliseconds(25);

constexpr std::uint16_t kKeepEverything = 0;

Key infoKey(Port port)
{
    return 0x20920006U + static_cast<Key>(port);
}

} // namespace

Receiver::Receiver(ReceiverSetup setup)
    : setup_(std::move(setup)),
      configuration_(setup_.profile, setup_.port, setup_.quiet),
      navigator_(setup_.profile, configuration_.store(), setup_.position, setup_.start),
      knownGnss_(gnssSettings())
{
    if (setup_.coldStart) {
        navigator_.acquire(now_, kColdFix);
    }
}

std::uint16_t Receiver::mask(Direction direction) const
{
    return protocolMask(configuration_.store(), setup_.port, direction);
}

std::uint32_t Receiver::lineSpeed() const
{
    return setup_.port == Port::uart1 ? static_cast<std::uint32_t>(configuration_.store().get(key::uart1BaudRate)) : 0;
}

bool Receiver::takeReset()
{
    return std::exchange(wasReset_, false);
}

std::optional<Bytes> Receiver::text(TextKind kind, const std::string& words) const
{
    const bool wanted = (configuration_.store().get(infoKey(setup_.port)) >> static_cast<unsigned>(kind) & 1) != 0;
    if (!wanted || (mask(Direction::out) & kNmeaBit) == 0) {
        return std::nullopt;
    }
    return nmeaText(kind, words);
}

Answer Receiver::handle(const Frame& request)
{
    if (isBooting() || (mask(Direction::in) & kUbxBit) == 0) {
        return Answer::silence();
    }
    Answer answer;
    if (request.classId >> 8 == kConfigurationClass) {
        answer = request.classId == kCfgRst ? handleReset(request.payload) : handleConfiguration(request);
    } else if (request.payload.empty()) {
        const auto payload = buildMessage(request.classId, setup_.profile, configuration_.store(), navigator_.epoch());
        answer = payload ? Answer::only({request.classId, *payload}) : Answer::silence();
    }
    return (mask(Direction::out) & kUbxBit) != 0 ? answer : Answer::silence();
}

Answer Receiver::handleConfiguration(const Frame& request)
{
    Answer answer = configuration_.handle(request);
    if (configuration_.takePowerLoss()) {
        boot(false);
        return Answer::silence();
    }
    followSettings();
    answer.notices = std::move(pendingTexts_);
    pendingTexts_.clear();
    return answer;
}

// The constellations and signals that are on: a change of one of them resets the GNSS part.
std::vector<std::uint64_t> Receiver::gnssSettings() const
{
    std::vector<std::uint64_t> settings;
    for (const GnssBlock& block : gnssBlocks()) {
        settings.push_back(configuration_.store().get(block.enable));
        for (const GnssSignal& signal : block.signals) {
            settings.push_back(configuration_.store().get(signal.key));
        }
    }
    return settings;
}

void Receiver::followSettings()
{
    std::vector<std::uint64_t> gnss = gnssSettings();
    if (gnss != knownGnss_) {
        knownGnss_ = std::move(gnss);
        if (setup_.profile.tellsGnssReset) {
            if (auto words = text(TextKind::notice, "Resetting GNSS")) {
                pendingTexts_.push_back(std::move(*words));
            }
        }
        if (navigator_.isRunning()) {
            navigator_.acquire(now_, kFixAfterGnssReset);
        }
    }
    navigator_.followTimeMode();
    nextEpoch_ = std::min(nextEpoch_, now_ + epochInterval());
}

// A reset is never acknowledged.
Answer Receiver::handleReset(const Bytes& payload)
{
    constexpr std::size_t kSize = 4;
    constexpr std::uint8_t kHardwareReset = 0;
    constexpr std::uint8_t kSoftwareReset = 1;
    constexpr std::uint8_t kGnssReset = 2;
    constexpr std::uint8_t kHardwareResetAfterShutdown = 4;
    constexpr std::uint8_t kGnssStop = 8;
    constexpr std::uint8_t kGnssStart = 9;
    if (payload.size() != kSize) {
        return Answer::refused();
    }
    ephemerisLost_ = ephemerisLost_ || get<std::uint16_t>(payload, 0) != kKeepEverything;
    const SimTime timeToFix = ephemerisLost_ ? kColdFix : kHotFix;
    switch (payload[2]) {
    case kHardwareReset:
    case kSoftwareReset:
    case kHardwareResetAfterShutdown:
        boot(ephemerisLost_);
        break;
    case kGnssStop:
        navigator_.stop();
        break;
    case kGnssReset:
        navigator_.acquire(now_, timeToFix);
        ephemerisLost_ = false;
        break;
    case kGnssStart:
        if (!navigator_.isRunning()) {
            navigator_.acquire(now_, timeToFix);
            ephemerisLost_ = false;
        }
        break;
    default:
        return Answer::refused();
    }
    navigator_.compute(now_);
    return Answer::silence();
}

void Receiver::boot(bool cold)
{
    bootingUntil_ = now_ + kBootTime;
    coldAfterBoot_ = cold;
    ephemerisLost_ = false;
    wasReset_ = true;
    pendingTexts_.clear();
    navigator_.stop();
    configuration_.loadAll();
}

void Receiver::restart()
{
    boot(false);
}

void Receiver::losePower(bool batteryPresent)
{
    if (!batteryPresent) {
        configuration_.forgetBatteryBacked();
    }
    boot(!batteryPresent);
}

void Receiver::finishBoot(std::vector<Bytes>& output)
{
    bootingUntil_.reset();
    knownGnss_ = gnssSettings();
    navigator_.acquire(now_, coldAfterBoot_ ? kColdFix : kHotFix);
    navigator_.restartTimeMode();
    epochCount_ = 0;

    std::vector<std::string> screen = {"u-blox AG - www.u-blox.com",
                                       std::string("HW ") +
                                           (setup_.profile.model == Model::neoM8t ? "UBX-M8030 " : "UBX 9 ") +
                                           setup_.profile.hwVersion,
                                       setup_.profile.swVersion};
    screen.insert(screen.end(), setup_.profile.extensions.begin(), setup_.profile.extensions.end());
    screen.insert(screen.end(), {"ANTSUPERV=AC SD PDoS SR", "ANTSTATUS=INIT", "ANTSTATUS=OK", "PF=3FF"});
    for (const std::string& line : screen) {
        if (auto words = text(TextKind::notice, line)) {
            output.push_back(std::move(*words));
        }
    }
}

void Receiver::setReception(const Reception& reception)
{
    const bool antennaChanged = reception.antenna != navigator_.reception().antenna;
    navigator_.reception() = reception;
    if (!antennaChanged) {
        return;
    }
    const char* words = reception.antenna == AntennaState::ok        ? "ANTSTATUS=OK"
                        : reception.antenna == AntennaState::shorted ? "ANTSTATUS=SHORT"
                                                                     : "ANTSTATUS=OPEN";
    if (auto sentence = text(TextKind::notice, words)) {
        pendingTexts_.push_back(std::move(*sentence));
    }
}

SimTime Receiver::epochInterval() const
{
    const SettingsStore& store = configuration_.store();
    const auto interval = milliseconds(store.get(key::rateMeas) * store.get(key::rateNav));
    return std::max<SimTime>(kShortestInterval, interval);
}

SimTime Receiver::nextEvent() const
{
    return bootingUntil_.value_or(nextEpoch_);
}

std::vector<Bytes> Receiver::advanceTo(SimTime now)
{
    std::vector<Bytes> output;
    if (bootingUntil_) {
        if (now < *bootingUntil_) {
            now_ = now;
            return output;
        }
        now_ = *bootingUntil_;
        finishBoot(output);
        nextEpoch_ = now_;
    }
    std::move(pendingTexts_.begin(), pendingTexts_.end(), std::back_inserter(output));
    pendingTexts_.clear();
    while (nextEpoch_ <= now) {
        now_ = nextEpoch_;
        nextEpoch_ += epochInterval();
        // A simulation that runs faster than it can compute leaves epochs out; the survey counts their seconds.
        if (nextEpoch_ > now) {
            navigator_.compute(now_);
            putOutEpoch(output);
        }
        ++epochCount_;
    }
    now_ = std::max(now_, now);
    return output;
}

void Receiver::putOutEpoch(std::vector<Bytes>& output)
{
    const std::uint16_t protocols = mask(Direction::out);
    const Report report{setup_.profile, configuration_.store(), navigator_.epoch()};
    for (const std::uint16_t classId : setup_.profile.outputOrder) {
        const std::uint64_t rate = configuration_.outputRate(classId);
        const bool nmea = classId >> 8 == kNmeaClass;
        const bool stopped = !navigator_.isRunning() && (nmea || classId >> 8 == kNavigationClass);
        if (rate == 0 || epochCount_ % rate != 0 || stopped || (protocols & (nmea ? kNmeaBit : kUbxBit)) == 0) {
            continue;
        }
        if (nmea) {
            std::vector<Bytes> sentences = nmeaSentences(classId, report);
            std::move(sentences.begin(), sentences.end(), std::back_inserter(output));
        } else if (const auto payload = buildMessage(classId, report.profile, report.store, report.epoch)) {
            output.push_back(frame(classId, *payload));
        }
    }
}

} // namespace ubxsim

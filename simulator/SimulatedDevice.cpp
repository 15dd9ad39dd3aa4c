#include "simulator/SimulatedDevice.h"

#include <algorithm>
#include <stdexcept>

namespace ubxsim
{

using std::chrono::microseconds;
using std::chrono::milliseconds;

namespace
{

constexpr std::uint16_t kCfgRst = 0x0604;
constexpr std::uint8_t kConfigurationClass = 0x06;

// A frame whose end has not come after this long is given up.
constexpr milliseconds kFramePatience{1000};

// An answer held back for the next one goes out by itself after this long.
constexpr milliseconds kHoldPatience{1000};

// What a receiver buffers for a slow line. Beyond it output is lost, and it says so.
constexpr std::size_t kTransmitBuffer = 4096;

GpsTime startOf(const SimulatorOptions& options)
{
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    const milliseconds start = options.startTime.value_or(std::chrono::duration_cast<milliseconds>(now));
    return gpsTimeOf(start.count() - start.count() % 1000);
}

ReceiverSetup setupOf(const SimulatorOptions& options)
{
    if (options.epoch <= microseconds::zero() || !(options.timeScale > 0)) {
        throw std::invalid_argument("the simulated time must move: epoch and time scale must be above 0");
    }
    return {profileOf(options.model, options.firmware, options.strictLegacy, options.l5Signals),
            options.port,
            !options.nmea,
            options.position,
            startOf(options),
            options.coldStart};
}

} // namespace

SimulatedDevice::SimulatedDevice(const SimulatorOptions& options)
    : options_(options),
      scale_(options.timeScale * 1e6 / static_cast<double>(options.epoch.count())),
      receiver_(setupOf(options)),
      runner_(*this)
{
    if (!options_.traceFile.empty()) {
        trace_.emplace(options_.traceFile);
        runner_.output().onSent = [this](const Transmission& sent) { trace(TraceDirection::fromReceiver, sent.bytes); };
    }
    followReset();
    runner_.start();
}

void SimulatedDevice::onBytes(const std::uint8_t* data, std::size_t size, WallTime now)
{
    lastByte_ = now;
    runActions(simTimeOf(now)); // what is due by now counts for these requests
    scanner_.feed(data, size);
    while (const auto request = scanner_.next()) {
        handle(*request, now);
    }
}

WallTime SimulatedDevice::onTime(WallTime now)
{
    if (scanner_.holdsPartialFrame() && now - lastByte_ > kFramePatience) {
        scanner_.giveUpPartialFrame();
        onBytes(nullptr, 0, now);
    }
    runActions(simTimeOf(now));
    enqueuePeriodic(receiver_.advanceTo(simTimeOf(now)), now);
    followReset();
    while (!later_.empty() && later_.begin()->first <= now) {
        enqueue(std::move(later_.begin()->second), now);
        later_.erase(later_.begin());
    }
    if (!heldBack_.empty() && heldBack_.front().until <= now) {
        releaseHeldBack(now);
    }

    WallTime next = wallTimeOf(receiver_.nextEvent());
    if (!actions_.empty()) {
        next = std::min(next, wallTimeOf(actions_.begin()->first));
    }
    if (!later_.empty()) {
        next = std::min(next, later_.begin()->first);
    }
    if (!heldBack_.empty()) {
        next = std::min(next, heldBack_.front().until);
    }
    if (scanner_.holdsPartialFrame()) {
        next = std::min(next, lastByte_ + kFramePatience + milliseconds(1));
    }
    return next;
}

void SimulatedDevice::schedule(Action action)
{
    actions_.emplace(action.at, std::move(action.what));
}

void SimulatedDevice::runActions(SimTime now)
{
    while (!actions_.empty() && actions_.begin()->first <= now) {
        const auto what = std::move(actions_.begin()->second);
        actions_.erase(actions_.begin());
        if (const auto* fault = std::get_if<Fault>(&what)) {
            script_.add(*fault);
        } else {
            happen(std::get<Event>(what));
        }
    }
}

void SimulatedDevice::happen(const Event& event)
{
    const WallTime now = WallClock::now();
    Reception reception = receiver_.navigator().reception();
    switch (event.kind) {
    case EventKind::say:
        say(event.bytes, now);
        break;
    case EventKind::hangUp:
        runner_.hangUp();
        break;
    case EventKind::comeBack:
        runner_.comeBack();
        break;
    case EventKind::stopReading:
        runner_.stopReading(true);
        break;
    case EventKind::resumeReading:
        runner_.stopReading(false);
        break;
    case EventKind::restart:
        receiver_.restart();
        break;
    case EventKind::losePower:
        receiver_.losePower(true);
        break;
    case EventKind::losePowerAndBattery:
        receiver_.losePower(false);
        break;
    case EventKind::jamming:
        reception.jammed = event.on;
        break;
    case EventKind::satellites:
        reception.noSatellites = !event.on;
        break;
    case EventKind::antenna:
        reception.antenna = event.antenna;
        break;
    case EventKind::hopelessSurvey:
        receiver_.navigator().setSurveyHopeless(event.on);
        break;
    case EventKind::leapSecond:
        receiver_.navigator().approachLeapSecond(simTimeOf(now));
        break;
    case EventKind::weekRollover:
        receiver_.navigator().approachWeekRollover(simTimeOf(now));
        break;
    case EventKind::clearFaults:
        script_.clear();
        break;
    }
    receiver_.setReception(reception);
    followReset();
}

void SimulatedDevice::say(Bytes raw, WallTime now)
{
    Transmission transmission;
    transmission.bytes = std::move(raw);
    runner_.output().enqueue(std::move(transmission), now);
}

void SimulatedDevice::trace(TraceDirection direction, const Bytes& bytes)
{
    if (trace_) {
        trace_->write({std::chrono::duration_cast<microseconds>(WallClock::now() - start_), direction, bytes});
    }
}

void SimulatedDevice::followReset()
{
    if (receiver_.takeReset()) {
        runner_.output().clear();
        later_.clear();
        heldBack_.clear();
    }
    runner_.output().setBitsPerSecond(options_.unlimitedSpeed ? 0 : receiver_.lineSpeed());
}

SimTime SimulatedDevice::simTimeOf(WallTime time) const
{
    const std::chrono::duration<double, std::micro> elapsed = time - start_;
    return SimTime(static_cast<std::int64_t>(elapsed.count() * scale_));
}

WallTime SimulatedDevice::wallTimeOf(SimTime time) const
{
    const std::chrono::duration<double, std::micro> elapsed(static_cast<double>(time.count()) / scale_);
    return start_ + std::chrono::duration_cast<WallClock::duration>(elapsed) + microseconds(1);
}

void SimulatedDevice::enqueue(std::vector<Transmission> transmissions, WallTime now)
{
    for (Transmission& transmission : transmissions) {
        runner_.output().enqueue(std::move(transmission), now);
    }
}

void SimulatedDevice::enqueuePeriodic(std::vector<Bytes> output, WallTime now)
{
    // Faster than the wall clock there is more to say than the line can carry: whole epochs are left out.
    if (runner_.output().waiting() > 0 && scale_ > 1.0 && !options_.unlimitedSpeed) {
        return;
    }
    for (Bytes& bytes : output) {
        const bool fits = runner_.output().waiting() + bytes.size() <= kTransmitBuffer;
        const auto text = fits || overflowTold_ ? std::nullopt : receiver_.text(TextKind::error, "txbuf alloc");
        overflowTold_ = !fits;
        if (text) {
            say(*text, now);
        }
        if (!fits) {
            return;
        }
        say(std::move(bytes), now);
    }
}

void SimulatedDevice::handle(const Frame& request, WallTime now)
{
    frames_.push_back(frame(request.classId, request.payload));
    arrived_.notify_all();
    trace(TraceDirection::toReceiver, frames_.back());
    enqueuePeriodic(receiver_.advanceTo(simTimeOf(now)), now);

    // Real receivers never acknowledge CFG-RST, so a scripted answer to it is the answer.
    const bool isPoll =
        request.classId >> 8 != kConfigurationClass || Configuration::isPoll(request) || request.classId == kCfgRst;
    const auto outcome = script_.takeOutcome(request.classId, isPoll);
    if (outcome && outcome->kind == FaultKind::answerRaw) {
        Delivery delivery = prepare(request.classId, {}, script_.takeDelivery(request.classId, isPoll), {});
        Transmission transmission;
        transmission.bytes = outcome->bytes;
        delivery.transmissions.push_back(std::move(transmission));
        deliver(std::move(delivery), now);
        return;
    }
    const Answer answer = outcome ? scripted(*outcome, request) : receiver_.handle(request);
    followReset();
    if (!answer.notices.empty() || !answer.replies.empty() || answer.acknowledge != Acknowledge::none) {
        deliver(prepare(request.classId, answer, script_.takeDelivery(request.classId, isPoll), options_.trailer), now);
    }
}

Answer SimulatedDevice::scripted(const Fault& fault, const Frame& request)
{
    switch (fault.kind) {
    case FaultKind::refuse:
        return Answer::refused();
    case FaultKind::keepValue:
        return Answer::acked();
    case FaultKind::answerWith: {
        const bool acknowledged = request.classId >> 8 == kConfigurationClass && request.classId != kCfgRst;
        const Frame reply{request.classId, fault.bytes};
        return acknowledged ? Answer::acked(reply) : Answer::only(reply);
    }
    case FaultKind::losePower:
        receiver_.configuration().losePowerInNextSave();
        return receiver_.handle(request);
    case FaultKind::hangUp:
        runner_.hangUp();
        return Answer::silence();
    case FaultKind::restart:
        receiver_.restart();
        return Answer::silence();
    default:
        return Answer::silence();
    }
}

void SimulatedDevice::deliver(Delivery delivery, WallTime now)
{
    if (delivery.afterTheNext) {
        heldBack_.push_back({now + kHoldPatience, std::move(delivery.transmissions)});
        return;
    }
    if (delivery.delay > microseconds::zero()) {
        later_.emplace(now + delivery.delay, std::move(delivery.transmissions));
    } else {
        enqueue(std::move(delivery.transmissions), now);
    }
    releaseHeldBack(now);
}

void SimulatedDevice::releaseHeldBack(WallTime now)
{
    for (Held& held : heldBack_) {
        enqueue(std::move(held.transmissions), now);
    }
    heldBack_.clear();
}

} // namespace ubxsim

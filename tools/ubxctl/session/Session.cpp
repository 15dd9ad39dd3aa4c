#include "session/Session.h"

#include <exception>

#include <ubxController.h>

#include "session/Failure.h"
#include "session/Interrupt.h"

namespace ubxctl
{

namespace
{

constexpr auto kReplyLimit = std::chrono::seconds(3);

} // namespace

Surroundings Surroundings::real()
{
    return {[](double patience) { return std::make_shared<Device>(std::chrono::duration<double>(patience)); },
            [] { return std::make_shared<ubxController>(); },
            std::make_shared<SerialExchange>(kReplyLimit, &Interrupt::requested)};
}

Session::Session(Options options, Console& console, Surroundings surroundings)
    : options_(options), console_(console), surroundings_(std::move(surroundings))
{}

void Session::claim()
{
    if (claim_ == nullptr) claim_ = surroundings_.claim(options_.lockPatience);
}

bool Session::reclaim()
{
    constexpr double kMoment = 1; // s
    try {
        if (claim_ == nullptr) claim_ = surroundings_.claim(kMoment);
    } catch (const Busy&) {
        return false;
    } catch (const Failure&) {
        // The device is gone, perhaps for a restart only: the next question will show.
    }
    return true;
}

Receiver& Session::receiver()
{
    if (!receiver_.has_value()) {
        claim();
        std::shared_ptr<UBXControlInterface> control;
        try {
            control = surroundings_.control();
        } catch (const std::exception& error) {
            throw Failure(kDevice,
                          std::string("the device's inventory service failed: ") + error.what() + "; is it running?");
        }
        control->Init();
        receiver_.emplace(std::move(control), surroundings_.exchange, Identity::recorded(), options_.language);
    }
    return *receiver_;
}

Receiver& Session::knownReceiver()
{
    Receiver& known = receiver();
    if (!known.identity().isKnown()) {
        throw Failure(kNoReply, "the receiver does not say what it is, so nothing was written to it; "
                                "try: ubxctl doctor");
    }
    return known;
}

} // namespace ubxctl

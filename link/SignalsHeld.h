#pragma once

#include <csignal>

namespace ubx
{

/// While it is in scope no signal is delivered to this thread; they arrive right behind.
///
/// A terminal refuses a write, and cuts the draining of what was written short when it is closed, as soon as a signal
/// waits to be delivered. For calls that take no longer than the line needs.
class SignalsHeld
{
public:
    SignalsHeld()
    {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    ~SignalsHeld() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsHeld(const SignalsHeld&) = delete;
    SignalsHeld& operator=(const SignalsHeld&) = delete;

private:
    sigset_t before_{};
};

} // namespace ubx

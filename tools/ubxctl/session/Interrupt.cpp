#include "session/Interrupt.h"

#include <csignal>

namespace ubxctl
{

namespace
{

volatile std::sig_atomic_t isRequested = 0;

void note(int)
{
    isRequested = 1;
}

constexpr int kSignals[] = {SIGINT, SIGTERM, SIGHUP};

void handleWith(void (*handler)(int))
{
    struct sigaction action
    {};
    action.sa_handler = handler;
    for (const int signal : kSignals)
        ::sigaction(signal, &action, nullptr);
}

} // namespace

Interrupt::Interrupt()
{
    isRequested = 0;
    handleWith(note);
}

Interrupt::~Interrupt()
{
    handleWith(SIG_DFL);
}

bool Interrupt::requested()
{
    return isRequested != 0;
}

} // namespace ubxctl

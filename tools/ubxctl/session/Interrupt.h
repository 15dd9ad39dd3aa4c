#pragma once

namespace ubxctl
{

/// Turns the keyboard's interrupt and a request to terminate into something to ask for, while the object lives. For
/// commands that run until they are told to stop; waits of the system end early when it comes.
class Interrupt
{
public:
    Interrupt();
    ~Interrupt();
    Interrupt(const Interrupt&) = delete;
    Interrupt& operator=(const Interrupt&) = delete;

    static bool requested();
};

} // namespace ubxctl

#pragma once

#include <cstddef>

#include "bench/streams/Frame.h"

/// Exchanges with the receiver that are nothing but the system calls.
namespace bench
{

/// /dev/tty_gps, opened and set up as the library does it.
class BarePort
{
public:
    BarePort();
    ~BarePort();
    BarePort(const BarePort&) = delete;
    BarePort& operator=(const BarePort&) = delete;

    void write(const Bytes& frame) const;

    /// Reads until so many bytes and one more have come.
    void awaitAndOneMore(std::size_t length) const;

private:
    int fd_;
};

/// A poll and its answer, on a port of its own.
void barePoll(const Bytes& poll, std::size_t answerLength);

/// A poll and its answer, where the poll is written through a second port.
void barePollThroughSecondPort(const Bytes& poll, std::size_t answerLength);

/// A frame that is written on a port of its own.
void bareCommand(const Bytes& command);

/// What is said before the receiver's model is known.
void bareStartUp();

} // namespace bench

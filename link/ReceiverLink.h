#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include <UBXMessage.h>
#include <ubxIO.h>

#include "link/ErrorLog.h"
#include "link/TimeStamp.h"
#include "protocol/PayloadView.h"

namespace ubx
{

/// Bits of the status that every operation returns.
namespace status
{
inline constexpr int kDone = 0;
inline constexpr int kRefused = 1;  // an argument was refused and nothing was sent,
inline constexpr int kMismatch = 1; // or the receiver holds another value than was written
inline constexpr int kNoReply = 4;
inline constexpr int kNotSent = 8;
} // namespace status

inline constexpr int mismatch(bool differs)
{
    return differs ? status::kMismatch : status::kDone;
}

// What a failed exchange leaves in the error log, before the description of the message.
inline constexpr const char* kNotSentText = "Could not send : ";
inline constexpr const char* kNotReceivedText = "Did not receive : ";

/// The answer to a poll: a message, or the status that tells why there is none.
class Reply
{
public:
    explicit Reply(int failure) : status_(failure) {}
    explicit Reply(std::unique_ptr<UBXMessage> message) : message_(std::move(message)) {}

    int status() const { return status_; }
    explicit operator bool() const { return message_ != nullptr; }

    UBXMessage& message() const { return *message_; }
    PayloadView payload() const { return PayloadView(*message_); }

private:
    int status_ = status::kDone;
    std::unique_ptr<UBXMessage> message_;
};

/// The two ways of talking to the receiver, command and poll, and the error log they write to.
///
/// Every exchange opens the port and closes it again. Exchanges must not overlap.
class ReceiverLink
{
public:
    static constexpr int kReceiveTimeLimit = 5; // seconds

    /// @param timeStamp  what the lines of the error log begin with.
    explicit ReceiverLink(const char* errorLogPath, std::function<std::string()> timeStamp = ubx::timeStamp)
        : errorLog_(errorLogPath), timeStamp_(std::move(timeStamp))
    {}

    /// Writes a command; no acknowledgement is awaited. A failure is only logged. @return 0.
    int send(const UBXMessage& command);

    /// Writes a poll and waits for the message of the same class/id.
    Reply poll(const UBXMessage& request, int timeLimit = kReceiveTimeLimit);

    // The steps of an exchange, for those that need more than one on the same port.

    /// @return 0, or 8 and a line in the log.
    int write(ubxIO& port, const UBXMessage& message, const char* notSent = kNotSentText);

    Reply await(ubxIO& port, const UBXMessage& request, int timeLimit = kReceiveTimeLimit,
                const char* notReceived = kNotReceivedText);

    /// @param description  what the log calls the message if it does not come.
    Reply await(ubxIO& port, unsigned short classId, const char* description);

    Reply poll(ubxIO& port, const UBXMessage& request, int timeLimit = kReceiveTimeLimit);

    /// Appends a time-stamped line to the error log.
    void log(const std::string& text);
    void closeLog() { errorLog_.close(); }

private:
    ErrorLog errorLog_;
    std::function<std::string()> timeStamp_;
};

} // namespace ubx

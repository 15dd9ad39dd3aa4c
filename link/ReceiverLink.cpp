#include "link/ReceiverLink.h"

namespace ubx
{

int ReceiverLink::send(const UBXMessage& command)
{
    ubxIO port;
    write(port, command);
    return status::kDone; // also when it could not be written: a command is not confirmed, on purpose
}

Reply ReceiverLink::poll(const UBXMessage& request, int timeLimit)
{
    ubxIO port;
    return poll(port, request, timeLimit);
}

Reply ReceiverLink::poll(ubxIO& port, const UBXMessage& request, int timeLimit)
{
    if (const int failure = write(port, request)) return Reply(failure);
    return await(port, request, timeLimit);
}

int ReceiverLink::write(ubxIO& port, const UBXMessage& message, const char* notSent)
{
    auto* const frame = const_cast<UBXMessage*>(&message); // only read
    if (port.SendMessage(frame) == 0) return status::kDone;
    log(notSent + message.getMessageDescription());
    return status::kNotSent;
}

Reply ReceiverLink::await(ubxIO& port, const UBXMessage& request, int timeLimit, const char* notReceived)
{
    std::unique_ptr<UBXMessage> message{port.ReceiveMessage(request.getClassId(), timeLimit)};
    if (message != nullptr) return Reply(std::move(message));
    log(notReceived + request.getMessageDescription());
    return Reply(status::kNoReply);
}

Reply ReceiverLink::await(ubxIO& port, unsigned short classId, const char* description)
{
    std::unique_ptr<UBXMessage> message{port.ReceiveMessage(classId, kReceiveTimeLimit)};
    if (message != nullptr) return Reply(std::move(message));
    log(std::string(kNotReceivedText) + description);
    return Reply(status::kNoReply);
}

void ReceiverLink::log(const std::string& text)
{
    errorLog_.write(timeStamp_(), text);
}

} // namespace ubx

#pragma once

#include <optional>

#include <UBXMessage.h>
#include <UBXMessageBuilder.h>
#include <UBXMessageList.h>
#include <ubxExport.h>

/// Sends and receives UBX messages. Nothing is deleted through this interface.
class UBXCONTROL_API UBXMessagingInterface
{
public:
    virtual int SendMessage(UBXMessage* message) = 0;
    virtual UBXMessage* ReceiveMessage(unsigned short classId, int timeLimit) = 0;

protected:
    UBXMessagingInterface() = default;
    UBXMessagingInterface(const UBXMessagingInterface&) = default;
    UBXMessagingInterface& operator=(const UBXMessagingInterface&) = default;
    ~UBXMessagingInterface() = default;
};

/// The receiver's serial port, "/dev/tty_gps", open in raw mode for one exchange.
///
/// The line speed stays as the platform set it. Failures are written to standard error, one line each. No threads: one
/// object, and one exchange with the receiver, at a time.
class UBXCONTROL_API ubxIO : public UBXMessagingInterface
{
public:
    /// Opens and configures the port and discards what is waiting on it. When that fails the object stays closed.
    ubxIO();
    ubxIO(const ubxIO&) = delete;
    ubxIO& operator=(const ubxIO&) = delete;
    ~ubxIO();

    /// Raw mode, one stop bit, no hardware flow control; pending input and output is discarded.
    /// @return false when the attributes can't be read or set.
    bool SetupUART(int fd);

    /// Reads what has arrived, without waiting.
    /// @param length  room in the buffer, bytes.
    /// @return bytes read; 0 when there is nothing, on an error and when the port is closed.
    long ReadFromUART(unsigned char* buffer, long length);

    /// Writes a whole frame, without waiting for an acknowledgement.
    /// @return 0; -1 when the port is closed or did not take all of it.
    int SendMessage(UBXMessage* message) override;

    /// Waits for a message, polling the port all the time.
    ///
    /// Messages that preceded it stay, for a later wait of this object. Once a frame with a wrong checksum has been
    /// seen on this object, every wait runs to its limit and then gives the last matching message found. Output that
    /// precedes the reply is not limited: what has been looked at makes room for what follows.
    /// @param classId    class/id value of the message.
    /// @param timeLimit  seconds by the wall clock's whole seconds, and room for a frame in KiB. A clock that is set
    ///                   forward meanwhile ends the wait early, one that is set back makes it longer by as much.
    /// @return the caller's to delete; null when none arrived or the port is closed.
    UBXMessage* ReceiveMessage(unsigned short classId, int timeLimit) override;

private:
    int fd_ = -1;
    std::optional<UBXMessageList> messageList_;
    std::optional<UBXMessageBuilder> messageBuilder_;
};

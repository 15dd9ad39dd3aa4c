#pragma once

#include <cstddef>
#include <vector>

#include <UBXMessage.h>
#include <ubxExport.h>

/// Received messages, from newest to oldest. Owns them until they are taken out. One thread at a time.
class UBXCONTROL_API UBXMessageList
{
public:
    UBXMessageList();
    UBXMessageList(const UBXMessageList&) = delete;
    UBXMessageList& operator=(const UBXMessageList&) = delete;
    ~UBXMessageList();

    /// Puts a message at the front, as the newest. The list takes ownership.
    void AddMessage(UBXMessage* message);

    /// Takes out the oldest message. @return the caller's to delete; null when the list is empty.
    UBXMessage* getMessage();

    /// Takes out the newest message of this class/id. The others stay in their order.
    /// @return the caller's to delete; null when there is none.
    UBXMessage* findFirstOfMessage(UBXMessageClassIdValues classId);

    /// Shows every message on standard output, newest first.
    void DumpMessages();

    bool isEmpty() const;

    /// Deletes all messages.
    void Empty();

private:
    std::vector<UBXMessage*> oldestFirst_; // from position taken_ on
    std::size_t taken_ = 0;
};

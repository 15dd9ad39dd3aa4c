#pragma once

#include <cstddef>
#include <memory>

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
    UBXCONTROL_INTERNAL void makeRoom();
    UBXCONTROL_INTERNAL void forget();

    static constexpr std::size_t kFew = 8; // an exchange seldom has more: these cost no allocation

    // Oldest first, from begin_ to before end_.
    UBXMessage* few_[kFew] = {};
    std::unique_ptr<UBXMessage*[]> many_;
    UBXMessage** room_ = few_;
    std::size_t capacity_ = kFew;
    std::size_t begin_ = 0;
    std::size_t end_ = 0;
};

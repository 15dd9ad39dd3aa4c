#include <UBXMessageList.h>

#include <algorithm>

UBXMessageList::UBXMessageList() = default;

UBXMessageList::~UBXMessageList()
{
    Empty();
}

void UBXMessageList::AddMessage(UBXMessage* message)
{
    if (end_ == capacity_) makeRoom();
    room_[end_++] = message;
}

// What was taken out at the old end is room, too. Where that is less than half, there must be twice as much.
void UBXMessageList::makeRoom()
{
    if (begin_ < capacity_ / 2) {
        std::unique_ptr<UBXMessage*[]> wider(new UBXMessage*[2 * capacity_]);
        std::copy(room_ + begin_, room_ + end_, wider.get());
        many_ = std::move(wider);
        room_ = many_.get();
        capacity_ *= 2;
    } else {
        std::copy(room_ + begin_, room_ + end_, room_);
    }
    end_ -= begin_;
    begin_ = 0;
}

UBXMessage* UBXMessageList::getMessage()
{
    if (isEmpty()) return nullptr;
    UBXMessage* const oldest = room_[begin_++];
    if (isEmpty()) forget();
    return oldest;
}

UBXMessage* UBXMessageList::findFirstOfMessage(UBXMessageClassIdValues classId)
{
    for (std::size_t i = end_; i > begin_; --i) {
        UBXMessage* const message = room_[i - 1];
        if (message == nullptr || message->getClassId() != classId) continue;
        std::copy(room_ + i, room_ + end_, room_ + i - 1);
        --end_;
        return message;
    }
    return nullptr;
}

void UBXMessageList::DumpMessages()
{
    for (std::size_t i = end_; i > begin_; --i) {
        if (const UBXMessage* const message = room_[i - 1]) message->showPacket();
    }
}

bool UBXMessageList::isEmpty() const
{
    return begin_ == end_;
}

void UBXMessageList::Empty()
{
    std::for_each(room_ + begin_, room_ + end_, [](UBXMessage* message) { delete message; });
    forget();
}

void UBXMessageList::forget()
{
    begin_ = 0;
    end_ = 0;
}

#include <UBXMessageList.h>

#include <algorithm>
#include <iterator>

UBXMessageList::UBXMessageList() = default;

UBXMessageList::~UBXMessageList()
{
    Empty();
}

void UBXMessageList::AddMessage(UBXMessage* message)
{
    oldestFirst_.push_back(message);
}

UBXMessage* UBXMessageList::getMessage()
{
    if (isEmpty()) return nullptr;
    UBXMessage* const oldest = oldestFirst_[taken_++];
    if (isEmpty()) {
        oldestFirst_.clear();
        taken_ = 0;
    }
    return oldest;
}

UBXMessage* UBXMessageList::findFirstOfMessage(UBXMessageClassIdValues classId)
{
    const auto oldest = oldestFirst_.begin() + static_cast<std::ptrdiff_t>(taken_);
    const auto newestFirst = std::make_reverse_iterator(oldestFirst_.end());
    const auto end = std::make_reverse_iterator(oldest);
    const auto found = std::find_if(newestFirst, end, [classId](const UBXMessage* message) {
        return message != nullptr && message->getClassId() == classId;
    });
    if (found == end) return nullptr;

    UBXMessage* const message = *found;
    oldestFirst_.erase(std::next(found).base());
    return message;
}

void UBXMessageList::DumpMessages()
{
    for (std::size_t i = oldestFirst_.size(); i > taken_; --i) {
        if (const UBXMessage* const message = oldestFirst_[i - 1]) message->showPacket();
    }
}

bool UBXMessageList::isEmpty() const
{
    return taken_ == oldestFirst_.size();
}

void UBXMessageList::Empty()
{
    for (std::size_t i = taken_, count = oldestFirst_.size(); i < count; ++i)
        delete oldestFirst_.at(i);
    oldestFirst_.clear();
    taken_ = 0;
}

#include <UBXMessageBuilder.h>

#include <cstring>
#include <memory>

#include "protocol/Catalogue.h"
#include "protocol/FrameLayout.h"

namespace frame = ubx::frame;

namespace
{

unsigned short u16At(const unsigned char* p)
{
    return static_cast<unsigned short>(p[0] | (p[1] << 8));
}

bool checksumIsRight(const unsigned char* start, unsigned short payloadLength)
{
    auto* const covered = const_cast<unsigned char*>(start + frame::kClassOffset); // only read
    return ubxComputeChecksum(covered, frame::kHeaderUnderChecksum + payloadLength) ==
           u16At(start + frame::kPayloadOffset + payloadLength);
}

} // namespace

UBXMessageBuilder::UBXMessageBuilder(UBXMessageList* list) : list_(list) {}

UBXMessageBuilder::~UBXMessageBuilder() = default;

unsigned long UBXMessageBuilder::update(unsigned char* buffer, unsigned long length)
{
    unsigned long resumeAt = 0;
    return scan(buffer, length, resumeAt);
}

unsigned long UBXMessageBuilder::scan(const unsigned char* buffer, unsigned long length, unsigned long& resumeAt)
{
    unsigned long consumed = 0;
    unsigned long pos = 0;

    const auto stopHere = [&](unsigned long result) {
        resumeAt = pos;
        return result;
    };

    while (pos < length) {
        if (length - pos < 3) return stopHere(length - pos == 2 ? consumed : 0);

        if (buffer[pos] != frame::kSync1) {
            const unsigned long searchable = length - 2 - pos;
            const void* const found = std::memchr(buffer + pos, frame::kSync1, searchable);
            pos = found != nullptr ? static_cast<unsigned long>(static_cast<const unsigned char*>(found) - buffer)
                                   : length - 2;
            continue;
        }
        if (buffer[pos + 1] != frame::kSync2) {
            pos += frame::kSyncLength; // both: a 0xB5 right behind a stray one is not tried, on purpose
            continue;
        }
        if (length - pos < frame::kLengthOffset + 1) return stopHere(consumed);

        const UBXClassId id = ubxGetClassIdFromData(buffer + pos + frame::kClassOffset);
        if (!ubx::isCatalogued(id)) {
            ++unknownCount_;
            pos += frame::kSyncLength;
            continue;
        }
        // The last known class/id also counts as unknown, although it is handled; kept on purpose.
        if (ubx::isLastOfCatalogue(id)) ++unknownCount_;

        if (length - pos < frame::kPayloadOffset) return stopHere(consumed);
        const unsigned short payloadLength = u16At(buffer + pos + frame::kLengthOffset);
        const unsigned long frameLength = frame::kOverhead + payloadLength;
        // A frame that ends with the buffer is not taken before one more byte has come; kept on purpose.
        if (length - pos <= frameLength) return stopHere(consumed);

        if (checksumIsRight(buffer + pos, payloadLength)) {
            accept(buffer + pos, frameLength);
        } else {
            ++erroredCount_;
        }
        pos += frameLength;
        consumed = pos;
    }
    return stopHere(0);
}

void UBXMessageBuilder::accept(const unsigned char* wholeFrame, unsigned long frameLength)
{
    std::unique_ptr<UBXMessage> message{new UBXMessage(wholeFrame, frameLength)};
    const UBXMessageClassIdValues classId = message->getClassId();
    list_->AddMessage(message.get());
    static_cast<void>(message.release()); // the list's now, and only if it had room for it

    ++goodCount_;
    if (classId == UBX_ACK_ACK) ++ackCount_;
    if (classId == UBX_ACK_NAK) ++nakCount_;
}

unsigned int UBXMessageBuilder::getGoodMessageCount() const
{
    return goodCount_;
}

unsigned int UBXMessageBuilder::getErroredMessageCount() const
{
    return erroredCount_;
}

unsigned int UBXMessageBuilder::getUnknownMessageCount() const
{
    return unknownCount_;
}

unsigned int UBXMessageBuilder::getAckMessageCount() const
{
    return ackCount_;
}

unsigned int UBXMessageBuilder::getNakMessageCount() const
{
    return nakCount_;
}

void UBXMessageBuilder::resetMessageCounters()
{
    goodCount_ = 0;
    erroredCount_ = 0;
    unknownCount_ = 0;
    ackCount_ = 0;
    nakCount_ = 0;
}

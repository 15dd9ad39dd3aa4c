#include "Parsing.h"

#include <algorithm>
#include <stdexcept>

#include <sys/mman.h>
#include <unistd.h>

namespace protocoltest
{

ReceivedBytes::ReceivedBytes(std::size_t room) : pages_(nullptr), pagesSize_(0), end_(nullptr)
{
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    const std::size_t usable = (room / page + 1) * page;
    pagesSize_ = usable + page;
    void* const pages = ::mmap(nullptr, pagesSize_, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (pages == MAP_FAILED) throw std::runtime_error("no memory for a guarded buffer");
    pages_ = static_cast<unsigned char*>(pages);
    end_ = pages_ + usable;
    if (::mprotect(end_, page, PROT_NONE) != 0) throw std::runtime_error("can't guard a buffer");
}

ReceivedBytes::~ReceivedBytes()
{
    ::munmap(pages_, pagesSize_);
}

unsigned char* ReceivedBytes::hold(const Bytes& bytes)
{
    if (bytes.size() > static_cast<std::size_t>(end_ - pages_)) throw std::out_of_range("no room for the bytes");
    unsigned char* const first = end_ - bytes.size();
    std::copy(bytes.begin(), bytes.end(), first);
    return first;
}

std::string frameOf(const UBXMessage& message)
{
    const unsigned char* const frame = message.getPacketData();
    return testsupport::hex(Bytes(frame, frame + message.getPacketLength()));
}

std::vector<std::string> takeAll(UBXMessageList& list)
{
    std::vector<std::string> frames;
    while (const std::unique_ptr<UBXMessage> message{list.getMessage()})
        frames.push_back(frameOf(*message));
    return frames;
}

Scan parse(const Bytes& buffer, ReceivedBytes& place)
{
    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    Scan scan;
    scan.result = builder.update(place.hold(buffer), buffer.size());
    scan.good = builder.getGoodMessageCount();
    scan.errored = builder.getErroredMessageCount();
    scan.unknown = builder.getUnknownMessageCount();
    scan.ack = builder.getAckMessageCount();
    scan.nak = builder.getNakMessageCount();
    scan.frames = takeAll(list);
    return scan;
}

Scan parse(const Bytes& buffer)
{
    ReceivedBytes place(buffer.size());
    return parse(buffer, place);
}

Bytes joined(const std::vector<Bytes>& pieces)
{
    Bytes all;
    for (const Bytes& piece : pieces)
        all.insert(all.end(), piece.begin(), piece.end());
    return all;
}

Bytes text(const std::string& characters)
{
    return Bytes(characters.begin(), characters.end());
}

} // namespace protocoltest

// The parser on any bytes: it must find what the plain scan finds, count the same, and touch nothing behind the end.

#include <memory>

#include <UBXMessageBuilder.h>

#include "machine/Machine.h"
#include "protocol/ReferenceScan.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

namespace
{

using protocoltest::Scan;

Scan parse(const fuzz::Bytes& bytes)
{
    // A block of exactly this size, so that a look behind its end is seen.
    const std::unique_ptr<unsigned char[]> block(new unsigned char[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), block.get());

    UBXMessageList list;
    UBXMessageBuilder builder(&list);
    Scan scan;
    scan.result = builder.update(block.get(), bytes.size());
    scan.good = builder.getGoodMessageCount();
    scan.errored = builder.getErroredMessageCount();
    scan.unknown = builder.getUnknownMessageCount();
    scan.ack = builder.getAckMessageCount();
    scan.nak = builder.getNakMessageCount();
    while (const std::unique_ptr<UBXMessage> message{list.getMessage()}) {
        const unsigned char* const frame = message->getPacketData();
        scan.frames.push_back(testsupport::hex({frame, frame + message->getPacketLength()}));
        message->getMessageDescription();
        message->showPacket();
    }
    return scan;
}

} // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const fuzz::Bytes whole(data, data + size);
    fuzz::require(parse(whole) == protocoltest::referenceScan(whole), "the parser differs from the plain scan");

    const fuzz::Bytes half(data, data + size / 2);
    fuzz::require(parse(half) == protocoltest::referenceScan(half), "the parser differs on the first half");
    return 0;
}

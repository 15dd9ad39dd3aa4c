#include "ReferenceScan.h"

#include <ostream>

#include "KnownMessages.h"

namespace protocoltest
{

namespace
{

constexpr std::size_t kNotKnown = kKnownMessages;

std::size_t searchFromFirstRow(unsigned msgClass, unsigned msgId)
{
    std::size_t row = 0;
    while (row < kKnownMessages) {
        if (knownMessages[row].msgClass == msgClass && knownMessages[row].msgId == msgId) return row;
        ++row;
    }
    return kNotKnown;
}

bool checksumFits(const Bytes& buffer, std::size_t pos, std::size_t payloadLength)
{
    std::uint8_t a = 0;
    std::uint8_t b = 0;
    for (std::size_t i = pos + 2; i < pos + 6 + payloadLength; ++i) {
        a = static_cast<std::uint8_t>((a + buffer.at(i)) % 256);
        b = static_cast<std::uint8_t>((b + a) % 256);
    }
    return a == buffer.at(pos + 6 + payloadLength) && b == buffer.at(pos + 7 + payloadLength);
}

std::string frameAt(const Bytes& buffer, std::size_t begin, std::size_t end)
{
    Bytes frame;
    for (std::size_t i = begin; i < end; ++i)
        frame.push_back(buffer.at(i));
    return testsupport::hex(frame);
}

} // namespace

Scan referenceScan(const Bytes& buffer)
{
    Scan scan;
    const std::size_t length = buffer.size();
    std::size_t pos = 0;
    std::size_t consumed = 0;
    bool stop = false;

    while (!stop && pos < length) {
        // Fewer than three bytes left.
        if (pos + 2 >= length) {
            scan.result = pos + 2 == length ? consumed : 0;
            return scan;
        }
        if (buffer.at(pos) != 0xB5) {
            pos += 1;
            continue;
        }
        if (buffer.at(pos + 1) != 0x62) {
            pos += 2;
            continue;
        }
        // The header is not complete.
        if (pos + 4 >= length) {
            pos += 2;
            stop = true;
            continue;
        }
        const unsigned msgClass = buffer.at(pos + 2);
        const unsigned msgId = buffer.at(pos + 3);
        const std::size_t row = searchFromFirstRow(msgClass, msgId);
        if (row == kNotKnown) {
            scan.unknown += 1;
            pos += 2;
            continue;
        }
        // The second length byte may not be there; the frame is incomplete then as well.
        const bool haveLength = pos + 5 < length;
        const std::size_t payloadLength = haveLength ? buffer.at(pos + 4) + 256U * buffer.at(pos + 5) : 0;
        const std::size_t end = pos + 6 + payloadLength + 2;
        if (!haveLength || end >= length) {
            stop = true;
            pos += 6;
        } else {
            if (checksumFits(buffer, pos, payloadLength)) {
                scan.frames.push_back(frameAt(buffer, pos, end));
                scan.good += 1;
                if (msgClass == 0x05 && msgId == 0x01) scan.ack += 1;
                if (msgClass == 0x05 && msgId == 0x00) scan.nak += 1;
            } else {
                scan.errored += 1;
            }
            consumed = end;
            pos = end;
        }
        // The row behind the last one is the end of the table.
        if (row + 1 == kKnownMessages) scan.unknown += 1;
    }
    scan.result = stop ? consumed : 0;
    return scan;
}

bool operator==(const Scan& a, const Scan& b)
{
    return a.result == b.result && a.good == b.good && a.errored == b.errored && a.unknown == b.unknown &&
           a.ack == b.ack && a.nak == b.nak && a.frames == b.frames;
}

std::ostream& operator<<(std::ostream& out, const Scan& scan)
{
    out << "result " << scan.result << ", " << scan.good << " good, " << scan.errored << " errored, " << scan.unknown
        << " unknown, " << scan.ack << " ack, " << scan.nak << " nak";
    for (const std::string& frame : scan.frames)
        out << "\n    " << frame;
    return out;
}

} // namespace protocoltest

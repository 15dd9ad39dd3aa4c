#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <UBXMessage.h>
#include <UBXMessageBuilder.h>
#include <UBXMessageList.h>

#include "Bytes.h"
#include "ReferenceScan.h"

namespace protocoltest
{

/// Received bytes right before a page that nobody may touch: a look behind the last one ends the program.
class ReceivedBytes
{
public:
    explicit ReceivedBytes(std::size_t room = 0);
    ~ReceivedBytes();
    ReceivedBytes(const ReceivedBytes&) = delete;
    ReceivedBytes& operator=(const ReceivedBytes&) = delete;

    /// Puts these bytes at the end of the room. @return the first of them.
    unsigned char* hold(const Bytes& bytes);

private:
    unsigned char* pages_;
    std::size_t pagesSize_;
    unsigned char* end_;
};

/// The frame of a message, as "B5 62 ...".
std::string frameOf(const UBXMessage& message);

/// Takes all messages out of the list, oldest first, and gives their frames.
std::vector<std::string> takeAll(UBXMessageList& list);

/// What the library's parser makes of a buffer, with counters that start at 0.
Scan parse(const Bytes& buffer, ReceivedBytes& place);
Scan parse(const Bytes& buffer);

/// The bytes of several pieces, one after the other.
Bytes joined(const std::vector<Bytes>& pieces);

/// The bytes of a text such as an NMEA sentence.
Bytes text(const std::string& characters);

} // namespace protocoltest

#pragma once

#include <iosfwd>
#include <string>
#include <vector>

#include "Bytes.h"

namespace protocoltest
{

using testsupport::Bytes;

/// What a scan of a buffer comes to.
struct Scan
{
    unsigned long result = 0;
    unsigned good = 0;
    unsigned errored = 0;
    unsigned unknown = 0;
    unsigned ack = 0;
    unsigned nak = 0;
    std::vector<std::string> frames; ///< whole frames in their order in the buffer, as "B5 62 ..."

    friend bool operator==(const Scan& a, const Scan& b);
    friend std::ostream& operator<<(std::ostream& out, const Scan& scan); // for GoogleTest
};

/// The scan that the parser is measured against: its rules one by one, byte by byte, with nothing of the library.
Scan referenceScan(const Bytes& buffer);

} // namespace protocoltest

#include "input/Conversation.h"

#include <algorithm>
#include <iterator>

namespace fuzz
{

Conversation::Conversation(const std::uint8_t* data, std::size_t size)
{
    constexpr std::size_t kPieces[] = {1024, 512, 200, 90};
    constexpr unsigned kFlood = 0x40;

    if (size > 0) choice = data[0];
    if (size > 1) bytesPerRead = kPieces[data[1] % std::size(kPieces)];
    flood = size > 1 && (data[1] & kFlood) != 0;
    const std::uint8_t* at = data + std::min<std::size_t>(size, 2);
    const std::uint8_t* const end = data + size;
    for (;;) {
        const std::uint8_t* const next = std::search(at, end, std::begin(kSeparator), std::end(kSeparator));
        answers.emplace_back(at, next);
        if (next == end) break;
        at = next + std::size(kSeparator);
    }
}

} // namespace fuzz

#pragma once

#include "machine/Machine.h"

namespace fuzz
{

/// An input that makes the receiver's side of a conversation: one byte that chooses what is asked, one that says in
/// what pieces the port gives its bytes and how often they come, then the answers, one for each write, with kSeparator
/// between them.
struct Conversation
{
    Conversation(const std::uint8_t* data, std::size_t size);

    std::uint8_t choice = 0;
    std::size_t bytesPerRead = 1024;
    bool flood = false;         ///< an answer comes again and again, more of it than the library has room for
    std::vector<Bytes> answers; ///< at least one

    /// The answer to the n-th write; the last one is repeated.
    const Bytes& answer(std::size_t n) const { return answers[n < answers.size() ? n : answers.size() - 1]; }
};

inline constexpr std::uint8_t kSeparator[] = {0xFE, 0xED, 0xFE};

} // namespace fuzz

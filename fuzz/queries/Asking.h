#pragma once

#include <optional>
#include <string>
#include <vector>

#include <UBXControlInterface.h>

#include "input/Conversation.h"

namespace fuzz
{

/// The payload of a reply, read as plainly as can be: a byte that is not there is 0.
class Plain
{
public:
    explicit Plain(Bytes payload) : payload_(std::move(payload)) {}

    std::size_t size() const { return payload_.size(); }
    unsigned byte(std::size_t at) const { return at < payload_.size() ? payload_[at] : 0U; }
    bool bit(std::size_t at, unsigned number) const { return (byte(at) >> number & 1U) != 0; }
    std::uint32_t number(std::size_t at) const; ///< four bytes, least significant first
    std::int32_t signedNumber(std::size_t at) const { return static_cast<std::int32_t>(number(at)); }
    /// Up to a zero byte, so many bytes, or the payload's end.
    std::string text(std::size_t at, std::size_t most) const;

private:
    Bytes payload_;
};

/// What a wait for a message must come to when the port gives these bytes in pieces of this size and then falls silent:
/// the newest such message of the pieces that it takes, empty when there is none.
std::optional<Plain> awaited(const Bytes& bytes, std::size_t bytesPerRead, std::uint16_t classId);

/// A query with one reply.
struct Query
{
    const char* name;
    std::uint16_t reply;
    /// Asks, and shows what came as text. What was not set shows as it was before.
    int (*ask)(UBXControlInterface& control, std::string& shown);
    /// The same from the reply.
    std::string (*expected)(const Plain& reply);
    const char* withoutReply; ///< what is shown then
};

/// Those that are answered by messages of their own, and those of a ZED-F9T's items.
const std::vector<Query>& messageQueries();
const std::vector<Query>& itemQueries();

/// Operations of more than one exchange, or of one that sets: any status that operations have will do.
using Operation = int (*)(UBXControlInterface& control);
const std::vector<Operation>& operations();

/// Asks one query of a controller whose receiver says this, and compares. In a flood the status alone counts.
void check(const Query& query, UBXControlInterface& control, const Conversation& conversation);

/// Survey information comes from two replies.
void checkSurveyInfo(UBXControlInterface& control, const Conversation& conversation);

/// Does one of the operations while the receiver says this.
void run(Operation operation, UBXControlInterface& control, const Conversation& conversation);

} // namespace fuzz

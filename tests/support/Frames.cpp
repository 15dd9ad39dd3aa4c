#include "Frames.h"

#include <stdexcept>

#include "Bytes.h"

namespace testsupport
{

std::string frame(std::string_view classAndId, std::string_view payload)
{
    const Bytes body = bytes(payload);
    Bytes whole = bytes(classAndId);
    whole.push_back(static_cast<std::uint8_t>(body.size() % 256));
    whole.push_back(static_cast<std::uint8_t>(body.size() / 256));
    whole.insert(whole.end(), body.begin(), body.end());

    unsigned a = 0;
    unsigned b = 0;
    for (const std::uint8_t byte : whole) {
        a = (a + byte) % 256;
        b = (b + a) % 256;
    }
    whole.push_back(static_cast<std::uint8_t>(a));
    whole.push_back(static_cast<std::uint8_t>(b));
    return "B5 62 " + hex(whole);
}

std::string zeros(std::size_t count)
{
    return hex(Bytes(count));
}

std::string payload(std::size_t size, std::initializer_list<At> fields)
{
    Bytes all(size);
    for (const At& field : fields) {
        std::size_t place = field.offset;
        for (const std::uint8_t byte : bytes(field.bytes))
            all.at(place++) = byte;
    }
    return hex(all);
}

} // namespace testsupport

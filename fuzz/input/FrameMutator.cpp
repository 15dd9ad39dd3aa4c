// Mutates inputs that hold UBX frames. Chance alone finds no right checksum, so most inputs get theirs put right; a
// frame whose length field points behind the end of the input is now and then cut to what is there.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <random>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room, unsigned seed);

namespace
{

constexpr std::size_t kHeader = 6;
constexpr std::size_t kChecksum = 2;

void putChecksum(std::uint8_t* frame, std::size_t payload)
{
    unsigned a = 0;
    unsigned b = 0;
    for (std::size_t i = 2; i < kHeader + payload; ++i) {
        a = (a + frame[i]) & 0xFF;
        b = (b + a) & 0xFF;
    }
    frame[kHeader + payload] = static_cast<std::uint8_t>(a);
    frame[kHeader + payload + 1] = static_cast<std::uint8_t>(b);
}

class Repair
{
public:
    explicit Repair(unsigned seed) : random_(seed) {}

    void operator()(std::uint8_t* data, std::size_t size)
    {
        for (std::size_t at = 0; at + kHeader + kChecksum <= size;) {
            if (data[at] != 0xB5 || data[at + 1] != 0x62) {
                ++at;
                continue;
            }
            const std::size_t room = size - at - kHeader - kChecksum;
            std::size_t payload = data[at + 4] + 256U * data[at + 5];
            if (payload > room && oneIn(2)) {
                // One byte less: a frame is taken when another byte follows.
                payload = room > 0 ? room - 1 : 0;
                data[at + 4] = static_cast<std::uint8_t>(payload & 0xFF);
                data[at + 5] = static_cast<std::uint8_t>(payload >> 8);
            }
            if (payload > room) {
                ++at;
                continue;
            }
            if (!oneIn(16)) putChecksum(data + at, payload);
            at += kHeader + payload + kChecksum;
        }
    }

    bool oneIn(unsigned chances) { return random_() % chances == 0; }

private:
    std::minstd_rand random_;
};

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room, unsigned seed)
{
    const std::size_t newSize = LLVMFuzzerMutate(data, size, room);
    Repair repair(seed);
    if (!repair.oneIn(8)) repair(data, newSize);
    return newSize;
}

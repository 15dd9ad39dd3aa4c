#include <UBXMessage.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace
{

// Sixteen sums side by side. Compilers make one instruction of an operation on all of them, on x86-64 and ARM alike.
using Lanes = unsigned char __attribute__((vector_size(16)));
using HalfLanes = unsigned char __attribute__((vector_size(8)));
using WideLanes = unsigned short __attribute__((vector_size(16)));

constexpr std::size_t kLanes = sizeof(Lanes);

WideLanes widened(const Lanes& lanes, std::size_t half)
{
    HalfLanes bytes;
    std::memcpy(&bytes, reinterpret_cast<const unsigned char*>(&lanes) + half * sizeof bytes, sizeof bytes);
    return __builtin_convertvector(bytes, WideLanes);
}

// The low bytes of all lanes.
unsigned int sumOf(WideLanes lanes)
{
    lanes &= 0xFF; // so that the sum of all fits into one lane
    std::uint64_t half[2];
    std::memcpy(half, &lanes, sizeof half);
    return static_cast<unsigned int>((half[0] + half[1]) * 0x0001000100010001 >> 48);
}

unsigned short packed(unsigned int a, unsigned int b)
{
    return static_cast<unsigned short>((a & 0xFF) | ((b & 0xFF) << 8));
}

unsigned short inSingleBytes(const unsigned char* data, unsigned long length)
{
    unsigned int a = 0;
    unsigned int b = 0;
    for (unsigned long i = 0; i < length; ++i) {
        a += data[i];
        b += a;
    }
    return packed(a, b);
}

} // namespace

unsigned short ubxComputeChecksum(unsigned char* data, unsigned long length)
{
    if (length < kLanes) return inSingleBytes(data, length);

    // The bytes that don't fill all lanes come first, behind zeros: those change neither sum.
    const unsigned long rest = length % kLanes;
    unsigned char padded[2 * kLanes] = {};
    std::memcpy(padded + kLanes, data, kLanes);
    Lanes sums;
    std::memcpy(&sums, padded + rest, kLanes);

    // CK_B is the sum of all bytes, each as often as there are bytes from it to the end. So a lane can add up its bytes
    // on its own, every sixteenth of all; only at the end is each lane given the weight of its place.
    Lanes sumsOfSums{};
    for (const unsigned char* next = data + rest; next != data + length; next += kLanes) {
        Lanes bytes;
        std::memcpy(&bytes, next, kLanes);
        sumsOfSums += sums;
        sums += bytes;
    }

    constexpr WideLanes kWeights[] = {{16, 15, 14, 13, 12, 11, 10, 9}, {8, 7, 6, 5, 4, 3, 2, 1}};
    const WideLanes first = widened(sums, 0);
    const WideLanes second = widened(sums, 1);
    const WideLanes blocks = widened(sumsOfSums, 0) + widened(sumsOfSums, 1);
    return packed(sumOf(first + second), sumOf(first * kWeights[0] + second * kWeights[1] + blocks * kLanes));
}

#include <UBXMessage.h>

#include <memory>
#include <new>
#include <random>
#include <type_traits>

#include <gtest/gtest.h>

#include "Bytes.h"
#include "HeapBlocks.h"
#include "Parsing.h"

namespace
{

using protocoltest::frameOf;
using testsupport::Bytes;
using testsupport::bytes;
using testsupport::heapBlocks;

UBXMessage rate()
{
    const Bytes payload = bytes("E8 03 01 00 01 00");
    return UBXMessage(0x0608, payload.size(), payload.data());
}

/// The frame's last two bytes, as they have to be for the bytes before them.
Bytes rightChecksum(const UBXMessage& message)
{
    unsigned a = 0;
    unsigned b = 0;
    for (unsigned long i = 2; i < message.getPacketLength() - 2; ++i) {
        a = (a + message.getPacketData()[i]) % 256;
        b = (b + a) % 256;
    }
    return {static_cast<std::uint8_t>(a), static_cast<std::uint8_t>(b)};
}

Bytes heldChecksum(const UBXMessage& message)
{
    const unsigned char* const end = message.getPacketData() + message.getPacketLength();
    return Bytes(end - 2, end);
}

TEST(Message, WithoutPayloadIsAFrameOfEightBytes)
{
    const UBXMessage poll(0x0A04, 0, nullptr);

    EXPECT_EQ(frameOf(poll), "B5 62 0A 04 00 00 0E 34");
    EXPECT_EQ(poll.getPayloadLength(), 0U);
    EXPECT_EQ(poll.getPacketLength(), 8U);
}

TEST(Message, HoldsItsPayload)
{
    const UBXMessage message = rate();

    EXPECT_EQ(frameOf(message), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
    EXPECT_EQ(message.getPayloadLength(), 6U);
    EXPECT_EQ(message.getPacketLength(), 14U);
}

TEST(Message, CopiesThePayloadThatItIsGiven)
{
    Bytes payload = bytes("E8 03 01 00 01 00");
    const UBXMessage message(0x0608, payload.size(), payload.data());

    payload.assign(6, 0xFF);

    EXPECT_EQ(frameOf(message), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
}

TEST(Message, WithANullPayloadHoldsZeros)
{
    const UBXMessage message(0x0623, 3, nullptr);

    EXPECT_EQ(frameOf(message), "B5 62 06 23 03 00 00 00 00 2C 0B");
}

TEST(Message, TellsClassAndIdTogetherAndEachByItself)
{
    const UBXMessage message(0x068A, 0, nullptr);

    EXPECT_EQ(message.getClassId(), UBX_CFG_VALSET);
    EXPECT_EQ(message.getClass(), 0x06);
    EXPECT_EQ(message.getId(), 0x8A);
    EXPECT_EQ(static_cast<unsigned>(UBXMessage(0xFFFE, 0, nullptr).getClassId()), 0xFFFEU);
}

TEST(Message, GivesItsPayloadAtTheSeventhFrameByteAlsoWhenItIsEmpty)
{
    const UBXMessage message = rate();
    const UBXMessage empty(0x0A04, 0, nullptr);

    EXPECT_EQ(message.getPayloadData(), message.getPacketData() + 6);
    EXPECT_EQ(*message.getPayloadData(), 0xE8);
    EXPECT_EQ(empty.getPayloadData(), empty.getPacketData() + 6);
}

TEST(Message, GivesAPayloadByteOrZeroBeyondThePayload)
{
    const UBXMessage message = rate();

    EXPECT_EQ(message.getByte(0), 0xE8);
    EXPECT_EQ(message.getByte(5), 0x00);
    EXPECT_EQ(message.getByte(6), 0x00); // the frame holds 01 there
    EXPECT_EQ(message.getByte(7), 0x00); // and 39 here
    EXPECT_EQ(message.getByte(~0UL), 0x00);
    EXPECT_EQ(UBXMessage(0x0A04, 0, nullptr).getByte(0), 0x00);
}

TEST(Message, GivesFrameBytesFromTheFirstSyncChar)
{
    const UBXMessage message = rate();

    EXPECT_EQ(message.getByteFull(0), 0xB5);
    EXPECT_EQ(message.getByteFull(1), 0x62);
    EXPECT_EQ(message.getByteFull(2), 0x06);
    EXPECT_EQ(message.getByteFull(6), 0xE8);
    EXPECT_EQ(message.getByteFull(13), 0x39);
}

TEST(Message, GivesItsChecksumWithTheFirstByteLow)
{
    EXPECT_EQ(rate().getChecksum(), 0x3901);
    EXPECT_EQ(UBXMessage(0x0A04, 0, nullptr).getChecksum(), 0x340E);
}

TEST(SetByte, ChangesAPayloadByteAndTheChecksum)
{
    UBXMessage message(0x0608, 6, nullptr);

    EXPECT_EQ(message.setByte(0, 0xE8), 0xE8);
    EXPECT_EQ(message.setByte(1, 0x03), 0x03);
    EXPECT_EQ(message.setByte(2, 0x01), 0x01);
    EXPECT_EQ(message.setByte(4, 0x01), 0x01);

    EXPECT_EQ(frameOf(message), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
}

TEST(SetByte, BeyondThePayloadReturnsTheComplementAndChangesNothing)
{
    UBXMessage message = rate();

    EXPECT_EQ(message.setByte(6, 0x0F), 0xF0);
    EXPECT_EQ(message.setByte(7, 0x00), 0xFF);
    EXPECT_EQ(message.setByte(~0UL, 0xFF), 0x00);

    EXPECT_EQ(frameOf(message), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
}

TEST(SetByte, OfAnEmptyPayloadReturnsTheComplementAndChangesNothing)
{
    UBXMessage poll(0x0A04, 0, nullptr);

    EXPECT_EQ(poll.setByte(0, 0x55), 0xAA);

    EXPECT_EQ(frameOf(poll), "B5 62 0A 04 00 00 0E 34");
}

TEST(SetByte, LeavesTheFrameRightAfterEveryOneOfManyChanges)
{
    std::mt19937 random(20231);
    for (const unsigned long length : {1UL, 2UL, 3UL, 40UL, 255UL, 256UL, 257UL, 300UL, 5000UL, 65535UL}) {
        UBXMessage message(0x0623, length, nullptr);
        for (int change = 0; change < 300; ++change) {
            const unsigned long index = random() % length;
            const auto value = static_cast<unsigned char>(random());

            ASSERT_EQ(message.setByte(index, value), value);

            ASSERT_EQ(message.getByte(index), value);
            ASSERT_EQ(heldChecksum(message), rightChecksum(message)) << "byte " << index << " of " << length;
        }
    }
}

TEST(MessageCopy, SurvivesTheMessageItWasCopiedFrom)
{
    const long before = heapBlocks();
    {
        auto original = std::make_unique<UBXMessage>(rate());
        const UBXMessage copy(*original);
        EXPECT_NE(copy.getPacketData(), original->getPacketData());

        original.reset();

        EXPECT_EQ(frameOf(copy), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
        EXPECT_EQ(copy.getClassId(), UBX_CFG_RATE);
        EXPECT_EQ(copy.getPayloadLength(), 6U);
        EXPECT_EQ(copy.getPacketLength(), 14U);
    }
    EXPECT_EQ(heapBlocks(), before);
}

TEST(MessageCopy, IsNotChangedWithItsOriginal)
{
    UBXMessage original = rate();
    UBXMessage copy(original);

    original.setByte(0, 0x00);
    copy.setByte(5, 0x01);

    EXPECT_EQ(original.getByte(5), 0x00);
    EXPECT_EQ(copy.getByte(0), 0xE8);
}

TEST(MessageCopy, CannotBeAssigned)
{
    static_assert(!std::is_copy_assignable_v<UBXMessage>);
    static_assert(std::is_copy_constructible_v<UBXMessage>);
}

TEST(MessageBuffer, AllocatedAnewIsZeroAndLeavesTheEarlierOneToTheCaller)
{
    const long before = heapBlocks();
    {
        UBXMessage message = rate();
        const std::unique_ptr<unsigned char[]> earlier(message.getPacketData());

        message.allocatePacketDataBuffer(2);

        EXPECT_EQ(message.getPayloadLength(), 2U);
        EXPECT_EQ(message.getPacketLength(), 10U);
        EXPECT_EQ(frameOf(message), "00 00 00 00 00 00 00 00 00 00");
        EXPECT_EQ(testsupport::hex(Bytes(earlier.get(), earlier.get() + 14)),
                  "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
    }
    EXPECT_EQ(heapBlocks(), before);
}

TEST(MessageBuffer, IsFilledByConstructPacket)
{
    UBXMessage message = rate();
    const std::unique_ptr<unsigned char[]> earlier(message.getPacketData());
    message.allocatePacketDataBuffer(2);

    message.constructPacket(bytes("06 23").data(), 2);

    EXPECT_EQ(frameOf(message), "B5 62 06 08 02 00 06 23 39 83");
}

TEST(MessageBuffer, KeepsItsPayloadWhenConstructPacketGetsNone)
{
    UBXMessage message = rate();
    message.getPacketData()[0] = 0;
    message.getPacketData()[13] = 0;

    message.constructPacket(nullptr, 6);

    EXPECT_EQ(frameOf(message), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
}

TEST(MessageBuffer, IsAllocatedAndFilledByBuildMessage)
{
    const long before = heapBlocks();
    {
        UBXMessage message = rate();
        const std::unique_ptr<unsigned char[]> earlier(message.getPacketData());

        message.buildMessage(bytes("06 23").data(), 2);

        EXPECT_EQ(frameOf(message), "B5 62 06 08 02 00 06 23 39 83");
        EXPECT_EQ(earlier[6], 0xE8);
    }
    EXPECT_EQ(heapBlocks(), before);
}

TEST(MessageBuffer, HoldsTheLongestPayloadThatAFrameCanHave)
{
    const Bytes payload(65535, 0xFF);

    const UBXMessage message(0x0604, payload.size(), payload.data());

    EXPECT_EQ(message.getPacketLength(), 65543U);
    EXPECT_EQ(testsupport::hex(Bytes(message.getPacketData(), message.getPacketData() + 8)), "B5 62 06 04 FF FF FF FF");
    EXPECT_EQ(heldChecksum(message), rightChecksum(message));
}

TEST(MessageBuffer, ShowsTheLow16BitsOfALengthThatNoFrameCanHave)
{
    const Bytes payload(65536 + 6, 0x11);

    const UBXMessage message(0x0608, payload.size(), payload.data());

    EXPECT_EQ(message.getPayloadLength(), 65542U);
    EXPECT_EQ(message.getPacketLength(), 65550U);
    EXPECT_EQ(message.getByteFull(4), 0x06);
    EXPECT_EQ(message.getByteFull(5), 0x00);
}

TEST(MessageBuffer, OfAnImpossibleSizeIsRefusedByTheAllocation)
{
    EXPECT_THROW(UBXMessage(0x0608, ~0UL, nullptr), std::bad_alloc);
}

} // namespace

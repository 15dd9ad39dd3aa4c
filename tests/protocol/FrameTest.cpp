// The functions on raw frame bytes.

#include <UBXMessage.h>

#include <cstddef>

#include <gtest/gtest.h>

#include "Bytes.h"

namespace
{

using testsupport::Bytes;
using testsupport::bytes;
using testsupport::hex;

/// The checksum as its definition has it, reduced after every step.
unsigned fletcher(const Bytes& data)
{
    unsigned a = 0;
    unsigned b = 0;
    for (const std::uint8_t byte : data) {
        a = (a + byte) % 256;
        b = (b + a) % 256;
    }
    return a + 256 * b;
}

TEST(FrameChecksum, HasTheFirstSumInItsLowByteAndTheSecondInItsHighByte)
{
    Bytes data = bytes("01 02 03");

    EXPECT_EQ(ubxComputeChecksum(data.data(), data.size()), 0x0A06);
}

TEST(FrameChecksum, OfTheVersionPollIs0E34)
{
    Bytes header = bytes("0A 04 00 00");

    EXPECT_EQ(ubxComputeChecksum(header.data(), header.size()), 0x340E);
}

TEST(FrameChecksum, OfNothingIsZero)
{
    unsigned char untouched = 0x5A;

    EXPECT_EQ(ubxComputeChecksum(&untouched, 0), 0);
    EXPECT_EQ(ubxComputeChecksum(nullptr, 0), 0);
}

TEST(FrameChecksum, WrapsBothSumsAt256)
{
    Bytes ascending(256);
    for (std::size_t i = 0; i < ascending.size(); ++i)
        ascending[i] = static_cast<std::uint8_t>(i);
    Bytes full(100000, 0xFF);

    EXPECT_EQ(ubxComputeChecksum(ascending.data(), ascending.size()), 0x8080);
    EXPECT_EQ(ubxComputeChecksum(full.data(), full.size()), 0xB060);
}

TEST(FrameChecksum, FollowsItsDefinitionAtEveryLength)
{
    Bytes data;
    for (unsigned length = 0; length < 1500; ++length) {
        ASSERT_EQ(ubxComputeChecksum(data.data(), data.size()), fletcher(data)) << length << " bytes";
        data.push_back(static_cast<std::uint8_t>(0xFF - length * 7 % 256));
    }
    Bytes longest(65539, 0xFE);
    EXPECT_EQ(ubxComputeChecksum(longest.data(), longest.size()), fletcher(longest));
}

TEST(FrameFields, AreReadLittleEndian)
{
    Bytes data = bytes("34 12 FF FE");

    EXPECT_EQ(ubxGetLengthFromData(data.data()), 0x1234);
    EXPECT_EQ(ubxGetLengthFromData(data.data() + 1), 0xFF12);
    EXPECT_EQ(ubxGetLengthFromData(data.data() + 2), 0xFEFF);
    EXPECT_EQ(ubxGetChecksumFromData(data.data()), 0x1234);
    EXPECT_EQ(ubxGetChecksumFromData(data.data() + 2), 0xFEFF);
}

TEST(FrameFields, ClassAndIdAreReadInTheirOrder)
{
    const Bytes data = bytes("06 8A FF 80");

    const UBXClassId first = ubxGetClassIdFromData(data.data());
    const UBXClassId second = ubxGetClassIdFromData(data.data() + 2);

    EXPECT_EQ(first.msgClass, 0x06);
    EXPECT_EQ(first.msgId, 0x8A);
    EXPECT_EQ(second.msgClass, 0xFF);
    EXPECT_EQ(second.msgId, 0x80);
}

TEST(ClassAndId, AreTwoBytesInFrameOrder)
{
    static_assert(sizeof(UBXClassId) == 2);
    static_assert(offsetof(UBXClassId, msgClass) == 0);
    static_assert(offsetof(UBXClassId, msgId) == 1);
    static_assert(sizeof(UBXMessageClassIdValues) == 2);

    EXPECT_EQ(UBX_CFG_VALSET, 0x068A);
}

TEST(ClassAndId, OfTheValue0501AreTheBytes05And01)
{
    const UBXClassId id = ubxConvertClassIdTypeToStruct(0x0501);
    const UBXMessage message(0x0501, 0, nullptr);

    EXPECT_EQ(id.msgClass, 0x05);
    EXPECT_EQ(id.msgId, 0x01);
    EXPECT_EQ(message.getByteFull(2), 0x05);
    EXPECT_EQ(message.getByteFull(3), 0x01);
}

TEST(ClassAndId, AreConvertedBothWaysForEveryValue)
{
    for (unsigned value = 0; value <= 0xFFFF; ++value) {
        const UBXClassId id = ubxConvertClassIdTypeToStruct(static_cast<unsigned short>(value));

        ASSERT_EQ(id.msgClass, value / 256);
        ASSERT_EQ(id.msgId, value % 256);
        ASSERT_EQ(static_cast<unsigned>(ubxConvertClassIdStructToType(id)), value);
    }
}

TEST(ClassAndId, HaveTheNumbersOfTheMessagesInUse)
{
    EXPECT_EQ(UBX_NAV_POSLLH, 0x0102);
    EXPECT_EQ(UBX_NAV_PVT, 0x0107);
    EXPECT_EQ(UBX_NAV_SAT, 0x0135);
    EXPECT_EQ(UBX_ACK_NAK, 0x0500);
    EXPECT_EQ(UBX_ACK_ACK, 0x0501);
    EXPECT_EQ(UBX_CFG_PRT, 0x0600);
    EXPECT_EQ(UBX_CFG_MSG, 0x0601);
    EXPECT_EQ(UBX_CFG_RST, 0x0604);
    EXPECT_EQ(UBX_CFG_RATE, 0x0608);
    EXPECT_EQ(UBX_CFG_CFG, 0x0609);
    EXPECT_EQ(UBX_CFG_RXM, 0x0611);
    EXPECT_EQ(UBX_CFG_SBAS, 0x0616);
    EXPECT_EQ(UBX_CFG_NAVX5, 0x0623);
    EXPECT_EQ(UBX_CFG_NAV5, 0x0624);
    EXPECT_EQ(UBX_CFG_TP5, 0x0631);
    EXPECT_EQ(UBX_CFG_ITFM, 0x0639);
    EXPECT_EQ(UBX_CFG_PM2, 0x063B);
    EXPECT_EQ(UBX_CFG_TMODE2, 0x063D);
    EXPECT_EQ(UBX_CFG_GNSS, 0x063E);
    EXPECT_EQ(UBX_CFG_VALSET, 0x068A);
    EXPECT_EQ(UBX_CFG_VALGET, 0x068B);
    EXPECT_EQ(UBX_MON_VER, 0x0A04);
}

/// Fourteen bytes of which each tells whether it was written.
class FrameBuffer : public testing::Test
{
protected:
    Bytes buffer = Bytes(14, 0xEE);
};

TEST_F(FrameBuffer, TakesTheSyncCharsAtItsBeginning)
{
    ubxPutSyncIntoPacket(buffer.data());

    EXPECT_EQ(hex(buffer), "B5 62 EE EE EE EE EE EE EE EE EE EE EE EE");
}

TEST_F(FrameBuffer, TakesClassAndIdBehindTheSyncChars)
{
    ubxPutClassIdIntoPacket(buffer.data(), UBXClassId{0x06, 0x8A});

    EXPECT_EQ(hex(buffer), "EE EE 06 8A EE EE EE EE EE EE EE EE EE EE");
}

TEST_F(FrameBuffer, TakesTheLengthLittleEndianAtFour)
{
    ubxPutLengthIntoPacket(buffer.data(), 0x1234);

    EXPECT_EQ(hex(buffer), "EE EE EE EE 34 12 EE EE EE EE EE EE EE EE");
}

TEST_F(FrameBuffer, TakesThePayloadAtSix)
{
    const Bytes payload = bytes("01 80 FF");

    ubxPutPayloadIntoPacket(buffer.data(), payload.data(), 3);

    EXPECT_EQ(hex(buffer), "EE EE EE EE EE EE 01 80 FF EE EE EE EE EE");
}

TEST_F(FrameBuffer, IsLeftAloneByAPayloadOfNoLengthOrNoBytes)
{
    const Bytes payload = bytes("01 80 FF");

    ubxPutPayloadIntoPacket(buffer.data(), payload.data(), 0);
    ubxPutPayloadIntoPacket(buffer.data(), nullptr, 3);
    ubxPutPayloadIntoPacket(buffer.data(), nullptr, 0);

    EXPECT_EQ(buffer, Bytes(14, 0xEE));
}

TEST_F(FrameBuffer, TakesTheChecksumBehindThePayload)
{
    buffer = bytes("B5 62 06 08 06 00 E8 03 01 00 01 00 EE EE");

    const unsigned short checksum = ubxPutChecksumIntoPacket(buffer.data(), 6);

    EXPECT_EQ(checksum, 0x3901);
    EXPECT_EQ(hex(buffer), "B5 62 06 08 06 00 E8 03 01 00 01 00 01 39");
}

TEST_F(FrameBuffer, TakesTheChecksumOfAnEmptyPayloadAtSix)
{
    buffer = bytes("B5 62 0A 04 00 00 EE EE EE");

    const unsigned short checksum = ubxPutChecksumIntoPacket(buffer.data(), 0);

    EXPECT_EQ(checksum, 0x340E);
    EXPECT_EQ(hex(buffer), "B5 62 0A 04 00 00 0E 34 EE");
}

TEST_F(FrameBuffer, TakesAClassAndIdForAPayloadAsClassThenId)
{
    ubxPutClassIdIntoDataBuffer(buffer.data() + 3, 0x0135);

    EXPECT_EQ(hex(buffer), "EE EE EE 01 35 EE EE EE EE EE EE EE EE EE");
}

} // namespace

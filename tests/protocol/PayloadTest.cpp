// How payloads are written and read field by field.

#include "protocol/Payload.h"
#include "protocol/PayloadView.h"

#include <cstdint>

#include <gtest/gtest.h>

#include "Bytes.h"
#include "Parsing.h"

namespace
{

using testsupport::Bytes;
using testsupport::bytes;
using ubx::Field;
using ubx::Payload;
using ubx::PayloadView;

constexpr Field<std::uint8_t> kByte{0};
constexpr Field<std::int8_t> kSignedByte{0};
constexpr Field<std::uint16_t> kWord{1};
constexpr Field<std::int32_t> kNumber{3};
constexpr Field<std::uint64_t> kLong{0};

template <typename T>
T read(const Bytes& payload, Field<T> field)
{
    return PayloadView(payload.data(), payload.size()).get(field);
}

TEST(Payload, WritesFieldsLittleEndianAndLeavesTheRestZero)
{
    Payload<8> payload;

    payload.set(kByte, 0xFE).set(kWord, 0x1234).set(kNumber, -2);

    EXPECT_EQ(protocoltest::frameOf(payload.as(UBX_CFG_RATE)), "B5 62 06 08 08 00 FE 34 12 FE FF FF FF 00 55 A5");
}

TEST(PayloadView, ReadsFieldsLittleEndianWithTheirSigns)
{
    const Bytes payload = bytes("80 34 12 FE FF FF FF 7F");

    EXPECT_EQ(read(payload, kByte), 0x80);
    EXPECT_EQ(read(payload, kSignedByte), -128);
    EXPECT_EQ(read(payload, kWord), 0x1234);
    EXPECT_EQ(read(payload, kNumber), -2);
    EXPECT_EQ(read(payload, kLong), 0x7FFFFFFFFE123480U);
}

TEST(PayloadView, ReadsAByteThatIsNotThereAsZero)
{
    EXPECT_EQ(read(bytes("80 34"), kWord), 0x0034);
    EXPECT_EQ(read(bytes("80 34 12 FE FF"), kNumber), 0x0000FFFE);
    EXPECT_EQ(read(Bytes{}, kByte), 0);
    EXPECT_EQ(PayloadView(nullptr, 0).byteAt(~std::size_t{0}), 0);
}

TEST(PayloadView, OfAMessageEndsWithItsPayload)
{
    const UBXMessage message(0x0608, 2, bytes("01 02").data());
    const PayloadView view(message);

    EXPECT_EQ(view.size(), 2U);
    EXPECT_EQ(view.byteAt(1), 0x02);
    EXPECT_EQ(view.byteAt(2), 0x00); // the checksum stands there
}

TEST(PayloadView, EndsATextAtItsZeroByteItsWidthOrThePayload)
{
    const Bytes payload = bytes("52 4F 4D 00 41 42 43");
    const PayloadView view(payload.data(), payload.size());

    EXPECT_EQ(view.text(0, 30), "ROM");
    EXPECT_EQ(view.text(0, 2), "RO");
    EXPECT_EQ(view.text(4, 30), "ABC");
    EXPECT_EQ(view.text(3, 30), "");
    EXPECT_EQ(view.text(7, 30), "");
    EXPECT_EQ(view.text(1000, 30), "");
}

TEST(PayloadField, LiesInABlockAtItsOffset)
{
    constexpr Field<std::uint16_t> moved = kWord.in(12);

    EXPECT_EQ(moved.offset, 13U);
    EXPECT_EQ(moved.end(), 15U);
}

} // namespace

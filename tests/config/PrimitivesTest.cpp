#include <ZedF9tUbxMessageBuilder.h>

#include <array>

#include <gtest/gtest.h>

#include "BuiltPayload.h"

using testsupport::Bytes;
using testsupport::bytes;
using Builder = ZedF9tUbxMessageBuilder;

namespace
{

constexpr unsigned char kUntouched = 0xEE;

/// Writes one field at position 4 of a buffer of 16 bytes.
template <typename Value>
class Written
{
public:
    Written(unsigned short (*write)(unsigned char*, unsigned short&, Value), Value value)
        : returned(write(buffer.data(), position, value))
    {}

    Bytes buffer = Bytes(16, kUntouched);
    unsigned short position = 4;
    unsigned short returned;
};

} // namespace

TEST(KeyValuePrimitives, KeyIdIsFourBytesLowestFirst)
{
    const Written field(&Builder::configureKeyId, 0x201100A4U);

    EXPECT_EQ(field.buffer, bytes("EE EE EE EE A4 00 11 20 EE EE EE EE EE EE EE EE"));
    EXPECT_EQ(field.position, 8);
    EXPECT_EQ(field.returned, 8);
}

TEST(KeyValuePrimitives, DataOfOneByteIsWrittenAsItIs)
{
    const Written field(&Builder::configureData1, static_cast<unsigned char>(0xFE));

    EXPECT_EQ(field.buffer, bytes("EE EE EE EE FE EE EE EE EE EE EE EE EE EE EE EE"));
    EXPECT_EQ(field.position, 5);
    EXPECT_EQ(field.returned, 5);
}

TEST(KeyValuePrimitives, DataOfTwoBytesIsWrittenLowestByteFirst)
{
    const Written field(&Builder::configureData2, static_cast<unsigned short>(0x8123));

    EXPECT_EQ(field.buffer, bytes("EE EE EE EE 23 81 EE EE EE EE EE EE EE EE EE EE"));
    EXPECT_EQ(field.position, 6);
    EXPECT_EQ(field.returned, 6);
}

TEST(KeyValuePrimitives, DataOfFourBytesIsWrittenLowestByteFirst)
{
    const Written field(&Builder::configureData4, 0x89ABCDEFU);

    EXPECT_EQ(field.buffer, bytes("EE EE EE EE EF CD AB 89 EE EE EE EE EE EE EE EE"));
    EXPECT_EQ(field.position, 8);
    EXPECT_EQ(field.returned, 8);
}

TEST(KeyValuePrimitives, DataOfEightBytesIsWrittenLowestByteFirst)
{
    const Written field(&Builder::configureData8, 0xF1E2D3C4B5A69788UL);

    EXPECT_EQ(field.buffer, bytes("EE EE EE EE 88 97 A6 B5 C4 D3 E2 F1 EE EE EE EE"));
    EXPECT_EQ(field.position, 12);
    EXPECT_EQ(field.returned, 12);
}

TEST(KeyValuePrimitives, HeaderIsVersionZeroForRamOnly)
{
    Bytes buffer(6, kUntouched);

    Builder::configureCfgHeader(buffer.data());

    EXPECT_EQ(buffer, bytes("00 01 00 00 EE EE"));
}

TEST(KeyValuePrimitives, FieldsFollowOneAnotherIntoAWholePayload)
{
    Bytes buffer(20, kUntouched);
    unsigned short position = 4;

    Builder::configureKeyId(buffer.data(), position, 0x201100A4);
    Builder::configureData1(buffer.data(), position, 10);
    Builder::configureKeyId(buffer.data(), position, 0x30050001);
    Builder::configureData2(buffer.data(), position, 50);
    Builder::configureCfgHeader(buffer.data());

    EXPECT_EQ(buffer, bytes("00 01 00 00 A4 00 11 20 0A 01 00 05 30 32 00 EE EE EE EE EE"));
    EXPECT_EQ(position, 15);
}

TEST(KeyValuePrimitives, AllOperationsCanBeCalledOnAnObject)
{
    ZedF9tUbxMessageBuilder builder;
    Bytes buffer(300, kUntouched);

    const unsigned int length = builder.configureNAVX5(buffer.data(), 20);

    ASSERT_EQ(length, 9U);
    buffer.resize(length);
    EXPECT_EQ(buffer, bytes("00 01 00 00 A3 00 11 20 14"));
}

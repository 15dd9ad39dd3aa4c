#include <UBXMessageCatalogue.h>

#include <cstddef>
#include <iterator>
#include <string>
#include <type_traits>

#include <gtest/gtest.h>

#include "KnownMessages.h"

namespace
{

using protocoltest::kKnownMessages;
using protocoltest::knownMessages;

std::string described(unsigned char msgClass, unsigned char msgId, unsigned short length)
{
    return ubxGetMessageDescription(UBXClassId{msgClass, msgId}, length);
}

std::string gnssName(int id)
{
    return getGnssNameById(static_cast<UBXGNSSId>(id));
}

TEST(Catalogue, HasItsRowsInTheirOrder)
{
    ASSERT_EQ(std::size(UBXMessages), kKnownMessages + 1);
    for (std::size_t i = 0; i < kKnownMessages; ++i) {
        SCOPED_TRACE("row " + std::to_string(i) + ", " + knownMessages[i].text);
        EXPECT_EQ(UBXMessages[i].msgClass, knownMessages[i].msgClass);
        EXPECT_EQ(UBXMessages[i].msgId, knownMessages[i].msgId);
        EXPECT_EQ(UBXMessages[i].minimumLength, knownMessages[i].minimumLength);
        EXPECT_EQ(UBXMessages[i].maximumLength, knownMessages[i].maximumLength);
        EXPECT_STREQ(UBXMessages[i].description, knownMessages[i].text);
    }
}

TEST(Catalogue, EndsWithAMarker)
{
    const UBXMessageRow& marker = UBXMessages[kKnownMessages];

    EXPECT_EQ(marker.msgClass, 0xFF);
    EXPECT_EQ(marker.msgId, 0xFF);
    EXPECT_EQ(marker.minimumLength, 0);
    EXPECT_EQ(marker.maximumLength, 0);
    EXPECT_STREQ(marker.description, "MARKER-END-OF-MESSAGE");
}

TEST(Catalogue, HasRowsThatACallerMayReadFieldByField)
{
    static_assert(std::is_aggregate_v<UBXMessageRow> && std::is_standard_layout_v<UBXMessageRow>);
    static_assert(offsetof(UBXMessageRow, msgClass) == 0);
    static_assert(offsetof(UBXMessageRow, msgId) == 1);
    static_assert(offsetof(UBXMessageRow, minimumLength) == 2);
    static_assert(offsetof(UBXMessageRow, maximumLength) == 4);
    static_assert(offsetof(UBXMessageRow, description) == 8);
    const auto [msgClass, msgId, minimumLength, maximumLength, description] = UBXMessages[1];

    EXPECT_EQ(msgClass, 0x01);
    EXPECT_EQ(msgId, 0x01);
    EXPECT_EQ(minimumLength, 20);
    EXPECT_EQ(maximumLength, 20);
    EXPECT_STREQ(description, "Position Solution in ECEF");
}

TEST(Catalogue, NamesTheFourteenClasses)
{
    struct
    {
        unsigned char msgClass;
        const char* text;
    } const classes[] = {
        {0x01, "Navigation Results Messages: Position, Speed, Time, Accelleration, Heading, DOP, SVs, used"},
        {0x02, "Receiver Manager Messages: Satellite Status, RTC Status"},
        {0x04, "Information Messages: Printf-Style Messages, with IDs such as Error, Warning, Notice"},
        {0x05, "Ack/Nak Messages: Acknowledge or Reject messages to CFG input messages"},
        {0x06, "Configuration Input Messages: Set Dynamic Model, Set DOP Mask, Set Baud Rate, etc."},
        {0x09, "Firmware Update Messages: Memory/Flash erase/write, Reboot, Flash identification, etc."},
        {0x0A, "Monitoring Messages: Communication Status, CPU Load, Stack Usage, Task Status"},
        {0x0B, "AssistNow Aiding Messages: Ephemeris, Almanac, other A-GPS data input"},
        {0x0D, "Timing Messages: Time Pulse Output, Time Mark Results"},
        {0x10, "External Sensor Fusion Messages: External Sensor Measurements and Status Information"},
        {0x13, "Multiple GNSS Assistance Messages: Assistance data for various GNSS"},
        {0x21, "Logging Messages: Log creation, deletion, info and retrieval"},
        {0x27, "Security Feature Messages"},
        {0x28, "High Rate Navigation Results Messages: High rate time, position, speed, heading"},
    };

    ASSERT_EQ(std::size(UBXClassID), std::size(classes));
    for (std::size_t i = 0; i < std::size(classes); ++i) {
        EXPECT_EQ(UBXClassID[i].msgClass, classes[i].msgClass);
        EXPECT_STREQ(UBXClassID[i].description, classes[i].text);
    }
}

TEST(GnssNames, StandInTheOrderOfTheirIds)
{
    ASSERT_EQ(std::size(gnssNames), 7U);
    EXPECT_STREQ(gnssNames[0], "GPS");
    EXPECT_STREQ(gnssNames[1], "SBAS");
    EXPECT_STREQ(gnssNames[2], "GALILEO");
    EXPECT_STREQ(gnssNames[3], "BEIDOU");
    EXPECT_STREQ(gnssNames[4], "IMES");
    EXPECT_STREQ(gnssNames[5], "QZSS");
    EXPECT_STREQ(gnssNames[6], "GLONASS");
}

TEST(GnssNames, AreGivenById)
{
    EXPECT_EQ(gnssName(0), "GPS");
    EXPECT_EQ(gnssName(1), "SBAS");
    EXPECT_EQ(gnssName(2), "GALILEO");
    EXPECT_EQ(gnssName(3), "BEIDOU");
    EXPECT_EQ(gnssName(4), "IMES");
    EXPECT_EQ(gnssName(5), "QZSS");
    EXPECT_EQ(gnssName(6), "GLONASS");
}

TEST(GnssNames, AreUnknownAboveSix)
{
    EXPECT_EQ(gnssName(7), "UNKNOWN");
    EXPECT_EQ(gnssName(128), "UNKNOWN");
    EXPECT_EQ(gnssName(255), "UNKNOWN");
}

TEST(Description, OfAConfigurationCommandFitsTwelveAndThirteenBytesOnly)
{
    EXPECT_EQ(described(0x06, 0x09, 12), "Clear, Save and Load configurations");
    EXPECT_EQ(described(0x06, 0x09, 13), "Clear, Save and Load configurations");
    EXPECT_EQ(described(0x06, 0x09, 11), "Unknown message type");
    EXPECT_EQ(described(0x06, 0x09, 14), "Unknown message type");
    EXPECT_EQ(described(0x06, 0x09, 20), "Unknown message type");
}

TEST(Description, OfAPollIsThatOfTheFirstRow)
{
    EXPECT_EQ(described(0x06, 0x01, 0), "Set Message Rate");
    EXPECT_EQ(described(0x06, 0x31, 0), "Poll Time Pulse Parameters for Time Pulse 0");
    EXPECT_EQ(described(0x0A, 0x04, 0), "Poll Receiver/Software Version");
    EXPECT_EQ(described(0x01, 0x07, 0), "Navigation Position Velocity Time Solution");
}

TEST(Description, IsThatOfTheFirstRowWhichAdmitsTheLength)
{
    EXPECT_EQ(described(0x06, 0x01, 2), "Poll a message configuration");
    EXPECT_EQ(described(0x06, 0x01, 3), "Set Message Rate");
    EXPECT_EQ(described(0x06, 0x01, 8), "Set Message Rate(s)");
    EXPECT_EQ(described(0x06, 0x31, 1), "Poll Time Pulse Parameters");
    EXPECT_EQ(described(0x06, 0x31, 32), "Time Pulse Parameters");
    EXPECT_EQ(described(0x0A, 0x04, 70), "Receiver/Software Version");
    EXPECT_EQ(described(0x0A, 0x04, 7650), "Receiver/Software Version");
    EXPECT_EQ(described(0x0A, 0x04, 69), "Unknown message type");
    EXPECT_EQ(described(0x0D, 0x15, 12), "VCO calibration extended command");
}

TEST(Description, OfConfigurationItemsFitsEveryLength)
{
    EXPECT_EQ(described(0x06, 0x8B, 108), "Configuration Items");
    EXPECT_EQ(described(0x06, 0x8B, 200), "Configuration Items");
    EXPECT_EQ(described(0x06, 0x8B, 8), "Configuration Items");
    EXPECT_EQ(described(0x06, 0x8B, 65535), "Configuration Items");
}

TEST(Description, IsUnknownForWhatHasNoRow)
{
    EXPECT_EQ(described(0x06, 0x71, 0), "Unknown message type");
    EXPECT_EQ(described(0x06, 0x8A, 8), "Unknown message type");
    EXPECT_EQ(described(0x05, 0x8B, 8), "Unknown message type");
    EXPECT_EQ(described(0x77, 0x00, 0), "Unknown message type");
    EXPECT_EQ(described(0xFF, 0x00, 0), "Unknown message type");
}

TEST(Description, OfTheMarkersClassAndIdIsUnknown)
{
    EXPECT_EQ(described(0xFF, 0xFF, 0), "Unknown message type");
}

TEST(Description, IsRightForEveryClassAndIdAtTheBoundsOfEveryRow)
{
    const auto expected = [](unsigned msgClass, unsigned msgId, unsigned length) -> std::string {
        for (const protocoltest::KnownMessage& row : knownMessages) {
            if (row.msgClass != msgClass || row.msgId != msgId) continue;
            if (length == 0 || msgId == 0x8B) return row.text;
            if (length >= row.minimumLength && length <= row.maximumLength) return row.text;
        }
        return "Unknown message type";
    };

    for (unsigned value = 0; value <= 0xFFFF; ++value) {
        const auto msgClass = static_cast<unsigned char>(value / 256);
        const auto msgId = static_cast<unsigned char>(value % 256);
        ASSERT_EQ(described(msgClass, msgId, 0), expected(msgClass, msgId, 0)) << value;
    }
    for (const protocoltest::KnownMessage& row : knownMessages) {
        const auto msgClass = static_cast<unsigned char>(row.msgClass);
        const auto msgId = static_cast<unsigned char>(row.msgId);
        for (const unsigned bound : {row.minimumLength, row.maximumLength}) {
            for (const unsigned length : {bound == 0 ? 0 : bound - 1, bound, bound + 1}) {
                EXPECT_EQ(described(msgClass, msgId, static_cast<unsigned short>(length)),
                          expected(row.msgClass, row.msgId, length))
                    << row.text << ", " << length << " bytes";
            }
        }
    }
}

TEST(MessageDescription, BeginsWithClassAndIdInHexadecimal)
{
    EXPECT_EQ(UBXMessage(0x0609, 13, nullptr).getMessageDescription(), "06 09: Clear, Save and Load configurations");
    EXPECT_EQ(UBXMessage(0x068B, 8, nullptr).getMessageDescription(), "06 8B: Configuration Items");
    EXPECT_EQ(UBXMessage(0x068A, 17, nullptr).getMessageDescription(), "06 8A: Unknown message type");
    EXPECT_EQ(UBXMessage(0x0A04, 0, nullptr).getMessageDescription(), "0A 04: Poll Receiver/Software Version");
    EXPECT_EQ(UBXMessage(0xFFFF, 0, nullptr).getMessageDescription(), "FF FF: Unknown message type");
}

TEST(MessageDescription, TakesTheLengthModulo65536)
{
    EXPECT_EQ(UBXMessage(0x0608, 65536 + 6, nullptr).getMessageDescription(),
              "06 08: Navigation/Measurement Rate Settings");
    EXPECT_EQ(UBXMessage(0x0631, 65536, nullptr).getMessageDescription(),
              "06 31: Poll Time Pulse Parameters for Time Pulse 0");
}

} // namespace

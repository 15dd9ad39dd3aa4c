#pragma once

#include <UBXMessage.h>
#include <ubxExport.h>

/// One variant of a message that the system knows.
struct UBXMessageRow
{
    unsigned char msgClass;
    unsigned char msgId;
    unsigned short minimumLength; ///< smallest payload of this variant, bytes
    unsigned short maximumLength; ///< largest payload of this variant, bytes
    const char* description;
};

/// One message class.
struct UBXClassRow
{
    unsigned char msgClass;
    const char* description;
};

/// Satellite systems by the receiver's gnssId.
enum UBXGNSSId : unsigned char
{
    UBX_GNSS_GPS = 0,
    UBX_GNSS_SBAS = 1,
    UBX_GNSS_GALILEO = 2,
    UBX_GNSS_BEIDOU = 3,
    UBX_GNSS_IMES = 4,
    UBX_GNSS_QZSS = 5,
    UBX_GNSS_GLONASS = 6
};

/// The known messages, 178 rows and an end marker of class and id 0xFF. A class/id may have several rows, one for each
/// length; searches take the first that matches, so the order counts.
extern UBXCONTROL_API const UBXMessageRow UBXMessages[179];

/// The 14 message classes.
extern UBXCONTROL_API const UBXClassRow UBXClassID[14];

/// Names of the satellite systems, indexed by UBXGNSSId.
extern UBXCONTROL_API const char* const gnssNames[7];

/// The description of the first row of this class/id that admits the length. A length of 0 matches every row, and so
/// does every length of an id 0x8B (configuration items are as long as what was asked for).
/// @return a constant text, "Unknown message type" when no row matches.
UBXCONTROL_API const char* ubxGetMessageDescription(UBXClassId id, unsigned short payloadLength);

/// @return a constant text, "UNKNOWN" for an id above 6.
UBXCONTROL_API const char* getGnssNameById(UBXGNSSId id);

#pragma once

#include <string>

#include <ubxExport.h>

/// Class and id of a message, in the order in which they stand in a frame.
struct UBXClassId
{
    unsigned char msgClass;
    unsigned char msgId;
};

/// Class and id as one number, the class in the high byte: CFG-VALSET (class 0x06, id 0x8A) is 0x068A.
/// Any 16-bit value may be carried, also one without a name here.
enum UBXMessageClassIdValues : unsigned short
{
    UBX_NAV_POSLLH = 0x0102,
    UBX_NAV_PVT = 0x0107,
    UBX_NAV_SAT = 0x0135,
    UBX_ACK_NAK = 0x0500,
    UBX_ACK_ACK = 0x0501,
    UBX_CFG_PRT = 0x0600,
    UBX_CFG_MSG = 0x0601,
    UBX_CFG_RST = 0x0604,
    UBX_CFG_RATE = 0x0608,
    UBX_CFG_CFG = 0x0609,
    UBX_CFG_RXM = 0x0611,
    UBX_CFG_SBAS = 0x0616,
    UBX_CFG_NAVX5 = 0x0623,
    UBX_CFG_NAV5 = 0x0624,
    UBX_CFG_TP5 = 0x0631,
    UBX_CFG_ITFM = 0x0639,
    UBX_CFG_PM2 = 0x063B,
    UBX_CFG_TMODE2 = 0x063D,
    UBX_CFG_GNSS = 0x063E,
    UBX_CFG_VALSET = 0x068A,
    UBX_CFG_VALGET = 0x068B,
    UBX_MON_VER = 0x0A04
};

// Functions on raw bytes. `buffer` is a frame whose byte 0 is the first sync char; the caller provides the room.

/// 8-bit Fletcher checksum of `length` bytes from `data`: CK_A in the low byte, CK_B in the high byte; 0 for length 0.
UBXCONTROL_API unsigned short ubxComputeChecksum(unsigned char* data, unsigned long length);

/// The little-endian 16-bit value at `p`, a frame's length field.
UBXCONTROL_API unsigned short ubxGetLengthFromData(unsigned char* p);

/// The little-endian 16-bit value at `p`, a frame's CK_A and CK_B.
UBXCONTROL_API unsigned short ubxGetChecksumFromData(unsigned char* p);

/// The class and id bytes at `p`.
UBXCONTROL_API UBXClassId ubxGetClassIdFromData(const unsigned char* p);

UBXCONTROL_API UBXClassId ubxConvertClassIdTypeToStruct(unsigned short value);
UBXCONTROL_API UBXMessageClassIdValues ubxConvertClassIdStructToType(UBXClassId id);

/// Writes the two sync chars at offsets 0 and 1.
UBXCONTROL_API void ubxPutSyncIntoPacket(unsigned char* buffer);

/// Writes class and id at offsets 2 and 3.
UBXCONTROL_API void ubxPutClassIdIntoPacket(unsigned char* buffer, UBXClassId id);

/// Writes the payload length, little-endian, at offset 4.
UBXCONTROL_API void ubxPutLengthIntoPacket(unsigned char* buffer, unsigned short length);

/// Copies the payload to offset 6; does nothing when `length` is 0 or `payload` is null.
UBXCONTROL_API void ubxPutPayloadIntoPacket(unsigned char* buffer, const unsigned char* payload, unsigned short length);

/// Computes the checksum of a frame with `length` payload bytes and writes it behind the payload.
/// @return the checksum, CK_A in the low byte.
UBXCONTROL_API unsigned short ubxPutChecksumIntoPacket(unsigned char* buffer, unsigned short length);

/// Writes a class/id value as class byte, then id byte: how a message is named inside a payload.
UBXCONTROL_API void ubxPutClassIdIntoDataBuffer(unsigned char* buffer, unsigned short value);

/// One complete UBX frame: sync chars, class, id, length, payload and checksum, always consistent.
///
/// The message owns its bytes. Copies are deep. Pointers handed out stay valid as long as the message lives.
class UBXCONTROL_API UBXMessage
{
public:
    /// @param classId        class/id value, see UBXMessageClassIdValues.
    /// @param payloadLength  payload bytes, at most 65535 fit into a frame.
    /// @param payload        the payload, copied; null gives a payload of zeros.
    UBXMessage(unsigned short classId, unsigned long payloadLength, const unsigned char* payload);
    UBXMessage(const UBXMessage& other);
    UBXMessage& operator=(const UBXMessage&) = delete;
    ~UBXMessage();

    /// Allocates a zeroed frame for this many payload bytes. An earlier frame is not freed: it is then the caller's.
    void allocatePacketDataBuffer(unsigned long payloadLength);

    /// Writes sync chars, class/id, length, `length` bytes of payload (unless null) and the checksum into the frame.
    /// `length` is the payload length that the frame was allocated for.
    void constructPacket(const unsigned char* payload, unsigned long length);

    /// allocatePacketDataBuffer(), then constructPacket().
    void buildMessage(const unsigned char* payload, unsigned long length);

    UBXMessageClassIdValues getClassId() const;
    unsigned char getClass() const;
    unsigned char getId() const;

    unsigned long getPayloadLength() const;

    /// Payload length + 8.
    unsigned long getPacketLength() const;

    /// The first payload byte (the checksum when the payload is empty).
    unsigned char* getPayloadData() const;

    /// The whole frame, getPacketLength() bytes.
    unsigned char* getPacketData() const;

    /// Changes one payload byte and corrects the checksum.
    /// @return `value`; its bitwise complement when `index` is beyond the payload, and nothing is changed.
    unsigned char setByte(unsigned long index, unsigned char value);

    /// The payload byte at `index`, 0 beyond the payload.
    unsigned char getByte(unsigned long index) const;

    /// The frame byte at `index`, counted from the first sync char. Not checked: below getPacketLength().
    unsigned char getByteFull(unsigned long index) const;

    /// CK_A in the low byte, CK_B in the high byte.
    unsigned short getChecksum() const;

    /// Class and id in hexadecimal and the catalogue's name: "06 09: Clear, Save and Load configurations".
    std::string getMessageDescription() const;

    /// Writes the catalogue's name and the bytes of the whole frame as one line to standard output.
    void showPacket() const;

private:
    friend class UBXMessageBuilder;

    // A copy of a whole frame that is known to be right.
    UBXCONTROL_INTERNAL UBXMessage(const unsigned char* wholeFrame, unsigned long packetLength);

    UBXClassId classId_;
    unsigned long payloadLength_ = 0;
    unsigned long packetLength_ = 0;
    unsigned char* packetData_ = nullptr;
};

#include <cstring>

#include <UBXMessage.h>

#include "protocol/FrameLayout.h"

namespace frame = ubx::frame;

namespace
{

unsigned short readU16(const unsigned char* p)
{
    return static_cast<unsigned short>(p[0] | (p[1] << 8));
}

void writeU16(unsigned char* p, unsigned short value)
{
    p[0] = static_cast<unsigned char>(value & 0xFF);
    p[1] = static_cast<unsigned char>(value >> 8);
}

} // namespace

unsigned short ubxGetLengthFromData(unsigned char* p)
{
    return readU16(p);
}

unsigned short ubxGetChecksumFromData(unsigned char* p)
{
    return readU16(p);
}

UBXClassId ubxGetClassIdFromData(const unsigned char* p)
{
    return {p[0], p[1]};
}

UBXClassId ubxConvertClassIdTypeToStruct(unsigned short value)
{
    return {static_cast<unsigned char>(value >> 8), static_cast<unsigned char>(value & 0xFF)};
}

UBXMessageClassIdValues ubxConvertClassIdStructToType(UBXClassId id)
{
    return static_cast<UBXMessageClassIdValues>((id.msgClass << 8) | id.msgId);
}

void ubxPutSyncIntoPacket(unsigned char* buffer)
{
    buffer[0] = frame::kSync1;
    buffer[1] = frame::kSync2;
}

void ubxPutClassIdIntoPacket(unsigned char* buffer, UBXClassId id)
{
    buffer[frame::kClassOffset] = id.msgClass;
    buffer[frame::kIdOffset] = id.msgId;
}

void ubxPutLengthIntoPacket(unsigned char* buffer, unsigned short length)
{
    writeU16(buffer + frame::kLengthOffset, length);
}

void ubxPutPayloadIntoPacket(unsigned char* buffer, const unsigned char* payload, unsigned short length)
{
    if (payload != nullptr && length != 0) std::memcpy(buffer + frame::kPayloadOffset, payload, length);
}

unsigned short ubxPutChecksumIntoPacket(unsigned char* buffer, unsigned short length)
{
    const unsigned short checksum =
        ubxComputeChecksum(buffer + frame::kClassOffset, frame::kHeaderUnderChecksum + length);
    writeU16(buffer + frame::kPayloadOffset + length, checksum);
    return checksum;
}

void ubxPutClassIdIntoDataBuffer(unsigned char* buffer, unsigned short value)
{
    const UBXClassId id = ubxConvertClassIdTypeToStruct(value);
    buffer[0] = id.msgClass;
    buffer[1] = id.msgId;
}

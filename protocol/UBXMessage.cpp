#include <UBXMessage.h>

#include <cstdio>
#include <cstring>
#include <iostream>
#include <limits>
#include <new>

#include <UBXMessageCatalogue.h>

#include "protocol/FrameLayout.h"

namespace frame = ubx::frame;

UBXMessage::UBXMessage(unsigned short classId, unsigned long payloadLength, const unsigned char* payload)
    : classId_(ubxConvertClassIdTypeToStruct(classId))
{
    buildMessage(payload, payloadLength);
}

UBXMessage::UBXMessage(const unsigned char* wholeFrame, unsigned long packetLength)
    : classId_(ubxGetClassIdFromData(wholeFrame + frame::kClassOffset)),
      payloadLength_(packetLength - frame::kOverhead),
      packetLength_(packetLength),
      packetData_(new unsigned char[packetLength])
{
    std::memcpy(packetData_, wholeFrame, packetLength);
}

UBXMessage::UBXMessage(const UBXMessage& other)
    : classId_(other.classId_),
      payloadLength_(other.payloadLength_),
      packetLength_(other.packetLength_),
      packetData_(new unsigned char[other.packetLength_])
{
    std::memcpy(packetData_, other.packetData_, packetLength_);
}

UBXMessage::~UBXMessage()
{
    delete[] packetData_;
}

void UBXMessage::allocatePacketDataBuffer(unsigned long payloadLength)
{
    if (payloadLength > std::numeric_limits<unsigned long>::max() - frame::kOverhead) throw std::bad_array_new_length();
    packetData_ = new unsigned char[payloadLength + frame::kOverhead]();
    payloadLength_ = payloadLength;
    packetLength_ = payloadLength + frame::kOverhead;
}

void UBXMessage::constructPacket(const unsigned char* payload, unsigned long length)
{
    const auto length16 = static_cast<unsigned short>(length);
    ubxPutSyncIntoPacket(packetData_);
    ubxPutClassIdIntoPacket(packetData_, classId_);
    ubxPutLengthIntoPacket(packetData_, length16);
    ubxPutPayloadIntoPacket(packetData_, payload, length16);
    ubxPutChecksumIntoPacket(packetData_, length16);
}

void UBXMessage::buildMessage(const unsigned char* payload, unsigned long length)
{
    allocatePacketDataBuffer(length);
    constructPacket(payload, length);
}

UBXMessageClassIdValues UBXMessage::getClassId() const
{
    return ubxConvertClassIdStructToType(classId_);
}

unsigned char UBXMessage::getClass() const
{
    return classId_.msgClass;
}

unsigned char UBXMessage::getId() const
{
    return classId_.msgId;
}

unsigned long UBXMessage::getPayloadLength() const
{
    return payloadLength_;
}

unsigned long UBXMessage::getPacketLength() const
{
    return packetLength_;
}

unsigned char* UBXMessage::getPayloadData() const
{
    return packetData_ + frame::kPayloadOffset;
}

unsigned char* UBXMessage::getPacketData() const
{
    return packetData_;
}

unsigned char UBXMessage::setByte(unsigned long index, unsigned char value)
{
    if (index >= payloadLength_) return static_cast<unsigned char>(~value);

    // A change of one byte changes CK_A by as much, and CK_B by that times the number of sums the byte takes part in.
    unsigned char& byte = getPayloadData()[index];
    unsigned char* const checksum = getPayloadData() + payloadLength_;
    const unsigned int change = static_cast<unsigned int>(value) - byte;
    const auto sums = static_cast<unsigned int>(payloadLength_ - index);
    checksum[0] = static_cast<unsigned char>(checksum[0] + change);
    checksum[1] = static_cast<unsigned char>(checksum[1] + change * sums);
    byte = value;
    return value;
}

unsigned char UBXMessage::getByte(unsigned long index) const
{
    return index < payloadLength_ ? getPayloadData()[index] : static_cast<unsigned char>(0);
}

unsigned char UBXMessage::getByteFull(unsigned long index) const
{
    return packetData_[index];
}

unsigned short UBXMessage::getChecksum() const
{
    return ubxGetChecksumFromData(getPayloadData() + payloadLength_);
}

std::string UBXMessage::getMessageDescription() const
{
    char classAndId[sizeof "06 09: "];
    std::snprintf(classAndId, sizeof classAndId, "%02X %02X: ", static_cast<unsigned>(classId_.msgClass),
                  static_cast<unsigned>(classId_.msgId));
    return classAndId + std::string(ubxGetMessageDescription(classId_, static_cast<unsigned short>(payloadLength_)));
}

void UBXMessage::showPacket() const
{
    static constexpr char kDigits[] = "0123456789ABCDEF";
    std::string line = ubxGetMessageDescription(classId_, static_cast<unsigned short>(payloadLength_));
    line.reserve(line.size() + 1 + 3 * packetLength_ + 1);
    line += ' ';
    for (unsigned long i = 0; i < packetLength_; ++i) {
        line += kDigits[packetData_[i] >> 4];
        line += kDigits[packetData_[i] & 0x0F];
        line += ' ';
    }
    line += '\n';
    std::cout << line << std::dec << std::nouppercase << std::flush;
}

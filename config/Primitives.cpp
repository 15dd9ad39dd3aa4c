#include <ZedF9tUbxMessageBuilder.h>

#include "config/KeyValuePayload.h"

unsigned short ZedF9tUbxMessageBuilder::configureKeyId(unsigned char* buffer, unsigned short& position,
                                                       unsigned int keyId)
{
    ubx::append(buffer, position, keyId);
    return position;
}

unsigned short ZedF9tUbxMessageBuilder::configureData1(unsigned char* buffer, unsigned short& position,
                                                       unsigned char value)
{
    ubx::append(buffer, position, value);
    return position;
}

unsigned short ZedF9tUbxMessageBuilder::configureData2(unsigned char* buffer, unsigned short& position,
                                                       unsigned short value)
{
    ubx::append(buffer, position, value);
    return position;
}

unsigned short ZedF9tUbxMessageBuilder::configureData4(unsigned char* buffer, unsigned short& position,
                                                       unsigned int value)
{
    ubx::append(buffer, position, value);
    return position;
}

unsigned short ZedF9tUbxMessageBuilder::configureData8(unsigned char* buffer, unsigned short& position,
                                                       unsigned long value)
{
    static_assert(sizeof(value) == 8, "8 bytes are written");
    ubx::append(buffer, position, value);
    return position;
}

void ZedF9tUbxMessageBuilder::configureCfgHeader(unsigned char* buffer)
{
    ubx::writeHeader(buffer, ubx::cfgVal::kSetRam);
}

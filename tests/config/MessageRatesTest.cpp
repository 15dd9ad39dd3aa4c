#include <ZedF9tUbxMessageBuilder.h>

#include <gtest/gtest.h>

#include "BuiltPayload.h"

using configtest::built;
using testsupport::Bytes;
using testsupport::bytes;
using Builder = ZedF9tUbxMessageBuilder;

TEST(MessageRates, UbxOnI2cSetsEightMessages)
{
    EXPECT_EQ(built(&Builder::setMessageRateForUbxForI2C, 7), bytes("00 01 00 00 "
                                                                    "47 00 91 20 07 "
                                                                    "5B 00 91 20 07 "
                                                                    "15 00 91 20 07 "
                                                                    "45 03 91 20 07 "
                                                                    "06 00 91 20 07 "
                                                                    "1A 00 91 20 07 "
                                                                    "B4 01 91 20 07 "
                                                                    "97 00 91 20 07"));
}

TEST(MessageRates, DualUbxOnI2cSetsSignalsAndHardware)
{
    EXPECT_EQ(built(&Builder::setMessageRateForDualUbxForI2C, 5), bytes("00 01 00 00 "
                                                                        "45 03 91 20 05 "
                                                                        "B4 01 91 20 05"));
}

TEST(MessageRates, UbxOnUsbLetsUbxOutAndSetsEightMessagesEndingWithNavSvin)
{
    EXPECT_EQ(built(&Builder::setMessageRateForUbxForUSB, 9), bytes("00 01 00 00 "
                                                                    "01 00 78 10 01 "
                                                                    "4A 00 91 20 09 "
                                                                    "5E 00 91 20 09 "
                                                                    "18 00 91 20 09 "
                                                                    "48 03 91 20 09 "
                                                                    "09 00 91 20 09 "
                                                                    "1D 00 91 20 09 "
                                                                    "B7 01 91 20 09 "
                                                                    "8B 00 91 20 09"));
}

TEST(MessageRates, UbxOnUsbIsLetOutEvenAtRateZero)
{
    EXPECT_EQ(built(&Builder::setMessageRateForUbxForUSB, 0), bytes("00 01 00 00 "
                                                                    "01 00 78 10 01 "
                                                                    "4A 00 91 20 00 "
                                                                    "5E 00 91 20 00 "
                                                                    "18 00 91 20 00 "
                                                                    "48 03 91 20 00 "
                                                                    "09 00 91 20 00 "
                                                                    "1D 00 91 20 00 "
                                                                    "B7 01 91 20 00 "
                                                                    "8B 00 91 20 00"));
}

TEST(MessageRates, DualUbxOnUsbSetsSignalsAndHardware)
{
    EXPECT_EQ(built(&Builder::setMessageRateForDualUbxForUSB, 3), bytes("00 01 00 00 "
                                                                        "48 03 91 20 03 "
                                                                        "B7 01 91 20 03"));
}

TEST(MessageRates, NmeaSetsZdaThenGga)
{
    EXPECT_EQ(built(&Builder::setMessageRateForNmea, 255), bytes("00 01 00 00 "
                                                                 "D8 00 91 20 FF "
                                                                 "BA 00 91 20 FF"));
}

TEST(MessageRates, RtcmSetsSevenTypesAndTheReportOnReceivedRtcm)
{
    EXPECT_EQ(built(&Builder::setMessageRateForRtcm, 1), bytes("00 01 00 00 "
                                                               "BF 02 91 20 01 "
                                                               "CE 02 91 20 01 "
                                                               "D3 02 91 20 01 "
                                                               "1A 03 91 20 01 "
                                                               "D8 02 91 20 01 "
                                                               "05 03 91 20 01 "
                                                               "83 03 91 20 01 "
                                                               "68 02 91 20 01"));
}

TEST(MessageRates, RateMayStandInTheBufferItself)
{
    Bytes buffer(300, 0x2A);

    const unsigned int length = Builder::setMessageRateForNmea(buffer.data(), buffer[1]);

    buffer.resize(length);
    EXPECT_EQ(buffer, bytes("00 01 00 00 "
                            "D8 00 91 20 2A "
                            "BA 00 91 20 2A"));
}

TEST(MessageRates, I2cKeepsGgaAndRmcOnly)
{
    EXPECT_EQ(built(&Builder::configureI2C), bytes("00 01 00 00 "
                                                   "BA 00 91 20 01 "
                                                   "D8 00 91 20 00 "
                                                   "AB 00 91 20 01 "
                                                   "C9 00 91 20 00 "
                                                   "BF 00 91 20 00 "
                                                   "C4 00 91 20 00 "
                                                   "B0 00 91 20 00"));
}

TEST(MessageRates, UartSetsItsSpeedSilencesNmeaAndLetsRtcmThrough)
{
    EXPECT_EQ(built(&Builder::configureUART, 115200U), bytes("00 01 00 00 "
                                                             "01 00 52 40 00 C2 01 00 "
                                                             "BB 00 91 20 00 "
                                                             "CA 00 91 20 00 "
                                                             "C0 00 91 20 00 "
                                                             "C5 00 91 20 00 "
                                                             "AC 00 91 20 00 "
                                                             "B1 00 91 20 00 "
                                                             "04 00 75 10 01 "
                                                             "04 00 76 10 01"));
}

// The library's inventory questions on a board without inventory services.

#include <moduleInventory.h>

#include <stdexcept>

#include <GDBusModuleResourcesClient.h>
#include <GDBusSystemInventoryClient.h>
#include <gtest/gtest.h>

namespace
{

TEST(LinuxInventory, HasNoModuleAnywhere)
{
    EXPECT_TRUE(GDBusSystemInventoryClient().GetModuleLocations().empty());
    for (const int location : {-1, 0, 1, 2, 77})
        EXPECT_FALSE(checkAddress(location)) << location;
}

TEST(LinuxInventory, AnswersAllQuestionsAboutAModuleWithNothing)
{
    EXPECT_EQ(getModuleHardwareID(1), "");
    EXPECT_EQ(getSolutionI2C(1), "");
    EXPECT_EQ(getSolutionSpiDev(1), "");
    EXPECT_FALSE(checkForEndpointInEEPROM(1));
}

TEST(LinuxInventory, HasNoRecordForACallerThatAsksAllTheSame)
{
    GDBusModuleResourcesClient resources;
    resources.SetupDeviceAddress(1);

    EXPECT_EQ(resources.GetSystemRecord("HardwareSetId").GetRecordType(), 0);
    EXPECT_EQ(resources.GetSystemRecord("HardwareSetId").GetRecordData(), "");
    EXPECT_EQ(resources.GetI2CBus(), "");
    EXPECT_EQ(resources.GetSPIDev(), "");
    EXPECT_TRUE(resources.GetBars().empty());
}

} // namespace

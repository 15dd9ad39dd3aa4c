// What the process knows of the receiver. In a program of its own: nothing has been identified in it.

#include <ubloxChipInfo.h>

#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Files.h"

namespace fs = std::filesystem;
using testsupport::write;

namespace
{

constexpr const char* kF9t = "/dev/usb-ublox-f9t";
constexpr const char* kM8t = "/dev/usb-ublox-m8t";

TEST(ChipInfoRecord, IsEmptyUntilAReceiverIsIdentified)
{
    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "");
    EXPECT_EQ(ubloxChipInfo::getUbloxHwVer(), "");
    EXPECT_EQ(ubloxChipInfo::getUbloxSwVer(), "");
    EXPECT_EQ(ubloxChipInfo::getUbloxProtVer(), "");
    EXPECT_EQ(ubloxChipInfo::getUbloxModeName(), "");
}

TEST(ChipInfoRecord, KeepsEachTextByItself)
{
    ubloxChipInfo::setUbloxChipName("a chip");
    ubloxChipInfo::setUbloxHwVer("hardware");
    ubloxChipInfo::setUbloxSwVer("software");
    ubloxChipInfo::setUbloxProtVer("protocol");
    ubloxChipInfo::setUbloxModeName("a module");

    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "a chip");
    EXPECT_EQ(ubloxChipInfo::getUbloxHwVer(), "hardware");
    EXPECT_EQ(ubloxChipInfo::getUbloxSwVer(), "software");
    EXPECT_EQ(ubloxChipInfo::getUbloxProtVer(), "protocol");
    EXPECT_EQ(ubloxChipInfo::getUbloxModeName(), "a module");

    for (auto* const set : {ubloxChipInfo::setUbloxChipName, ubloxChipInfo::setUbloxHwVer, ubloxChipInfo::setUbloxSwVer,
                            ubloxChipInfo::setUbloxProtVer, ubloxChipInfo::setUbloxModeName}) {
        set("");
    }
}

TEST(ChipInfoRecord, HandsOutCopies)
{
    ubloxChipInfo::setUbloxChipName("a chip");
    std::string name = ubloxChipInfo::getUbloxChipName();
    name += " and more";

    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "a chip");
    ubloxChipInfo::setUbloxChipName("");
}

class UsbNode : public testing::Test
{
protected:
    UsbNode() { removeBoth(); }
    ~UsbNode() override { removeBoth(); }

    static void removeBoth()
    {
        fs::remove(kF9t);
        fs::remove(kM8t);
    }
};

TEST_F(UsbNode, IsNotThereByDefault)
{
    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 1);
}

TEST_F(UsbNode, OfAZedF9tIsEnough)
{
    write(kF9t, "");

    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 0);
}

TEST_F(UsbNode, OfANeoM8tIsEnough)
{
    write(kM8t, "");

    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 0);
}

TEST_F(UsbNode, OfBothIsFine)
{
    write(kF9t, "");
    write(kM8t, "");

    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 0);
}

TEST_F(UsbNode, CountsOnlyWhenItCanBeOpened)
{
    fs::create_symlink("/dev/nowhere", kF9t);
    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 1);

    write(kM8t, "");
    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 0);
}

TEST_F(UsbNode, IsLookedForAnewEveryTime)
{
    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 1);
    write(kM8t, "");
    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 0);
    fs::remove(kM8t);
    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 1);
}

TEST_F(UsbNode, IsClosedAgainWithNothingRead)
{
    ASSERT_EQ(::mkfifo(kF9t, 0600), 0); // reading it would wait for ever
    const std::size_t before = testsupport::openDescriptors();

    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 0);

    EXPECT_EQ(testsupport::openDescriptors(), before);
}

} // namespace

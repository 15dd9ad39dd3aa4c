// The chip-info file: written once, for the other processes of the device.

#include <ubloxChipInfo.h>

#include <csignal>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include "CapturedOutput.h"
#include "ChipInfoFile.h"
#include "sandbox/Sandbox.h"

namespace fs = std::filesystem;
using namespace testsupport;

namespace
{

TEST_F(ChipInfoFile, HasFiveLines)
{
    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(ChipInfoFile, OfAZedF9tSaysSo)
{
    std::string versions = "00190000: FWVER=TIM 2.20: PROTVER=29.20: MOD=ZED-F9T: end";
    controller->parserGnssChipInfo(versions);

    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp(kChipInfoFile), "UBLOX_Chip=ZEDF9T\n"
                                    "UBLOX_HwVer=00190000\n"
                                    "UBLOX_SwVer=TIM 2.20\n"
                                    "UBLOX_ProtVer=29.20\n"
                                    "UBLOX_ModName=ZED-F9T\n");
}

TEST_F(ChipInfoFile, CanBeReadByOtherUsers)
{
    const mode_t before = ::umask(022);
    controller->saveUbloxChipInfo();
    ::umask(before);

    EXPECT_EQ(fs::status(kChipInfoFile).permissions(),
              fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_read | fs::perms::others_read);
}

TEST_F(ChipInfoFile, IsLeftUntouchedWhenItExists)
{
    write(kChipInfoFile, "UBLOX_Chip=ZEDF9T\nof an earlier process");

    controller->saveUbloxChipInfo();
    facade();

    EXPECT_EQ(slurp(kChipInfoFile), "UBLOX_Chip=ZEDF9T\nof an earlier process");
}

TEST_F(ChipInfoFile, IsLeftUntouchedWhenItIsEmpty)
{
    write(kChipInfoFile, "");

    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp(kChipInfoFile), "");
}

TEST_F(ChipInfoFile, IsLeftUntouchedWhenItIsADirectory)
{
    fs::create_directory(kChipInfoFile);

    controller->saveUbloxChipInfo();

    EXPECT_TRUE(fs::is_directory(kChipInfoFile));
}

TEST_F(ChipInfoFile, IsWrittenAgainOnceItHasBeenRemoved)
{
    controller->saveUbloxChipInfo();
    fs::remove(kChipInfoFile);

    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(ChipInfoFile, IsNotCreatedThroughALinkThatLeadsNowhere)
{
    fs::create_symlink("/tmp/somebody-elses-file", kChipInfoFile);
    ubloxChipInfo::setUbloxChipName("of before");

    controller->saveUbloxChipInfo();

    EXPECT_FALSE(fs::exists("/tmp/somebody-elses-file"));
    EXPECT_TRUE(fs::is_symlink(kChipInfoFile));
    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "NEOM8T") << "there is no file yet: the attempt was made";
}

TEST_F(ChipInfoFile, IsWrittenAfterALinkHasBeenTakenAway)
{
    fs::create_symlink("/tmp/somebody-elses-file", kChipInfoFile);
    controller->saveUbloxChipInfo();
    fs::remove(kChipInfoFile);

    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(ChipInfoFile, CountsAsThereWhenALinkLeadsToAFile)
{
    write("/tmp/somebody-elses-file", "as before");
    fs::create_symlink("/tmp/somebody-elses-file", kChipInfoFile);

    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp("/tmp/somebody-elses-file"), "as before");
    fs::remove("/tmp/somebody-elses-file");
}

TEST_F(ChipInfoFile, IsSkippedSilentlyWhereItCanNotBeCreatedAndWrittenLater)
{
    const CapturedOutput output(STDOUT_FILENO);
    const CapturedOutput errors(STDERR_FILENO);
    sandbox::forbidChanges("/tmp");
    controller->saveUbloxChipInfo();
    sandbox::permitChanges("/tmp");

    EXPECT_FALSE(fs::exists(kChipInfoFile));
    EXPECT_EQ(output.text() + errors.text(), "");

    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(ChipInfoFile, IsNotLeftInPartWhenTheDiskIsFull)
{
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    for (const rlim_t room : {0U, 1U, 17U, 18U, 39U, 60U, 80U, 103U}) {
        const rlimit limit{room, before.rlim_max};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        controller->saveUbloxChipInfo();
        ::setrlimit(RLIMIT_FSIZE, &before);

        EXPECT_FALSE(fs::exists(kChipInfoFile)) << "room for " << room << " bytes: " << slurp(kChipInfoFile);
    }

    controller->saveUbloxChipInfo();

    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(ChipInfoFile, LeavesNoDescriptorOpen)
{
    const std::size_t before = openDescriptors();

    controller->saveUbloxChipInfo();
    controller->saveUbloxChipInfo();

    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(ChipInfoFile, TakesTheNameOfTheChipIntoTheRecordWhenItIsWritten)
{
    ubloxChipInfo::setUbloxChipName("of before");
    controller->saveUbloxChipInfo();
    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "NEOM8T");

    ubloxChipInfo::setUbloxChipName("of before");
    controller->saveUbloxChipInfo();
    EXPECT_EQ(ubloxChipInfo::getUbloxChipName(), "of before") << "it existed already";
}

} // namespace

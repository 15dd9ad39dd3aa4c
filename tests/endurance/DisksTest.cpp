// Disks that are full or can't be written cost log lines and the chip-info file, never an operation.

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/mount.h>
#include <unistd.h>

#include "EnduranceTest.h"
#include "sandbox/Sandbox.h"
#include "sandbox/SystemCall.h"

namespace
{

namespace fs = std::filesystem;
using namespace testsupport;

/// A small file system over a directory, which a file of somebody else fills to the last byte.
class FullDisk
{
public:
    explicit FullDisk(std::string directory) : directory_(std::move(directory))
    {
        sandbox::mountEmpty(directory_, "size=65536,nr_inodes=16");
        const sandbox::Descriptor file(::open(filler().c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666));
        EXPECT_EQ(::write(file.get(), std::string(65536, 'x').data(), 65536), 65536);
        EXPECT_EQ(::write(file.get(), "x", 1), -1);
        EXPECT_EQ(errno, ENOSPC);
    }
    ~FullDisk() { ::umount2(directory_.c_str(), MNT_DETACH); }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

    void makeRoom() const { fs::remove(filler()); }

private:
    std::string filler() const { return directory_ + "/of-somebody-else"; }

    std::string directory_;
};

using Disks = EnduranceTest;

TEST_F(Disks, ThatAreFullDoNotKeepTheFacadeFromWorking)
{
    const FullDisk logs("/var/log");
    const FullDisk temporary("/tmp");

    start();

    EXPECT_TRUE(controller->isNeoM8t());
    expectAllIsWell();
    EXPECT_EQ(askWithoutDevice(), 8);
    EXPECT_EQ(slurp(kModelLog), "");
    EXPECT_FALSE(fs::exists(kChipInfoFile)) << "half a file would never be made whole";
    expectAllIsWell();
}

TEST_F(Disks, ThatHaveRoomAgainGetWhatIsWrittenFromThenOn)
{
    const FullDisk logs("/var/log");
    const FullDisk temporary("/tmp");
    start();
    askWithoutDevice();

    logs.makeRoom();
    temporary.makeRoom();
    EXPECT_EQ(askWithoutDevice(), 8);
    controller->saveUbloxChipInfo();

    EXPECT_EQ(log(kModelLog), (Lines{kNotSent, kNotSent})) << "the stream still had the line that did not fit";
    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(Disks, ThatStayFullCostNoMemoryForLinesThatDoNotFit)
{
    const FullDisk logs("/var/log");
    start();
    for (int i = 0; i < 1000; ++i)
        askWithoutDevice();

    logs.makeRoom();
    askWithoutDevice();

    EXPECT_LT(slurp(kModelLog).size(), 16384U) << "a stream's buffer and a line, not a thousand lines";
    EXPECT_EQ(log(kModelLog).back(), kNotSent);
}

TEST_F(Disks, ThatCanNotBeWrittenDoNotKeepTheFacadeFromWorking)
{
    sandbox::forbidChanges("/var/log");
    sandbox::forbidChanges("/tmp");

    start();
    EXPECT_TRUE(controller->isNeoM8t());
    expectAllIsWell();
    EXPECT_EQ(askWithoutDevice(), 8);
    expectAllIsWell();

    sandbox::permitChanges("/var/log");
    sandbox::permitChanges("/tmp");
    EXPECT_TRUE(fs::is_empty("/var/log"));
    EXPECT_FALSE(fs::exists(kChipInfoFile));
}

TEST_F(Disks, ThatCanBeWrittenAgainGetTheChipInfoFileNowAndTheLogsOfTheNextController)
{
    sandbox::forbidChanges("/var/log");
    sandbox::forbidChanges("/tmp");
    start();
    sandbox::permitChanges("/var/log");
    sandbox::permitChanges("/tmp");

    controller->saveUbloxChipInfo();
    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
    askWithoutDevice();
    EXPECT_FALSE(fs::exists(kModelLog)) << "a log that could not be opened stays closed";

    start();
    askWithoutDevice();
    EXPECT_EQ(log(kModelLog), Lines{kNotSent});
}

TEST_F(Disks, ThatBecomeReadOnlyLaterCostTheLinesOfThatTime)
{
    start();
    askWithoutDevice();

    // A file that is open for writing keeps a file system writable: only a new file shows the change.
    fs::remove(kChipInfoFile);
    sandbox::forbidChanges("/tmp");
    controller->saveUbloxChipInfo();
    EXPECT_EQ(askWithoutDevice(), 8);
    sandbox::permitChanges("/tmp");

    EXPECT_FALSE(fs::exists(kChipInfoFile));
    EXPECT_EQ(log(kModelLog), (Lines{kNotSent, kNotSent}));
}

} // namespace

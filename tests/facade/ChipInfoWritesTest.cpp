// A disk that takes the chip-info file in pieces, is interrupted, or takes nothing.

#include <algorithm>
#include <cerrno>
#include <deque>
#include <filesystem>
#include <string>
#include <utility>

#include <gtest/gtest.h>
#include <sys/syscall.h>
#include <unistd.h>

#include "ChipInfoFile.h"
#include "Files.h"

namespace
{

namespace fs = std::filesystem;
using testsupport::ChipInfoFile;
using testsupport::kChipInfo;
using testsupport::kChipInfoFile;
using testsupport::slurp;

/// What the next writes to the chip-info file do: take so many bytes at most, or fail with -errno. Later ones take all.
thread_local std::deque<int> answers;

bool isChipInfoFile(int fd)
{
    std::error_code gone;
    return fs::read_symlink("/proc/self/fd/" + std::to_string(fd), gone) == kChipInfoFile;
}

} // namespace

// In the place of the C library's, for the library too.
extern "C" __attribute__((visibility("default"))) ssize_t write(int fd, const void* bytes, std::size_t count)
{
    if (!answers.empty() && isChipInfoFile(fd)) {
        const int answer = answers.front();
        answers.pop_front();
        if (answer < 0) {
            errno = -answer;
            return -1;
        }
        count = std::min(count, static_cast<std::size_t>(answer));
    }
    return ::syscall(SYS_write, fd, bytes, count);
}

namespace
{

class ChipInfoWrites : public ChipInfoFile
{
protected:
    ~ChipInfoWrites() override { answers.clear(); }

    void saveWith(std::deque<int> script)
    {
        answers = std::move(script);
        controller->saveUbloxChipInfo();
        EXPECT_TRUE(answers.empty()) << "so many times nothing was written";
    }
};

TEST_F(ChipInfoWrites, ThatTakeAPieceAreGoneOnWith)
{
    saveWith({1, 7, 3});

    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(ChipInfoWrites, ThatASignalEndedAreRepeated)
{
    saveWith({-EINTR, 4, -EINTR, -EINTR});

    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
}

TEST_F(ChipInfoWrites, ThatTakeNothingLeaveNoFile)
{
    saveWith({5, 0});

    EXPECT_FALSE(fs::exists(kChipInfoFile));
}

TEST_F(ChipInfoWrites, ThatFailLeaveNoFile)
{
    saveWith({5, -EIO});

    EXPECT_FALSE(fs::exists(kChipInfoFile));
}

} // namespace

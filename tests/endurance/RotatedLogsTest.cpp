// Logs that are taken away while a controller has them open. It keeps the file it has opened.

#include <filesystem>

#include <gtest/gtest.h>

#include "EnduranceTest.h"

namespace
{

namespace fs = std::filesystem;
using namespace testsupport;

constexpr const char* kRotated = "/var/log/rxtool-neom8t-errors.log.1";

class RotatedLog : public EnduranceTest
{
protected:
    RotatedLog()
    {
        fs::remove(kRotated);
        start();
        askWithoutDevice();
    }
    ~RotatedLog() override { fs::remove(kRotated); }
};

TEST_F(RotatedLog, ThatWasRenamedIsContinuedUnderItsNewName)
{
    fs::rename(kModelLog, kRotated);

    EXPECT_EQ(askWithoutDevice(), 8);

    EXPECT_EQ(log(kRotated), (Lines{kNotSent, kNotSent}));
    EXPECT_FALSE(fs::exists(kModelLog));
}

TEST_F(RotatedLog, ThatWasRenamedIsMadeAnewByTheNextController)
{
    fs::rename(kModelLog, kRotated);
    start();

    askWithoutDevice();

    EXPECT_EQ(log(kRotated), Lines{kNotSent});
    EXPECT_EQ(log(kModelLog), Lines{kNotSent});
}

TEST_F(RotatedLog, ThatWasRemovedTakesItsLinesAlong)
{
    fs::remove(kModelLog);

    EXPECT_EQ(askWithoutDevice(), 8);

    EXPECT_FALSE(fs::exists(kModelLog));
    expectAllIsWell();
}

TEST_F(RotatedLog, ThatAnotherFileHasReplacedIsNotMixedWithThat)
{
    fs::rename(kModelLog, kRotated);
    write(kModelLog, "of logrotate's create\n");

    askWithoutDevice();

    EXPECT_EQ(slurp(kModelLog), "of logrotate's create\n");
    EXPECT_EQ(log(kRotated), (Lines{kNotSent, kNotSent}));
}

TEST_F(RotatedLog, ThatWasCopiedAndCutBeginsAgainWithoutAHole)
{
    fs::copy_file(kModelLog, kRotated);
    fs::resize_file(kModelLog, 0);

    askWithoutDevice();

    EXPECT_EQ(log(kRotated), Lines{kNotSent});
    EXPECT_EQ(log(kModelLog), Lines{kNotSent}) << "appended at the end that there is now";
}

} // namespace

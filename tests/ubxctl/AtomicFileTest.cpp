// What becomes of the file that a command writes.

#include <filesystem>
#include <thread>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Files.h"
#include "output/AtomicFile.h"

namespace fs = std::filesystem;

TEST(AtomicFile, LeavesALinkAndReplacesWhatItLeadsTo)
{
    testsupport::write("/tmp/target", "old\n");
    fs::create_symlink("/tmp/target", "/tmp/link");

    ubxctl::writeAtomically("/tmp/link", "new\n");

    EXPECT_TRUE(fs::is_symlink("/tmp/link"));
    EXPECT_EQ(testsupport::slurp("/tmp/target"), "new\n");
}

TEST(AtomicFile, WritesIntoAPipeAndLeavesItOne)
{
    ASSERT_EQ(::mkfifo("/tmp/pipe", 0600), 0);
    std::string taken;
    std::thread reader([&] { taken = testsupport::slurp("/tmp/pipe"); });

    ubxctl::writeAtomically("/tmp/pipe", "new\n");
    reader.join();

    EXPECT_TRUE(fs::is_fifo("/tmp/pipe"));
    EXPECT_EQ(taken, "new\n");
}

// What the other tests rely on.

#include <cstdio>
#include <iostream>
#include <stdexcept>
#include <string>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "Bytes.h"
#include "CapturedOutput.h"
#include "ChildProcess.h"
#include "Files.h"

using testsupport::Bytes;
using testsupport::bytes;
using testsupport::CapturedOutput;
using testsupport::runToEnd;

namespace
{

TEST(TypedBytes, AreReadInEitherCaseAndAcrossLines)
{
    EXPECT_EQ(bytes("B5 62 0a fF\n  00\t7e "), (Bytes{0xB5, 0x62, 0x0A, 0xFF, 0x00, 0x7E}));
    EXPECT_EQ(bytes(""), Bytes{});
}

TEST(TypedBytes, WithATypingErrorAreRefused)
{
    for (const char* typo : {"B5 6", "B562", "G0", "0x62", "B5,62", "6 2", "+1", "\xB5"}) {
        EXPECT_THROW(bytes(typo), std::invalid_argument) << typo;
    }
}

TEST(TypedBytes, SayWhereTheTypingErrorIs)
{
    try {
        bytes("B5 62 O6");
        ADD_FAILURE() << "nothing thrown";
    } catch (const std::invalid_argument& error) {
        EXPECT_STREQ(error.what(), "not a byte: \"O6\" at column 7 of \"B5 62 O6\"");
    }
}

TEST(TypedBytes, AreShownAsTheyAreTyped)
{
    EXPECT_EQ(testsupport::hex({0xB5, 0x00, 0x0A}), "B5 00 0A");
}

TEST(CapturedOutput, HasAllThatIsWrittenByWhateverMeans)
{
    const CapturedOutput output(STDOUT_FILENO);

    std::cout << "stream ";
    EXPECT_EQ(output.text(), "stream ");
    std::fputs("stdio ", stdout);
    EXPECT_EQ(output.text(), "stream stdio ");
    EXPECT_EQ(::write(STDOUT_FILENO, "descriptor", 10), 10);
    EXPECT_EQ(output.text(), "stream stdio descriptor");
}

TEST(CapturedOutput, OfOneDescriptorLeavesTheOtherAndGivesItBack)
{
    const CapturedOutput errors(STDERR_FILENO);
    const std::size_t before = testsupport::openDescriptors();
    {
        const CapturedOutput inner(STDERR_FILENO);
        std::cerr << "inner";
        EXPECT_EQ(inner.text(), "inner");
    }
    std::cerr << "outer";

    EXPECT_EQ(errors.text(), "outer");
    EXPECT_EQ(testsupport::openDescriptors(), before);
}

TEST(Files, AreReadWholeAndByLine)
{
    testsupport::write("/tmp/file", "one\ntwo\n\nlast");

    EXPECT_EQ(testsupport::slurp("/tmp/file"), "one\ntwo\n\nlast");
    EXPECT_EQ(testsupport::lines("/tmp/file"), (std::vector<std::string>{"one", "two", "", "last"}));
    EXPECT_EQ(testsupport::slurp("/tmp/none"), "");
    EXPECT_TRUE(testsupport::lines("/tmp/none").empty());
}

TEST(OpenDescriptors, AreCounted)
{
    const std::size_t before = testsupport::openDescriptors();

    const int one = ::open("/dev/null", O_RDONLY | O_CLOEXEC);
    EXPECT_EQ(testsupport::openDescriptors(), before + 1);
    ::close(one);

    EXPECT_EQ(testsupport::openDescriptors(), before);
}

TEST(ChildProcess, GivesStatusSignalAndOutput)
{
    const testsupport::Ended ended = runToEnd({"sh", "-c", "echo out; echo err >&2; exit 7"});

    EXPECT_EQ(ended.status, 7);
    EXPECT_EQ(ended.output, "out\n");
    EXPECT_EQ(ended.errors, "err\n");
    EXPECT_EQ(runToEnd({"sh", "-c", "kill -TERM $$"}).status, -15);
    EXPECT_EQ(runToEnd([] { return 3; }).status, 3);
    EXPECT_EQ(runToEnd({"/no/such/program"}).status, 127);
}

TEST(Sources, AreWhereTheTestsLookForThem)
{
    EXPECT_TRUE(std::filesystem::exists(testsupport::sourceDirectory() / "tests/sandbox/SupportTest.cpp"));
    EXPECT_TRUE(std::filesystem::exists(testsupport::programDirectory() / "ubxsandbox"));
}

} // namespace

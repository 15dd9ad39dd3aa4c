// A system that refuses private namespaces.

#include "sandbox/Sandbox.h"

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include <gtest/gtest.h>
#include <sys/syscall.h>

#include "ChildProcess.h"
#include "Emulation.h"
#include "Refusal.h"

using testsupport::Ended;
using testsupport::runToEnd;

namespace
{

class SandboxRefused : public testing::Test
{
protected:
    void SetUp() override
    {
        if (testsupport::emulated()) GTEST_SKIP() << "the emulator has no seccomp filters to refuse with";
    }
};

TEST_F(SandboxRefused, SaysInOneLineThatThereAreNoNamespaces)
{
    const Ended ended = runToEnd([] {
        refuseSystemCall(SYS_unshare);
        const sandbox::Outcome outcome = sandbox::enter();
        std::cout << outcome.entered << " " << outcome.why;
        return 0;
    });

    EXPECT_EQ(ended.output, "0 no private /dev, /var/log and /tmp on this system (unshare: Operation not permitted)");
}

TEST_F(SandboxRefused, SaysInOneLineThatNothingMayBeMounted)
{
    const Ended ended = runToEnd([] {
        refuseSystemCall(SYS_mount);
        const sandbox::Outcome outcome = sandbox::enter();
        std::cout << outcome.entered << " " << outcome.why;
        return 0;
    });

    EXPECT_EQ(ended.output, "0 no private /dev, /var/log and /tmp on this system (make mounts private: Operation not "
                            "permitted)");
}

const std::vector<std::string> kOneTestOfThisProgram{"/proc/self/exe", "--gtest_filter=Sandbox.IsWhereTestsRun"};

TEST_F(SandboxRefused, SkipsTheTestsOfAProgram)
{
    const Ended ended = runToEnd(kOneTestOfThisProgram, [] {
        ::unsetenv("CI");
        refuseSystemCall(SYS_unshare);
    });

    EXPECT_EQ(ended.status, 0);
    const bool saidSo = ended.output == "[  SKIPPED ] tests not run: no private /dev, /var/log and /tmp on this "
                                        "system (unshare: Operation not permitted)\n";
    EXPECT_TRUE(saidSo); // Without showing the line, which would make this test count as skipped.
}

TEST_F(SandboxRefused, FailsTheTestsOfAProgramOnContinuousIntegration)
{
    const Ended ended = runToEnd(kOneTestOfThisProgram, [] {
        ::setenv("CI", "true", 1);
        refuseSystemCall(SYS_unshare);
    });

    EXPECT_EQ(ended.status, 1);
    EXPECT_EQ(ended.output, "[  FAILED  ] tests not run: no private /dev, /var/log and /tmp on this system "
                            "(unshare: Operation not permitted)\n");
}

TEST_F(SandboxRefused, StillListsTheTestsOfAProgram)
{
    const Ended ended = runToEnd({"/proc/self/exe", "--gtest_list_tests"}, [] { refuseSystemCall(SYS_unshare); });

    EXPECT_EQ(ended.status, 0);
    EXPECT_NE(ended.output.find("IsWhereTestsRun"), std::string::npos);
}

} // namespace

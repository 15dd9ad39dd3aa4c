// What every test program starts with: into a sandbox of its own, then all its tests.

#include <cstdlib>
#include <iostream>
#include <string_view>

#include <gtest/gtest.h>

#include "Files.h"
#include "sandbox/Sandbox.h"

namespace
{

bool onContinuousIntegration()
{
    const char* ci = std::getenv("CI");
    return ci != nullptr && std::string_view(ci) == "true";
}

/// A system without private namespaces can't run the tests: that is a skip for a person, and a failure where the tests
/// are the point.
int sayNotRun(const std::string& why)
{
    const bool failure = onContinuousIntegration();
    std::cout << (failure ? "[  FAILED  ] tests not run: " : "[  SKIPPED ] tests not run: ") << why << std::endl;
    return failure ? EXIT_FAILURE : EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    if (!GTEST_FLAG_GET(list_tests)) {
        const sandbox::Outcome outcome = sandbox::enter(
            {{testsupport::sourceDirectory(), testsupport::programDirectory(), testsupport::capturesDirectory()},
             "",
             ""});
        if (!outcome.entered) return sayNotRun(outcome.why);
    }
    return RUN_ALL_TESTS();
}

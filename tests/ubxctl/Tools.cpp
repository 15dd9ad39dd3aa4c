#include "Tools.h"

#include <cstdlib>
#include <string_view>

#include <gtest/gtest.h>

#include "ChildProcess.h"
#include "Files.h"

namespace
{

bool mustHaveTools()
{
    const char* ci = std::getenv("CI");
    return ci != nullptr && std::string_view(ci) == "true";
}

} // namespace

bool haveTool(const std::string& program)
{
    const bool there = testsupport::runToEnd({"sh", "-c", "command -v " + program}).status == 0;
    if (!there && mustHaveTools()) ADD_FAILURE() << program << " is not installed";
    return there;
}

void expectValid(const std::string& file)
{
    const std::string check = testsupport::sourceDirectory() / "tests/ubxctl/check-schema.py";
    const std::string schema = testsupport::sourceDirectory() / "tools/ubxctl/schema/ubxctl.schema.json";
    const testsupport::Ended ended = testsupport::runToEnd({"/usr/bin/python3", check, schema, file});
    constexpr int kNoValidator = 77;
    if (ended.status == kNoValidator && !mustHaveTools()) GTEST_SKIP() << ended.errors;
    EXPECT_EQ(ended.status, 0) << ended.errors;
}

#include "sandbox/Sandbox.h"

#include <gtest/gtest.h>

TEST(Sandbox, IsWhereTestsRun)
{
    EXPECT_TRUE(sandbox::inside());
}

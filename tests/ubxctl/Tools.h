#pragma once

#include <string>

/// Whether a program of the machine is there that a test needs besides the project. Where it is not, the test is to be
/// skipped; on continuous integration that is a failure.
bool haveTool(const std::string& program);

#define UBX_NEEDS_TOOL(program)                                                                                        \
    if (!haveTool(program)) GTEST_SKIP() << program << " is not installed"

/// Every line of the file is a JSON object that the schema of ubxctl allows.
void expectValid(const std::string& file);

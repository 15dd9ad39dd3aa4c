#pragma once

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Emulation.h"
#include "Files.h"

using Command = std::vector<std::string>;

/// Tests of the program ubxsandbox, each in a directory of its own below /tmp.
class SandboxCommand : public testing::Test
{
protected:
    static constexpr const char* kDirectory = "/tmp/command-test";

    SandboxCommand()
    {
        ::setenv("PATH", "/usr/bin:/bin", 1);
        std::filesystem::create_directories(kDirectory);
        std::filesystem::current_path(kDirectory);
    }
    void SetUp() override
    {
        if (testsupport::emulated()) GTEST_SKIP() << "the machine's commands can't load this build's libraries";
    }
    ~SandboxCommand() override
    {
        std::filesystem::current_path("/");
        std::filesystem::remove_all(kDirectory);
    }

    static std::string program() { return testsupport::programDirectory() / "ubxsandbox"; }

    static Command sandboxed(Command command)
    {
        command.insert(command.begin(), program());
        return command;
    }

    static void makeScript(const std::filesystem::path& path, const std::string& text)
    {
        using std::filesystem::perms;

        std::filesystem::create_directories(absolute(path).parent_path());
        testsupport::write(path, "#!/bin/sh\n" + text);
        permissions(path, perms::owner_all | perms::group_all | perms::others_all);
    }
};

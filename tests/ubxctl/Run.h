#pragma once

#include <chrono>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "session/Session.h"

/// What a run of ubxctl within this process came to.
struct Ran
{
    int code;
    std::string output;
    std::string errors;

    nlohmann::json json() const { return nlohmann::json::parse(output); }
};

Ran runUbxctl(const std::vector<std::string>& words, const ubxctl::Surroundings& surroundings);

/// On the receiver at "/dev/tty_gps".
Ran runUbxctl(const std::vector<std::string>& words);

/// The device of the sandbox; ubxctl's own polls give up so soon.
ubxctl::Surroundings deviceWith(std::chrono::milliseconds replyLimit);

/// The program itself, for a shell of a test.
std::string ubxctlCommand();

/// The paths of all commands: "survey auto".
std::vector<std::string> commandPaths();

/// Arguments with which a command does something, for each command of which there is one.
std::vector<std::string> sampleOf(const std::string& path);

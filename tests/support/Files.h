#pragma once

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace testsupport
{

/// The whole contents of a file; empty when it can't be read.
std::string slurp(const std::filesystem::path& file);

/// The lines of a file without their ends; empty when it can't be read.
std::vector<std::string> lines(const std::filesystem::path& file);

/// Replaces the file's contents.
/// @throws std::runtime_error where that fails.
void write(const std::filesystem::path& file, const std::string& contents);

/// How many descriptors this process has open. The same number before and after means that nothing was left open.
std::size_t openDescriptors();

/// The recordings of real receivers, and whether they are there: tests that need them skip themselves otherwise.
std::filesystem::path capturesDirectory();
bool haveCaptures();

/// The root of the source tree.
std::filesystem::path sourceDirectory();

/// Where the programs of this build are, ubxsim for one.
std::filesystem::path programDirectory();

} // namespace testsupport

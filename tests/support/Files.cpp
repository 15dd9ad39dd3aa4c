#include "Files.h"

#include <fstream>
#include <iterator>
#include <stdexcept>

namespace fs = std::filesystem;

namespace testsupport
{

std::string slurp(const fs::path& file)
{
    std::ifstream stream(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

std::vector<std::string> lines(const fs::path& file)
{
    std::vector<std::string> all;
    std::ifstream stream(file);
    for (std::string line; std::getline(stream, line);)
        all.push_back(line);
    return all;
}

void write(const fs::path& file, const std::string& contents)
{
    std::ofstream stream(file, std::ios::binary | std::ios::trunc);
    stream << contents;
    if (!stream.flush()) throw std::runtime_error("can't write " + file.string());
}

std::size_t openDescriptors()
{
    const fs::directory_iterator descriptors("/proc/self/fd");
    const auto withTheListing = std::distance(begin(descriptors), end(descriptors));
    return static_cast<std::size_t>(withTheListing) - 1;
}

fs::path capturesDirectory()
{
    return UBX_CAPTURES_DIR;
}

bool haveCaptures()
{
    return fs::is_directory(capturesDirectory());
}

fs::path sourceDirectory()
{
    return UBX_SOURCE_DIR;
}

fs::path programDirectory()
{
    return UBX_PROGRAM_DIR;
}

} // namespace testsupport

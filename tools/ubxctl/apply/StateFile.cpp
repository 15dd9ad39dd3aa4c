#include "apply/StateFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fstream>
#include <iostream>
#include <iterator>
#include <sstream>

#include <sys/stat.h>

#include "session/Failure.h"
#include "settings/Quantity.h"

namespace ubxctl
{

namespace
{

constexpr std::size_t kLargestFile = 1024UL * 1024; // a mistaken name must not fill the memory

std::string knownKeys()
{
    std::string list;
    for (const Setting& setting : allSettings())
        list += (list.empty() ? "" : ", ") + std::string(setting.key);
    return list;
}

WantedSetting parseLine(std::string_view line, int number, const std::string& place)
{
    const std::size_t equals = line.find('=');
    if (equals == std::string_view::npos) throw Failure(kUsage, place + "a line is \"key = value\"");
    const std::string key(trimmed(line.substr(0, equals)));
    const Setting* const setting = findSetting(key);
    if (setting == nullptr) {
        throw Failure(kUsage, place + "there is no setting \"" + key + "\"; there are " + knownKeys());
    }
    try {
        return {setting, setting->format.parse(std::string(trimmed(line.substr(equals + 1)))), number};
    } catch (const BadValue& bad) {
        throw Failure(kUsage, place + key + ": " + bad.what());
    }
}

} // namespace

std::vector<WantedSetting> parseStateFile(std::string_view text, const std::string& name)
{
    std::vector<WantedSetting> wanted;
    int number = 0;
    constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF"; // some editors begin a file with it
    if (text.substr(0, kByteOrderMark.size()) == kByteOrderMark) text.remove_prefix(kByteOrderMark.size());
    std::istringstream lines{std::string(text)};
    for (std::string whole; std::getline(lines, whole);) {
        ++number;
        const std::string_view line = trimmed(std::string_view(whole).substr(0, whole.find('#')));
        if (line.empty()) continue;
        const std::string place = name + ":" + std::to_string(number) + ": ";
        if (line.find('\0') != std::string_view::npos) throw Failure(kUsage, place + "a zero byte: this is no text");
        const WantedSetting one = parseLine(line, number, place);
        const auto earlier = std::find_if(wanted.begin(), wanted.end(),
                                          [&](const WantedSetting& other) { return other.setting == one.setting; });
        if (earlier != wanted.end()) {
            throw Failure(kUsage,
                          place + one.setting->key + " stands in line " + std::to_string(earlier->line) + " already");
        }
        wanted.push_back(one);
    }
    std::sort(wanted.begin(), wanted.end(),
              [](const WantedSetting& one, const WantedSetting& other) { return one.setting < other.setting; });
    return wanted;
}

std::string readStateFile(const std::string& path)
{
    struct stat info
    {};
    std::ifstream file;
    const bool standardInput = path == "-";
    if (!standardInput) {
        if (::stat(path.c_str(), &info) == 0 && S_ISDIR(info.st_mode)) throw Failure(kFile, path + " is a directory");
        file.open(path, std::ios::binary);
        if (!file) throw Failure(kFile, path + " can't be read: " + std::strerror(errno));
    }
    std::istream& stream = standardInput ? std::cin : file;
    std::string text;
    for (char character = '\0'; text.size() <= kLargestFile && stream.get(character);)
        text += character;
    if (stream.bad()) throw Failure(kFile, path + " can't be read to its end: " + std::strerror(errno));
    if (text.size() > kLargestFile) throw Failure(kUsage, path + " is too long for a file of settings");
    return text;
}

} // namespace ubxctl

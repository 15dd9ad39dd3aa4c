#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "SystemCall.h"

namespace sandbox
{

/// A directory of the machine that is replaced by an empty one in memory, with the few entries that must stay visible.
///
/// An entry is kept whole: a program in /tmp/build/bin may need its libraries in /tmp/build/lib.
class HiddenDirectory
{
public:
    HiddenDirectory(std::filesystem::path directory, const char* mountOptions);

    /// Marks the entry of this directory in which the path lies, by its name and by where its links lead.
    /// Does nothing for a path that lies elsewhere, for the directory itself, and for none. Only before hide().
    void keep(const std::filesystem::path& path);

    /// Replaces the directory.
    void hide();

private:
    struct Entry
    {
        std::string name;
        Descriptor place;
        std::filesystem::path linkTarget; // empty: a directory or a file
        bool isDirectory;
    };

    void keepEntryOf(const std::filesystem::path& absolutePath);
    void show(const Entry& entry) const;

    std::filesystem::path directory_;
    const char* mountOptions_;
    std::vector<Entry> kept_;
};

} // namespace sandbox

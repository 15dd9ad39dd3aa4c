#include "HiddenDirectory.h"

#include <algorithm>
#include <system_error>
#include <utility>

#include <fcntl.h>

namespace fs = std::filesystem;

namespace sandbox
{

HiddenDirectory::HiddenDirectory(fs::path directory, const char* mountOptions)
    : directory_(std::move(directory)), mountOptions_(mountOptions)
{}

void HiddenDirectory::keep(const fs::path& path)
{
    if (path.empty()) return;
    std::error_code notThere;
    keepEntryOf(fs::absolute(path).lexically_normal());
    keepEntryOf(fs::canonical(path, notThere));
}

void HiddenDirectory::keepEntryOf(const fs::path& absolutePath)
{
    const fs::path below = absolutePath.lexically_relative(directory_);
    const std::string name = below.empty() ? "" : below.begin()->string();
    if (name.empty() || name == "." || name == "..") return;
    if (std::any_of(kept_.begin(), kept_.end(), [&](const Entry& entry) { return entry.name == name; })) return;

    const fs::path place = directory_ / name;
    std::error_code unreachable;
    const fs::file_status status = fs::symlink_status(place, unreachable);
    Descriptor held = openPlace(place, O_NOFOLLOW);
    if (!held.isOpen()) return; // Not there, or not a name that could be.
    kept_.push_back({name, std::move(held), fs::is_symlink(status) ? fs::read_symlink(place) : fs::path(),
                     fs::is_directory(status)});
}

void HiddenDirectory::hide()
{
    mountEmpty(directory_, mountOptions_);
    for (const Entry& entry : kept_)
        show(entry);
}

void HiddenDirectory::show(const Entry& entry) const
{
    const fs::path place = directory_ / entry.name;
    if (!entry.linkTarget.empty()) {
        fs::create_symlink(entry.linkTarget, place);
        return;
    }
    if (entry.isDirectory) {
        fs::create_directory(place);
    } else {
        makeFile(place);
    }
    bind(entry.place.path(), place);
}

} // namespace sandbox

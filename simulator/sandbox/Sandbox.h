#pragma once

#include <string>
#include <vector>

/// A private place in which the real library runs with its fixed paths, without touching the machine.
///
/// Inside there is an own /dev (null, zero, full, random, urandom, tty, pseudo terminals of its own, /dev/shm), an own
/// /var/log and an own /tmp, empty at first and gone with the last process inside. All else is the machine as it is.
/// Of /tmp, /var/log and /dev/shm those entries stay visible in which the working directory, the running program or a
/// path to keep lies: a checkout or a build below /tmp works. (Standing in /tmp itself, one stands in the empty one.)
namespace sandbox
{

struct Request
{
    std::vector<std::string> keep; ///< Paths that must stay visible inside.
    std::string gps;               ///< A device of the machine that is to be /dev/tty_gps inside; empty: none.
    std::string preload;           ///< A library that is to be found at kPreload inside; empty: as outside.
};

/// The place of the library that commands are to load first: one that LD_PRELOAD can hold, whatever the build's path.
inline constexpr const char* kPreload = "/dev/.ubxpreload.so";

struct Outcome
{
    bool entered;
    std::string why; ///< One line for the user where the system refused.
};

/// Moves the calling process into a sandbox of its own; what it starts later is inside too. There is no way back.
///
/// The process must still have a single thread. Root makes a mount namespace; others a user namespace around it, in
/// which they keep their user and group number. After a refusal the process may be half inside: it should say why and
/// end.
/// @throws std::invalid_argument, before anything is changed, for a device or a library that is not there.
Outcome enter(const Request& request = {});

/// Whether this process runs in a sandbox, its own or that of the command that started it.
bool inside();

/// Makes /dev/tty_gps a link to a device of the sandbox; replaces the link that is there.
/// @throws std::logic_error outside a sandbox, std::system_error where the link can't be made.
void linkGps(const std::string& device);

/// Takes the link away, so that there is no receiver; does nothing when there is none.
/// @throws std::logic_error outside a sandbox, std::system_error where the link can't be removed.
void removeGps();

/// Makes a directory of the sandbox (/tmp, /var/log, /dev) refuse every change, whoever asks, until it is permitted
/// again. Only in the process that entered and its forks, not in commands that they run.
/// @throws std::logic_error outside a sandbox, std::system_error where the system refuses.
void forbidChanges(const std::string& directory);
void permitChanges(const std::string& directory);

} // namespace sandbox

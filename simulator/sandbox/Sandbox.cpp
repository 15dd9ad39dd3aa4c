#include "Sandbox.h"

#include <array>
#include <cerrno>
#include <filesystem>
#include <stdexcept>
#include <system_error>

#include <fcntl.h>
#include <sched.h>
#include <sys/mount.h>

#include "HiddenDirectory.h"
#include "SystemCall.h"

namespace fs = std::filesystem;

namespace sandbox
{

namespace
{

constexpr const char* kMarker = "/dev/.ubxsandbox";
constexpr const char* kGps = "/dev/tty_gps";
constexpr const char* kOutsideGps = "/dev/outside_gps";

void writeWhole(const char* path, const std::string& text)
{
    const Descriptor file(::open(path, O_WRONLY | O_CLOEXEC));
    attempt(file.get(), "open", path);
    attempt(static_cast<int>(::write(file.get(), text.data(), text.size())), "write", path);
}

void makeNamespaces()
{
    const std::string user = std::to_string(::geteuid());
    const std::string group = std::to_string(::getegid());

    // Root of a container may lack the right to a mount namespace alone; it then goes the way of the others.
    if (::geteuid() == 0 && ::unshare(CLONE_NEWNS) == 0) return;

    attempt(::unshare(CLONE_NEWUSER | CLONE_NEWNS), "unshare");
    writeWhole("/proc/self/setgroups", "deny");
    writeWhole("/proc/self/uid_map", user + " " + user + " 1");
    writeWhole("/proc/self/gid_map", group + " " + group + " 1");
}

void showDevice(const Descriptor& hostDevices, const char* name)
{
    const Descriptor device = openPlace(hostDevices.path() + "/" + name);
    if (!device.isOpen()) return; // A machine without, say, a controlling terminal's node is no reason to give up.
    const std::string place = std::string("/dev/") + name;
    makeFile(place);
    bind(device.path(), place);
}

/// Gives the process its own /dev. The /dev/shm made here is still to be hidden.
void replaceDevices(const Descriptor& gps, const fs::path& preload)
{
    constexpr std::array kNodes{"null", "zero", "full", "random", "urandom", "tty"};
    struct Link
    {
        const char* name;
        const char* target;
    };
    constexpr std::array kLinks{Link{"/dev/ptmx", "pts/ptmx"}, Link{"/dev/fd", "/proc/self/fd"},
                                Link{"/dev/stdin", "/proc/self/fd/0"}, Link{"/dev/stdout", "/proc/self/fd/1"},
                                Link{"/dev/stderr", "/proc/self/fd/2"}};

    const Descriptor hostDevices = openPlace("/dev", O_DIRECTORY);
    attempt(hostDevices.get(), "open", "/dev");
    mountEmpty("/dev", "mode=755");
    for (const char* node : kNodes)
        showDevice(hostDevices, node);
    for (const Link& link : kLinks)
        fs::create_symlink(link.target, link.name);

    fs::create_directory("/dev/pts");
    attempt(::mount("devpts", "/dev/pts", "devpts", MS_NOSUID | MS_NOEXEC, "newinstance,ptmxmode=0666,mode=0620"),
            "mount devpts on", "/dev/pts");
    fs::create_directory("/dev/shm");

    if (gps.isOpen()) {
        makeFile(kOutsideGps);
        bind(gps.path(), kOutsideGps);
        fs::create_symlink(kOutsideGps, kGps);
    }
    if (!preload.empty()) fs::create_symlink(preload, kPreload);
    makeFile(kMarker);
}

/// What is to be loaded first inside; a sandbox in a sandbox has it from the outer one.
fs::path preloadOf(const Request& request)
{
    std::error_code none;
    return request.preload.empty() ? fs::read_symlink(kPreload, none) : fs::canonical(request.preload);
}

void moveIn(const Request& request)
{
    const fs::path workingDirectory = fs::current_path();
    const fs::path preload = preloadOf(request);
    makeNamespaces();
    attempt(::mount("none", "/", "none", MS_REC | MS_PRIVATE, nullptr), "make mounts private");

    // All that must stay visible is taken hold of before anything is covered.
    std::array hidden{HiddenDirectory(fs::canonical("/tmp"), "mode=1777"),
                      HiddenDirectory(fs::canonical("/var/log"), "mode=755"), HiddenDirectory("/dev/shm", "mode=1777")};
    for (HiddenDirectory& directory : hidden) {
        directory.keep(workingDirectory);
        directory.keep(fs::read_symlink("/proc/self/exe"));
        directory.keep(preload);
        for (const std::string& path : request.keep)
            directory.keep(path);
    }
    const Descriptor gps = request.gps.empty() ? Descriptor(-1) : openPlace(request.gps);
    if (!request.gps.empty()) attempt(gps.get(), "open", request.gps);

    replaceDevices(gps, preload);
    for (HiddenDirectory& directory : hidden)
        directory.hide();

    std::error_code noLongerThere;
    fs::current_path(workingDirectory, noLongerThere);
    if (noLongerThere) fs::current_path("/");
}

void check(const Request& request)
{
    for (const std::string& path : {request.gps, request.preload}) {
        std::error_code unreachable;
        if (!path.empty() && !fs::exists(path, unreachable)) throw std::invalid_argument("there is no " + path);
    }
}

void insistOnSandbox()
{
    if (!inside()) throw std::logic_error("not in a sandbox: the machine's own files are left alone");
}

void remount(const std::string& directory, unsigned long flags)
{
    insistOnSandbox();
    attempt(::mount(nullptr, directory.c_str(), "none", MS_REMOUNT | MS_BIND | MS_NOSUID | flags, nullptr), "remount",
            directory);
}

} // namespace

Outcome enter(const Request& request)
{
    check(request);
    try {
        moveIn(request);
        return {true, ""};
    } catch (const std::system_error& refusal) {
        return {false, std::string("no private /dev, /var/log and /tmp on this system (") + refusal.what() + ")"};
    }
}

bool inside()
{
    return ::access(kMarker, F_OK) == 0;
}

void linkGps(const std::string& device)
{
    insistOnSandbox();
    const std::string fresh = std::string(kGps) + ".new";
    ::unlink(fresh.c_str());
    attempt(::symlink(device.c_str(), fresh.c_str()), "link", fresh);
    attempt(::rename(fresh.c_str(), kGps), "link", kGps);
}

void removeGps()
{
    insistOnSandbox();
    if (::unlink(kGps) != 0 && errno != ENOENT) attempt(-1, "remove", kGps);
}

void forbidChanges(const std::string& directory)
{
    remount(directory, MS_RDONLY);
}

void permitChanges(const std::string& directory)
{
    remount(directory, 0);
}

} // namespace sandbox

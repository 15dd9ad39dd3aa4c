// These tests run in the sandbox of their program. What they call "outside" is that one; "inside" is a second sandbox
// that a process of theirs enters.

#include "sandbox/Sandbox.h"

#include <array>
#include <filesystem>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include <fcntl.h>
#include <grp.h>
#include <gtest/gtest.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <unistd.h>

#include "ChildProcess.h"
#include "Emulation.h"
#include "Files.h"

namespace fs = std::filesystem;

using testsupport::ChildProcess;
using testsupport::Ended;
using testsupport::runToEnd;
using testsupport::slurp;
using testsupport::write;

namespace
{

constexpr uid_t kNobody = 65534;

/// Runs the function in a sandbox of its own.
Ended inSandbox(const std::function<int()>& run, const sandbox::Request& request = {})
{
    return runToEnd([&] {
        const sandbox::Outcome outcome = sandbox::enter(request);
        if (outcome.entered) return run();
        std::cerr << outcome.why << std::endl;
        return 1;
    });
}

std::string listing(const fs::path& directory)
{
    std::string names;
    for (const fs::directory_entry& entry : fs::directory_iterator(directory)) {
        names += entry.path().filename().string() + " ";
    }
    return names;
}

bool opens(const char* path)
{
    const int fd = ::open(path, O_RDWR | O_NOCTTY | O_CLOEXEC);
    if (fd >= 0) ::close(fd);
    return fd >= 0;
}

TEST(Sandbox, IsWhereTestsRun)
{
    EXPECT_TRUE(sandbox::inside());
}

TEST(Sandbox, LeavesNothingOutside)
{
    sandbox::removeGps();
    for (const char* path : {"/tmp/ubloxChip-info.txt", "/var/log/rxtool-errors.log", "/dev/shm/something"}) {
        fs::remove(path);
    }

    const Ended ended = inSandbox([] {
        write("/tmp/ubloxChip-info.txt", "inside");
        write("/var/log/rxtool-errors.log", "inside");
        write("/dev/shm/something", "inside");
        write("/dev/usb-ublox-f9t", "inside");
        sandbox::linkGps("/dev/null");
        return 0;
    });

    ASSERT_EQ(ended.status, 0) << ended.errors;
    EXPECT_FALSE(fs::exists("/tmp/ubloxChip-info.txt"));
    EXPECT_FALSE(fs::exists("/var/log/rxtool-errors.log"));
    EXPECT_FALSE(fs::exists("/dev/shm/something"));
    EXPECT_FALSE(fs::exists("/dev/usb-ublox-f9t"));
    EXPECT_FALSE(fs::exists("/dev/tty_gps"));
}

TEST(Sandbox, DoesNotShowTheFilesOutside)
{
    write("/tmp/ubloxChip-info.txt", "outside");
    write("/var/log/rxtool-errors.log", "outside");
    write("/dev/shm/something", "outside");
    sandbox::linkGps("/dev/null");

    const Ended ended = inSandbox([] {
        for (const char* path :
             {"/tmp/ubloxChip-info.txt", "/var/log/rxtool-errors.log", "/dev/shm/something", "/dev/tty_gps"}) {
            if (fs::exists(path)) std::cout << path;
        }
        return 0;
    });

    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "");
}

TEST(Sandbox, LeavesNothingOutsideWhereMountsAreShared)
{
    const Ended ended = runToEnd([] {
        // As on a machine as it is installed: what is mounted in one namespace appears in the others.
        if (::unshare(CLONE_NEWNS) != 0 || ::mount("none", "/", nullptr, MS_REC | MS_SHARED, nullptr) != 0) return 1;
        write("/tmp/something", "outside");
        const Ended inside = inSandbox([] { return fs::exists("/tmp/something") ? 1 : 0; });
        std::cout << inside.status << " " << slurp("/tmp/something");
        return 0;
    });

    EXPECT_EQ(ended.status, 0);
    EXPECT_EQ(ended.output, "0 outside");
}

TEST(Sandbox, InASandboxHasThePreloadedLibraryOfTheOuterOne)
{
    fs::create_directories("/tmp/some-build/lib");
    write("/tmp/some-build/lib/libpart.so", "library");

    const Ended ended = inSandbox(
        [] {
            std::cout << inSandbox([] {
                             std::cout << slurp(sandbox::kPreload);
                             return 0;
                         }).output;
            return 0;
        },
        {{}, "", "/tmp/some-build/lib/libpart.so"});

    EXPECT_EQ(ended.output, "library") << ended.errors;
}

TEST(Sandbox, HasTheDevicesThatProgramsNeed)
{
    const Ended ended = inSandbox([] {
        for (const char* device : {"/dev/null", "/dev/zero", "/dev/full", "/dev/ptmx"}) {
            if (!opens(device)) std::cout << "not to be opened: " << device;
        }
        std::array<char, 8> random{};
        const int fd = ::open("/dev/urandom", O_RDONLY);
        if (::read(fd, random.data(), random.size()) != 8) std::cout << "no random bytes";
        if (!fs::is_character_file("/dev/random")) std::cout << "no random";
        return 0;
    });

    EXPECT_EQ(ended.output, "");
    EXPECT_EQ(ended.errors, "");
}

TEST(Sandbox, HasPseudoTerminalsOfItsOwn)
{
    const int outside = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
    ASSERT_GE(outside, 0);

    const Ended ended = inSandbox([] {
        std::cout << "before: " << listing("/dev/pts") << "\n";
        const int master = ::posix_openpt(O_RDWR | O_NOCTTY);
        ::grantpt(master);
        ::unlockpt(master);
        std::array<char, 64> name{};
        ::ptsname_r(master, name.data(), name.size());
        std::cout << name.data() << (opens(name.data()) ? " opens" : " does not open");
        return 0;
    });
    ::close(outside);

    EXPECT_EQ(ended.output, "before: ptmx \n/dev/pts/0 opens");
}

TEST(Sandbox, IsNotSharedByTwoThatRunAtOnce)
{
    std::array<int, 2> gate{};
    ASSERT_EQ(::pipe(gate.data()), 0);
    std::vector<std::unique_ptr<ChildProcess>> all;
    for (int number = 0; number < 8; ++number) {
        all.push_back(std::make_unique<ChildProcess>([number, gate] {
            ::close(gate[1]);
            if (!sandbox::enter().entered) return 1;
            write("/tmp/ubloxChip-info.txt", std::to_string(number));
            sandbox::linkGps("/dev/pts/" + std::to_string(number));
            std::cout << "written" << std::endl;
            char nothing = 0;
            if (::read(gate[0], &nothing, 1) != 0) return 1; // until all have written
            std::cout << slurp("/tmp/ubloxChip-info.txt") << " " << fs::read_symlink("/dev/tty_gps").string();
            return 0;
        }));
    }

    for (const auto& process : all)
        ASSERT_EQ(process->readLine(), "written");
    ::close(gate[1]);

    for (std::size_t number = 0; number < all.size(); ++number) {
        EXPECT_EQ(all[number]->wait().output, std::to_string(number) + " /dev/pts/" + std::to_string(number));
    }
}

TEST(Sandbox, KeepsTheWorkingDirectoryBelowTmp)
{
    fs::create_directories("/tmp/checkout/build");
    write("/tmp/checkout/README", "hello");
    fs::current_path("/tmp/checkout/build");

    const Ended ended = inSandbox([] {
        std::cout << fs::current_path().string() << " " << slurp("../README") << " " << slurp("/tmp/checkout/README");
        write("made-inside", "kept");
        return 0;
    });

    EXPECT_EQ(ended.output, "/tmp/checkout/build hello hello");
    EXPECT_EQ(slurp("/tmp/checkout/build/made-inside"), "kept") << "a kept directory is the real one";
}

TEST(Sandbox, OfSomebodyInTmpItselfIsTheEmptyOne)
{
    write("/tmp/something", "outside");
    fs::current_path("/tmp");

    const Ended ended = inSandbox([] {
        std::cout << fs::current_path().string() << " " << slurp("something");
        return 0;
    });

    EXPECT_EQ(ended.output, "/tmp ");
}

TEST(Sandbox, KeepsWhatItIsAskedToKeep)
{
    fs::create_directories("/tmp/recordings/today");
    write("/tmp/recordings/today/one.log", "one");
    write("/tmp/single.log", "single");
    write("/tmp/real.log", "linked");
    fs::create_symlink("/tmp/real.log", "/tmp/link.log");
    fs::create_directory("/var/log/project");
    write("/var/log/project/file", "in the log directory");
    fs::create_directory("/dev/shm/build");

    const Ended ended = inSandbox(
        [] {
            std::cout << slurp("/tmp/recordings/today/one.log") << ", " << slurp("/tmp/single.log") << ", "
                      << slurp("/tmp/link.log") << ", " << slurp("/var/log/project/file") << ", "
                      << fs::is_directory("/dev/shm/build");
            return 0;
        },
        {{"/tmp/recordings/today/one.log", "/tmp/single.log", "/tmp/link.log", "/var/log/project", "/dev/shm/build",
          "/tmp/not-there", "/usr/bin", "/tmp"},
         "",
         ""});

    EXPECT_EQ(ended.output, "one, single, linked, in the log directory, 1") << ended.errors;
}

TEST(Sandbox, ShowsADeviceOfOutsideAsTheReceiver)
{
    const Ended ended = inSandbox(
        [] {
            const int fd = ::open("/dev/tty_gps", O_RDWR | O_NOCTTY);
            std::array<char, 3> bytes{'x', 'y', 'z'};
            std::cout << ::read(fd, bytes.data(), bytes.size()) << int{bytes[2]};
            return 0;
        },
        {{}, "/dev/zero", ""});

    EXPECT_EQ(ended.output, "30") << ended.errors;
}

TEST(Sandbox, RefusesADeviceThatIsNotThereBeforeItChangesAnything)
{
    const Ended ended = runToEnd([] {
        write("/tmp/something", "outside");
        try {
            sandbox::enter({{}, "/dev/ttyUSB7", ""});
        } catch (const std::invalid_argument& error) {
            std::cout << error.what() << ", " << slurp("/tmp/something");
        }
        return 0;
    });

    EXPECT_EQ(ended.output, "there is no /dev/ttyUSB7, outside");
}

TEST(Sandbox, IsOpenToOthersThanRoot)
{
    if (testsupport::emulated()) GTEST_SKIP() << "an emulator's threads stand in the way of a user namespace";
    const Ended ended = runToEnd([] {
        if (::geteuid() == 0) {
            if (::setgroups(0, nullptr) != 0 || ::setresgid(kNobody, kNobody, kNobody) != 0 ||
                ::setresuid(kNobody, kNobody, kNobody) != 0) {
                return 1;
            }
            ::prctl(PR_SET_DUMPABLE, 1); // As a program has that was started by that user.
        }
        const uid_t before = ::geteuid();
        const sandbox::Outcome outcome = sandbox::enter();
        if (!outcome.entered) std::cout << outcome.why;
        write("/tmp/a", "a");
        write("/var/log/b", "b");
        sandbox::linkGps("/dev/pts/4");
        std::cout << slurp("/tmp/a") << slurp("/var/log/b") << fs::read_symlink("/dev/tty_gps").string()
                  << (opens("/dev/ptmx") ? " ptmx" : "") << (::geteuid() == before ? " same user" : " other user");
        return 0;
    });

    EXPECT_EQ(ended.output, "ab/dev/pts/4 ptmx same user") << ended.errors;
}

TEST(GpsLink, IsReplacedAndRemoved)
{
    sandbox::linkGps("/dev/pts/1");
    EXPECT_EQ(fs::read_symlink("/dev/tty_gps"), "/dev/pts/1");

    sandbox::linkGps("/dev/pts/2");
    EXPECT_EQ(fs::read_symlink("/dev/tty_gps"), "/dev/pts/2");

    sandbox::removeGps();
    EXPECT_FALSE(fs::is_symlink("/dev/tty_gps"));

    EXPECT_NO_THROW(sandbox::removeGps());
}

TEST(GpsLink, IsNotTouchedOutsideASandbox)
{
    sandbox::linkGps("/dev/pts/1");
    fs::remove("/dev/.ubxsandbox"); // What a /dev that is not a sandbox's lacks.

    EXPECT_FALSE(sandbox::inside());
    EXPECT_THROW(sandbox::linkGps("/dev/pts/2"), std::logic_error);
    EXPECT_THROW(sandbox::removeGps(), std::logic_error);
    EXPECT_THROW(sandbox::forbidChanges("/tmp"), std::logic_error);
    EXPECT_EQ(fs::read_symlink("/dev/tty_gps"), "/dev/pts/1");
}

TEST(Sandbox, ForbidsAndPermitsChangesOfADirectory)
{
    const Ended ended = inSandbox([] {
        sandbox::forbidChanges("/var/log");
        try {
            write("/var/log/first", "");
        } catch (const std::runtime_error& error) {
            std::cout << error.what();
        }
        write("/tmp/first", "");
        sandbox::permitChanges("/var/log");
        write("/var/log/second", "");
        return 0;
    });

    EXPECT_EQ(ended.status, 0) << ended.errors;
    EXPECT_EQ(ended.output, "can't write /var/log/first");
}

} // namespace

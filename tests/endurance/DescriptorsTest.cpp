// A process that has used up its descriptors: what can't be opened counts as not there, for as long as that lasts.

#include <algorithm>
#include <filesystem>

#include <dirent.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <ubloxChipInfo.h>

#include "EnduranceTest.h"

namespace
{

namespace fs = std::filesystem;
using namespace testsupport;

/// The process may open so many descriptors more, and no other, while this is in scope.
class DescriptorLimit
{
public:
    explicit DescriptorLimit(unsigned more)
    {
        ::getrlimit(RLIMIT_NOFILE, &before_);
        // The limit is one on numbers: those below that are free are used up first.
        const int lowest = fill();
        const rlimit limited{static_cast<rlim_t>(lowest) + more, before_.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &limited);
    }
    ~DescriptorLimit()
    {
        ::setrlimit(RLIMIT_NOFILE, &before_);
        for (const int fd : fillers_)
            ::close(fd);
    }
    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

private:
    /// @return the number above all that are used.
    int fill()
    {
        const int above = highest() + 1;
        for (int fd = ::dup(STDIN_FILENO);; fd = ::dup(STDIN_FILENO)) {
            if (fd < 0 || fd >= above) {
                if (fd >= 0) ::close(fd);
                return above;
            }
            fillers_.push_back(fd);
        }
    }

    static int highest()
    {
        int number = 0;
        for (const auto& entry : fs::directory_iterator("/proc/self/fd"))
            number = std::max(number, std::stoi(entry.path().filename()));
        return number;
    }

    rlimit before_{};
    std::vector<int> fillers_;
};

class Descriptors : public EnduranceTest
{
protected:
    Descriptors() { receiver(); }

    const CapturedOutput errors_{STDERR_FILENO};
};

TEST_F(Descriptors, UsedUpMakeThePortOneThatCanNotBeOpened)
{
    start();
    {
        const DescriptorLimit none(0);
        EXPECT_EQ(ask(), 8);
        EXPECT_EQ(controller->save(), 0);
    }

    EXPECT_EQ(errors_.text(), "Could not open tty_gps, cannot communicate with the ublox device.\n"
                              "Cannot send message to the ublox, the device is not open!\n"
                              "Could not open tty_gps, cannot communicate with the ublox device.\n"
                              "Cannot send message to the ublox, the device is not open!\n");
    EXPECT_EQ(log(kModelLog), (Lines{kNotSent, "Could not send : 06 09: Clear, Save and Load configurations"}));
    expectAllIsWell();
}

TEST_F(Descriptors, OfWhichOneIsLeftAreEnoughForAnOperation)
{
    start();
    const std::size_t before = openDescriptors();
    {
        const DescriptorLimit one(1);
        expectAllIsWell();
    }

    EXPECT_EQ(openDescriptors(), before);
}

TEST_F(Descriptors, UsedUpMeanThatThereIsNoUsbNode)
{
    write("/dev/usb-ublox-m8t", "");
    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 0);

    const DescriptorLimit none(0);

    EXPECT_EQ(ubloxChipInfo::getUbloxInterfaceInfo(), 1);
}

TEST_F(Descriptors, UsedUpDoNotKeepTheFacadeFromComingUp)
{
    const std::size_t before = openDescriptors();
    {
        const DescriptorLimit none(0);
        start();
        EXPECT_EQ(ask(), 8);
    }
    EXPECT_FALSE(fs::exists(kFacadeLog));
    EXPECT_FALSE(fs::exists(kModelLog));
    EXPECT_FALSE(fs::exists(kChipInfoFile));

    controller->checkUbloxCheckId(); // once there are descriptors again
    EXPECT_TRUE(controller->isNeoM8t());
    EXPECT_EQ(slurp(kChipInfoFile), kChipInfo);
    expectAllIsWell();
    controller.reset();
    EXPECT_EQ(openDescriptors(), before);
}

/// With so many left at start-up the opens that fail are those from there on, in their order: the facade's log, then
/// the port (closed again after each use), then the model's log, then the chip-info file.
class FewDescriptors : public Descriptors, public testing::WithParamInterface<unsigned>
{};

TEST_P(FewDescriptors, AreGivenBackWhateverCouldNotBeOpened)
{
    const unsigned left = GetParam();
    const std::size_t before = openDescriptors();
    {
        const DescriptorLimit few(left);
        start();
        EXPECT_EQ(controller->isNeoM8t(), left >= 2) << "the facade's log takes one, the port another";
    }
    EXPECT_TRUE(fs::exists(kFacadeLog));
    EXPECT_EQ(fs::exists(kModelLog), left >= 2);
    EXPECT_EQ(fs::exists(kChipInfoFile), left >= 3);

    expectAllIsWell();
    controller.reset();
    EXPECT_EQ(openDescriptors(), before);
}

INSTANTIATE_TEST_SUITE_P(Left, FewDescriptors, testing::Values(1U, 2U, 3U));

} // namespace

#include "Bytes.h"
#include "simulator/wire/Frame.h"

#include <gtest/gtest.h>

using testsupport::bytes;
using ubxsim::Bytes;
using ubxsim::FrameScanner;

namespace
{

const Bytes kMonVerPoll = bytes("B5 62 0A 04 00 00 0E 34");
const Bytes kAckOfCfgPrt = bytes("B5 62 05 01 02 00 06 00 0E 37");

void feed(FrameScanner& scanner, const Bytes& data)
{
    scanner.feed(data.data(), data.size());
}

} // namespace

TEST(SimulatorFrame, HasSyncClassLengthAndChecksum)
{
    EXPECT_EQ(ubxsim::frame(0x0A04, {}), kMonVerPoll);
    EXPECT_EQ(ubxsim::frame(0x0501, {0x06, 0x00}), kAckOfCfgPrt);
}

TEST(SimulatorFrameScanner, FindsAFrameWhateverThePieces)
{
    for (std::size_t split = 0; split <= kAckOfCfgPrt.size(); ++split) {
        FrameScanner scanner;
        const auto middle = kAckOfCfgPrt.begin() + static_cast<long>(split);
        feed(scanner, Bytes(kAckOfCfgPrt.begin(), middle));
        const auto early = scanner.next();
        feed(scanner, Bytes(middle, kAckOfCfgPrt.end()));

        const auto found = early ? early : scanner.next();

        ASSERT_TRUE(found.has_value()) << split;
        EXPECT_EQ(found->classId, 0x0501);
        EXPECT_EQ(found->payload, bytes("06 00"));
        EXPECT_EQ(scanner.strayBytes(), 0U);
    }
}

TEST(SimulatorFrameScanner, SkipsNoiseFalseSyncAndBadChecksums)
{
    FrameScanner scanner;
    feed(scanner, bytes("00 B5 B5 00 B5 62 0A 04 00 00 0E 35")); // the last byte should be 34
    feed(scanner, kMonVerPoll);

    const auto found = scanner.next();

    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->classId, 0x0A04);
    EXPECT_EQ(scanner.strayBytes(), 12U);
    EXPECT_FALSE(scanner.next().has_value());
}

TEST(SimulatorFrameScanner, DoesNotWaitForAFrameOfImpossibleLength)
{
    FrameScanner scanner;
    feed(scanner, bytes("B5 62 06 24 FF FF"));
    feed(scanner, kMonVerPoll);

    const auto found = scanner.next();

    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->classId, 0x0A04);
}

TEST(SimulatorFrameScanner, LooksAgainAtWhatFollowsAGivenUpFrame)
{
    FrameScanner scanner;
    feed(scanner, bytes("B5 62 06 24 24 00 FF FF"));
    feed(scanner, kMonVerPoll);
    ASSERT_FALSE(scanner.next().has_value());
    ASSERT_TRUE(scanner.holdsPartialFrame());

    scanner.giveUpPartialFrame();

    const auto found = scanner.next();
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(found->classId, 0x0A04);
    EXPECT_FALSE(scanner.next().has_value());
    EXPECT_FALSE(scanner.holdsPartialFrame());
}

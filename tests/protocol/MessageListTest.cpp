#include <UBXMessageList.h>

#include <ctime>
#include <memory>
#include <string>
#include <type_traits>
#include <vector>

#include <gtest/gtest.h>

#include "HeapBlocks.h"
#include "Parsing.h"

namespace
{

using protocoltest::takeAll;
using testsupport::heapBlocks;

/// A message that is told from others of its class/id by one payload byte.
UBXMessage* numbered(unsigned short classId, unsigned char number)
{
    return new UBXMessage(classId, 1, &number);
}

/// The number of a message that is the caller's, which ends here; -1 for null.
int numberOf(UBXMessage* message)
{
    const std::unique_ptr<UBXMessage> taken(message);
    return taken == nullptr ? -1 : taken->getByte(0);
}

TEST(MessageList, IsEmptyAtFirst)
{
    UBXMessageList list;

    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(list.getMessage(), nullptr);
    EXPECT_EQ(list.findFirstOfMessage(UBX_NAV_PVT), nullptr);
}

TEST(MessageList, GivesTheOldestMessageFirst)
{
    UBXMessageList list;
    list.AddMessage(numbered(UBX_NAV_PVT, 1));
    list.AddMessage(numbered(UBX_MON_VER, 2));
    list.AddMessage(numbered(UBX_NAV_PVT, 3));

    EXPECT_EQ(numberOf(list.getMessage()), 1);
    EXPECT_FALSE(list.isEmpty());
    EXPECT_EQ(numberOf(list.getMessage()), 2);
    EXPECT_EQ(numberOf(list.getMessage()), 3);
    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(list.getMessage(), nullptr);
}

TEST(MessageList, FindsTheNewestMessageOfAClassAndIdFirst)
{
    UBXMessageList list;
    list.AddMessage(numbered(UBX_NAV_PVT, 1));
    list.AddMessage(numbered(UBX_NAV_PVT, 2));
    list.AddMessage(numbered(UBX_MON_VER, 3));

    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_PVT)), 2);
    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_PVT)), 1);
    EXPECT_EQ(list.findFirstOfMessage(UBX_NAV_PVT), nullptr);
    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_MON_VER)), 3);
    EXPECT_TRUE(list.isEmpty());
}

TEST(MessageList, KeepsTheOthersInTheirOrderWhenOneIsFound)
{
    UBXMessageList list;
    list.AddMessage(numbered(UBX_NAV_PVT, 1));
    list.AddMessage(numbered(UBX_NAV_SAT, 2));
    list.AddMessage(numbered(UBX_MON_VER, 3));
    list.AddMessage(numbered(UBX_NAV_SAT, 4));
    list.AddMessage(numbered(UBX_NAV_PVT, 5));

    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_MON_VER)), 3);
    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_SAT)), 4);

    EXPECT_EQ(numberOf(list.getMessage()), 1);
    EXPECT_EQ(numberOf(list.getMessage()), 2);
    EXPECT_EQ(numberOf(list.getMessage()), 5);
    EXPECT_TRUE(list.isEmpty());
}

TEST(MessageList, ComparesBothClassAndId)
{
    UBXMessageList list;
    list.AddMessage(numbered(0x0601, 1));
    list.AddMessage(numbered(0x0106, 2));
    list.AddMessage(numbered(0x0607, 3));

    EXPECT_EQ(list.findFirstOfMessage(UBX_NAV_PVT), nullptr);
    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_CFG_MSG)), 1);
}

TEST(MessageList, TakesInMessagesBetweenTakingThemOut)
{
    UBXMessageList list;
    list.AddMessage(numbered(UBX_NAV_PVT, 1));
    list.AddMessage(numbered(UBX_NAV_PVT, 2));
    EXPECT_EQ(numberOf(list.getMessage()), 1);
    list.AddMessage(numbered(UBX_NAV_PVT, 3));

    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_PVT)), 3);
    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_PVT)), 2);
    EXPECT_EQ(list.findFirstOfMessage(UBX_NAV_PVT), nullptr);
    EXPECT_TRUE(list.isEmpty());

    list.AddMessage(numbered(UBX_NAV_PVT, 4));
    EXPECT_EQ(numberOf(list.getMessage()), 4);
}

TEST(MessageList, KeepsTheOrderOfManyMessagesWhileTheOldestAreTakenOut)
{
    UBXMessageList list;
    const auto add = [&](int first, int last) {
        for (int number = first; number <= last; ++number)
            list.AddMessage(numbered(UBX_NAV_PVT, static_cast<unsigned char>(number)));
    };
    const auto take = [&](int first, int last) {
        for (int number = first; number <= last; ++number)
            ASSERT_EQ(numberOf(list.getMessage()), number);
    };

    add(1, 8);
    take(1, 3);
    add(9, 20); // more than there was room for, with a few of the oldest taken
    take(4, 19);
    add(21, 40); // the same, with most of them taken
    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_PVT)), 40);
    take(20, 39);
    EXPECT_TRUE(list.isEmpty());
}

TEST(MessageList, PassesOverANullPointerThatWasPutIn)
{
    UBXMessageList list;
    list.AddMessage(numbered(UBX_NAV_PVT, 1));
    list.AddMessage(nullptr);

    EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_PVT)), 1);
    EXPECT_EQ(list.findFirstOfMessage(UBX_NAV_PVT), nullptr);
    EXPECT_FALSE(list.isEmpty());
    EXPECT_EQ(list.getMessage(), nullptr);
    EXPECT_TRUE(list.isEmpty());

    list.AddMessage(nullptr);
    list.Empty();
    EXPECT_TRUE(list.isEmpty());
}

TEST(MessageList, HandsOutTheVeryMessageThatWasAdded)
{
    UBXMessageList list;
    UBXMessage* const first = numbered(UBX_NAV_PVT, 1);
    UBXMessage* const second = numbered(UBX_NAV_PVT, 2);
    list.AddMessage(first);
    list.AddMessage(second);

    const std::unique_ptr<UBXMessage> found(list.findFirstOfMessage(UBX_NAV_PVT));
    const std::unique_ptr<UBXMessage> taken(list.getMessage());

    EXPECT_EQ(found.get(), second);
    EXPECT_EQ(taken.get(), first);
}

TEST(MessageList, DeletesItsMessagesWhenEmptied)
{
    UBXMessageList list;
    list.AddMessage(numbered(UBX_NAV_PVT, 1));
    list.Empty(); // The list keeps its room from now on.
    const long before = heapBlocks();
    list.AddMessage(numbered(UBX_NAV_PVT, 1));

    list.Empty();

    EXPECT_TRUE(list.isEmpty());
    EXPECT_EQ(list.getMessage(), nullptr);
    EXPECT_EQ(heapBlocks(), before);
    list.Empty();
    EXPECT_TRUE(list.isEmpty());
}

TEST(MessageList, DeletesWhatIsLeftInIt)
{
    const long before = heapBlocks();
    {
        UBXMessageList list;
        for (unsigned char number = 0; number < 20; ++number)
            list.AddMessage(numbered(UBX_NAV_PVT, number));
        EXPECT_EQ(numberOf(list.getMessage()), 0);
        EXPECT_EQ(numberOf(list.findFirstOfMessage(UBX_NAV_PVT)), 19);
    }
    EXPECT_EQ(heapBlocks(), before);
}

TEST(MessageList, LeavesAMessageThatWasTakenOutToTheCaller)
{
    std::unique_ptr<UBXMessage> taken;
    std::unique_ptr<UBXMessage> found;
    {
        UBXMessageList list;
        list.AddMessage(numbered(UBX_NAV_PVT, 1));
        list.AddMessage(numbered(UBX_NAV_PVT, 2));
        taken.reset(list.getMessage());
        found.reset(list.findFirstOfMessage(UBX_NAV_PVT));
        list.Empty();
    }
    EXPECT_EQ(taken->getByte(0), 1);
    EXPECT_EQ(found->getByte(0), 2);
}

TEST(MessageList, CannotBeCopied)
{
    static_assert(!std::is_copy_constructible_v<UBXMessageList>);
    static_assert(!std::is_copy_assignable_v<UBXMessageList>);
}

/// Seconds of processor time that an action takes; other programs don't count.
template <typename Action>
double processorTime(Action action)
{
    const std::clock_t start = std::clock();
    action();
    return static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

TEST(MessageList, TakesAHundredThousandMessagesQuickly)
{
    constexpr int kMany = 100000;
    UBXMessageList list;

    const double seconds = processorTime([&] {
        for (int i = 0; i < kMany; ++i)
            list.AddMessage(numbered(i < kMany / 2 ? UBX_NAV_PVT : UBX_MON_VER, static_cast<unsigned char>(i % 256)));
        for (int i = kMany - 1; i >= kMany * 3 / 4; --i)
            ASSERT_EQ(numberOf(list.findFirstOfMessage(UBX_MON_VER)), i % 256);
        for (int i = 0; i < kMany / 2; ++i)
            ASSERT_EQ(numberOf(list.getMessage()), i % 256);
    });
    EXPECT_FALSE(list.isEmpty());
    list.Empty();

    EXPECT_LT(seconds, 2.0);
}

} // namespace

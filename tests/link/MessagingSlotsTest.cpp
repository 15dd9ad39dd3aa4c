// Callers that were compiled long ago call through the places in the virtual table, so these may never move.

#include <ubxIO.h>

#include <cstddef>
#include <cstring>
#include <memory>
#include <type_traits>

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "LinkTest.h"

namespace
{

/// What stands in a slot of the object's virtual table.
const void* slot(const UBXMessagingInterface& object, std::size_t number)
{
    const void* const* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&object), sizeof table);
    return table[number];
}

const void* function(const char* linkerName)
{
    const void* address = ::dlsym(RTLD_DEFAULT, linkerName);
    EXPECT_NE(address, nullptr) << linkerName;
    return address;
}

/// Another transport than the serial port, for what goes through the interface.
class Recorded : public UBXMessagingInterface
{
public:
    int SendMessage(UBXMessage* message) override { return static_cast<int>(message->getClassId()); }
    UBXMessage* ReceiveMessage(unsigned short classId, int timeLimit) override
    {
        return new UBXMessage(classId, static_cast<unsigned long>(timeLimit), nullptr);
    }
};

TEST(MessagingInterface, HasItsTwoOperationsInTheirSlots)
{
    const linktest::Line line;
    const ubxIO port;

    EXPECT_EQ(slot(port, 0), function("_ZN5ubxIO11SendMessageEP10UBXMessage"));
    EXPECT_EQ(slot(port, 1), function("_ZN5ubxIO14ReceiveMessageEti"));
}

TEST(MessagingInterface, HasNoVirtualDestructorAndIsNotDeletedThrough)
{
    static_assert(!std::has_virtual_destructor_v<UBXMessagingInterface>);
    static_assert(!std::has_virtual_destructor_v<ubxIO>);
    static_assert(!std::is_destructible_v<UBXMessagingInterface>);
    static_assert(std::is_abstract_v<UBXMessagingInterface>);
    static_assert(sizeof(UBXMessagingInterface) == sizeof(void*));
}

TEST(MessagingInterface, ReachesWhatImplementsIt)
{
    Recorded recorded;
    UBXMessagingInterface& transport = recorded;
    UBXMessage message(0x0102, 0, nullptr);

    EXPECT_EQ(transport.SendMessage(&message), 0x0102);
    const std::unique_ptr<UBXMessage> received(transport.ReceiveMessage(0x0635, 7));
    EXPECT_EQ(static_cast<unsigned>(received->getClassId()), 0x0635U);
    EXPECT_EQ(received->getPayloadLength(), 7U);
}

} // namespace

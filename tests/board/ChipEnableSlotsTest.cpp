// Callers that were compiled long ago call through the places in the virtual table, so these may never move.

#include <UBloxChipEnableInterface.h>

#include <cstring>
#include <memory>
#include <string>
#include <type_traits>

#include <dlfcn.h>
#include <gtest/gtest.h>

namespace
{

/// What stands in a slot of the object's virtual table.
const void* slot(const UBloxChipEnableInterface& object, std::size_t number)
{
    const void* const* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&object), sizeof table);
    return table[number];
}

const void* function(const std::string& linkerName)
{
    const void* address = ::dlsym(RTLD_DEFAULT, linkerName.c_str());
    EXPECT_NE(address, nullptr) << linkerName;
    return address;
}

template <typename Board>
void expectSlots(const std::string& name)
{
    const Board board;
    const std::string prefix = "_ZN" + std::to_string(name.size()) + name;

    EXPECT_EQ(slot(board, 0), function(prefix + "D1Ev")) << "the destructor";
    EXPECT_EQ(slot(board, 1), function(prefix + "D0Ev")) << "the deleting destructor";
    EXPECT_EQ(slot(board, 2), function(prefix + "14resetUBloxChipEv"));
    EXPECT_EQ(slot(board, 3), function(prefix + "18antennaPowerEnableENSt7__cxx1112basic_stringIcSt11char_"
                                                "traitsIcESaIcEEE"));
}

TEST(ChipEnableInterface, HasItsOperationsInTheirSlots)
{
    expectSlots<VrbUBloxChipInterface>("VrbUBloxChipInterface");
    expectSlots<KtbPtbUBloxChipInterface>("KtbPtbUBloxChipInterface");
    expectSlots<QsbUBloxChipInterface>("QsbUBloxChipInterface");
}

TEST(ChipEnableInterface, HoldsNothingButItsVirtualTable)
{
    EXPECT_EQ(sizeof(UBloxChipEnableInterface), sizeof(void*));
    EXPECT_EQ(sizeof(VrbUBloxChipInterface), sizeof(void*));
    EXPECT_EQ(sizeof(KtbPtbUBloxChipInterface), sizeof(void*));
    EXPECT_EQ(sizeof(QsbUBloxChipInterface), sizeof(void*));
}

TEST(ChipEnableInterface, IsDeletedThroughItself)
{
    static_assert(std::has_virtual_destructor_v<UBloxChipEnableInterface>);
    static_assert(std::is_abstract_v<UBloxChipEnableInterface>);

    std::unique_ptr<UBloxChipEnableInterface> board = std::make_unique<QsbUBloxChipInterface>();

    EXPECT_EQ(board->antennaPowerEnable("ON"), 0);
}

} // namespace

// Callers that were compiled long ago call the operations through their places in the virtual table, so none may move.

#include <UBXControlInterface.h>
#include <ubxController.h>
#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <regex>
#include <string>
#include <type_traits>
#include <vector>

#include <cxxabi.h>
#include <dlfcn.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "CapturedOutput.h"

namespace
{

/// The place that a caller compiled with this header takes an operation from.
template <typename Signature>
std::size_t slotOf(Signature UBXControlInterface::*operation)
{
    std::uintptr_t parts[2];
    static_assert(sizeof parts == sizeof operation);
    std::memcpy(parts, &operation, sizeof parts);
#if defined(__aarch64__)
    const std::uintptr_t offset = parts[0]; // what tells it from an ordinary function stands in the second part
#else
    const std::uintptr_t offset = parts[0] - 1; // an odd number: no ordinary function
#endif
    return offset / sizeof(void*);
}

struct Operation
{
    std::size_t slot;
    std::string signature;
};

std::vector<Operation> operations()
{
    using Control = UBXControlInterface;
    using Mask = unsigned short;
    using Byte = unsigned char;

    return {
        {slotOf(&Control::Init), "Init()"},
        {slotOf(&Control::save), "save()"},
        {slotOf(&Control::load), "load()"},
        {slotOf(&Control::resetFactoryDefaults), "resetFactoryDefaults()"},
        {slotOf(&Control::resetUbloxDefaults), "resetUbloxDefaults()"},
        {slotOf(&Control::restart), "restart(bool)"},
        {slotOf(&Control::setDefaultConfiguration), "setDefaultConfiguration()"},
        {slotOf(&Control::setApplicationDefaults), "setApplicationDefaults()"},
        {slotOf(&Control::turnOff), "turnOff()"},
        {slotOf(&Control::turnOn), "turnOn()"},
        {slotOf(&Control::isOn), "isOn(bool&)"},
        {slotOf(&Control::getResetInfo), "getResetInfo()"},
        {slotOf(&Control::getInfo), "getInfo(std::string&)"},
        {slotOf(&Control::setAntennaPower), "setAntennaPower(std::string)"},
        {slotOf(&Control::setAntennaDelay), "setAntennaDelay(int)"},
        {slotOf(&Control::getAntennaDelay), "getAntennaDelay(int&)"},
        {slotOf(&Control::setAntennaType), "setAntennaType(std::string)"},
        {slotOf(&Control::getAntennaType), "getAntennaType(std::string&)"},
        {slotOf<int(Mask, bool)>(&Control::setGnssSystem), "setGnssSystem(unsigned short, bool)"},
        {slotOf<int(Mask)>(&Control::setGnssSystem), "setGnssSystem(unsigned short)"},
        {slotOf(&Control::getGnssSystem), "getGnssSystem(unsigned short&)"},
        {slotOf(&Control::setJammingDetection), "setJammingDetection(bool)"},
        {slotOf(&Control::getJammingDetection), "getJammingDetection(bool&)"},
        {slotOf(&Control::getNavsolution), "getNavsolution(std::string, std::string&)"},
        {slotOf(&Control::setSurveyMode), "setSurveyMode(std::string)"},
        {slotOf(&Control::getSurveyMode), "getSurveyMode(std::string&)"},
        {slotOf(&Control::setSurveyStatic), "setSurveyStatic(double, double, double, double)"},
        {slotOf<int(unsigned int, float)>(&Control::setSurveyAuto), "setSurveyAuto(unsigned int, float)"},
        {slotOf<int()>(&Control::setSurveyAuto), "setSurveyAuto()"},
        {slotOf(&Control::setSurveyDynamic), "setSurveyDynamic()"},
        {slotOf(&Control::getSurveyInfo),
         "getSurveyInfo(unsigned char&, double&, double&, double&, double&, unsigned int&, float&)"},
        {slotOf(&Control::getSatelliteInfo), "getSatelliteInfo(std::string&)"},
        {slotOf(&Control::getNofSatellitesInNavSol), "getNofSatellitesInNavSol(unsigned char&)"},
        {slotOf(&Control::setMinCNo), "setMinCNo(signed char)"},
        {slotOf(&Control::getMinCNo), "getMinCNo(signed char&)"},
        {slotOf(&Control::setElevationLimit), "setElevationLimit(unsigned char)"},
        {slotOf(&Control::getElevationLimit), "getElevationLimit(unsigned char&)"},
        {slotOf<int(Byte)>(&Control::setDynamicModel), "setDynamicModel(unsigned char)"},
        {slotOf<int(Byte, Byte)>(&Control::setDynamicModel), "setDynamicModel(unsigned char, unsigned char)"},
        {slotOf(&Control::getDynamicModel), "getDynamicModel(unsigned char&, unsigned char&)"},
        {slotOf(&Control::setFixMode), "setFixMode(unsigned char)"},
        {slotOf(&Control::setTimeReference), "setTimeReference(std::string)"},
        {slotOf(&Control::getTimeReference), "getTimeReference(std::string&)"},
        {slotOf(&Control::setRxMode), "setRxMode(std::string)"},
        {slotOf(&Control::getRxMode), "getRxMode(std::string&)"},
        {slotOf(&Control::setUtcStandardAuto), "setUtcStandardAuto()"},
        {slotOf(&Control::setUtsStandardTime), "setUtsStandardTime(signed char)"},
        {slotOf(&Control::configureUbxPolling), "configureUbxPolling(unsigned char)"},
        {slotOf(&Control::configureSBAS), "configureSBAS()"},
        {slotOf(&Control::configureNmeaPolling), "configureNmeaPolling(unsigned char)"},
        {slotOf(&Control::configurNmeaPollingPartial), "configurNmeaPollingPartial(unsigned char)"},
        {slotOf(&Control::configureProtocols), "configureProtocols()"},
        {slotOf(&Control::configExtendedPowerManagment), "configExtendedPowerManagment()"},
        {slotOf(&Control::getUtcGrid), "getUtcGrid(unsigned short)"},
        {slotOf(&Control::configTimePulse), "configTimePulse(unsigned short, unsigned char, bool)"},
        {slotOf(&Control::timeStamp), "timeStamp()"},
        {slotOf(&Control::setZedf9tConfigurationInterfaceMode), "setZedf9tConfigurationInterfaceMode(bool)"},
        {slotOf(&Control::programGroupDelayCal), "programGroupDelayCal(int)"},
    };
}

/// The function that answers in a slot of the library's own virtual table, as its symbol tells.
std::string answering(const UBXControlInterface& object, std::size_t slot)
{
    const void* const* table = nullptr;
    std::memcpy(&table, static_cast<const void*>(&object), sizeof table);
    Dl_info function{};
    if (::dladdr(table[slot], &function) == 0 || function.dli_saddr != table[slot]) return "no exported function";

    const std::unique_ptr<char, void (*)(void*)> readable(
        abi::__cxa_demangle(function.dli_sname, nullptr, nullptr, nullptr), std::free);
    std::string name = std::regex_replace(
        std::string(readable.get()),
        std::regex("std::__cxx11::basic_string<char, std::char_traits<char>, std::allocator<char> ?>"), "std::string");
    return std::regex_replace(name, std::regex(R"(\[abi:cxx11\])"), "");
}

void expectOperationsInTheirSlots(const UBXControlInterface& object, const std::string& name)
{
    std::size_t slot = 0;
    for (const Operation& operation : operations()) {
        EXPECT_EQ(answering(object, slot), name + "::" + operation.signature) << "slot " << slot;
        ++slot;
    }
}

TEST(ControlInterface, Has58OperationsInTheirSlots)
{
    const std::vector<Operation> all = operations();

    ASSERT_EQ(all.size(), 58U);
    for (std::size_t slot = 0; slot < all.size(); ++slot) {
        EXPECT_EQ(all[slot].slot, slot) << all[slot].signature;
    }
}

TEST(ControlInterface, IsAnsweredByTheNeoM8tInTheSameSlots)
{
    expectOperationsInTheirSlots(ubxController_NEOM8T(), "ubxController_NEOM8T");
}

TEST(ControlInterface, IsAnsweredByTheZedF9tInTheSameSlots)
{
    expectOperationsInTheirSlots(ubxController_ZEDF9T("TIM 2.20", true), "ubxController_ZEDF9T");
}

TEST(ControlInterface, IsAnsweredByTheFacadeInTheSameSlots)
{
    const testsupport::CapturedOutput withoutAReceiver(STDERR_FILENO);

    expectOperationsInTheirSlots(ubxController(), "ubxController");
}

TEST(ControlInterface, HoldsNothingAndIsNotDeletedThroughItself)
{
    static_assert(sizeof(UBXControlInterface) == sizeof(void*));
    static_assert(std::is_abstract_v<UBXControlInterface>);
    static_assert(!std::has_virtual_destructor_v<UBXControlInterface>);
    static_assert(!std::is_destructible_v<UBXControlInterface>);
}

TEST(ControlInterface, IsTheFirstThingInEveryController)
{
    static_assert(std::is_base_of_v<UBXControlInterface, ubxController>);
    static_assert(std::has_virtual_destructor_v<ubxController>);
    static_assert(std::has_virtual_destructor_v<ubxController_NEOM8T>);
    static_assert(std::has_virtual_destructor_v<ubxController_ZEDF9T>);

    ubxController_NEOM8T controller;

    EXPECT_EQ(static_cast<const void*>(static_cast<UBXControlInterface*>(&controller)),
              static_cast<const void*>(&controller));
}

} // namespace

// checkUbloxCheckId() called by hand, when there is a model already. Every call cuts the beginnings off the versions,
// found anew or not: that is meant.

#include <ubloxChipInfo.h>

#include <gtest/gtest.h>

#include "FacadeTest.h"

using namespace testsupport;

namespace
{

using SecondIdentification = FacadeOnZedF9t;

TEST_F(SecondIdentification, FindsTheSameAgain)
{
    receiver();
    const auto controller = facade();
    std::filesystem::remove(kChipInfoFile);

    controller->checkUbloxCheckId();

    EXPECT_EQ(chipInfoFile(), (Lines{"UBLOX_Chip=ZEDF9T", "UBLOX_HwVer=00190000", "UBLOX_SwVer=TIM 2.20",
                                     "UBLOX_ProtVer=29.20", "UBLOX_ModName=ZED-F9T"}));
}

TEST_F(SecondIdentification, OfASilentReceiverKeepsTheModelAndCutsTheVersions)
{
    receiver();
    const auto controller = facade();
    std::filesystem::remove(kChipInfoFile);

    whenSilent([&] {
        controller->checkUbloxCheckId();
        return 0;
    });

    EXPECT_TRUE(controller->isZedF9t());
    EXPECT_EQ(chipInfoFile(), (Lines{"UBLOX_Chip=ZEDF9T", "UBLOX_HwVer=00190000", "UBLOX_SwVer=20",
                                     "UBLOX_ProtVer=", "UBLOX_ModName=F9T"}));
}

TEST_F(SecondIdentification, ReplacesTheModelByOneThatBeginsAnew)
{
    receiver();
    const auto controller = facade();
    controller->setZedf9tConfigurationInterfaceMode(false);
    controller->checkUbloxCheckId();
    takeFrames();

    signed char minCNo = 0;
    controller->getMinCNo(minCNo);

    expectFrames({"B5 62 06 8B 08 00 00 00 00 00 A3 00 11 20 6D 5F"}); // by key again
}

TEST_F(SecondIdentification, FindsAnotherReceiver)
{
    receiver();
    const auto controller = facade();
    std::filesystem::remove(kChipInfoFile);
    receiver().answerWith(0x0A04, versionRecord("EXT CORE 3.01", "00080000", {"FWVER=TIM 1.10", "MOD=NEO-M8T-0", "x"}));

    controller->checkUbloxCheckId();
    takeFrames();
    signed char minCNo = 0;
    controller->getMinCNo(minCNo);

    EXPECT_TRUE(controller->isNeoM8t());
    expectFrames({"B5 62 06 23 00 00 29 81"});
    EXPECT_EQ(chipInfoFile(), (Lines{"UBLOX_Chip=NEOM8T", "UBLOX_HwVer=00080000", "UBLOX_SwVer=TIM 1.10",
                                     "UBLOX_ProtVer=", "UBLOX_ModName=NEO-M8T-0"}))
        << "the protocol version of before, cut";
}

TEST_F(SecondIdentification, LeavesTheRecordOfTheVersionsAsItWas)
{
    receiver();
    const auto controller = facade();
    receiver().answerWith(0x0A04, versionRecord("EXT CORE 1.00", "00190000", {"FWVER=TIM 2.13", "MOD=OTHER", "x"}));

    controller->checkUbloxCheckId();

    EXPECT_EQ(ubloxChipInfo::getUbloxSwVer(), "TIM 2.20");
    EXPECT_EQ(ubloxChipInfo::getUbloxModeName(), "ZED-F9T");
}

TEST_F(SecondIdentification, LeavesAnExistingChipInfoFileAsItIs)
{
    receiver();
    const auto controller = facade();
    const std::string before = slurp(kChipInfoFile);
    receiver().answerWith(0x0A04, versionRecord("EXT CORE 3.01", "00080000", {"FWVER=TIM 1.10", "MOD=NEO-M8T-0", "x"}));

    controller->checkUbloxCheckId();

    EXPECT_EQ(slurp(kChipInfoFile), before);
}

} // namespace

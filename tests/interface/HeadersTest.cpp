// What a caller can include. That each header compiles on its own is a matter of the build: see CMakeLists.txt.

#include <filesystem>
#include <set>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Files.h"

namespace
{

TEST(ExportedHeaders, AreTheOnesThatCallersKnow)
{
    std::set<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(testsupport::sourceDirectory() / "include")) {
        names.insert(entry.path().filename());
    }

    EXPECT_THAT(names, testing::ElementsAre("UBXControlInterface.h", "UBXMessage.h", "UBXMessageBuilder.h",
                                            "UBXMessageCatalogue.h", "UBXMessageList.h", "UBloxChipEnableInterface.h",
                                            "ZedF9tUbxMessageBuilder.h", "moduleInventory.h", "ubloxChipInfo.h",
                                            "ubxController.h", "ubxController_NEOM8T.h", "ubxController_ZEDF9T.h",
                                            "ubxExport.h", "ubxIO.h"));
}

} // namespace

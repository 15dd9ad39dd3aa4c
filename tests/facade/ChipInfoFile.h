#pragma once

#include <filesystem>
#include <memory>

#include <ubxController.h>

#include "FacadeTest.h"

namespace testsupport
{

/// With a facade on a NEO-M8T, and without the file that it has written.
class ChipInfoFile : public FacadeTest
{
protected:
    ChipInfoFile()
    {
        receiver();
        controller = facade();
        std::filesystem::remove(kChipInfoFile);
    }

    std::unique_ptr<ubxController> controller;
};

} // namespace testsupport

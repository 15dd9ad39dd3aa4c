#pragma once

#include <functional>
#include <ostream>
#include <string>

#include <gtest/gtest.h>

#include "ZedF9tTest.h"

namespace zedtest
{

using Operation = std::function<int(ubxController_ZEDF9T&)>;

struct Kind
{
    const char* name;
    const char* firmware;
    bool byKey;
};

inline void PrintTo(const Kind& kind, std::ostream* out)
{
    *out << kind.name;
}

class WholeRun : public ZedF9tTest, public testing::WithParamInterface<Kind>
{
protected:
    WholeRun() : ZedF9tTest(GetParam().firmware)
    {
        receiver();
        controller.setZedf9tConfigurationInterfaceMode(GetParam().byKey);
    }

    static bool byKey() { return GetParam().byKey; }
    static bool older() { return GetParam().firmware == std::string("TIM 2.13"); }
};

/// Both modes on both generations of firmware.
inline const auto kKinds =
    testing::Values(Kind{"ByKeyTim2_13", "TIM 2.13", kByKey}, Kind{"ByKeyTim2_20", "TIM 2.20", kByKey},
                    Kind{"LegacyTim2_13", "TIM 2.13", kLegacy}, Kind{"LegacyTim2_20", "TIM 2.20", kLegacy});

inline std::string nameOf(const testing::TestParamInfo<Kind>& kind)
{
    return kind.param.name;
}

} // namespace zedtest

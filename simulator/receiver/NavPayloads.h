#pragma once

#include "simulator/receiver/Epoch.h"
#include "simulator/receiver/Model.h"
#include "simulator/wire/Frame.h"

namespace ubxsim
{

/// What a payload is made from.
struct Report
{
    const ModelProfile& profile;
    const SettingsStore& store;
    const Epoch& epoch;
};

// Class 01, NAV
Bytes navPosEcef(const Report& report);
Bytes navPosLlh(const Report& report);
Bytes navStatus(const Report& report);
Bytes navDop(const Report& report);
Bytes navSol(const Report& report);
Bytes navPvt(const Report& report);
Bytes navVelEcef(const Report& report);
Bytes navVelNed(const Report& report);
Bytes navTimeGps(const Report& report);
Bytes navTimeUtc(const Report& report);
Bytes navClock(const Report& report);
Bytes navTimeLs(const Report& report);
Bytes navSat(const Report& report);
Bytes navSig(const Report& report);
Bytes navEoe(const Report& report);

// Class 0A, MON; class 0D, TIM; class 27, SEC
Bytes monVer(const Report& report);
Bytes monHw(const Report& report);
Bytes monGnss(const Report& report);
Bytes monRf(const Report& report);
Bytes timTp(const Report& report);
Bytes timSvin(const Report& report);
Bytes secUniqId(const Report& report);

} // namespace ubxsim

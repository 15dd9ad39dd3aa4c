#include "simulator/receiver/NavMessages.h"

#include "simulator/receiver/NavPayloads.h"

namespace ubxsim
{

namespace
{

struct MessageRow
{
    std::uint16_t classId;
    Generations generations;
    Bytes (*build)(const Report&);
};

constexpr MessageRow kMessages[] = {
    {0x0101, kAll, navPosEcef}, {0x0102, kAll, navPosLlh},  {0x0103, kAll, navStatus},  {0x0104, kAll, navDop},
    {0x0106, kNeoM8t, navSol},  {0x0107, kAll, navPvt},     {0x0111, kAll, navVelEcef}, {0x0112, kAll, navVelNed},
    {0x0120, kAll, navTimeGps}, {0x0121, kAll, navTimeUtc}, {0x0122, kAll, navClock},   {0x0126, kAll, navTimeLs},
    {0x0135, kAll, navSat},     {0x0143, kF9t, navSig},     {0x0161, kAll, navEoe},     {0x0A04, kAll, monVer},
    {0x0A09, kAll, monHw},      {0x0A28, kAll, monGnss},    {0x0A38, kF9t, monRf},      {0x0D01, kAll, timTp},
    {0x0D04, kAll, timSvin},    {0x2703, kAll, secUniqId},
};

} // namespace

std::optional<Bytes> buildMessage(std::uint16_t classId, const ModelProfile& profile, const SettingsStore& store,
                                  const Epoch& epoch)
{
    for (const MessageRow& row : kMessages) {
        if (row.classId == classId && (row.generations & profile.generations) != 0) {
            return row.build({profile, store, epoch});
        }
    }
    return std::nullopt;
}

} // namespace ubxsim

#include "simulator/receiver/Model.h"

#include <algorithm>
#include <stdexcept>

namespace ubxsim
{

namespace
{

struct Firmware
{
    Model model;
    const char* name;
    const char* software;
    const char* romBase;
    const char* protocol;
    const char* module;
    Generations generations;
};

// The software hash of TIM 1.11 is not known, that of TIM 1.10 stands in.
constexpr Firmware kFirmwares[] = {
    {Model::neoM8t, "TIM 1.10", "EXT CORE 3.01 (111141)", "ROM BASE 2.01 (75331)", "22.00", "NEO-M8T-0", kNeoM8t},
    {Model::neoM8t, "TIM 1.11", "EXT CORE 3.01 (111141)", "ROM BASE 2.01 (75331)", "22.01", "NEO-M8T-0", kNeoM8t},
    {Model::zedF9t, "TIM 2.00", "EXT CORE 1.00 (264600)", "ROM BASE 0x118B2060", "29.00", "ZED-F9T", kF9tTim20},
    {Model::zedF9t, "TIM 2.01", "EXT CORE 1.00 (71b20c)", "ROM BASE 0x118B2060", "29.00", "ZED-F9T", kF9tTim20},
    {Model::zedF9t, "TIM 2.02B01", "EXT CORE 1.00 (5481ba)", "ROM BASE 0x118B2060", "29.01", "ZED-F9T", kF9tTim20},
    {Model::zedF9t, "TIM 2.11", "EXT CORE 1.00 (08d8b4)", "ROM BASE 0x118B2060", "29.10", "ZED-F9T", kF9tTim20},
    {Model::zedF9t, "TIM 2.13", "EXT CORE 1.00 (9db928)", "ROM BASE 0x118B2060", "29.11", "ZED-F9T", kF9tTim20},
    {Model::zedF9t, "TIM 2.20", "EXT CORE 1.00 (3fda8e)", "ROM BASE 0x118B2060", "29.20", "ZED-F9T", kF9tTim22},
    {Model::zedF9t, "TIM 2.22", "EXT CORE 1.00 (7dd75c)", "ROM BASE 0x118B2060", "29.22", "ZED-F9T", kF9tTim22},
    {Model::zedF9t, "TIM 2.25", "EXT CORE 1.00 (535349)", "ROM BASE 0x3BFC8935", "29.25", "ZED-F9T-20B", kF9tTim22},
};

const Firmware& findFirmware(Model model, const std::string& wanted)
{
    const std::string prefix = "FWVER=";
    std::string name = wanted.compare(0, prefix.size(), prefix) == 0 ? wanted.substr(prefix.size()) : wanted;
    if (name.empty()) {
        name = model == Model::neoM8t ? "TIM 1.10" : "TIM 2.20";
    }
    std::string known;
    for (const Firmware& firmware : kFirmwares) {
        if (firmware.model == model) {
            if (name == firmware.name) {
                return firmware;
            }
            known += known.empty() ? "" : ", ";
            known += firmware.name;
        }
    }
    throw std::invalid_argument("no firmware \"" + wanted + "\" for a " +
                                (model == Model::neoM8t ? "NEO-M8T" : "ZED-F9T") + "; known are " + known);
}

void describeNeoM8t(ModelProfile& profile)
{
    profile.hwVersion = "00080000";
    profile.extensions.insert(profile.extensions.end(), {"FIS=0xEF4015 (100111)", "GPS;GLO;GAL;BDS", "SBAS;IMES;QZSS"});
    profile.uniqueId = "EC32B4A911";
    profile.tellsGnssReset = true;
    profile.majorGnssAtOnce = 3;
    profile.limitsChannels = true;
    profile.outputOrder = {0x0D01, 0xF004, 0xF005, 0xF000, 0xF002, 0xF003, 0xF001, 0xF007, 0xF008,
                           0xF009, 0x0135, 0x0103, 0x0106, 0x0107, 0x0101, 0x0102, 0x0111, 0x0112,
                           0x0104, 0x0120, 0x0121, 0x0122, 0x0126, 0x0D04, 0x0161, 0x0A09};
}

void describeZedF9t(ModelProfile& profile, const Firmware& firmware)
{
    profile.hwVersion = "00190000";
    if (std::string(firmware.module) == "ZED-F9T-20B") {
        profile.extensions.insert(profile.extensions.end(), {"GPS;GAL;BDS", "SBAS;QZSS", "NAVIC", "BD=1E01C"});
    } else {
        profile.extensions.insert(profile.extensions.end(), {"GPS;GLO;GAL;BDS", "SBAS;QZSS"});
        const std::string name = firmware.name;
        if (name == "TIM 2.13" || (firmware.generations & kF9tTim22) != 0) {
            profile.extensions.emplace_back("NAVIC");
        }
    }
    profile.uniqueId = "384142BADE";
    profile.configurationInterface = true;
    profile.anyCfgCfgBitMeansAll = true;
    profile.nmeaSignalIds = true;
    profile.outputOrder = {0x0D01, 0x0107, 0x0101, 0x0111, 0xF004, 0xF005, 0xF000, 0xF002, 0xF003,
                           0xF001, 0xF007, 0xF008, 0xF009, 0x0102, 0x0103, 0x0112, 0x0135, 0x0143,
                           0x0104, 0x0120, 0x0121, 0x0122, 0x0126, 0x0D04, 0x0161, 0x0A09, 0x0A38};
}

} // namespace

ModelProfile profileOf(Model model, const std::string& firmwareName, bool strictLegacy, bool l5Signals)
{
    const Firmware& firmware = findFirmware(model, firmwareName);
    ModelProfile profile;
    profile.model = model;
    profile.firmware = firmware.name;
    profile.generations = firmware.generations;
    if (l5Signals && (firmware.generations & kF9tTim22) != 0) {
        profile.generations |= kF9tL5;
    }
    profile.strictLegacy = strictLegacy;
    profile.swVersion = firmware.software;
    profile.extensions = {firmware.romBase, std::string("FWVER=") + firmware.name,
                          std::string("PROTVER=") + firmware.protocol, std::string("MOD=") + firmware.module};
    if (model == Model::neoM8t) {
        describeNeoM8t(profile);
    } else {
        describeZedF9t(profile, firmware);
    }
    return profile;
}

} // namespace ubxsim

#include "simulator/wire/MessageNames.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>

namespace ubxsim
{

namespace
{

struct NameRow
{
    std::uint16_t classId;
    const char* name;
};

constexpr NameRow kNames[] = {
    {0x0101, "NAV-POSECEF"}, {0x0102, "NAV-POSLLH"},  {0x0103, "NAV-STATUS"},  {0x0104, "NAV-DOP"},
    {0x0106, "NAV-SOL"},     {0x0107, "NAV-PVT"},     {0x0111, "NAV-VELECEF"}, {0x0112, "NAV-VELNED"},
    {0x0120, "NAV-TIMEGPS"}, {0x0121, "NAV-TIMEUTC"}, {0x0122, "NAV-CLOCK"},   {0x0126, "NAV-TIMELS"},
    {0x0130, "NAV-SVINFO"},  {0x0135, "NAV-SAT"},     {0x0143, "NAV-SIG"},     {0x0161, "NAV-EOE"},
    {0x0500, "ACK-NAK"},     {0x0501, "ACK-ACK"},     {0x0600, "CFG-PRT"},     {0x0601, "CFG-MSG"},
    {0x0602, "CFG-INF"},     {0x0604, "CFG-RST"},     {0x0608, "CFG-RATE"},    {0x0609, "CFG-CFG"},
    {0x0611, "CFG-RXM"},     {0x0616, "CFG-SBAS"},    {0x0623, "CFG-NAVX5"},   {0x0624, "CFG-NAV5"},
    {0x0631, "CFG-TP5"},     {0x0639, "CFG-ITFM"},    {0x063B, "CFG-PM2"},     {0x063D, "CFG-TMODE2"},
    {0x063E, "CFG-GNSS"},    {0x0671, "CFG-TMODE3"},  {0x068A, "CFG-VALSET"},  {0x068B, "CFG-VALGET"},
    {0x068C, "CFG-VALDEL"},  {0x0A04, "MON-VER"},     {0x0A09, "MON-HW"},      {0x0A28, "MON-GNSS"},
    {0x0A38, "MON-RF"},      {0x0D01, "TIM-TP"},      {0x0D04, "TIM-SVIN"},    {0x2703, "SEC-UNIQID"},
};

} // namespace

std::string messageName(std::uint16_t classId)
{
    for (const NameRow& row : kNames) {
        if (row.classId == classId) {
            return row.name;
        }
    }
    std::array<char, 5> digits{};
    std::snprintf(digits.data(), digits.size(), "%04X", classId);
    return digits.data();
}

std::optional<std::uint16_t> messageByName(const std::string& name)
{
    for (const NameRow& row : kNames) {
        if (name == row.name) {
            return row.classId;
        }
    }
    const bool digits = name.size() == 4 && std::all_of(name.begin(), name.end(), [](char character) {
                            return std::isxdigit(static_cast<unsigned char>(character)) != 0;
                        });
    return digits ? std::optional(static_cast<std::uint16_t>(std::stoul(name, nullptr, 16))) : std::nullopt;
}

} // namespace ubxsim

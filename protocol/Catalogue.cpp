#include <UBXMessageCatalogue.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <iterator>

#include "protocol/Catalogue.h"

// The texts, their misspellings included, stand in the logs of devices in the field and in what reads them.
// clang-format off
constexpr UBXMessageRow UBXMessages[179] = {
    {0x00, 0x00, 0, 0, "Null message"},
    {0x01, 0x01, 20, 20, "Position Solution in ECEF"},
    {0x01, 0x02, 28, 28, "Geodetic Position Solution"},
    {0x01, 0x03, 16, 16, "Receiver Navigation Status"},
    {0x01, 0x04, 18, 18, "Dilution of precision"},
    {0x01, 0x05, 32, 32, "Attitude Solution"},
    {0x01, 0x06, 52, 52, "Navigation Solution Information"},
    {0x01, 0x07, 92, 92, "Navigation Position Velocity Time Solution"},
    {0x01, 0x09, 20, 20, "Odometer Solution"},
    {0x01, 0x10, 0, 0, "Reset odometer"},
    {0x01, 0x11, 20, 20, "Velocity Solution in ECEF"},
    {0x01, 0x12, 36, 36, "Velocity Solution in NED"},
    {0x01, 0x20, 16, 16, "GPS Time Solution"},
    {0x01, 0x21, 20, 20, "UTC Time Solution"},
    {0x01, 0x23, 20, 20, "GLO Time Solution"},
    {0x01, 0x22, 20, 20, "Clock Solution"},
    {0x01, 0x24, 20, 20, "BDS Time Solution"},
    {0x01, 0x25, 20, 20, "Galileo Time Solution"},
    {0x01, 0x26, 24, 24, "Leap second event information"},
    {0x01, 0x30, 20, 3068, "Space Vehicle Information"},
    {0x01, 0x31, 28, 3076, "DGPS Data Used for NAV"},
    {0x01, 0x32, 24, 3072, "SBAS Status Data"},
    {0x01, 0x34, 14, 1538, "GNSS Orbit Database Info"},
    {0x01, 0x35, 8, 3068, "Satellite Information"},
    {0x01, 0x39, 10, 518, "Geofencing Status"},
    {0x01, 0x60, 16, 16, "AssistNow Autonoumus Status"},
    {0x01, 0x61, 4, 4, "End of Epoch"},
    {0x02, 0x13, 12, 1028, "Broadcast Navigation Data Subframe"},
    {0x02, 0x14, 68, 6188, "Satellite Measurements for RRLP"},
    {0x02, 0x15, 48, 8176, "Multi-GNSS Raw Measurement Data"},
    {0x02, 0x20, 14, 1538, "SV Status Info"},
    {0x02, 0x41, 8, 8, "Requests a Power Management task"},
    {0x02, 0x41, 16, 16, "Requests a Power Management task"},
    {0x02, 0x59, 16, 16, "Galileo SAR Short-RLM report"},
    {0x02, 0x59, 28, 28, "Galileo SAR Long-RLM report"},
    {0x02, 0x61, 48, 11268, "Indoor Messaging System Information"},
    {0x04, 0x00, 1, 255, "ASCII output with error contents"},
    {0x04, 0x01, 1, 255, "ASCII output with warning contents"},
    {0x04, 0x02, 1, 255, "ASCII output with test contents"},
    {0x04, 0x03, 1, 255, "ASCII output with informational contents"},
    {0x04, 0x04, 1, 255, "ASCII output with debug contents"},
    {0x05, 0x01, 2, 2, "Message Acknowledged"},
    {0x05, 0x00, 2, 2, "Message Not-Acknowledged"},
    {0x06, 0x06, 44, 44, "Set User-defined Datum."},
    {0x06, 0x06, 52, 52, "The currently defined Datum"},
    {0x06, 0x09, 12, 13, "Clear, Save and Load configurations"},
    {0x06, 0x13, 4, 4, "Antenna Control Settings"},
    {0x06, 0x3E, 12, 2044, "GNSS system configuration"},
    {0x06, 0x5C, 4, 4, "High Navigation Rate Settings"},
    {0x06, 0x60, 40, 9184, "External syncrhonization source configuration"},
    {0x06, 0x61, 36, 8164, "Disciplined oscillator configuration"},
    {0x06, 0x69, 20, 56, "Geofencing configration"},
    {0x06, 0x84, 14, 32, "Programming the fixed seed for the host..."},
    {0x06, 0x85, 12, 12, "Programming the dynamic seed for the host..."},
    {0x06, 0x00, 20, 20, "Port Configuration for UART/USB/SPI/DCC Port"},
    {0x06, 0x01, 3, 3, "Set Message Rate"},
    {0x06, 0x01, 2, 2, "Poll a message configuration"},
    {0x06, 0x01, 8, 8, "Set Message Rate(s)"},
    {0x06, 0x02, 1, 1, "Poll configuration for one protocol"},
    {0x06, 0x02, 10, 2550, "Information message configuration"},
    {0x06, 0x04, 4, 4, "Reset Receiver / Clear Backup Data Structures"},
    {0x06, 0x08, 6, 6, "Navigation/Measurement Rate Settings"},
    {0x06, 0x11, 2, 2, "RXM Configuration"},
    {0x06, 0x16, 8, 8, "SBAS Configuration"},
    {0x06, 0x17, 4, 4, "NMEA protocol configuration (depricated)"},
    {0x06, 0x17, 12, 12, "NMEA protocol configuration V0 (depricated)"},
    {0x06, 0x17, 20, 20, "Extended NMEA protocol configuration V1"},
    {0x06, 0x1E, 20, 20, "Odometer, Low-speed COG Engine Settings"},
    {0x06, 0x1B, 108, 108, "USB Configuration"},
    {0x06, 0x23, 40, 40, "Navigation Engine Expert Settings"},
    {0x06, 0x24, 36, 36, "Navigation Engine Settings"},
    {0x06, 0x31, 0, 0, "Poll Time Pulse Parameters for Time Pulse 0"},
    {0x06, 0x31, 1, 1, "Poll Time Pulse Parameters"},
    {0x06, 0x31, 32, 32, "Time Pulse Parameters"},
    {0x06, 0x34, 2, 31, "Contents of Remote Inventory"},
    {0x06, 0x39, 8, 8, "Jamming/Interference Monitor configuration"},
    {0x06, 0x3B, 44, 44, "Extended Power Management Configuration"},
    {0x06, 0x3B, 48, 48, "Extended Power Management Configuration"},
    {0x06, 0x3D, 28, 28, "Time Mode Settings 2"},
    {0x06, 0x47, 12, 12, "Data Logger Configuration"},
    {0x06, 0x57, 8, 8, "Put receiver in a defined power state."},
    {0x06, 0x53, 16, 16, "TX buffer time slots configuration"},
    {0x06, 0x62, 20, 20, "Synchronization manager configuration"},
    {0x06, 0x86, 8, 8, "Power Mode Setup"},
    {0x06, 0x8B, 108, 108, "Configuration Items"},
    {0x09, 0x14, 0, 0, "Poll Backup File Restore Status"},
    {0x09, 0x14, 4, 4, "Create Backup File in Flash"},
    {0x09, 0x14, 4, 4, "Clear Backup in Flash"},
    {0x09, 0x14, 8, 8, "Backup File Creation Acknowledge"},
    {0x09, 0x14, 8, 8, "System Restored from Backup"},
    {0x0A, 0x02, 20, 26, "I/O Subsystem Status"},
    {0x0A, 0x04, 0, 0, "Poll Receiver/Software Version"},
    {0x0A, 0x04, 70, 7650, "Receiver/Software Version"},
    {0x0A, 0x06, 120, 120, "Message Parse and Process Status"},
    {0x0A, 0x07, 24, 24, "Receiver Buffer Status"},
    {0x0A, 0x08, 28, 28, "Transmitter Buffer Status"},
    {0x0A, 0x09, 60, 60, "Hardware Status"},
    {0x0A, 0x0B, 28, 28, "Extended Hardware Status"},
    {0x0A, 0x21, 1, 1, "Receiver Status Information"},
    {0x0A, 0x27, 0, 0, "Poll Request for installed patches."},
    {0x0A, 0x27, 20, 4096, "Output information about installed patches."},
    {0x0A, 0x28, 8, 8, "Information message major GNSS selection"},
    {0x0A, 0x2E, 16, 16, "Synchronization Manager Status"},
    {0x0B, 0x01, 0, 0, "Poll GPS Initial Aiding Data"},
    {0x0B, 0x01, 48, 48, "Aiding position, time, frequency, clock drift"},
    {0x0B, 0x02, 0, 0, "Poll GPS Health, UTC, ionosphere parameters"},
    {0x0B, 0x02, 72, 72, "GPS Health, UTC and ioniosphere parameters"},
    {0x0B, 0x30, 0, 0, "Poll GPS Aiding Almanac Data"},
    {0x0B, 0x30, 1, 1, "Poll GPS Aiding Almanac Data for a SV"},
    {0x0B, 0x30, 8, 40, "GPS Aiding Almanac Input/Output Message"},
    {0x0B, 0x31, 0, 0, "Poll GPS Aiding Ephemeris Data"},
    {0x0B, 0x31, 1, 1, "Poll GPS Aiding Ephemeris Data for a SV"},
    {0x0B, 0x31, 8, 104, "GPS Aiding Ephmeris Input/Output Message"},
    {0x0B, 0x33, 0, 0, "Poll AssistNow Autonomous data, all satellites"},
    {0x0B, 0x33, 1, 1, "Poll AssistNow Autonomous data, one GPS..."},
    {0x0B, 0x33, 68, 68, "AssistNow Autonoumous data"},
    {0x0D, 0x01, 16, 16, "Time Pulse Timedata"},
    {0x0D, 0x03, 28, 28, "Time mark data"},
    {0x0D, 0x04, 28, 28, "Survey-in data"},
    {0x0D, 0x06, 20, 20, "Sourced Time Verification"},
    {0x0D, 0x11, 8, 8, "Disciplined oscillator control"},
    {0x0D, 0x12, 56, 56, "Time Pulse Time and Frequency Data"},
    {0x0D, 0x13, 36, 6132, "Source measurement"},
    {0x0D, 0x15, 1, 1, "Stop calibration"},
    {0x0D, 0x15, 12, 12, "VCO calibration extended command"},
    {0x0D, 0x15, 12, 12, "Results of the calibration"},
    {0x0D, 0x16, 32, 32, "Oscillator frequency changed notification"},
    {0x0D, 0x17, 8, 8, "Host oscillator control"},
    {0x10, 0x02, 12, 1032, "Exernal Sensor Fusion Measurements"},
    {0x10, 0x03, 12, 2044, "Raw sensor measurements"},
    {0x10, 0x10, 20, 1036, "External Sensor (ESF) status information"},
    {0x10, 0x15, 36, 36, "Vehicle dynamics information"},
    {0x13, 0x00, 16, 16, "GPS Ionosphere Assistance"},
    {0x13, 0x00, 20, 20, "GPS UTC Assistance"},
    {0x13, 0x00, 36, 36, "GPS Almanac Assistance"},
    {0x13, 0x00, 40, 40, "GPS Health Assistance"},
    {0x13, 0x00, 68, 68, "GPS Ephemeris Assitance"},
    {0x13, 0x02, 12, 12, "Galileo GPS time offset assitance"},
    {0x13, 0x02, 20, 20, "Galileo UTC Assistance"},
    {0x13, 0x02, 32, 32, "Galileo Almanack Assistance"},
    {0x13, 0x02, 76, 76, "Galileo Ephemeris Assistance"},
    {0x13, 0x03, 16, 16, "BDS Ionospheric Assistance"},
    {0x13, 0x03, 20, 20, "BDS UTC Assistance"},
    {0x13, 0x03, 40, 40, "BDS Almanac Assistance"},
    {0x13, 0x03, 68, 68, "BDS Health Assistance"},
    {0x13, 0x03, 88, 88, "BDS Ephemeris Assitance"},
    {0x13, 0x05, 12, 12, "QZSS Health Assistance"},
    {0x13, 0x05, 36, 36, "QZSS ALmanac Assistance"},
    {0x13, 0x05, 68, 68, "QZSS Ephemeris Assistance"},
    {0x13, 0x06, 20, 20, "GLONASS Auxiliary Time Offset Assistance"},
    {0x13, 0x06, 36, 36, "GLONASS Almanac Assistance"},
    {0x13, 0x06, 48, 48, "GLONASS Ephemeris Assistance"},
    {0x13, 0x20, 76, 76, "Multiple GNSS AssistNow Offline Assistance"},
    {0x13, 0x21, 2, 2, "Finish flashing MGA-ANO data"},
    {0x13, 0x21, 6, 6, "Acknowledge last FLASH-DATA or -STOP"},
    {0x13, 0x21, 7, 518, "Transfer MGA-ANO data block to flash"},
    {0x13, 0x40, 12, 12, "Initial Clock Drift Assitance"},
    {0x13, 0x40, 12, 12, "Initial Frequency Assitance"},
    {0x13, 0x40, 20, 20, "Intitial Position Assistance"},
    {0x13, 0x40, 24, 24, "Iniitial Time Assistance"},
    {0x13, 0x40, 72, 72, "Earth Orientation Parameters Assitance"},
    {0x13, 0x60, 8, 8, "Multiple GNSS Acknowledge message"},
    {0x13, 0x80, 0, 0, "Poll the Navigation Database"},
    {0x13, 0x80, 13, 172, "Navigation Database Dump Entry"},
    {0x21, 0x03, 0, 0, "Erase Logged Data"},
    {0x21, 0x04, 0, 255, "Store arbitrary string in on-board flash"},
    {0x21, 0x07, 8, 8, "Create Log File"},
    {0x21, 0x08, 0, 0, "Poll for log information"},
    {0x21, 0x08, 48, 48, "Log information"},
    {0x21, 0x09, 12, 12, "Request log data"},
    {0x21, 0x0B, 40, 40, "Position fix log entry"},
    {0x21, 0x0D, 17, 271, "Byte string log entry"},
    {0x21, 0x0E, 8, 8, "Response to FINDTIME request"},
    {0x21, 0x0E, 12, 12, "Find index of a log entry based on a given time"},
    {0x21, 0x0F, 32, 32, "Odometer log entry"},
    {0x27, 0x01, 40, 40, "Signature of a previous message"},
    {0x27, 0x03, 9, 9, "Unique Chip ID"},
    {0x28, 0x00, 72, 72, "High Rate Output of PVT Solution"},
    {0xFF, 0xFF, 0, 0, "MARKER-END-OF-MESSAGE"},
};

constexpr UBXClassRow UBXClassID[14] = {
    {0x01, "Navigation Results Messages: Position, Speed, Time, Accelleration, Heading, DOP, SVs, used"},
    {0x02, "Receiver Manager Messages: Satellite Status, RTC Status"},
    {0x04, "Information Messages: Printf-Style Messages, with IDs such as Error, Warning, Notice"},
    {0x05, "Ack/Nak Messages: Acknowledge or Reject messages to CFG input messages"},
    {0x06, "Configuration Input Messages: Set Dynamic Model, Set DOP Mask, Set Baud Rate, etc."},
    {0x09, "Firmware Update Messages: Memory/Flash erase/write, Reboot, Flash identification, etc."},
    {0x0A, "Monitoring Messages: Communication Status, CPU Load, Stack Usage, Task Status"},
    {0x0B, "AssistNow Aiding Messages: Ephemeris, Almanac, other A-GPS data input"},
    {0x0D, "Timing Messages: Time Pulse Output, Time Mark Results"},
    {0x10, "External Sensor Fusion Messages: External Sensor Measurements and Status Information"},
    {0x13, "Multiple GNSS Assistance Messages: Assistance data for various GNSS"},
    {0x21, "Logging Messages: Log creation, deletion, info and retrieval"},
    {0x27, "Security Feature Messages"},
    {0x28, "High Rate Navigation Results Messages: High rate time, position, speed, heading"},
};

constexpr const char* gnssNames[7] = {"GPS", "SBAS", "GALILEO", "BEIDOU", "IMES", "QZSS", "GLONASS"};
// clang-format on

namespace
{

constexpr std::size_t kRows = std::size(UBXMessages) - 1; // without the end marker
constexpr std::uint8_t kNone = 0xFF;
constexpr std::size_t kMostClasses = 16;
constexpr unsigned char kConfigurationItemsId = 0x8B;

// Where the rows of a class/id begin, so that a look-up need not walk the table.
struct FirstRows
{
    std::array<std::uint8_t, 256> classSlot{};
    std::array<std::array<std::uint8_t, 256>, kMostClasses> row{};
};

constexpr FirstRows makeFirstRows()
{
    FirstRows first;
    for (auto& slot : first.classSlot)
        slot = kNone;
    for (auto& ids : first.row)
        for (auto& row : ids)
            row = kNone;

    std::uint8_t slots = 0;
    for (std::size_t i = 0; i < kRows; ++i) {
        std::uint8_t& slot = first.classSlot[UBXMessages[i].msgClass];
        if (slot == kNone) slot = slots++;
        std::uint8_t& row = first.row[slot][UBXMessages[i].msgId];
        if (row == kNone) row = static_cast<std::uint8_t>(i);
    }
    return first;
}

constexpr FirstRows kFirstRows = makeFirstRows();

static_assert(kRows < kNone, "a row number fits into one byte");

constexpr std::size_t firstRow(UBXClassId id)
{
    const std::uint8_t slot = kFirstRows.classSlot[id.msgClass];
    if (slot == kNone) return kRows;
    const std::uint8_t row = kFirstRows.row[slot][id.msgId];
    return row == kNone ? kRows : row;
}

static_assert(firstRow({0x06, 0x09}) == 45 && firstRow({0x28, 0x00}) == kRows - 1 && firstRow({0xFF, 0xFF}) == kRows);

constexpr bool isOf(const UBXMessageRow& row, UBXClassId id)
{
    return row.msgClass == id.msgClass && row.msgId == id.msgId;
}

} // namespace

namespace ubx
{

bool isCatalogued(UBXClassId id)
{
    return firstRow(id) != kRows;
}

bool isLastOfCatalogue(UBXClassId id)
{
    return firstRow(id) == kRows - 1;
}

} // namespace ubx

const char* ubxGetMessageDescription(UBXClassId id, unsigned short payloadLength)
{
    for (std::size_t i = firstRow(id); i < kRows; ++i) {
        const UBXMessageRow& row = UBXMessages[i];
        if (!isOf(row, id)) continue;
        const bool fits = row.minimumLength <= payloadLength && payloadLength <= row.maximumLength;
        if (payloadLength == 0 || fits || id.msgId == kConfigurationItemsId) return row.description;
    }
    return "Unknown message type";
}

const char* getGnssNameById(UBXGNSSId id)
{
    return id < std::size(gnssNames) ? gnssNames[id] : "UNKNOWN";
}

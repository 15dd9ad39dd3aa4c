#pragma once

#include <string>

#include <ubxExport.h>

/// The lines of the carrier board to the receiver module: its enable (reset) line and its active-antenna supply.
///
/// Every operation opens its hardware afresh and releases it before it returns; it blocks for the few bus transfers
/// that it takes, without any pause. Nothing is printed or logged, and failed transfers are not reported. One thread at
/// a time per board: the pins of the I2C boards are changed by reading and writing back.
class UBXCONTROL_API UBloxChipEnableInterface
{
public:
    virtual ~UBloxChipEnableInterface();

    /// Releases the receiver from reset by driving its enable line to the inactive, high level. There is no low phase:
    /// a running receiver is not disturbed.
    /// @return 0, whether or not the hardware could be reached.
    virtual int resetUBloxChip() = 0;

    /// Switches the supply of the active antenna.
    /// @param state  "ON" or "OFF", in upper or lower case letters.
    /// @return 0; 1 for any other word, for which the supply stays as it is.
    virtual int antennaPowerEnable(std::string state) = 0;

protected:
    UBloxChipEnableInterface() = default;
    UBloxChipEnableInterface(const UBloxChipEnableInterface&) = default;
    UBloxChipEnableInterface& operator=(const UBloxChipEnableInterface&) = default;
};

/// The board family of part number 90000014-001: an I/O expander on the I2C bus that the inventory names for module 1.
/// What the inventory's clients throw while the bus is looked up leaves both operations.
class UBXCONTROL_API VrbUBloxChipInterface : public UBloxChipEnableInterface
{
public:
    ~VrbUBloxChipInterface() override;

    int resetUBloxChip() override;

    /// As for every board, but for two things: 0 is returned for any word when the expander can't be opened, and an
    /// unknown word has already made the supply's pin an output, at the level that the expander had stored for it.
    int antennaPowerEnable(std::string state) override;
};

/// The second board family: an I/O expander on "/dev/i2c-13".
class UBXCONTROL_API KtbPtbUBloxChipInterface : public UBloxChipEnableInterface
{
public:
    ~KtbPtbUBloxChipInterface() override;

    int resetUBloxChip() override;

    /// As that of VrbUBloxChipInterface.
    int antennaPowerEnable(std::string state) override;
};

/// The third board family: no reset line, and the antenna supply on the sysfs GPIO 116.
/// The facade never chooses it; it is there for callers that know their board.
class UBXCONTROL_API QsbUBloxChipInterface : public UBloxChipEnableInterface
{
public:
    ~QsbUBloxChipInterface() override;

    /// Touches nothing.
    /// @return 0.
    int resetUBloxChip() override;

    int antennaPowerEnable(std::string state) override;
};

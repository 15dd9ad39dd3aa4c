#pragma once

#include "simulator/wire/Descriptor.h"
#include "simulator/wire/Frame.h"

#include <string>

namespace ubxsim
{

/// A pseudo terminal whose far end is the serial device that the host opens.
class Pty
{
public:
    /// Opens the pair; throws std::system_error where the system refuses.
    void open();
    /// The device goes away: the host's reads end, its writes and opens fail.
    void close();
    bool isOpen() const { return master_.valid(); }

    int descriptor() const { return master_.get(); }
    const std::string& path() const { return path_; }

    /// Bytes that can be written before the host's input buffer is full.
    std::size_t room() const;
    /// Bytes taken; fewer than `size` when the line is full.
    std::size_t write(const std::uint8_t* data, std::size_t size);
    /// Bytes read into `data`; 0 when nothing is waiting.
    std::size_t read(std::uint8_t* data, std::size_t size);

    /// Stuffs the direction from the host until nothing more fits, so that the host's next write meets a full line.
    void stuffInput();
    /// Takes the stuffing out again; what the host wrote behind it stays.
    Bytes removeStuffing();

private:
    std::size_t stuffOnce();

    Descriptor master_;
    // Kept open by the simulator itself, so that a host closing the device is no hang-up.
    Descriptor slave_;
    std::string path_;
    std::size_t stuffed_ = 0;
};

} // namespace ubxsim

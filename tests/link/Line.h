#pragma once

#include <atomic>
#include <cstddef>
#include <functional>
#include <string>

#include "Bytes.h"

namespace linktest
{

using testsupport::Bytes;

/// Waits until something is so; false when it is not within twenty seconds.
bool until(const std::function<bool()>& condition);

/// A serial line whose near end is "/dev/tty_gps" and whose far end the test has in its hand.
class Line
{
public:
    Line();
    ~Line();
    Line(const Line&) = delete;
    Line& operator=(const Line&) = delete;

    const std::string& device() const { return device_; }

    /// The near end, held open by the test so that the library's closing it is no hang-up.
    int nearEnd() const { return nearEnd_; }

    /// Call when the library has opened the line: what was said before is gone.
    void opened();

    /// Puts bytes (4000 at most) on the line. When it returns they can be read, or have been.
    void say(const Bytes& bytes);

    /// Puts any number of bytes on the line, so many at a time, each piece when the one before has been read.
    void sayInPieces(const Bytes& bytes, std::size_t pieceSize);

    /// The same, but only for as long as somebody reads.
    void pour(const Bytes& bytes, std::size_t pieceSize);
    void nobodyReads(bool so) { nobodyReads_ = so; }

    /// Waits until all that was said has been read.
    void untilRead();

    /// Waits until the library has looked at the line so many times more.
    void rounds(unsigned long count);

    /// What the library wrote: waits for this many bytes, and gives all there are.
    Bytes written(std::size_t count);

    /// The far end goes away, as an unplugged receiver does; it comes back as another device behind the same name.
    void hangUp();
    void comeBack();

private:
    void open();
    void close();

    int farEnd_ = -1;
    int nearEnd_ = -1;
    std::string device_;
    unsigned long said_ = 0; // since the library opened the line
    std::atomic<bool> nobodyReads_{false};
};

} // namespace linktest

#pragma once

#include <cstddef>
#include <string>
#include <vector>

/// The write() calls of this program and of the libraries that it uses, as far as this thread writes whole UBX frames.
namespace writecalls
{

/// Notes for each frame how many descriptors of the terminal were open when it was written, from the start of the
/// observation on.
class Observation
{
public:
    Observation();
    ~Observation();
    Observation(const Observation&) = delete;
    Observation& operator=(const Observation&) = delete;

    /// One number for each frame, those that were open before not counted.
    std::vector<std::size_t> portsOpen() const;
};

/// While it is in scope, the nth writing of this frame fails with an I/O error; the frame is not written then.
class Failure
{
public:
    /// @param frame  hexadecimal text.
    /// @param nth    1 for the first.
    explicit Failure(const std::string& frame, int nth = 1);
    ~Failure();
    Failure(const Failure&) = delete;
    Failure& operator=(const Failure&) = delete;
};

} // namespace writecalls

#pragma once

#include <string>

#include <unistd.h>

namespace testsupport
{

/// Takes what is written to a descriptor of this process, by whatever means, until it goes out of scope.
class CapturedOutput
{
public:
    /// @param descriptor STDOUT_FILENO or STDERR_FILENO.
    explicit CapturedOutput(int descriptor);
    ~CapturedOutput();
    CapturedOutput(const CapturedOutput&) = delete;
    CapturedOutput& operator=(const CapturedOutput&) = delete;

    /// All that was written so far, the contents of this process's stream buffers included.
    std::string text() const;

private:
    int descriptor_;
    int original_;
    int storage_;
};

} // namespace testsupport

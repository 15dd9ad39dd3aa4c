#pragma once

#include <cstddef>

#include "Transcript.h"

namespace demo
{

/// What the device's inventory says about the board that carries the receiver.
void showInventory(Transcript& transcript);

/// The board's I/O expander, as it stands between the library and the receiver.
class ExpanderView
{
public:
    explicit ExpanderView(Transcript& transcript) : transcript_(transcript) {}

    /// What has been done to it since the last time, and how the receiver's reset line and the antenna supply stand
    /// now.
    void show();

private:
    Transcript& transcript_;
    std::size_t shown_ = 0;
};

} // namespace demo

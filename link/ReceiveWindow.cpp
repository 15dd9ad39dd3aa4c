#include "link/ReceiveWindow.h"

#include <algorithm>
#include <cstring>

#include "protocol/FrameLayout.h"

namespace ubx
{

ReceiveWindow::ReceiveWindow(std::size_t capacity)
    : allocated_(capacity > kOwnRoom ? new unsigned char[capacity] : nullptr),
      bytes_(allocated_ != nullptr ? allocated_.get() : own_.data()),
      capacity_(capacity)
{}

bool ReceiveWindow::makeRoom()
{
    const bool stuck = finished_ == 0;
    if (stuck) finished_ = std::min(frame::kSyncLength, filled_);
    filled_ -= finished_;
    std::memmove(bytes_, bytes_ + finished_, filled_);
    finished_ = 0;
    return stuck;
}

} // namespace ubx

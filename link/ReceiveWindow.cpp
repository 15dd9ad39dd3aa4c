#include "link/ReceiveWindow.h"

#include <algorithm>
#include <cstring>

#include "protocol/FrameLayout.h"

namespace ubx
{

ReceiveWindow::ReceiveWindow(std::size_t capacity) : bytes_(new unsigned char[capacity]), capacity_(capacity) {}

bool ReceiveWindow::makeRoom()
{
    if (freeBytes() != 0) return false;
    const bool stuck = finished_ == 0;
    if (stuck) finished_ = std::min(frame::kSyncLength, filled_);
    filled_ -= finished_;
    std::memmove(bytes_.get(), bytes_.get() + finished_, filled_);
    finished_ = 0;
    return stuck;
}

} // namespace ubx

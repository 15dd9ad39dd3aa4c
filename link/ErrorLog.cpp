#include "link/ErrorLog.h"

namespace ubx
{

ErrorLog::ErrorLog(const char* path) : file_(path, std::ios::out | std::ios::app | std::ios::ate) {}

void ErrorLog::write(const std::string& timeStamp, const std::string& text)
{
    if (!file_.is_open()) return;
    file_.clear(); // a line lost to a full disk must not cost those that follow
    file_ << timeStamp + ' ' + text + '\n' << std::flush;
}

void ErrorLog::close()
{
    if (file_.is_open()) file_.close();
}

} // namespace ubx

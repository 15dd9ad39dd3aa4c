#include "CapturedOutput.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <iostream>
#include <system_error>

#include <fcntl.h>
#include <sys/mman.h>

namespace testsupport
{

namespace
{

void flushStreams()
{
    std::cout.flush();
    std::cerr.flush();
    std::clog.flush();
    std::fflush(nullptr);
}

int insistOn(int result, const char* what)
{
    if (result < 0) throw std::system_error(errno, std::generic_category(), what);
    return result;
}

} // namespace

CapturedOutput::CapturedOutput(int descriptor) : descriptor_(descriptor), original_(-1), storage_(-1)
{
    flushStreams();
    storage_ = insistOn(::memfd_create("captured", MFD_CLOEXEC), "memfd_create");
    original_ = insistOn(::fcntl(descriptor, F_DUPFD_CLOEXEC, 0), "fcntl");
    insistOn(::dup2(storage_, descriptor), "dup2");
}

CapturedOutput::~CapturedOutput()
{
    flushStreams();
    ::dup2(original_, descriptor_);
    ::close(original_);
    ::close(storage_);
}

std::string CapturedOutput::text() const
{
    flushStreams();
    std::string all;
    std::array<char, 4096> piece{};
    ssize_t got = 0;
    while ((got = ::pread(storage_, piece.data(), piece.size(), static_cast<off_t>(all.size()))) > 0) {
        all.append(piece.data(), static_cast<std::size_t>(got));
    }
    return all;
}

} // namespace testsupport

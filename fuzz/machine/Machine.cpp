#include "machine/Machine.h"

#include <cstdlib>
#include <iostream>
#include <streambuf>

#include <unistd.h>

namespace fuzz
{

namespace
{

/// Takes what the library says on standard output and standard error.
class NoOutput : public std::streambuf
{
protected:
    int overflow(int character) override { return traits_type::not_eof(character); }
    std::streamsize xsputn(const char*, std::streamsize count) override { return count; }
};

} // namespace

Machine& machine()
{
    static Machine theMachine;
    return theMachine;
}

void Machine::reset()
{
    const std::size_t stillOpen = openDescriptors;
    *this = Machine();
    openDescriptors = stillOpen;
}

void require(bool holds, const std::string& what)
{
    if (holds) return;
    const std::string line = "\nfuzz: " + what + "\n";
    if (::write(STDERR_FILENO, line.data(), line.size()) < 0) std::abort();
    std::abort();
}

} // namespace fuzz

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv);

extern "C" int LLVMFuzzerInitialize(int*, char***)
{
    static fuzz::NoOutput nowhere;
    std::cout.rdbuf(&nowhere);
    std::cerr.rdbuf(&nowhere);
    return 0;
}

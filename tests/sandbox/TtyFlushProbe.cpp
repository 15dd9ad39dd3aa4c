// A command like any other: writes to a pseudo terminal, flushes both queues, and says what became of the bytes.

#include <array>
#include <cstdio>
#include <string>

#include <fcntl.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

int main()
{
    const int receiver = ::posix_openpt(O_RDWR | O_NOCTTY);
    ::unlockpt(receiver);
    std::array<char, 64> name{};
    ::ptsname_r(receiver, name.data(), name.size());
    const int port = ::open(name.data(), O_RDWR | O_NOCTTY);
    termios settings{};
    if (::tcgetattr(port, &settings) != 0) return 1;
    ::cfmakeraw(&settings);
    ::tcsetattr(port, TCSANOW, &settings);

    // More than what the other side takes in at once.
    const std::string frames(6000, 'f');
    if (::write(port, frames.data(), frames.size()) != static_cast<ssize_t>(frames.size())) return 1;
    if (::tcflush(port, TCIOFLUSH) != 0 || ::write(port, ".", 1) != 1) return 1;

    std::string arrived;
    while (arrived.empty() || arrived.back() != '.') {
        std::array<char, 1024> bytes{};
        const ssize_t got = ::read(receiver, bytes.data(), bytes.size());
        if (got <= 0) return 1;
        arrived.append(bytes.data(), static_cast<std::size_t>(got));
    }
    std::puts(arrived.size() == frames.size() + 1 ? "arrived" : "lost");
    return 0;
}

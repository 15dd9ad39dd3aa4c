// ubxload LIBRARY FLOOR ROUNDS: how long the dynamic linker takes to load a library, and one with nothing in it. Each
// load is the first one of a new process, by turns.

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bench/table/Clock.h"

namespace
{

/// Microseconds; below 0 when it can't be loaded.
double loadTime(const char* library)
{
    int ends[2];
    if (::pipe(ends) != 0) return -1;
    const pid_t child = ::fork();
    if (child == 0) {
        const bench::ElapsedTime watch;
        const bool loaded = ::dlopen(library, RTLD_NOW | RTLD_LOCAL) != nullptr;
        const double result = watch.seconds() * 1e6;
        if (!loaded) std::fprintf(stderr, "ubxload: %s\n", ::dlerror());
        const bool written = ::write(ends[1], &result, sizeof result) == static_cast<ssize_t>(sizeof result);
        std::_Exit(loaded && written ? EXIT_SUCCESS : EXIT_FAILURE);
    }
    ::close(ends[1]);
    double result = -1;
    int status = -1;
    if (::read(ends[0], &result, sizeof result) != static_cast<ssize_t>(sizeof result)) result = -1;
    ::close(ends[0]);
    if (child > 0) ::waitpid(child, &status, 0);
    return status == 0 ? result : -1;
}

double median(std::vector<double>& times)
{
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

} // namespace

int main(int argc, char** argv)
{
    const long rounds = argc == 4 ? std::strtol(argv[3], nullptr, 10) : 0;
    if (rounds <= 0) {
        std::fprintf(stderr, "usage: ubxload LIBRARY FLOOR ROUNDS\n");
        return EXIT_FAILURE;
    }
    std::vector<double> library;
    std::vector<double> floor;
    for (long i = 0; i < rounds; ++i) {
        library.push_back(loadTime(argv[1]));
        floor.push_back(loadTime(argv[2]));
        if (library.back() < 0 || floor.back() < 0) return EXIT_FAILURE;
    }
    const double first = median(library);
    const double second = median(floor);
    std::printf("%.0f %.0f %.1f\n", first, second, first / second);
    return EXIT_SUCCESS;
}

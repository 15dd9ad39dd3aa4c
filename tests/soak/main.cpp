// ubxsoak SECONDS [SEED]: random operations with random faults for so long. scripts/soak runs it.

#include <chrono>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <random>

#include "Files.h"
#include "Soak.h"
#include "sandbox/Sandbox.h"

namespace
{

constexpr int kSkipped = 77;
constexpr auto kLongestWarmUp = std::chrono::minutes(1);

using Clock = std::chrono::steady_clock;

int run(std::chrono::seconds length, unsigned seed)
{
    const sandbox::Outcome outcome =
        sandbox::enter({{testsupport::sourceDirectory(), testsupport::programDirectory()}, "", ""});
    if (!outcome.entered) {
        std::cerr << "ubxsoak: not run: " << outcome.why << '\n';
        return kSkipped;
    }
    std::cout << "seed             " << seed << ", " << length.count() << " seconds" << std::endl;

    soak::Library library;
    soak::Soak soak(library, seed);
    unsigned long steps = 0;
    try {
        const Clock::time_point start = Clock::now();
        const Clock::duration warmUp = std::min<Clock::duration>(kLongestWarmUp, length / 3);
        for (; Clock::now() - start < warmUp; ++steps)
            soak.step();
        soak.warmedUp();
        for (; Clock::now() - start < length; ++steps)
            soak.step();
        soak.expectNothingLeft();
    } catch (const std::exception& error) {
        std::cout << soak.summary() << "outcome          FAILED after " << steps << " operations: " << error.what()
                  << "\nbefore that\n"
                  << soak.lastOperations() << "again            scripts/soak " << length.count() << ' ' << seed
                  << std::endl;
        return EXIT_FAILURE;
    }
    std::cout
        << soak.summary()
        << "outcome          every status was the one that its fault calls for, the receivers hold what was last\n"
           "                 confirmed, and nothing is left behind"
        << std::endl;
    return EXIT_SUCCESS;
}

} // namespace

int main(int argc, char** argv)
{
    const long length = argc > 1 ? std::strtol(argv[1], nullptr, 10) : 60;
    const unsigned seed = argc > 2 ? static_cast<unsigned>(std::strtoul(argv[2], nullptr, 10)) : std::random_device{}();
    if (length < 3) {
        std::cerr << "usage: ubxsoak SECONDS [SEED]; three seconds at least\n";
        return 2;
    }
    try {
        return run(std::chrono::seconds(length), seed);
    } catch (const std::exception& error) {
        std::cerr << "ubxsoak: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
}

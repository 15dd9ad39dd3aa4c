// ubxbench [--quick] [--only=REGEX]: measures the library and prints one table. scripts/bench builds and runs it.

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include <malloc.h>

#include "bench/BuildingBench.h"
#include "bench/exchange/ExchangeBench.h"
#include "bench/parsing/ParsingBench.h"
#include "bench/table/Table.h"
#include "sandbox/Sandbox.h"

namespace
{

constexpr bench::Effort kWhole{11, std::size_t{64} << 20, 500};
constexpr bench::Effort kQuick{3, std::size_t{4} << 20, 100};

// The heap keeps what it once had, and the system has given it: what a round costs does not depend on those before it.
void fillHeap()
{
    constexpr std::size_t kMost = std::size_t{300} << 20;
    mallopt(M_MMAP_THRESHOLD, 1 << 30);
    mallopt(M_TRIM_THRESHOLD, 2'000'000'000);
    const std::vector<char> touched(kMost, 1);
    benchmark::DoNotOptimize(touched.data());
}

} // namespace

int main(int argc, char** argv)
{
    bool quick = false;
    // One round of everything after the other, in random order: a machine that slows down does so for all.
    std::vector<std::string> arguments{argv[0], "--benchmark_enable_random_interleaving=true"};
    for (int i = 1; i < argc; ++i) {
        const std::string argument = argv[i];
        if (argument == "--quick") {
            quick = true;
        } else if (argument.rfind("--only=", 0) == 0) {
            arguments.push_back("--benchmark_filter=" + argument.substr(7));
        } else {
            std::cerr << "ubxbench: " << argument << " is no option; there are --quick and --only=REGEX\n";
            return EXIT_FAILURE;
        }
    }
    const sandbox::Outcome outcome = sandbox::enter();
    if (!outcome.entered) {
        std::cerr << "ubxbench: " << outcome.why << '\n';
        return EXIT_FAILURE;
    }

    const bench::Effort effort = quick ? kQuick : kWhole;
    std::vector<bench::Line> lines = bench::exchanges(effort); // before anything large: the peer is a copy of this
    fillHeap();
    for (const auto& more : {bench::parsing(effort), bench::building(effort)})
        lines.insert(lines.end(), more.begin(), more.end());

    std::vector<char*> pointers;
    pointers.reserve(arguments.size());
    for (std::string& argument : arguments)
        pointers.push_back(argument.data());
    int count = static_cast<int>(pointers.size());
    benchmark::Initialize(&count, pointers.data());
    bench::Table table(lines);
    benchmark::RunSpecifiedBenchmarks(&table);
    return table.print(std::cout) ? EXIT_SUCCESS : EXIT_FAILURE;
}

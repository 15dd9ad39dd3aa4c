#pragma once

#include <functional>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

/// The table of results: one line a figure, each beside its floor from the same run.
namespace bench
{

enum class Goal
{
    none,
    atLeast, ///< of the ratio: figure divided by floor
    atMost
};

struct Line
{
    std::string section;
    std::string label;
    std::string figure;  ///< The benchmark that has it,
    std::string floor;   ///< the one that has its floor; empty: there is none.
    std::string counter; ///< The counter of both, and its unit.
    Goal goal = Goal::none;
    double limit = 0;
    std::string floorCounter = counter; ///< Where the floor has another.
};

/// How much is done: less shows that it works, not how fast it is.
struct Effort
{
    int rounds;
    std::size_t streamSize;
    int exchanges; // a round
};

/// Registers a benchmark which does its own timing and leaves its results in counters: once a round.
void measure(const std::string& name, int rounds, const std::function<void(benchmark::State&)>& run);

/// Collects what the rounds gave, and prints it as a table of medians.
class Table : public benchmark::BenchmarkReporter
{
public:
    explicit Table(std::vector<Line> lines) : lines_(std::move(lines)) {}

    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// @return whether every line has its figure.
    bool print(std::ostream& out) const;

private:
    using Rounds = std::vector<double>;

    const Rounds* rounds(const std::string& benchmark, const std::string& counter) const;
    std::string row(const Line& line) const;

    std::vector<Line> lines_;
    std::map<std::string, std::map<std::string, Rounds>> results_;
    std::map<std::string, std::string> failures_;
};

} // namespace bench

#include "bench/table/Table.h"

#include <algorithm>
#include <iomanip>
#include <sstream>

namespace bench
{

namespace
{

double median(std::vector<double> rounds)
{
    std::sort(rounds.begin(), rounds.end());
    const std::size_t middle = rounds.size() / 2;
    return rounds.size() % 2 == 1 ? rounds[middle] : (rounds[middle - 1] + rounds[middle]) / 2;
}

std::string number(double value)
{
    std::ostringstream text;
    const int digits = value >= 100 ? 0 : value >= 10 ? 1 : 2;
    text << std::fixed << std::setprecision(digits) << value;
    return text.str();
}

std::string cells(const std::vector<std::string>& texts)
{
    static constexpr int kWidths[] = {58, 10, 10, 7, 18};
    std::ostringstream row;
    for (std::size_t i = 0; i < texts.size(); ++i)
        row << "| " << (i == 0 ? std::left : std::right) << std::setw(kWidths[i]) << texts[i] << ' ';
    row << "|\n";
    return row.str();
}

} // namespace

void measure(const std::string& name, int rounds, const std::function<void(benchmark::State&)>& run)
{
    benchmark::RegisterBenchmark(name.c_str(),
                                 [run](benchmark::State& state) {
                                     for (auto _ : state) {
                                         run(state);
                                         state.SetIterationTime(0);
                                     }
                                 })
        ->UseManualTime()
        ->Iterations(1)
        ->Repetitions(rounds);
}

bool Table::ReportContext(const Context&)
{
    return true;
}

void Table::ReportRuns(const std::vector<Run>& runs)
{
    for (const Run& run : runs) {
        if (run.run_type != Run::RT_Iteration) continue;
        const std::string& name = run.run_name.function_name;
        if (run.error_occurred) failures_[name] = run.error_message;
        for (const auto& [counter, value] : run.counters)
            results_[name][counter].push_back(value);
    }
}

const Table::Rounds* Table::rounds(const std::string& benchmark, const std::string& counter) const
{
    const auto results = results_.find(benchmark);
    if (results == results_.end()) return nullptr;
    const auto found = results->second.find(counter);
    return found == results->second.end() ? nullptr : &found->second;
}

std::string Table::row(const Line& line) const
{
    const std::string label = line.label + ", " + line.counter;
    const Rounds* const figure = rounds(line.figure, line.counter);
    if (figure == nullptr) {
        const auto why = failures_.find(line.figure);
        return cells({label, "-", "-", "-", "not measured"}) +
               (why == failures_.end() ? "" : "  not measured: " + why->second + '\n');
    }
    const Rounds* const floor = rounds(line.floor, line.floorCounter);
    if (floor == nullptr) return cells({label, number(median(*figure)), "", "", ""});

    const double ratio = median(*figure) / median(*floor);
    std::string goal;
    if (line.goal != Goal::none) {
        const bool met = line.goal == Goal::atLeast ? ratio >= line.limit : ratio <= line.limit;
        goal = (line.goal == Goal::atLeast ? ">= " : "<= ") + number(line.limit) + (met ? ", met" : ", MISSED");
    }
    return cells({label, number(median(*figure)), number(median(*floor)), number(ratio), goal});
}

bool Table::print(std::ostream& out) const
{
    bool complete = true;
    std::string section;
    for (const Line& line : lines_) {
        if (line.section != section) {
            section = line.section;
            out << '\n'
                << cells({section, "median", "floor", "ratio", "goal"}) << cells({":--", "--:", "--:", "--:", ":--"});
        }
        out << row(line);
        if (rounds(line.figure, line.counter) == nullptr) complete = false;
    }
    out << std::flush;
    return complete;
}

} // namespace bench

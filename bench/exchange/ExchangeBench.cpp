#include "bench/exchange/ExchangeBench.h"

#include <algorithm>
#include <functional>
#include <memory>

#include <sys/resource.h>
#include <ubxController.h>
#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include "bench/exchange/Bare.h"
#include "bench/exchange/Peer.h"
#include "bench/table/Clock.h"
#include "sandbox/Sandbox.h"

namespace bench
{

namespace
{

constexpr const char* kMedian = "us (median)";
constexpr const char* kSlow = "us (99th percentile)";
constexpr const char* kBareMedian = "us (median), bare";
constexpr const char* kBareSlow = "us (99th percentile), bare";

using Exchange = std::function<bool()>;
using Times = std::vector<double>;

/// An exchange by the library and by nothing but its system calls, with the same peer.
struct Pair
{
    std::string name;
    std::shared_ptr<Peer> peer;
    Exchange library;
    std::function<void()> bare;
};

double quantile(Times& times, std::size_t percent)
{
    std::sort(times.begin(), times.end());
    return times[times.size() * percent / 100];
}

/// How often the system took the processor from this thread to give it to another.
long timesInterrupted()
{
    rusage usage{};
    ::getrusage(RUSAGE_THREAD, &usage);
    return usage.ru_nivcsw;
}

// An exchange that other programs interrupted tells of them and is left out.
template <typename Action>
void timeOnce(Times& times, Action action)
{
    const long before = timesInterrupted();
    const ElapsedTime watch;
    action();
    const double time = watch.seconds() * 1e6;
    if (timesInterrupted() == before) times.push_back(time);
}

// By turns, so that whatever else the machine does meets both alike.
void timeByTurns(benchmark::State& state, const Pair& pair, int count)
{
    sandbox::linkGps(pair.peer->device());
    runOn(0);
    Times library;
    Times bare;
    bool good = true;
    for (int i = 0; i < count; ++i) {
        timeOnce(library, [&] { good = pair.library() && good; });
        timeOnce(bare, pair.bare);
    }
    if (!good) return state.SkipWithError("an exchange failed");
    if (library.empty() || bare.empty()) return state.SkipWithError("other programs interrupted every exchange");
    state.counters[kMedian] = quantile(library, 50);
    state.counters[kSlow] = quantile(library, 99);
    state.counters[kBareMedian] = quantile(bare, 50);
    state.counters[kBareSlow] = quantile(bare, 99);
}

} // namespace

std::vector<Line> exchanges(const Effort& effort)
{
    const auto neoM8t = std::make_shared<Peer>("00080000");
    const auto zedF9t = std::make_shared<Peer>("00190000");
    const auto oneModel = std::make_shared<ubxController_NEOM8T>();
    const auto otherModel = std::make_shared<ubxController_ZEDF9T>("TIM 2.20", true);
    const Bytes navx5Poll = makeFrame(0x06, 0x23, {});
    const Bytes valgetPoll = makeFrame(0x06, 0x8B, {0, 0, 0, 0, 0xA3, 0x00, 0x11, 0x20});
    const Bytes saveCommand = makeFrame(0x06, 0x09, Bytes(13, 0));

    const auto query = [](auto controller) {
        return [controller] {
            signed char minCNo = 0;
            return controller->getMinCNo(minCNo) == 0 && minCNo == 6;
        };
    };
    const Pair pairs[] = {
        {"query", neoM8t, query(oneModel), [=] { barePoll(navx5Poll, Peer::kNavx5Length); }},
        {"query by key", zedF9t, query(otherModel),
         [=] { barePollThroughSecondPort(valgetPoll, Peer::kValgetLength); }},
        {"command", neoM8t, [=] { return oneModel->save() == 0; }, [=] { bareCommand(saveCommand); }},
        {"start-up", neoM8t,
         [] {
             const ubxController controller;
             return true;
         },
         bareStartUp},
    };
    for (const Pair& pair : pairs)
        measure(pair.name, effort.rounds,
                [pair, count = effort.exchanges](benchmark::State& state) { timeByTurns(state, pair, count); });

    const std::string section = "Exchanges over a pseudo terminal; floor: bare system calls";
    std::vector<Line> lines;
    for (const char* name : {"query", "query by key", "command"}) {
        lines.push_back({section, name, name, name, kMedian, Goal::atMost, 1.15, kBareMedian});
        lines.push_back({section, name, name, name, kSlow, Goal::atMost, 1.4, kBareSlow});
    }
    const char* const startUp = "start-up";
    const std::string label = "ubxController(); floor: its frames alone";
    lines.push_back({section, label, startUp, startUp, kMedian, Goal::none, 0, kBareMedian});
    lines.push_back({section, label, startUp, startUp, kSlow, Goal::none, 0, kBareSlow});
    return lines;
}

} // namespace bench

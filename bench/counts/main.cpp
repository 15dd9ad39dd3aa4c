// ubxcounts: the system calls, heap allocations and bytes copied of an exchange, by the library and bare.

#include <cstdlib>
#include <iomanip>
#include <iostream>
#include <stdexcept>

#include <ubxController_NEOM8T.h>
#include <ubxController_ZEDF9T.h>

#include "bench/counts/SystemCalls.h"
#include "bench/exchange/Bare.h"
#include "bench/exchange/Peer.h"
#include "sandbox/Sandbox.h"

namespace
{

using bench::Peer;

// Reads without bytes are as many as the receiver is late, here by the watching.
constexpr const char* kCalls[] = {"open", "ioctl", "write", "fsync", "read", "close", "sigmask"};

void printHead()
{
    std::cout << "| exchange                 ";
    for (const char* call : kCalls)
        std::cout << "| " << std::setw(7) << call << ' ';
    std::cout << "| others | allocations | bytes copied |\n| :--                      ";
    for (std::size_t i = 0; i < std::size(kCalls); ++i)
        std::cout << "|     --: ";
    std::cout << "|    --: |         --: |          --: |\n";
}

void print(const std::string& name, const bench::Work& work)
{
    std::cout << "| " << std::left << std::setw(25) << name << std::right;
    std::size_t others = work.calls();
    for (const char* call : kCalls) {
        const auto found = work.systemCalls.find(call);
        const std::size_t count = found == work.systemCalls.end() ? 0 : found->second;
        others -= count;
        std::cout << "| " << std::setw(7) << count << ' ';
    }
    const auto late = work.systemCalls.find("read without bytes");
    if (late != work.systemCalls.end()) others -= late->second;
    std::cout << "| " << std::setw(6) << others << " | " << std::setw(11) << work.memory.allocations << " | "
              << std::setw(12) << work.memory.copied << " |" << std::endl;
}

template <typename Controller>
void query(Controller& controller)
{
    signed char minCNo = 0;
    if (controller.getMinCNo(minCNo) != 0) throw std::runtime_error("a query without its answer");
}

void count()
{
    const bench::Bytes navx5Poll = bench::makeFrame(0x06, 0x23, {});
    const bench::Bytes valgetPoll = bench::makeFrame(0x06, 0x8B, {0, 0, 0, 0, 0xA3, 0x00, 0x11, 0x20});
    const bench::Bytes save = bench::makeFrame(0x06, 0x09, bench::Bytes(13, 0));
    const Peer peer("00080000");
    sandbox::linkGps(peer.device());
    ubxController_NEOM8T neoM8t;
    ubxController_ZEDF9T zedF9t("TIM 2.20", true);

    printHead();
    print("query by message", bench::watch([&] { query(neoM8t); }));
    print("  bare", bench::watch([&] { bench::barePoll(navx5Poll, Peer::kNavx5Length); }));
    print("query by key", bench::watch([&] { query(zedF9t); }));
    print("  bare", bench::watch([&] { bench::barePollThroughSecondPort(valgetPoll, Peer::kValgetLength); }));
    print("command", bench::watch([&] { neoM8t.save(); }));
    print("  bare", bench::watch([&] { bench::bareCommand(save); }));
}

} // namespace

int main()
{
    const sandbox::Outcome outcome = sandbox::enter();
    if (!outcome.entered) {
        std::cerr << "ubxcounts: " << outcome.why << '\n';
        return EXIT_FAILURE;
    }
    try {
        count();
    } catch (const std::exception& error) {
        std::cerr << "ubxcounts: " << error.what() << '\n';
        return EXIT_FAILURE;
    }
    return EXIT_SUCCESS;
}

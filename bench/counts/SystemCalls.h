#pragma once

#include <functional>
#include <map>
#include <string>

#include "bench/counts/Counters.h"

namespace bench
{

/// What an action did.
struct Work
{
    std::map<std::string, std::size_t> systemCalls; ///< How often, by name.
    MemoryWork memory;

    std::size_t calls() const;
};

/// Does the action in a process that is watched: once to warm up, then once to be counted.
Work watch(const std::function<void()>& action);

} // namespace bench

#pragma once

#include <ostream>
#include <vector>

#include <ubxController_ZEDF9T.h>

namespace zedtest
{

/// A setting through the configuration interface that is read back, with one value.
struct ItemSetter
{
    const char* name;
    int (*set)(ubxController_ZEDF9T&);
    const char* command;              // the whole frame
    std::vector<const char*> polls;   // what is read back, whole frames
    std::vector<const char*> labels;  // what the log calls that
    std::vector<const char*> written; // items of the replies of a receiver that holds what was written,
    std::vector<const char*> other;   // and of one that holds another value
    int silentStatus;                 // 4, and 1 besides unless the value is the one that a missing reply leaves
};

inline void PrintTo(const ItemSetter& setter, std::ostream* out)
{
    *out << setter.name;
}

extern const std::vector<ItemSetter> kItemSetters;

} // namespace zedtest

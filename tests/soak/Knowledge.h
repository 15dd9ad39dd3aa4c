#pragma once

#include "Settings.h"

namespace soak
{

/// Arguments, as many as the operation has.
struct Arguments
{
    long first = 0;
    long second = 0;
};

/// What goes along with every time pulse that is set by message: what the library has put into its message last.
struct PulseTemplate
{
    long delay = 0;
    long pulse = 0;
    long active = 1;
};

/// What is known of a receiver, and of the library as it speaks to this one.
struct Knowledge
{
    Settings settings{};
    Settings saved{};
    Settings factory{};
    PulseTemplate pulseTemplate;
    Settings found{}; ///< what the polls of an operation have brought for its later steps
};

} // namespace soak

#pragma once

#include <string>

#include <UBXControlInterface.h>

namespace fuzz
{

using Control = UBXControlInterface;

// Getters by the type of their value. What they leave as it was shows as such.

template <typename Number, int (Control::*query)(Number&)>
int askNumber(Control& control, std::string& shown)
{
    auto value = static_cast<Number>(99);
    const int status = (control.*query)(value);
    shown = std::to_string(value);
    return status;
}

template <int (Control::*query)(std::string&)>
int askText(Control& control, std::string& shown)
{
    shown = "as before";
    return (control.*query)(shown);
}

} // namespace fuzz

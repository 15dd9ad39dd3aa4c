#pragma once

#include <functional>
#include <string>
#include <vector>

#include <UBXControlInterface.h>
#include <UBXMessage.h>

namespace demo
{

/// A setting that can be read.
struct Readable
{
    std::string name;
    UBXMessageClassIdValues message; ///< what a receiver answers with when its legacy messages are used
    std::function<int(UBXControlInterface&, std::string& text)> read;
};

/// All settings that can be read, in the order in which the demo shows them.
const std::vector<Readable>& readables();

/// The one with this name. @throws std::out_of_range when there is none.
const Readable& readable(const std::string& name);

/// "GPS, Galileo" for 5.
std::string constellations(unsigned short gnssMask);

/// "stationary, 3D only" for 2 and 2.
std::string dynamics(unsigned char model, unsigned char fixMode);

} // namespace demo

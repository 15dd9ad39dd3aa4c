// ubxctl: the operator's command-line tool for the receiver.

#include "commandline/CommandLine.h"

int main(int argc, char** argv)
{
    return ubxctl::run({argv + 1, argv + argc}, ubxctl::Surroundings::real());
}

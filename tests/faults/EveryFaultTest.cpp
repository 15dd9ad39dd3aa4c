#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "Files.h"
#include "simulator/faults/ActionText.h"

namespace
{

/// How the words of all faults and events begin, from what ubxsim tells people: the rows of its help.
std::vector<std::string> allFaults()
{
    std::vector<std::string> faults;
    std::istringstream help(ubxsim::actionHelp());
    for (std::string line; std::getline(help, line);) {
        if (line.rfind("  ", 0) != 0 || line.size() < 4 || line[2] < 'a' || line[2] > 'z') continue;
        const std::size_t end = line.find("  ", 2);
        if (end == std::string::npos) continue; // a sentence
        const std::string usage = line.substr(2, end - 2);
        const std::size_t arguments = usage.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
        faults.push_back(arguments == std::string::npos ? usage : usage.substr(0, arguments));
    }
    return faults;
}

TEST(EveryFault, OfTheSimulatorIsPlayedInATest)
{
    std::string tests;
    for (const char* file : {"AnswersTest.cpp", "OutagesTest.cpp", "SurroundingsTest.cpp"})
        tests += testsupport::slurp(testsupport::sourceDirectory() / "tests/faults" / file);

    EXPECT_GE(allFaults().size(), 30U);
    for (const std::string& fault : allFaults()) {
        EXPECT_NE(tests.find('"' + fault), std::string::npos) << "no test plays " << fault;
    }
}

} // namespace

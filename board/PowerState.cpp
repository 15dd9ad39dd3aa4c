#include "board/PowerState.h"

namespace ubx
{

namespace
{

/// Of the letters a to z only, whatever the locale and whether or not char is signed.
char upperCase(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

} // namespace

PowerState powerStateOf(std::string word)
{
    for (char& letter : word)
        letter = upperCase(letter);
    if (word == "ON") return PowerState::on;
    if (word == "OFF") return PowerState::off;
    return PowerState::unknown;
}

} // namespace ubx

#include "Bytes.h"

#include <stdexcept>

namespace testsupport
{

namespace
{

constexpr std::string_view kDigits = "0123456789ABCDEF";
constexpr std::string_view kBlanks = " \n\t";

int digit(char letter)
{
    const char upper = letter >= 'a' && letter <= 'f' ? static_cast<char>(letter - 'a' + 'A') : letter;
    const std::size_t value = kDigits.find(upper);
    return value == std::string_view::npos ? -1 : static_cast<int>(value);
}

} // namespace

Bytes bytes(std::string_view hex)
{
    Bytes result;
    std::size_t at = hex.find_first_not_of(kBlanks);
    while (at != std::string_view::npos) {
        const std::string_view word = hex.substr(at, hex.find_first_of(kBlanks, at) - at);
        const int high = digit(word[0]);
        const int low = word.size() == 2 ? digit(word[1]) : -1;
        if (high < 0 || low < 0) {
            throw std::invalid_argument("not a byte: \"" + std::string(word) + "\" at column " +
                                        std::to_string(at + 1) + " of \"" + std::string(hex) + "\"");
        }
        result.push_back(static_cast<std::uint8_t>(high * 16 + low));
        at = hex.find_first_not_of(kBlanks, at + word.size());
    }
    return result;
}

std::string hex(const Bytes& bytes)
{
    std::string text;
    for (const std::uint8_t byte : bytes) {
        if (!text.empty()) text += ' ';
        text += kDigits[byte >> 4];
        text += kDigits[byte & 0x0F];
    }
    return text;
}

} // namespace testsupport

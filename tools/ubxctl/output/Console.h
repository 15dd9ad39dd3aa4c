#pragma once

#include <string>
#include <string_view>

namespace ubxctl
{

/// The operator's standard output and standard error.
///
/// The library prints on both as well. While a console exists, what it prints on standard output is kept aside, so that
/// it can't get between the lines of a table or of a JSON object, and what it prints on standard error is dropped
/// unless the operator wants to see it. One console at a time.
class Console
{
public:
    /// @param verbose  lets the library's own lines through, all of them on standard error.
    explicit Console(bool verbose);
    ~Console();
    Console(const Console&) = delete;
    Console& operator=(const Console&) = delete;

    /// To standard output. @throws Failure when it can't be written (a full disk, say).
    void write(std::string_view text);

    /// One line to standard error, whatever it holds.
    void complain(std::string_view line);

    bool isTerminal() const { return isTerminal_; }
    /// Colour is for terminals only, and not for operators who have NO_COLOR set.
    bool hasColours() const { return hasColours_; }

    struct Size
    {
        int columns;
        int rows;
    };
    /// Of the terminal, as it is now; 80 x 24 when there is none.
    Size size() const;

    /// What the library has printed on standard output since the last call.
    std::string takeLibraryOutput();

private:
    bool verbose_;
    int output_;
    int errors_;
    int aside_ = -1;
    bool isTerminal_;
    bool hasColours_;
};

} // namespace ubxctl

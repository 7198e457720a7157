// SPDX-License-Identifier: MIT
#ifndef QXQR_COLOUR_HPP
#define QXQR_COLOUR_HPP

#include "CommandLine.hpp"

#include <string>

namespace qxqr {

// Whether text output is coloured, as --color says: "always", "never", or
// "auto" (the default): on when standard output is a terminal and the
// environment does not set NO_COLOR to a non-empty value.
class Colour {
public:
    void addOption(Subcommand& command);
    // Decides once, when the command runs.
    bool enabled() const;

private:
    std::string when = "auto";
};

// The terminal's escape sequences for what the text marks; each is
// empty when colour is off.
struct Palette {
    explicit Palette(bool on);

    std::string holds;    // a true value
    std::string fails;    // a false value
    std::string unasked;  // what was not evaluated
    std::string deciding; // the rule that decided
    std::string reset;
};

} // namespace qxqr

#endif

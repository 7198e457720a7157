// SPDX-License-Identifier: MIT
#include "Colour.hpp"

#include <cstdlib>
#include <unistd.h>

namespace qxqr {

void Colour::addOption(Subcommand& command) {
    command.option("--color", when, "colour the text: auto (on a terminal, unless NO_COLOR is set), always, never")
        .typeName("WHEN")
        .oneOf({"auto", "always", "never"});
}

bool Colour::enabled() const {
    if (when != "auto")
        return when == "always";
    const char* noColour = std::getenv("NO_COLOR");
    return ::isatty(STDOUT_FILENO) && (noColour == nullptr || *noColour == '\0');
}

Palette::Palette(bool on) {
    if (!on)
        return;
    holds = "\033[32m";
    fails = "\033[31m";
    unasked = "\033[2m";
    deciding = "\033[1m";
    reset = "\033[0m";
}

} // namespace qxqr

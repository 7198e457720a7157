// SPDX-License-Identifier: MIT
#include "Progress.hpp"

#include <cstdio>

#include <unistd.h>

namespace qxqr {

namespace {

const std::chrono::milliseconds delayBeforeShowing(500);
const std::chrono::milliseconds refreshInterval(100);

} // namespace

Progress::Progress(bool wanted)
    : enabled(wanted && ::isatty(STDERR_FILENO) && !::isatty(STDOUT_FILENO)), started(Clock::now()) {}

Progress::~Progress() {
    if (shown)
        std::fputs("\r\033[K", stderr);
}

void Progress::update(std::size_t visited, std::size_t waiting) {
    if (!enabled)
        return;
    Clock::time_point now = Clock::now();
    if (now - started < delayBeforeShowing || (shown && now - lastShown < refreshInterval))
        return;
    std::fprintf(stderr, "\rqxqr: %zu files walked, %zu waiting\033[K", visited, waiting);
    std::fflush(stderr);
    shown = true;
    lastShown = now;
}

} // namespace qxqr

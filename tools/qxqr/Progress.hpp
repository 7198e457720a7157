// SPDX-License-Identifier: MIT
#ifndef QXQR_PROGRESS_HPP
#define QXQR_PROGRESS_HPP

#include <chrono>
#include <cstddef>

namespace qxqr {

// A one-line count of a long walk on standard error, shown only to a person
// watching a terminal while the answer goes elsewhere (to a file or a pipe;
// on the terminal, the answer streaming past shows the progress itself, and
// the count would mix with it): it appears once the walk has taken half a
// second, is refreshed at most ten times a second, and is erased when the
// walk ends.
class Progress {
public:
    // Shown only if `wanted`, standard error is a terminal and standard
    // output is not.
    explicit Progress(bool wanted);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void update(std::size_t visited, std::size_t waiting);

private:
    using Clock = std::chrono::steady_clock;

    bool enabled;
    bool shown = false;
    Clock::time_point started;
    Clock::time_point lastShown;
};

} // namespace qxqr

#endif

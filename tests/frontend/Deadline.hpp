// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_FRONTEND_DEADLINE_HPP
#define QXQRSCRIPT_TESTS_FRONTEND_DEADLINE_HPP

#include <unistd.h>

// While it exists, the test process is ended by SIGALRM once `seconds` have
// passed: a test of something that must not wait fails, instead of hanging,
// when it does wait.
class Deadline {
public:
    explicit Deadline(unsigned seconds) { ::alarm(seconds); }
    Deadline(const Deadline&) = delete;
    Deadline& operator=(const Deadline&) = delete;
    ~Deadline() { ::alarm(0); }
};

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_OBSERVE_FOREIGNRULES_HPP
#define QXQRSCRIPT_TESTS_OBSERVE_FOREIGNRULES_HPP

#include "StubRules.hpp"

#include <ostream>

// A rule set of a host's own making, which excludes and prunes every file:
// the observation interface has nothing of it to show.
class ForeignRules : public StubRules {
public:
    ForeignRules() { lastMatchText = "foreign"; }

    bool isExcluded(const char*, const char*, const char*) override { return true; }
    bool isPruned(const char*, const char*, const char*) override { return true; }
    std::ostream& print(std::ostream& os) const override { return os << "exclude if true\n"; }
};

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_STUBRULES_HPP
#define QXQRSCRIPT_TESTS_STUBRULES_HPP

#include <qxqrscript/Rules.hpp>

#include <ostream>
#include <string>

// A rule set of a host's own making that does nothing: it keeps every file,
// includes nothing, takes every setting without effect and prints nothing.
// A test derives from it and overrides only what it looks at.
class StubRules : public QuorelScript::Rules {
public:
    bool isExcluded(const char*, const char*, const char*) override { return false; }
    bool isPruned(const char*, const char*, const char*) override { return false; }
    void getIncludes(const char*, const char*, QuorelRules::Includer&) override {}
    void setVantorRoot(const char*) override {}
    void setCwd(const char*) override {}
    int setCwdFromProcess() override { return 0; }
    void bindVariable(const char*, const char*) override {}
    void precompute() override {}
    std::ostream& print(std::ostream& os) const override { return os; }
    const std::string& getLastMatchText() const override { return lastMatchText; }

protected:
    std::string lastMatchText;
};

#endif

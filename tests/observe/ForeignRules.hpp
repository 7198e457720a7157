// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_OBSERVE_FOREIGNRULES_HPP
#define QXQRSCRIPT_TESTS_OBSERVE_FOREIGNRULES_HPP

#include <qxqrscript/Rules.hpp>

#include <ostream>
#include <string>

// A rule set of a host's own making, which excludes and prunes every file:
// the observation interface has nothing of it to show.
class ForeignRules : public QuorelScript::Rules {
public:
    bool isExcluded(const char*, const char*, const char*) override { return true; }
    bool isPruned(const char*, const char*, const char*) override { return true; }
    void getIncludes(const char*, const char*, QuorelRules::Includer&) override {}
    void setVantorRoot(const char*) override {}
    void setCwd(const char*) override {}
    int setCwdFromProcess() override { return 0; }
    void bindVariable(const char*, const char*) override {}
    void precompute() override {}
    std::ostream& print(std::ostream& os) const override { return os << "exclude if true\n"; }
    const std::string& getLastMatchText() const override { return text; }

private:
    std::string text = "foreign";
};

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_HPP
#define QXQRSCRIPT_RULES_HPP

#include <qxqrscript/QuorelRules.hpp>
#include <qxqrscript/version.hpp>

#include <iosfwd>
#include <string>

namespace QuorelScript {

// A rule set as the library hands it out: the host queries plus
// configuration, precomputation, printing and the text of the last match.
class QXQRSCRIPT_API Rules : public QuorelRules {
public:
    ~Rules() override;

    // The installation root; the variables $vantor and $toolbox derive from it.
    // Null sets the empty root, as "" does.
    virtual void setVantorRoot(const char* root) = 0;
    // The directory that $cwd names; null sets the empty directory, as "" does.
    virtual void setCwd(const char* dir) = 0;
    // setCwd with the process's current directory. The result has no meaning.
    virtual int setCwdFromProcess() = 0;
    // Substitutes one variable into every rule condition; null arguments are ignored.
    virtual void bindVariable(const char* name, const char* value) = 0;
    // Binds the known variables, merges the exclude rules and the prune rules
    // into one rule each and simplifies their conditions. Run once, after
    // configuration and before the queries.
    virtual void precompute() = 0;
    virtual std::ostream& print(std::ostream& os) const = 0;
    // The text of the rule that decided the last true exclude or prune query.
    virtual const std::string& getLastMatchText() const = 0;
};

} // namespace QuorelScript

// Prints the rule set; a null `rules` prints nothing.
QXQRSCRIPT_API std::ostream& operator<<(std::ostream& os, const QuorelScript::Rules* rules);

#endif

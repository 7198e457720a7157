#ifndef QXQRSCRIPT_TESTS_FRONTEND_FRONTENDTESTING_HPP
#define QXQRSCRIPT_TESTS_FRONTEND_FRONTENDTESTING_HPP

#include <qxqrscript/Rules.hpp>

#include <memory>
#include <sstream>
#include <string>

namespace FrontendTesting {

// The printed form of a rule set.
inline std::string printed(const QuorelScript::Rules& rules) {
    std::ostringstream out;
    out << &rules;
    return out.str();
}

// The message a syntax error on `line` of the script `name` at `text` produces.
inline std::string syntaxErrorMessage(const std::string& name, int line, const std::string& text) {
    return "Syntax error in quorel rules script (" + name + ") at line " + std::to_string(line) + ":\n" + text + "\n\n";
}

} // namespace FrontendTesting

#endif

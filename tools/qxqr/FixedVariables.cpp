// SPDX-License-Identifier: MIT
#include "FixedVariables.hpp"

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/Rules.hpp>

#include <memory>

namespace qxqr {

namespace {

using QuorelScript::Observe::Variable;

std::vector<Variable> askedOfTheLibrary() {
    static const char* const names[] = {"arch", "lib", "vrk"};
    QuorelScript::Parser parser;
    const std::unique_ptr<QuorelScript::Rules> rules(parser.parse("exclude if true\n"));
    std::vector<Variable> fixed;
    if (!rules)
        return fixed;
    // The one rule asks nothing of the file system.
    const QuorelScript::Observe::QueryTrace trace =
        QuorelScript::Observe::traceQuery(*rules, QuorelScript::Observe::Question::Excluded, "", "");
    for (const char* name : names)
        for (const Variable& variable : trace.variables)
            if (variable.name == name)
                fixed.push_back(variable);
    return fixed;
}

} // namespace

const std::vector<Variable>& fixedVariables() {
    static const std::vector<Variable> variables = askedOfTheLibrary();
    return variables;
}

} // namespace qxqr

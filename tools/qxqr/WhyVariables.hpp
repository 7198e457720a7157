// SPDX-License-Identifier: MIT
#ifndef QXQR_WHYVARIABLES_HPP
#define QXQR_WHYVARIABLES_HPP

#include <qxqrscript/observe.hpp>

#include <map>
#include <optional>
#include <string>
#include <vector>

namespace QuorelScript {
class Rules;
}

namespace qxqr {

// A variable as `why` shows it, with the value the question gave it; no
// value when nothing bound it, so that it stayed in the text as written.
struct ShownVariable {
    std::string name;
    std::optional<std::string> value;
};

// The variables that `why` shows for each question: those that the rules of
// the kind asked about refer to, as the scripts wrote them, each once, in the
// order written (an include rule's paths before its condition).
class WhyVariables {
public:
    // Taken from `rules` before anything is bound into them: a value bound
    // into a condition (with --set, or by precompute) takes the name out.
    // `setValues` are the values that --set binds into the conditions.
    WhyVariables(const QuorelScript::Rules& rules, std::map<std::string, std::string> setValues);

    // A name that a condition refers to has its --set value, if it has one;
    // any other has the value that `trace`'s query bound, if any.
    std::vector<ShownVariable> shown(const QuorelScript::Observe::QueryTrace& trace) const;

private:
    struct Written {
        std::string name;
        bool inCondition = false;
    };
    std::map<QuorelScript::Observe::RuleKind, std::vector<Written>> written;
    std::map<std::string, std::string> setValues;
};

} // namespace qxqr

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_OBSERVE_RULEVIEW_HPP
#define QXQRSCRIPT_OBSERVE_RULEVIEW_HPP

#include "observe/ConditionView.hpp"
#include "rules/Rule.hpp"

#include <qxqrscript/observe.hpp>

#include <cstddef>
#include <vector>

namespace QuorelScript {

// A rule as plain values, the `position`th of its kind; with `sources`, the
// expression of each node of its condition (see conditionView).
Observe::Rule ruleView(const ExcludeRule& rule, std::size_t position, std::vector<NodeSource>* sources = nullptr);
Observe::Rule ruleView(const PruneRule& rule, std::size_t position, std::vector<NodeSource>* sources = nullptr);
Observe::Rule ruleView(const IncludeRule& rule, std::size_t position, std::vector<NodeSource>* sources = nullptr);

} // namespace QuorelScript

#endif

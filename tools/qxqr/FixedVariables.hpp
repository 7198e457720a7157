// SPDX-License-Identifier: MIT
#ifndef QXQR_FIXEDVARIABLES_HPP
#define QXQR_FIXEDVARIABLES_HPP

#include <qxqrscript/observe.hpp>

#include <vector>

namespace qxqr {

// The variables whose values the platform fixes, the same for every file:
// $arch, $lib and $vrk, in the order precompute binds them into every rule
// set where the host has not bound them itself. The values are the
// library's own, as a query binds them: a query traced over a rule set of
// one rule gives them, so the tool keeps no copy of them.
const std::vector<QuorelScript::Observe::Variable>& fixedVariables();

} // namespace qxqr

#endif

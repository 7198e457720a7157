// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_LIBRARYRULES_HPP
#define QXQR_BENCH_LIBRARYRULES_HPP

#include "Settings.hpp"

#include <qxqrscript/Rules.hpp>

#include <memory>
#include <string>

namespace qxqr::bench {

enum class Preparation { asParsed, precomputed };

// The library's rule set for `script`, configured with `settings` as a host
// would, and precomputed when asked. Throws std::runtime_error with the
// library's report if the script does not parse.
std::unique_ptr<QuorelScript::Rules> libraryRules(const std::string& script, const Settings& settings,
                                                  Preparation preparation);

} // namespace qxqr::bench

#endif

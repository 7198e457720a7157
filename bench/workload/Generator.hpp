// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_GENERATOR_HPP
#define QXQR_BENCH_GENERATOR_HPP

#include "Rule.hpp"
#include "Settings.hpp"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace qxqr::bench {

// Rule sets and query files as a dependency-analysis host meets them. Both
// are deterministic: the same arguments always give the same result, on any
// machine (the random numbers come from std::mt19937, whose sequence the
// standard fixes, and are reduced without the library's distributions).

// `count` rules: every second one an exclude rule, every fourth a prune
// rule, every fourth an include rule, each drawn from a handful of
// everyday forms (prefix lists under the installation, the project and the
// system headers; extensions; a directory but one name; the toolbox;
// loadable modules; headers and modules that come with a source).
std::vector<Rule> generateRules(std::size_t count, std::uint32_t seed);

// `count` files to ask about, each given as the host gives it (absolute, in
// normal form). About half are made from a randomly chosen rule's hit
// example, so that some rule holds for them; the others are project files
// that no generated rule holds for.
std::vector<std::string> generateQueries(const std::vector<Rule>& rules, const Settings& settings, std::size_t count,
                                         std::uint32_t seed);

// The file that a hit or miss example stands for: the host's values filled
// in, and "{stem}" replaced by "f" and the number `stem`.
std::string exampleFile(const std::string& example, const Settings& settings, std::size_t stem);

} // namespace qxqr::bench

#endif

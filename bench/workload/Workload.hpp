// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_WORKLOAD_HPP
#define QXQR_BENCH_WORKLOAD_HPP

#include "Rule.hpp"
#include "Settings.hpp"

#include <cstddef>
#include <string>
#include <vector>

namespace qxqr::bench {

// Everything one measurement needs: the rule model, its script, the host's
// settings and the files to ask about.
struct Workload {
    Settings settings;
    std::vector<Rule> rules;
    std::string script;
    std::vector<std::string> queries;
    std::string caller; // the file every query names as the one that referred to it
};

// How many files each workload asks about.
constexpr std::size_t queryCount = 20000;

// The workload of `ruleCount` rules, generated with fixed seeds the first
// time it is asked for and kept for the rest of the process.
const Workload& workload(std::size_t ruleCount);

// How many rules the long script of disjunctions has.
constexpr std::size_t disjunctionCount = 200000;

// A long script of rules "exclude if $file == /p/N.c or $ext == .oN", N
// from 1 to `disjunctionCount`: what merging many rules into one costs.
// Made the first time it is asked for and kept.
const std::string& disjunctionScript();

} // namespace qxqr::bench

#endif

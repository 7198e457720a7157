// SPDX-License-Identifier: MIT
#ifndef QXQR_WHYTEXT_HPP
#define QXQR_WHYTEXT_HPP

#include "Colour.hpp"
#include "FileTraces.hpp"
#include "WhyVariables.hpp"

#include <string>

namespace qxqr {

// The text `why` writes for one file: its verdict, then for each question
// the variables that its rules refer to, with their values, and the rules
// in order, each with its condition as an indented tree, every
// node marked with its value ("true", "false", or "-" when it was not
// evaluated), every path shown as written and, once evaluated, with what its
// variables made of it. The rule that decided is marked; the rules after it
// are listed as not evaluated.
std::string whyText(const FileTraces& traces, const WhyVariables& variables, const Palette& palette);

} // namespace qxqr

#endif

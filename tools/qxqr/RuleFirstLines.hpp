// SPDX-License-Identifier: MIT
#ifndef QXQR_RULEFIRSTLINES_HPP
#define QXQR_RULEFIRSTLINES_HPP

#include "ScriptLoader.hpp"

#include <qxqrscript/observe.hpp>

#include <map>
#include <vector>

namespace qxqr {

// The line, counted from 1, on which each rule's statement begins in its
// script's text. The library records a rule at the line its counter shows
// where the condition ends, and that counter counts a line end once more
// for every attempt of the grammar that read it and then failed (a "..."
// continuation before "or" is counted twice): the recorded line may lie
// past the rule's last line, by as much as its continuations and those
// before it add. So the statements are found here by walking the text as
// the grammar reads it between them: blanks, "..." continuations, comments
// (themselves continued by "..."), blank lines. Each statement is the next
// rule of its kind from that script, whose recorded text begins there.
// `texts` are the scripts in the order parsed, `rules` as rulesOf gives
// them. A rule that the walk does not reach has no entry. Linear in the
// texts; no stack taken for every continuation.
using FirstLines = std::map<const QuorelScript::Observe::Rule*, long>;
FirstLines firstLinesOf(const ScriptTexts& texts, const std::vector<QuorelScript::Observe::Rule>& rules);

} // namespace qxqr

#endif

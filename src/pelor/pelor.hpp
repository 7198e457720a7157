// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_PELOR_PELOR_HPP
#define QXQRSCRIPT_PELOR_PELOR_HPP

// The whole parser-combinator framework.
//
// A grammar is a set of rules, each holding one expression built from
// primitives (literals, character classes, epsilon, end of input), adapters
// (sequence, choice, repetition, look-ahead, action, chain, counted and
// bounded nesting) and references to other rules. Matching prints nothing,
// throws nothing of its own and allocates nothing; only a grammar's actions
// do what they do.

#include "pelor/parser.hpp"
#include "pelor/ref.hpp"
#include "pelor/rule.hpp"
#include "pelor/rule_impl.hpp"
#include "pelor/rule_impl_base.hpp"

#include "pelor/char_class.hpp"
#include "pelor/end_of_input.hpp"
#include "pelor/epsilon.hpp"
#include "pelor/literal_string.hpp"

#include "pelor/alnum.hpp"
#include "pelor/alpha.hpp"
#include "pelor/exact_char.hpp"
#include "pelor/not_char_predicate.hpp"
#include "pelor/or_char_predicate.hpp"
#include "pelor/word_char.hpp"

#include "pelor/action_adapter.hpp"
#include "pelor/and_adapter.hpp"
#include "pelor/balanced_adapter.hpp"
#include "pelor/chain_adapter.hpp"
#include "pelor/epsilon_adapter.hpp"
#include "pelor/nesting_adapter.hpp"
#include "pelor/or_adapter.hpp"
#include "pelor/repeat_adapter.hpp"

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_GRAMMARCONSTANTS_HPP
#define QXQRSCRIPT_GRAMMAR_GRAMMARCONSTANTS_HPP

#include "expr/BooleanLiteral.hpp"

#include <string>

// The constants the grammar is built from. They are created once, when the
// library is loaded, and only read afterwards, so every parser shares them.
namespace QuorelScript::GrammarConstants {

extern const char space;
extern const char tab;
extern const std::string crlf;
extern const char lineFeed;

// The literals that "true" and "false" in a script produce clones of.
extern const BooleanLiteral trueLiteral;
extern const BooleanLiteral falseLiteral;

} // namespace QuorelScript::GrammarConstants

#endif

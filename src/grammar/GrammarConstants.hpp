// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_GRAMMARCONSTANTS_HPP
#define QXQRSCRIPT_GRAMMAR_GRAMMARCONSTANTS_HPP

#include "expr/BooleanLiteral.hpp"

#include <string>

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

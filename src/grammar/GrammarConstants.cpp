// SPDX-License-Identifier: MIT
#include "grammar/GrammarConstants.hpp"

namespace QuorelScript::GrammarConstants {

const char space = ' ';
const char tab = '\t';
const std::string crlf = "\r\n";
const char lineFeed = '\n';

const BooleanLiteral trueLiteral(true);
const BooleanLiteral falseLiteral(false);

} // namespace QuorelScript::GrammarConstants

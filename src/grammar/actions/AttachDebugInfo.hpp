// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_ATTACHDEBUGINFO_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_ATTACHDEBUGINFO_HPP

#include "grammar/ParserImpl.hpp"
#include "grammar/actions/ParserAction.hpp"

#include <ostream>
#include <sstream>
#include <string>

namespace QuorelScript {

// Names the rule that the statement just matched has made: the script, the
// line, then on a line of its own the statement as written. The statement's
// end has not been matched yet, so the line is the one on which its
// condition ends.
template <class R>
class AttachDebugInfo : public ParserAction {
public:
    using ParserAction::ParserAction;

    template <class Iterator>
    void operator()(Iterator first, Iterator last) const {
        CollectedRules<R>& rules = parser().template rules<R>();
        if (rules.empty())
            throw ParserImpl::InternalError();
        std::ostringstream name;
        name << parser().scriptName() << ", line " << parser().lineCount() << ": " << std::endl
             << std::string(first, last);
        rules.last().debugInfo = name.str();
    }
};

} // namespace QuorelScript

#endif

// SPDX-License-Identifier: MIT
#include "LibraryRules.hpp"

#include <qxqrscript/Parser.hpp>

#include <sstream>
#include <stdexcept>

namespace qxqr::bench {

std::unique_ptr<QuorelScript::Rules> libraryRules(const std::string& script, const Settings& settings,
                                                  Preparation preparation) {
    std::ostringstream errors;
    QuorelScript::Parser parser;
    parser.setScriptName("generated.rules");
    parser.setErrorSink(&errors);
    std::unique_ptr<QuorelScript::Rules> rules(parser.parse(script.c_str()));
    if (!rules)
        throw std::runtime_error("the generated script does not parse:\n" + errors.str());
    rules->setVantorRoot(settings.vantorRoot.c_str());
    rules->setCwd(settings.cwd.c_str());
    if (preparation == Preparation::precomputed)
        rules->precompute();
    return rules;
}

} // namespace qxqr::bench

// SPDX-License-Identifier: MIT
#ifndef QXQR_WHYCOMMAND_HPP
#define QXQR_WHYCOMMAND_HPP

#include "Colour.hpp"
#include "FileCommand.hpp"
#include "WhyVariables.hpp"

#include <optional>
#include <string>

namespace qxqr {

// qxqr why SCRIPT... -- FILE...: for each file, the three questions with
// every rule's condition evaluated as the query evaluates it: which part
// held, what the variables stood for, which element of an `in` matched,
// what each `exists` asked and was told, and what each include path became.
class WhyCommand : public FileCommand {
public:
    explicit WhyCommand(CommandLine& qxqr);

private:
    void rulesLoaded(const QuorelScript::Rules& rules) override;
    nlohmann::json jsonAnswer(QuorelScript::Rules& rules, const std::string& file) override;
    std::string textAnswer(QuorelScript::Rules& rules, const std::string& file) override;

    Colour colour;
    // Made once the rules are loaded: the variables shown, taken from the
    // rules as the scripts made them, and the colours of the text.
    std::optional<WhyVariables> variables;
    std::optional<Palette> palette;
};

} // namespace qxqr

#endif

// SPDX-License-Identifier: MIT
#include "ScriptLoader.hpp"

#include "Command.hpp"
#include "ScriptFile.hpp"
#include "SyntaxHint.hpp"

#include <qxqrscript/FileReader.hpp>

#include <sstream>

namespace qxqr {

namespace {

// Parses `text` under `name`: into a new rule set if there is none yet,
// else appended to it.
void parseText(QuorelScript::Parser& parser, std::unique_ptr<QuorelScript::Rules>& rules, const std::string& name,
               const std::string& text) {
    parser.setScriptName(name.c_str());
    if (rules)
        parser.parse(rules.get(), text.c_str());
    else
        rules.reset(parser.parse(text.c_str()));
}

void readFile(QuorelScript::FileReader& reader, std::unique_ptr<QuorelScript::Rules>& rules, const std::string& file) {
    if (rules)
        reader.read(rules.get(), file.c_str());
    else
        rules.reset(reader.read(file.c_str()));
}

} // namespace

std::unique_ptr<QuorelScript::Rules> loadRules(const std::vector<std::string>& scripts, bool verbose,
                                               ScriptTexts* texts) {
    // Declared before the reader, whose parser writes into it until the end.
    std::ostringstream syntaxErrors;
    QuorelScript::FileReader reader;
    reader.getParser().setErrorSink(&syntaxErrors);
    reader.getParser().setDebugVerbose(verbose);

    std::unique_ptr<QuorelScript::Rules> rules;
    for (const std::string& script : scripts) {
        const ScriptFile file(script);
        if (file.readHere() || texts) {
            const std::string text = file.readWhole();
            parseText(reader.getParser(), rules, file.scriptName(), text);
            if (texts)
                texts->push_back({file.scriptName(), text});
        } else {
            readFile(reader, rules, script);
        }
        if (!syntaxErrors.str().empty())
            throw Failure(syntaxErrors.str() + syntaxHint(syntaxErrors.str()));
        if (!rules) {                       // readable a moment ago, but not when the library read it
            const ScriptFile again(script); // throws with the reason, if it has one now
            ScriptFile::refuse(script, "It changed while it was read");
        }
    }
    return rules;
}

void addScriptsOperand(Subcommand& command, std::vector<std::string>& scripts, bool optional) {
    command.option("SCRIPT", scripts, "rules scripts, parsed in order into one rule set")
        .typeName("")
        .required(!optional);
}

} // namespace qxqr

// SPDX-License-Identifier: MIT
#include "WhyCommand.hpp"

#include "OperandReader.hpp"
#include "ScriptLoader.hpp"
#include "StandardOutput.hpp"
#include "StreamedJsonDocument.hpp"
#include "WhyJson.hpp"
#include "WhyText.hpp"

#include <optional>

namespace qxqr {

namespace {

FileTraces traced(QuorelScript::Rules& rules, const std::string& file, const char* caller)
{
    using QuorelScript::Observe::Question;
    using QuorelScript::Observe::traceQuery;
    return {file, traceQuery(rules, Question::Excluded, file.c_str(), caller),
            traceQuery(rules, Question::Pruned, file.c_str(), caller),
            traceQuery(rules, Question::Includes, file.c_str(), caller)};
}

} // namespace

WhyCommand::WhyCommand(CommandLine& qxqr)
    : command(qxqr, "why", "Show why each file is excluded, pruned or kept: every condition evaluated")
{
    addScriptsOperand(command, scripts);
    configuration.addOptions(command);
    callerOption = command.option("--caller", caller, "the file that refers to each FILE ($caller)").typeName("FILE");
    format.addOption(command);
    colour.addOption(command);
    command.footer("The files follow '--': qxqr why [OPTIONS] SCRIPT... -- FILE...\n"
                   "A FILE of '-' reads file names from standard input, one a line.");
}

Result WhyCommand::run(OperandReader& files)
{
    std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts);
    const WhyVariables variables(*rules, configuration.setValues());
    configuration.apply(*rules);
    const char* callerOrNull = callerOption.given() ? caller.c_str() : nullptr;
    const Palette palette(!format.isJson() && colour.enabled());

    std::optional<StreamedJsonDocument> document;
    if (format.isJson())
        document.emplace("files");
    std::string file;
    while (files.next(file)) {
        const FileTraces traces = traced(*rules, file, callerOrNull);
        if (document)
            document->append(whyJson(traces, variables));
        else
            writeStandardOutput(whyText(traces, variables, palette));
    }
    if (document)
        document->finish(nlohmann::json::object());
    return {};
}

} // namespace qxqr

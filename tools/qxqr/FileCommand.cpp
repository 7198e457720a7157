// SPDX-License-Identifier: MIT
#include "FileCommand.hpp"

#include "OperandReader.hpp"
#include "ScriptLoader.hpp"
#include "StreamedAnswer.hpp"

namespace qxqr {

FileCommand::FileCommand(CommandLine& qxqr, const std::string& name, const std::string& description)
    : ScriptsCommand(qxqr, name, description, "FILE") {
    configuration.addOptions(command);
    callerOption = command.option("--caller", caller, "the file that refers to each FILE ($caller)").typeName("FILE");
    command.footer("The files follow '--': qxqr " + name +
                   " [OPTIONS] SCRIPT... -- FILE...\n"
                   "A FILE of '-' reads file names from standard input, one a line.");
}

Result FileCommand::run(OperandReader& files) {
    std::unique_ptr<QuorelScript::Rules> rules = loadRules(scripts);
    rulesLoaded(*rules);
    configuration.apply(*rules);
    StreamedAnswer answer(format);
    std::string file;
    while (files.next(file)) {
        if (answer.isJson())
            answer.addItem(jsonAnswer(*rules, file));
        else
            answer.addText(textAnswer(*rules, file));
    }
    answer.finish(nlohmann::json::object(), "");
    return {};
}

void FileCommand::rulesLoaded(const QuorelScript::Rules&) {}

const char* FileCommand::callerOrNull() const {
    return callerOption.given() ? caller.c_str() : nullptr;
}

} // namespace qxqr

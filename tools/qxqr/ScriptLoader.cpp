#include "ScriptLoader.hpp"

#include "Command.hpp"

#include <qxqrscript/FileReader.hpp>

#include <CLI/CLI.hpp>

#include <cerrno>
#include <cstring>
#include <sstream>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace qxqr {

namespace {

Failure cannotRead(const std::string& script, int error)
{
    return Failure("qxqr: cannot read '" + script + "': " + std::strerror(error) + "\n");
}

// The library reports an unreadable script exactly as it reports a syntax
// error (a null rule set, and no message at all), so the tool finds out for
// itself beforehand, while errno can still say why.
void requireReadable(const std::string& script)
{
    int descriptor = ::open(script.c_str(), O_RDONLY);
    if (descriptor < 0)
        throw cannotRead(script, errno);
    struct stat status;
    bool isDirectory = ::fstat(descriptor, &status) == 0 && S_ISDIR(status.st_mode);
    ::close(descriptor);
    if (isDirectory)
        throw cannotRead(script, EISDIR);
}

} // namespace

std::unique_ptr<QuorelScript::Rules> loadRules(const std::vector<std::string>& scripts, bool verbose)
{
    // Declared before the reader, whose parser writes into it until the end.
    std::ostringstream syntaxErrors;
    QuorelScript::FileReader reader;
    reader.getParser().setErrorSink(&syntaxErrors);
    reader.getParser().setDebugVerbose(verbose);

    std::unique_ptr<QuorelScript::Rules> rules;
    for (const std::string& script : scripts) {
        requireReadable(script);
        if (rules)
            reader.read(rules.get(), script.c_str());
        else
            rules.reset(reader.read(script.c_str()));
        if (!syntaxErrors.str().empty())
            throw Failure(syntaxErrors.str());
        if (!rules) {  // readable a moment ago, but not when the library read it
            requireReadable(script);
            throw Failure("qxqr: cannot read '" + script + "'\n");
        }
    }
    return rules;
}

void addScriptsOperand(CLI::App& command, std::vector<std::string>& scripts)
{
    command.add_option("SCRIPT", scripts, "rules scripts, parsed in order into one rule set")->type_name("")->required();
}

} // namespace qxqr

#ifndef QXQR_COMMAND_HPP
#define QXQR_COMMAND_HPP

#include <stdexcept>
#include <string>
#include <vector>

namespace CLI {
class App;
}

namespace qxqr {

// Everything a command has to say, collected before any of it is written, so
// that a command either prints its whole answer or only an error.
struct Result {
    std::string out;
    std::string err;
    int status = 0;
};

// A failure that ends a command: its message goes to standard error as it
// stands and the tool exits with status 1.
class Failure : public std::runtime_error {
public:
    explicit Failure(const std::string& message) : std::runtime_error(message) {}
};

// A failure of the command line itself (exit status 2), found after the
// argument parser has accepted it.
class UsageError : public std::runtime_error {
public:
    explicit UsageError(const std::string& message) : std::runtime_error(message) {}
};

// One subcommand: it adds itself and its options to the application, and
// runs when the command line selected it.
class Command {
public:
    virtual ~Command() = default;
    virtual CLI::App& app() = 0;
    // The SCRIPT operands, as given.
    virtual std::vector<std::string> scriptOperands() const = 0;
    // What the words after "--" are called in the usage ("FILE"), or null
    // for a command that takes no "--".
    virtual const char* operandName() const { return nullptr; }
    // `operands` are the words after "--", with "-" already replaced by the
    // lines of standard input.
    virtual Result run(const std::vector<std::string>& operands) = 0;
};

} // namespace qxqr

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQR_COMMAND_HPP
#define QXQR_COMMAND_HPP

#include <stdexcept>
#include <string>
#include <vector>

namespace qxqr {

class OperandReader;
class Subcommand;

// What a command has to say, written when it ends. A command whose answer
// is bounded by its scripts (check, trace) builds the whole of it here
// before any of it is written, so that it prints either its whole answer
// or only an error. A command whose answer grows with the files it is given
// or meets, without bound (query, walk), streams it instead, file by file,
// as soon as each part is known (writeStandardOutput,
// StreamedJsonDocument), and holds only one file's part at a time; its
// Result carries what comes after the answer: a message and the status.
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

// One command of the tool: it declares itself and its options on the
// command line, and runs when the command line chose it.
class Command {
public:
    virtual ~Command() = default;
    virtual const Subcommand& subcommand() const = 0;
    // The SCRIPT operands, as given.
    virtual std::vector<std::string> scriptOperands() const = 0;
    // What the words after "--" are called in the usage ("FILE"), or null
    // for a command that takes no "--".
    virtual const char* operandName() const { return nullptr; }
    // `operands` gives the words after "--", a "-" among them standing for
    // the lines of standard input, read only as they are asked for.
    virtual Result run(OperandReader& operands) = 0;
};

} // namespace qxqr

#endif

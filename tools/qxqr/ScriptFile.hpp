// SPDX-License-Identifier: MIT
#ifndef QXQR_SCRIPTFILE_HPP
#define QXQR_SCRIPTFILE_HPP

#include <string>

namespace qxqr {

// A script operand as the tool finds it before the library reads it. The
// library says nothing about a file it does not read, so the tool opens
// the file itself, never waiting on a FIFO, and tells the files apart as
// the library does: a regular file of at most the library's limit, or a
// pipe, is read; anything else is refused with its reason. "-" is standard
// input.
class ScriptFile {
public:
    // Throws Failure "qxqr: cannot read 'NAME': <reason>" (the name quoted
    // as a message shows it) for a script that
    // the library would not read.
    explicit ScriptFile(const std::string& name);
    ~ScriptFile();
    ScriptFile(const ScriptFile&) = delete;
    ScriptFile& operator=(const ScriptFile&) = delete;

    // Whether the tool reads the script itself (readWhole) rather than hand
    // its name to the library: a pipe can be read only once, so a pipe too
    // large for a script would be lost without a word when appended to a
    // rule set; standard input is read once, whatever it is, under one
    // name; and a name that text output quotes must reach the library's
    // reports and the rules' debug texts quoted too.
    bool readHere() const { return readHere_; }
    // The whole text, read to the end and no further than the limit; throws
    // Failure when there is more, or the read fails.
    std::string readWhole() const;
    // The name under which the library knows the script: "<standard
    // input>", or the name as text output shows it.
    std::string scriptName() const;

    // Throws Failure "qxqr: cannot read 'NAME': <reason>".
    [[noreturn]] static void refuse(const std::string& name, const std::string& reason);

private:
    std::string name_;
    int descriptor_ = -1;
    bool readHere_ = false;
};

} // namespace qxqr

#endif

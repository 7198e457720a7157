// SPDX-License-Identifier: MIT
#ifndef QXQR_DEPENDENCYWALK_HPP
#define QXQR_DEPENDENCYWALK_HPP

#include "ElfFiles.hpp"
#include "LibrarySearch.hpp"
#include "Walk.hpp"

#include <qxqrscript/Rules.hpp>

#include <functional>
#include <optional>
#include <set>
#include <string>

namespace qxqr {

// How a file came into a start file's closure.
enum class Link { start, interpreter, needed, included };

// One file of a start file's closure, or a need that nothing answers.
struct Dependency {
    std::string start; // the start file whose closure it is in
    std::string name;  // what was asked for: the needed name, the interpreter, the include
    Link link = Link::start;
    bool found = true; // false: `visit.file` is the name, and nothing answers it
    Visit visit;       // the file (where found), the file that led to it, its fate
    std::optional<std::string> soname;
    FileIdentity identity;
    std::string location; // the file to read for `visit.file` (see ElfFile)
};

// What a walk tells: each file of a start file's closure (once the closure
// is known), and, as it goes, each file it cannot read or use (with the
// reason, once in a walk however many files lead to it), after which it
// goes on.
struct DependencyReport {
    std::function<void(const Dependency&)> met;
    std::function<void(const std::string& file, const std::string& reason)> problem;
};

// The closure of each start file as the dynamic loader would load it, the
// rules deciding on every file met. Each start file is a process of its
// own (its own libraries loaded, its own chain of DT_RPATH), so the files
// are reported per start file, a file reached from several start files
// once for each. In a process, the start file is met first, then its
// interpreter (PT_INTERP), then, breadth first as the loader goes, the
// libraries each object needs: a name that an object already loaded
// answers (by the name it was asked for, its soname or its path) is not
// searched again, and a file reached by two paths is loaded once. Each
// file met is asked of the rules, with the file that led to it as the
// caller: an excluded file is reported but not followed (it is still
// loaded, from the target system), a pruned one is kept but not followed,
// and a kept one is followed: its needs, then the files its include rules
// add. An included ELF file of the start file's kind is loaded as if at
// run time by the file that included it, and followed like a need; any
// other included file is listed. A file met again from another caller is
// asked again while no caller has kept it, since a rule on $caller may
// decide otherwise for that caller: the fate that keeps the most wins
// (keepsMore), and the file is followed from the caller that keeps it.
// Each file of the closure is reported once, in the order first met, with
// the verdict that decided its fate. Without rules every file is kept.
// Nothing is executed.
// Whether `fate` keeps more of a file than `than`: kept (shipped and
// followed) over pruned (shipped) over excluded (left out).
bool keepsMore(Fate fate, Fate than);

class DependencyWalk {
public:
    DependencyWalk(QuorelScript::Rules* rules, LibrarySearch& search, ElfFiles& files);

    void walkFrom(const std::string& start, const DependencyReport& report);

    // The rules' verdict on `file` met through `caller` (null for a start
    // file); without rules, a kept file. Asked anew each time: a question
    // costs the rules less than remembering its answer by two names would.
    Visit decide(const std::string& file, const std::string* caller);

private:
    class Process;

    QuorelScript::Rules* rules;
    LibrarySearch& search;
    ElfFiles& files;
    std::set<std::string> filesTold; // the files that cannot be used, told already
};

} // namespace qxqr

#endif

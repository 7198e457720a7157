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
#include <unordered_map>
#include <utility>
#include <vector>

namespace qxqr {

// How a file came into a start file's closure.
enum class Link { start, interpreter, needed, included };

// A file of the process that needs or includes a dependency.
struct Caller {
    std::string file;      // as the process names it (its `visit.file`)
    FileIdentity identity; // which file that is, whatever its name
    Link link = Link::needed;
};

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
    // Every file of the process that needs or includes it, each once, in
    // the order met: the caller of `visit` and any other (the graph's
    // edges). A need that nothing answers has the one that needs it.
    std::vector<Caller> callers;
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
// decided on again while no caller has kept it, since a rule on $caller
// may decide otherwise for that caller: the fate that keeps the most wins
// (keepsMore), and the file is followed from the caller that keeps it.
// Each file of the closure is reported once, in the order first met, with
// every file that needs or includes it and the verdict that decided its
// fate. Without rules every file is kept. Nothing is executed.
// Whether `fate` keeps more of a file than `than`: kept (shipped and
// followed) over pruned (shipped) over excluded (left out).
bool keepsMore(Fate fate, Fate than);

class DependencyWalk {
public:
    // `valuesHoldVariables`: a value that the queries bind ($vantor or $cwd)
    // holds a `$`. A query substitutes into a substituted value again, so
    // such a value may name $caller where no rule shows it.
    DependencyWalk(QuorelScript::Rules* rules, LibrarySearch& search, ElfFiles& files,
                   bool valuesHoldVariables = false);

    void walkFrom(const std::string& start, const DependencyReport& report);

    // The questions the rules have been asked so far, each once (isExcluded,
    // then isPruned and the includes as they decide): a file, and the
    // caller it was asked with (none for a start file).
    std::vector<std::pair<std::string, std::optional<std::string>>> questionsAsked() const;

private:
    class Process;

    // The rules' verdict on `file` met through `caller` (null for a start
    // file); its `caller` may be another caller's, for the Process to put
    // its own in. The rules answer a question the same way throughout a
    // run, as long as the files their `exists` tests and include lists look
    // at stay as they are (the files that --copy-to writes during the run
    // are the exception a rule could see), so each is asked once, however
    // many start files or callers meet the file again: the verdict is
    // remembered, with the deciding rule and the includes, and given again.
    // Where no exclude or prune rule reads
    // $caller, the caller changes nothing, and a file is asked about once,
    // whatever its callers. A question is known by the entries of `files`
    // that its two names lead to (`read`, `callerRead`), one for each
    // name: found without reading a name again.
    const Visit& ruled(const std::string& file, const ElfFile& read, const std::string* caller,
                       const ElfFile* callerRead);
    // Whether the verdict on `file` may depend on its caller: where the
    // rules may read $caller, or where the file's own name holds a `$`,
    // which the query substitutes into as into any other text.
    bool callerCountsFor(const std::string& file) const;

    QuorelScript::Rules* rules;
    bool callerCounts = true; // whether a verdict of the rules may depend on the caller
    LibrarySearch& search;
    ElfFiles& files;
    std::set<std::string> filesTold;                            // the files that cannot be used, told already
    using Question = std::pair<const ElfFile*, const ElfFile*>; // the file, and its caller (null for a start file)
    struct QuestionHash {
        std::size_t operator()(const Question& question) const;
    };
    std::unordered_map<Question, Visit, QuestionHash> verdicts; // the verdicts given
};

} // namespace qxqr

#endif

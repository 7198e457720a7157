// SPDX-License-Identifier: MIT
#include "DependencyWalk.hpp"

#include "LoaderPlatform.hpp"
#include "QuotedName.hpp"

#include <qxqrscript/observe.hpp>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <deque>
#include <map>
#include <unordered_map>
#include <utility>

namespace qxqr {

// One start file's process: the files of its closure, the objects it has
// loaded, the names that answer a need, and the files waiting to be
// followed.
class DependencyWalk::Process {
public:
    Process(DependencyWalk& walk, const DependencyReport& report) : walk(walk), report(report) {}

    void run(const std::string& start) {
        const ElfFile& file = walk.files.at(start);
        if (file.state != ElfFile::State::elf) {
            problem(start, reasonOf(file));
            return;
        }
        this->start = start;
        kind = file.object->kind;
        platform = LoaderPlatform::of(kind);
        MetFile& program = meet(start, Link::start, file, decide(start, file, nullptr));
        if (program.fate() != Fate::excluded)
            program.object = &load(walk.search.systemPath(start), start, file, nullptr, program, programOrigin());
        if (program.fate() == Fate::kept) {
            if (file.object->interpreter)
                meetNeed(*file.object->interpreter, Link::interpreter, program);
            waiting.push_back(&program);
        }
        while (!waiting.empty()) {
            MetFile& next = *waiting.front();
            waiting.pop_front();
            follow(next);
        }
        for (const MetFile& met : closure)
            report.met(met.dependency);
    }

private:
    // A file of the closure, or a need that nothing answers: what is told of
    // it, and the object it was loaded as (null for a file that is no object
    // of this process).
    struct MetFile {
        Dependency dependency;
        const LoadedObject* object = nullptr;
        const ElfFile* read = nullptr; // what `file()` leads to (null for a need that nothing answers)

        Fate fate() const { return dependency.visit.fate; }
        const std::string& file() const { return dependency.visit.file; }
    };

    // A program started through a symbolic link finds $ORIGIN where it
    // really lies: the loader takes it from the kernel's name of the
    // running program, with every link resolved.
    std::string programOrigin() const { return originOf(walk.search.realSystemPath(start)); }

    static std::string reasonOf(const ElfFile& file) {
        switch (file.state) {
        case ElfFile::State::absent:
            return std::strerror(ENOENT);
        case ElfFile::State::notElf:
            return "not an ELF file";
        default:
            return file.problem;
        }
    }

    // A file that cannot be used is told once in a walk, with the first file
    // that led to it: every object that needs its name, in this process or
    // another, finds it again and would tell the same.
    void problem(const std::string& file, const std::string& reason) {
        if (walk.filesTold.insert(file).second)
            report.problem(file, reason);
    }

    MetFile& meet(const std::string& name, Link link, const ElfFile& file, Visit verdict) {
        std::optional<std::string> soname = file.object ? file.object->soname : std::nullopt;
        closure.push_back(
            {{start, name, link, true, std::move(verdict), soname, file.identity, file.location, {}}, nullptr, &file});
        metByIdentity.emplace(file.identity, &closure.back());
        return closure.back();
    }

    // The verdict on `file`, read as `read`, met through `caller` (null for
    // the start file); without rules, a kept file.
    Visit decide(const std::string& file, const ElfFile& read, const MetFile* caller) const {
        std::optional<std::string> callerName = caller ? std::optional<std::string>(caller->file()) : std::nullopt;
        if (walk.rules) {
            const Visit& verdict =
                walk.ruled(file, read, caller ? &*callerName : nullptr, caller ? caller->read : nullptr);
            return Visit{file, std::move(callerName), verdict.fate, verdict.rule, verdict.includes};
        }
        return Visit{file, std::move(callerName), Fate::kept, std::nullopt, {}};
    }

    void meetNothing(const std::string& name, Link link, const MetFile& caller) {
        closure.push_back({{start,
                            name,
                            link,
                            false,
                            Visit{name, caller.file(), Fate::kept, std::nullopt, {}},
                            std::nullopt,
                            {},
                            "",
                            {}}});
        addCaller(closure.back(), caller, link);
    }

    // `caller` needs or includes `met`: an edge of the graph, once for each
    // caller.
    static void addCaller(MetFile& met, const MetFile& caller, Link link) {
        std::vector<Caller>& callers = met.dependency.callers;
        const FileIdentity& identity = caller.dependency.identity;
        for (const Caller& known : callers)
            if (known.identity == identity)
                return;
        callers.push_back({caller.file(), identity, link});
    }

    // Loads `file` for `met`; `origin` is the object's $ORIGIN, when it is
    // not the directory of `path`.
    const LoadedObject& load(const std::string& path, const std::string& asked, const ElfFile& file,
                             const LoadedObject* loader, MetFile& met,
                             std::optional<std::string> origin = std::nullopt) {
        const ElfObject& object = *file.object;
        loaded.push_back(
            {path, &object, {origin ? *origin : originOf(path), platform.libToken, platform.platformToken}, loader});
        for (const std::string& name : {path, asked})
            answering.emplace(name, &met);
        if (object.soname)
            answering.emplace(*object.soname, &met);
        return loaded.back();
    }

    void follow(const MetFile& next) {
        if (next.object) {
            for (const std::string& name : next.object->object->needed)
                meetNeed(name, Link::needed, next);
        }
        for (const std::string& included : next.dependency.visit.includes)
            meetInclude(included, next);
    }

    void meetNeed(const std::string& name, Link link, const MetFile& caller) {
        auto answered = answering.find(name);
        if (answered != answering.end()) {
            reconsider(*answered->second, name, link, caller);
            return;
        }
        Resolution resolution = walk.search.find(name, *caller.object, kind);
        if (resolution.outcome == Resolution::Outcome::notFound) {
            meetNothing(name, link, caller);
            return;
        }
        const std::string file = walk.search.hostPath(resolution.path);
        if (resolution.outcome == Resolution::Outcome::failed) {
            problem(file, resolution.problem + " (needed by " + quotedName(caller.file()) + ")");
            return;
        }
        const ElfFile& found = walk.files.at(file);
        auto same = metByIdentity.find(found.identity);
        if (same != metByIdentity.end()) {
            answering.emplace(name, same->second);
            reconsider(*same->second, name, link, caller);
            return;
        }
        MetFile& met = meet(name, link, found, decide(file, found, &caller));
        addCaller(met, caller, link);
        met.object = &load(resolution.path, name, found, caller.object, met);
        if (met.fate() == Fate::kept)
            waiting.push_back(&met);
    }

    void meetInclude(const std::string& included, const MetFile& caller) {
        const ElfFile& found = walk.files.at(included);
        if (found.state == ElfFile::State::absent) {
            meetNothing(included, Link::included, caller);
            return;
        }
        if (found.state == ElfFile::State::broken || found.state == ElfFile::State::denied) {
            problem(included, found.problem + " (included by " + quotedName(caller.file()) + ")");
            return;
        }
        auto same = metByIdentity.find(found.identity);
        if (same != metByIdentity.end()) {
            reconsider(*same->second, included, Link::included, caller);
            return;
        }
        MetFile& met = meet(included, Link::included, found, decide(included, found, &caller));
        addCaller(met, caller, Link::included);
        // Loaded at run time by the file that included it, or by the
        // program when that file is no object of this process.
        if (found.object && found.object->kind == kind)
            met.object = &load(walk.search.systemPath(included), included, found,
                               caller.object ? caller.object : &loaded.front(), met);
        if (met.fate() == Fate::kept)
            waiting.push_back(&met);
    }

    // A file met again, from another caller: one more edge. The rules may
    // keep for this caller what they left out or pruned for an earlier one
    // (a rule on $caller); what any caller keeps is kept, and followed from
    // the caller that keeps it. The loaded object stays the one first
    // loaded.
    void reconsider(MetFile& met, const std::string& name, Link link, const MetFile& caller) {
        addCaller(met, caller, link);
        // Without rules every file is kept, so only rules bring a file here;
        // and rules that do not read $caller decide for this caller as they
        // did for the first.
        if (met.fate() == Fate::kept || !walk.callerCountsFor(met.file()) ||
            met.dependency.visit.caller == caller.file())
            return;
        const Visit& verdict = walk.ruled(met.file(), *met.read, &caller.file(), caller.read);
        if (!keepsMore(verdict.fate, met.fate()))
            return;
        met.dependency.name = name;
        met.dependency.link = link;
        met.dependency.visit = verdict;
        met.dependency.visit.caller = caller.file();
        if (met.fate() == Fate::kept)
            waiting.push_back(&met);
    }

    DependencyWalk& walk;
    const DependencyReport& report;
    std::string start;
    ElfKind kind;
    LoaderPlatform platform;
    // Deques keep every element where it is, for the pointers below.
    std::deque<MetFile> closure; // in the order first met
    std::deque<LoadedObject> loaded;
    std::map<FileIdentity, MetFile*> metByIdentity;
    std::unordered_map<std::string, MetFile*> answering; // the names that a loaded object answers
    std::deque<MetFile*> waiting;
};

bool keepsMore(Fate fate, Fate than) {
    auto rank = [](Fate of) { return of == Fate::kept ? 2 : of == Fate::pruned ? 1 : 0; };
    return rank(fate) > rank(than);
}

namespace {

bool namesTheCaller(const std::string& text) {
    return text.find("caller") != std::string::npos;
}

// Whether a verdict of `rules` (isExcluded, isPruned) may depend on the
// caller: some part of an exclude or prune rule holds the word, in its text
// or in the name of a variable it reads. Looser than the name itself, as a
// query reads `${ caller}` as $caller too. A rule set that shows no rules
// at all (one that this library did not make) may depend on it as well.
bool callerCountsIn(const QuorelScript::Rules& rules) {
    using namespace QuorelScript::Observe;
    const std::vector<Rule> all = rulesOf(rules);
    if (all.empty())
        return true;
    for (const Rule& rule : all) {
        if (rule.kind == RuleKind::Include)
            continue;
        for (const Node& node : rule.condition.nodes)
            if (namesTheCaller(node.text) || std::any_of(node.variables.begin(), node.variables.end(), namesTheCaller))
                return true;
    }
    return false;
}

} // namespace

DependencyWalk::DependencyWalk(QuorelScript::Rules* rules, LibrarySearch& search, ElfFiles& files,
                               bool valuesHoldVariables)
    : rules(rules), callerCounts(!rules || valuesHoldVariables || callerCountsIn(*rules)), search(search),
      files(files) {}

void DependencyWalk::walkFrom(const std::string& start, const DependencyReport& report) {
    Process(*this, report).run(start);
}

// The two addresses, mixed so that their every bit counts.
std::size_t DependencyWalk::QuestionHash::operator()(const Question& question) const {
    const auto first = reinterpret_cast<std::uintptr_t>(question.first);
    const auto second = reinterpret_cast<std::uintptr_t>(question.second);
    std::uint64_t mixed = (first ^ (second * 0x9e3779b97f4a7c15ULL)) * 0xff51afd7ed558ccdULL;
    return static_cast<std::size_t>(mixed ^ (mixed >> 32));
}

bool DependencyWalk::callerCountsFor(const std::string& file) const {
    return callerCounts || file.find('$') != std::string::npos;
}

std::vector<std::pair<std::string, std::optional<std::string>>> DependencyWalk::questionsAsked() const {
    std::vector<std::pair<std::string, std::optional<std::string>>> asked;
    for (const auto& [question, verdict] : verdicts)
        asked.emplace_back(verdict.file, verdict.caller);
    return asked;
}

const Visit& DependencyWalk::ruled(const std::string& file, const ElfFile& read, const std::string* caller,
                                   const ElfFile* callerRead) {
    const Question question(&read, callerCountsFor(file) ? callerRead : nullptr);
    auto known = verdicts.find(question);
    if (known == verdicts.end())
        known = verdicts.emplace(question, visit(*rules, file, caller)).first;
    return known->second;
}

} // namespace qxqr

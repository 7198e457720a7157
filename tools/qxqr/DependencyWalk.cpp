// SPDX-License-Identifier: MIT
#include "DependencyWalk.hpp"

#include "LoaderPlatform.hpp"
#include "QuotedName.hpp"

#include <cerrno>
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
        MetFile& program = meet(start, Link::start, file, walk.decide(start, nullptr));
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
        closure.push_back({{start, name, link, true, std::move(verdict), soname, file.identity, file.location}});
        metByIdentity.emplace(file.identity, &closure.back());
        return closure.back();
    }

    void meetNothing(const std::string& name, Link link, const std::string& caller) {
        closure.push_back(
            {{start, name, link, false, Visit{name, caller, Fate::kept, std::nullopt, {}}, std::nullopt, {}, ""}});
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
            reconsider(*answered->second, name, link, caller.file());
            return;
        }
        Resolution resolution = walk.search.find(name, *caller.object, kind);
        if (resolution.outcome == Resolution::Outcome::notFound) {
            meetNothing(name, link, caller.file());
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
            reconsider(*same->second, name, link, caller.file());
            return;
        }
        MetFile& met = meet(name, link, found, walk.decide(file, &caller.file()));
        met.object = &load(resolution.path, name, found, caller.object, met);
        if (met.fate() == Fate::kept)
            waiting.push_back(&met);
    }

    void meetInclude(const std::string& included, const MetFile& caller) {
        const ElfFile& found = walk.files.at(included);
        if (found.state == ElfFile::State::absent) {
            meetNothing(included, Link::included, caller.file());
            return;
        }
        if (found.state == ElfFile::State::broken || found.state == ElfFile::State::denied) {
            problem(included, found.problem + " (included by " + quotedName(caller.file()) + ")");
            return;
        }
        auto same = metByIdentity.find(found.identity);
        if (same != metByIdentity.end()) {
            reconsider(*same->second, included, Link::included, caller.file());
            return;
        }
        MetFile& met = meet(included, Link::included, found, walk.decide(included, &caller.file()));
        // Loaded at run time by the file that included it, or by the
        // program when that file is no object of this process.
        if (found.object && found.object->kind == kind)
            met.object = &load(walk.search.systemPath(included), included, found,
                               caller.object ? caller.object : &loaded.front(), met);
        if (met.fate() == Fate::kept)
            waiting.push_back(&met);
    }

    // A file met again, from another caller. The rules may keep for this
    // caller what they left out or pruned for an earlier one (a rule on
    // $caller); what any caller keeps is kept, and followed from the
    // caller that keeps it. The loaded object stays the one first loaded.
    void reconsider(MetFile& met, const std::string& name, Link link, const std::string& caller) {
        if (met.fate() == Fate::kept || met.dependency.visit.caller == caller)
            return;
        Visit verdict = walk.decide(met.file(), &caller);
        if (!keepsMore(verdict.fate, met.fate()))
            return;
        met.dependency.name = name;
        met.dependency.link = link;
        met.dependency.visit = std::move(verdict);
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

DependencyWalk::DependencyWalk(QuorelScript::Rules* rules, LibrarySearch& search, ElfFiles& files)
    : rules(rules), search(search), files(files) {}

void DependencyWalk::walkFrom(const std::string& start, const DependencyReport& report) {
    Process(*this, report).run(start);
}

Visit DependencyWalk::decide(const std::string& file, const std::string* caller) {
    if (rules)
        return visit(*rules, file, caller);
    return Visit{file, caller ? std::optional<std::string>(*caller) : std::nullopt, Fate::kept, std::nullopt, {}};
}

} // namespace qxqr

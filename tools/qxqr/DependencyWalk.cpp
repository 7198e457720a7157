#include "DependencyWalk.hpp"

#include "LoaderPlatform.hpp"
#include "QuotedName.hpp"

#include <cerrno>
#include <cstring>
#include <deque>
#include <map>
#include <set>
#include <unordered_map>

namespace qxqr {

// One start file's process: the objects it has loaded, the names that
// answer a need, and the files waiting to be followed.
class DependencyWalk::Process {
public:
    Process(DependencyWalk& walk, const DependencyReport& report) : walk(walk), report(report) {}

    void run(const std::string& start)
    {
        const ElfFile& file = walk.files.at(start);
        if (file.state != ElfFile::State::elf) {
            report.problem(start, reasonOf(file));
            return;
        }
        this->start = start;
        kind = file.object->kind;
        platform = LoaderPlatform::of(kind);
        const Visit verdict = walk.decide(start, nullptr);
        tell(start, Link::start, verdict, file);
        if (verdict.fate == Fate::excluded)
            return;
        const LoadedObject& program = load(walk.search.systemPath(start), start, file, nullptr, programOrigin());
        if (verdict.fate == Fate::pruned)
            return;
        if (file.object->interpreter)
            meetNeed(*file.object->interpreter, Link::interpreter, program, start);
        waiting.push_back({start, &program, verdict.includes});
        while (!waiting.empty()) {
            Waiting next = waiting.front();
            waiting.pop_front();
            follow(next);
        }
    }

private:
    // A kept file whose needs (for an object loaded here) and includes are
    // still to be met.
    struct Waiting {
        std::string file;
        const LoadedObject* object;  // null for a file that is no object of this process
        std::vector<std::string> includes;
    };

    // A program started through a symbolic link finds $ORIGIN where it
    // really lies: the loader takes it from the kernel's name of the
    // running program, with every link resolved.
    std::string programOrigin() const { return originOf(walk.search.realSystemPath(start)); }

    static std::string reasonOf(const ElfFile& file)
    {
        switch (file.state) {
        case ElfFile::State::absent:
            return std::strerror(ENOENT);
        case ElfFile::State::notElf:
            return "not an ELF file";
        default:
            return file.problem;
        }
    }

    // `origin` is the object's $ORIGIN, when it is not the directory of `path`.
    const LoadedObject& load(const std::string& path, const std::string& asked, const ElfFile& file,
                             const LoadedObject* loader, std::optional<std::string> origin = std::nullopt)
    {
        const ElfObject& object = *file.object;
        loaded.push_back({path, &object,
                          {origin ? *origin : originOf(path), platform.libToken, platform.platformToken}, loader});
        const LoadedObject& done = loaded.back();
        for (const std::string& name : {path, asked})
            answering.emplace(name, &done);
        if (object.soname)
            answering.emplace(*object.soname, &done);
        byIdentity.emplace(file.identity, &done);
        return done;
    }

    void tell(const std::string& name, Link link, const Visit& verdict, const ElfFile& file)
    {
        std::optional<std::string> soname = file.object ? file.object->soname : std::nullopt;
        report.met({start, name, link, true, verdict, soname, file.identity, file.location});
    }

    void tellNotFound(const std::string& name, Link link, const std::string& caller)
    {
        report.met({start, name, link, false, Visit{name, caller, Fate::kept, std::nullopt, {}}, std::nullopt, {}, ""});
    }

    void follow(const Waiting& next)
    {
        if (next.object) {
            for (const std::string& name : next.object->object->needed)
                meetNeed(name, Link::needed, *next.object, next.file);
        }
        for (const std::string& included : next.includes)
            meetInclude(included, next.file, next.object);
    }

    // `caller` is the file of `requester`.
    void meetNeed(const std::string& name, Link link, const LoadedObject& requester, const std::string& caller)
    {
        if (answering.count(name))
            return;
        Resolution resolution = walk.search.find(name, requester, kind);
        if (resolution.outcome == Resolution::Outcome::notFound) {
            tellNotFound(name, link, caller);
            return;
        }
        const std::string file = walk.search.hostPath(resolution.path);
        if (resolution.outcome == Resolution::Outcome::failed) {
            report.problem(file, resolution.problem + " (needed by " + quotedName(caller) + ")");
            return;
        }
        const ElfFile& found = walk.files.at(file);
        auto same = byIdentity.find(found.identity);
        if (same != byIdentity.end()) {
            answering.emplace(name, same->second);
            return;
        }
        const Visit verdict = walk.decide(file, &caller);
        tell(name, link, verdict, found);
        const LoadedObject& object = load(resolution.path, name, found, &requester);
        if (verdict.fate == Fate::kept)
            waiting.push_back({file, &object, verdict.includes});
    }

    void meetInclude(const std::string& included, const std::string& caller, const LoadedObject* includer)
    {
        const ElfFile& found = walk.files.at(included);
        if (found.state == ElfFile::State::absent) {
            tellNotFound(included, Link::included, caller);
            return;
        }
        if (found.state == ElfFile::State::broken || found.state == ElfFile::State::denied) {
            report.problem(included, found.problem + " (included by " + quotedName(caller) + ")");
            return;
        }
        if (byIdentity.count(found.identity) || !listed.insert(found.identity).second)
            return;
        const Visit verdict = walk.decide(included, &caller);
        tell(included, Link::included, verdict, found);
        if (verdict.fate == Fate::excluded)
            return;
        // Loaded at run time by the file that included it, or by the
        // program when that file is no object of this process.
        const LoadedObject* object = nullptr;
        if (found.object && found.object->kind == kind)
            object = &load(walk.search.systemPath(included), included, found, includer ? includer : &loaded.front());
        if (verdict.fate == Fate::kept)
            waiting.push_back({included, object, verdict.includes});
    }

    DependencyWalk& walk;
    const DependencyReport& report;
    std::string start;
    ElfKind kind;
    LoaderPlatform platform;
    std::deque<LoadedObject> loaded;  // a deque keeps every object where it is, for the pointers below
    std::unordered_map<std::string, const LoadedObject*> answering;
    std::map<FileIdentity, const LoadedObject*> byIdentity;
    std::set<FileIdentity> listed;  // included files that are no object of this process
    std::deque<Waiting> waiting;
};

DependencyWalk::DependencyWalk(QuorelScript::Rules* rules, LibrarySearch& search, ElfFiles& files)
    : rules(rules), search(search), files(files)
{
}

void DependencyWalk::walkFrom(const std::string& start, const DependencyReport& report)
{
    Process(*this, report).run(start);
}

Visit DependencyWalk::decide(const std::string& file, const std::string* caller)
{
    if (rules)
        return visit(*rules, file, caller);
    return Visit{file, caller ? std::optional<std::string>(*caller) : std::nullopt, Fate::kept, std::nullopt, {}};
}

} // namespace qxqr

// SPDX-License-Identifier: MIT
#include "LibrarySearch.hpp"

#include "LoaderPlatform.hpp"
#include "RootedPath.hpp"

#include <algorithm>
#include <elf.h>

#include <filesystem>
#include <utility>

namespace qxqr {

namespace {

void append(std::vector<std::string>& to, const std::vector<std::string>& more) {
    to.insert(to.end(), more.begin(), more.end());
}

std::string joined(const std::string& directory, const std::string& name) {
    return directory.empty() || directory.back() == '/' ? directory + name : directory + "/" + name;
}

// ET_EXEC, ET_REL, ET_CORE, or the number of another type.
std::string typeName(unsigned type) {
    switch (type) {
    case ET_EXEC:
        return "ET_EXEC";
    case ET_REL:
        return "ET_REL";
    case ET_CORE:
        return "ET_CORE";
    default:
        return "type " + std::to_string(type);
    }
}

const LoadedObject& programOf(const LoadedObject& object) {
    const LoadedObject* program = &object;
    while (program->loader)
        program = program->loader;
    return *program;
}

std::string withTrailingSlash(std::string directory) {
    if (directory.empty() || directory.back() != '/')
        directory += '/';
    return directory;
}

// Whether `directory` is `outer` or lies below it.
bool liesIn(const std::string& directory, const std::string& outer) {
    const std::string inner = withTrailingSlash(directory);
    const std::string prefix = withTrailingSlash(outer);
    return inner.compare(0, prefix.size(), prefix) == 0;
}

} // namespace

LibrarySearch::LibrarySearch(SearchSettings settings, ElfFiles& files) : settings(std::move(settings)), files(files) {}

std::string LibrarySearch::hostPath(const std::string& systemPath) const {
    return !systemPath.empty() && systemPath.front() == '/' ? settings.sysroot + systemPath : systemPath;
}

std::string LibrarySearch::systemPath(const std::string& hostPath) const {
    return systemPathUnder(settings.sysroot, hostPath).value_or(hostPath);
}

std::string LibrarySearch::realSystemPath(const std::string& hostPath) const {
    std::error_code unresolved;
    if (!settings.sysroot.empty()) {
        if (std::optional<std::string> inRoot = systemPathUnder(settings.sysroot, hostPath)) {
            std::string real = followedInRoot(settings.sysroot, *inRoot, unresolved);
            return unresolved ? *inRoot : real;
        }
    }
    std::string real = std::filesystem::canonical(hostPath, unresolved).string();
    return systemPath(unresolved ? hostPath : real);
}

std::vector<std::string> LibrarySearch::directoriesFor(const LoadedObject& requester) const {
    std::vector<std::string> directories;
    const ElfObject& object = *requester.object;
    if (!object.runpath) {
        for (const LoadedObject* loader = &requester; loader; loader = loader->loader) {
            if (loader->object->rpath && !loader->object->runpath)
                append(directories, loader->tokens.directories(*loader->object->rpath));
        }
    }
    if (!settings.libraryPath.empty())
        append(directories, programOf(requester).tokens.directories(settings.libraryPath, ":;"));
    if (object.runpath)
        append(directories, requester.tokens.directories(*object.runpath));
    const std::vector<std::string>& defaults = LoaderPlatform::of(object.kind).defaultDirectories;
    if (!object.noDefaultLibraries) {
        append(directories, settings.configured);
        append(directories, defaults);
    } else {
        // DF_1_NODEFLIB skips what the loader's configuration finds in the
        // default directories or below them (a configured subdirectory of
        // one too, as the loader does), and those directories themselves;
        // the other configured directories are still searched.
        for (const std::string& directory : settings.configured)
            if (std::none_of(defaults.begin(), defaults.end(),
                             [&](const std::string& defaultDirectory) { return liesIn(directory, defaultDirectory); }))
                directories.push_back(directory);
    }
    return directories;
}

Resolution LibrarySearch::find(const std::string& name, const LoadedObject& requester, const ElfKind& kind) {
    if (name.find('/') != std::string::npos) {
        std::optional<std::string> path = requester.tokens.expand(name);
        return path ? probe(*path, kind, true) : Resolution{};
    }
    for (const std::string& directory : directoriesFor(requester)) {
        Resolution resolution = probe(joined(directory, name), kind, false);
        if (resolution.outcome != Resolution::Outcome::notFound)
            return resolution;
    }
    return {};
}

// A candidate of another kind is passed over during a search; named
// directly, it is the one the loader must load, and it cannot.
Resolution LibrarySearch::probe(const std::string& candidate, const ElfKind& kind, bool lastChance) {
    const ElfFile& file = files.at(hostPath(candidate));
    switch (file.state) {
    case ElfFile::State::absent:
    case ElfFile::State::denied:
        return {};
    case ElfFile::State::broken:
        return {Resolution::Outcome::failed, candidate, file.problem};
    case ElfFile::State::notElf:
        return {Resolution::Outcome::failed, candidate, "not an ELF file"};
    case ElfFile::State::elf:
        break;
    }
    // The loader checks the class before the byte order, the byte order
    // before the machine, and the machine before the type; a file of its
    // own kind that is no shared object is its to load, and it cannot.
    const ElfKind& found = file.object->kind;
    if (found.elfClass == kind.elfClass && found.byteOrder != kind.byteOrder)
        return {Resolution::Outcome::failed, candidate, "an ELF file of the other byte order"};
    if (found != kind) {
        if (lastChance)
            return {Resolution::Outcome::failed, candidate, "an ELF file of another class or machine"};
        return {};
    }
    if (file.object->type != ET_DYN)
        return {Resolution::Outcome::failed, candidate, "not a shared object (" + typeName(file.object->type) + ")"};
    return {Resolution::Outcome::found, candidate, ""};
}

} // namespace qxqr

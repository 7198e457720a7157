// SPDX-License-Identifier: MIT
#ifndef QXQR_LIBRARYSEARCH_HPP
#define QXQR_LIBRARYSEARCH_HPP

#include "DynamicStringTokens.hpp"
#include "ElfFiles.hpp"
#include "ElfObject.hpp"

#include <optional>
#include <string>
#include <vector>

namespace qxqr {

// An object loaded into a process, as the search for its needs sees it.
struct LoadedObject {
    std::string path;           // where it was found, as the system names it
    const ElfObject* object;    // what it says of itself
    DynamicStringTokens tokens; // its $ORIGIN, $LIB and $PLATFORM
    const LoadedObject* loader; // the object whose need loaded it; null for the program
};

// Where the search looks besides the objects' own paths.
struct SearchSettings {
    std::string sysroot;                 // the root every absolute name is read under ("" for /)
    std::string libraryPath;             // LD_LIBRARY_PATH, as the environment gives it
    std::vector<std::string> configured; // the loader configuration's directories
};

// The outcome of one search.
struct Resolution {
    enum class Outcome { found, notFound, failed };
    Outcome outcome = Outcome::notFound;
    std::string path;    // found: where, failed: the file that stopped the search; as the system names it
    std::string problem; // failed: why
};

// Finds a needed library as the dynamic loader does. A name with a '/' is
// taken as it is (its tokens expanded); any other name is looked for, in
// order, in:
//   1. DT_RPATH of the object that needs it, then of the object that
//      loaded that one, and so on up to the program; only if the needing
//      object has no DT_RUNPATH, and of each object only if that object has
//      no DT_RUNPATH;
//   2. LD_LIBRARY_PATH (its tokens taken from the program);
//   3. DT_RUNPATH of the needing object alone;
//   4. the loader configuration's directories, then the platform's
//      default directories; for a needing object marked DF_1_NODEFLIB,
//      only the configured directories that are not default ones.
// A file of another class or machine is passed over and the search goes
// on; an absent or unreadable file too. A file that is there but is no
// loadable ELF file (not ELF, malformed, of the same class in the other
// byte order, or of the right kind but no shared object: a program, a
// relocatable object, a core file) stops the search, as it stops the
// loader.
class LibrarySearch {
public:
    LibrarySearch(SearchSettings settings, ElfFiles& files);

    Resolution find(const std::string& name, const LoadedObject& requester, const ElfKind& kind);

    // A name as the system has it made into the file to open here.
    std::string hostPath(const std::string& systemPath) const;
    // The reverse: a file given on the command line as the system names it.
    std::string systemPath(const std::string& hostPath) const;
    // The same with every symbolic link on the way followed (inside the
    // root, for a file under it); as given when that cannot be done.
    std::string realSystemPath(const std::string& hostPath) const;

private:
    std::vector<std::string> directoriesFor(const LoadedObject& requester) const;
    Resolution probe(const std::string& candidate, const ElfKind& kind, bool lastChance);

    SearchSettings settings;
    ElfFiles& files;
};

} // namespace qxqr

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQR_LIBRARYCOPY_HPP
#define QXQR_LIBRARYCOPY_HPP

#include "DependencyWalk.hpp"

#include <map>
#include <string>

namespace qxqr {

// Copies the kept files of a closure into one directory, ready to ship
// beside the application: each library under its soname (the name the
// loader looks for), any other file under its own name. The start files
// are the application itself and are not copied. A file is copied once;
// a second file that would take the same name is refused, since the first
// already answers that name.
class LibraryCopy {
public:
    // Creates `directory` if need be; throws Failure when it cannot.
    explicit LibraryCopy(std::string directory);

    // Copies `dependency` if it is to be copied; returns the message of a
    // copy that failed, or an empty text.
    std::string take(const Dependency& dependency);

private:
    std::string directory;
    std::map<std::string, FileIdentity> copied; // by the name in the directory
};

} // namespace qxqr

#endif

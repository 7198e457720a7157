// SPDX-License-Identifier: MIT
#ifndef QXQR_LOADERPLATFORM_HPP
#define QXQR_LOADERPLATFORM_HPP

#include "ElfObject.hpp"

#include <string>
#include <vector>

namespace qxqr {

// What the dynamic loader of a Debian system knows of its own platform for
// programs of one kind: the multiarch directories it searches last, and
// the values of $LIB and $PLATFORM in search paths. A 64-bit x86 program
// on Debian looks in /lib/x86_64-linux-gnu, /usr/lib/x86_64-linux-gnu,
// /lib and /usr/lib, and its $LIB is lib/x86_64-linux-gnu. A kind this
// table does not know gets /lib and /usr/lib, and $LIB is lib.
struct LoaderPlatform {
    std::string libToken;      // what $LIB stands for
    std::string platformToken; // what $PLATFORM stands for
    std::vector<std::string> defaultDirectories;

    static LoaderPlatform of(const ElfKind& kind);
};

} // namespace qxqr

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQR_DYNAMICSTRINGTOKENS_HPP
#define QXQR_DYNAMICSTRINGTOKENS_HPP

#include <optional>
#include <string>
#include <vector>

namespace qxqr {

// The values that the loader puts in place of $ORIGIN, $LIB and $PLATFORM
// (also written ${ORIGIN}, ...) in a search path or a needed name, for one
// object: the directory the object was loaded from, and two values of the
// platform (LoaderPlatform).
struct DynamicStringTokens {
    std::string origin; // the object's directory, absolute
    std::string lib;
    std::string platform; // empty when the platform is not known

    // `text` with every token replaced. A token is recognised only where
    // its name ends (not followed by a letter, digit or '_'); "$ORIGINAL"
    // and an unknown "$FOO" stay as written. None when a token has no
    // value, which drops that entry of a search path, as the loader does.
    std::optional<std::string> expand(const std::string& text) const;

    // A search path list (entries parted by any of `separators`: ':' in an
    // object's own paths, ':' or ';' in the library path the loader is
    // given) as directories, each expanded; an empty entry is the current
    // directory, as for the loader, and an entry that cannot be expanded is
    // left out.
    std::vector<std::string> directories(const std::string& list, const char* separators = ":") const;
};

// The directory part of `path` made absolute against the current
// directory, as the loader takes an object's origin: symbolic links are
// not followed.
std::string originOf(const std::string& path);

} // namespace qxqr

#endif

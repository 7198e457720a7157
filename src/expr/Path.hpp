// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_EXPR_PATH_HPP
#define QXQRSCRIPT_EXPR_PATH_HPP

#include "expr/kfPathString.hpp"
#include "expr/kfWellFormedPathNormalizer.hpp"

#include <boost/shared_ptr.hpp>

#include <cstddef>
#include <iosfwd>
#include <string>

namespace QuorelScript {

class Bindings;

using PathString = kfPathString_<std::string>;
using PathNormalizer = kfStringNormalizer<PathString>;
using WellFormedPathNormalizer = kfWellFormedPathNormalizer<PathString>;

// A path: its characters, tied to a normalizer through which assignments
// pass. Copies share the normalizer. Paths compare byte by byte.
class Path {
public:
    // The empty path.
    Path();
    // The text in normal form: doubled slashes collapsed, outer white space removed.
    explicit Path(const std::string& text);
    // The characters from `first` up to `last` exactly as written, with a
    // fresh normalizer for the substitutions to come (a path literal's text).
    static Path verbatim(const char* first, const char* last);

    const std::string& text() const;
    const char* c_str() const;
    std::size_t length() const;

    // Replaces the $name and ${name} references found in `bindings` by their
    // values, normalizing after each replacement; unknown ones stay as written.
    void substituteVariables(const Bindings& bindings);

    const boost::shared_ptr<PathNormalizer>& normalizer() const;

private:
    // Gives the path a normalizer of its own, shared with its text.
    void installFreshNormalizer();

    PathString text_;
    boost::shared_ptr<PathNormalizer> normalizer_;
};

bool operator<(const Path& a, const Path& b);
bool operator==(const Path& a, const Path& b);
bool operator!=(const Path& a, const Path& b);
std::ostream& operator<<(std::ostream& out, const Path& path);

} // namespace QuorelScript

#endif

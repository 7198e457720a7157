// SPDX-License-Identifier: MIT
#include "LibraryCopy.hpp"

#include "Command.hpp"
#include "QuotedName.hpp"

#include <filesystem>
#include <system_error>
#include <utility>

namespace qxqr {

namespace fs = std::filesystem;

LibraryCopy::LibraryCopy(std::string directory) : directory(std::move(directory)) {
    std::error_code error;
    fs::create_directories(this->directory, error);
    if (error || !fs::is_directory(this->directory))
        throw Failure("qxqr: cannot make the directory " + quotedName(this->directory) + ": " +
                      (error ? error.message() : "a file of that name is in the way") + "\n");
}

namespace {

// A soname is the library's own word and may be anything; only a plain
// file name may name the copy, so that nothing lands outside the directory.
bool isPlainName(const std::string& name) {
    return !name.empty() && name != "." && name != ".." && name.find('/') == std::string::npos;
}

} // namespace

std::string LibraryCopy::take(const Dependency& dependency) {
    if (!dependency.found || dependency.link == Link::start || dependency.visit.fate == Fate::excluded)
        return std::string();
    const std::string& file = dependency.visit.file;
    const std::string name =
        dependency.soname && isPlainName(*dependency.soname) ? *dependency.soname : fs::path(file).filename().string();
    auto [place, isNew] = copied.emplace(name, dependency.identity);
    if (!isNew)
        return place->second == dependency.identity
                   ? std::string()
                   : "qxqr: " + quotedName(file) + ": not copied, " + quotedName(name) + " is taken by another file\n";
    // What has the name already goes first: copying over a symbolic link
    // would write wherever it points.
    const fs::path copy = fs::path(directory) / name;
    std::error_code error;
    fs::remove(copy, error);
    if (!error)
        fs::copy_file(dependency.location, copy, error);
    if (error)
        return "qxqr: cannot copy " + quotedName(file) + " to " + quotedName(directory) + ": " + error.message() + "\n";
    return std::string();
}

} // namespace qxqr

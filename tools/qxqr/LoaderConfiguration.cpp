// SPDX-License-Identifier: MIT
#include "LoaderConfiguration.hpp"

#include "RootedPath.hpp"

#include <glob.h>

#include <algorithm>
#include <fstream>
#include <set>
#include <system_error>

namespace qxqr {

namespace {

std::string trimmed(const std::string& text) {
    const char* blanks = " \t\r";
    std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string::npos)
        return std::string();
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

std::vector<std::string> matches(const std::string& pattern) {
    glob_t found;
    std::vector<std::string> names;
    if (glob(pattern.c_str(), 0, nullptr, &found) == 0)
        names.assign(found.gl_pathv, found.gl_pathv + found.gl_pathc);
    globfree(&found);
    return names; // glob sorts its matches by name
}

class ConfigurationReader {
public:
    explicit ConfigurationReader(const std::string& sysroot) : sysroot(sysroot) {}

    // `file` as the system names it.
    void read(const std::string& file) {
        if (!readFiles.insert(file).second)
            return;
        std::ifstream lines(inRoot(file));
        std::string line;
        while (std::getline(lines, line))
            readLine(trimmed(line.substr(0, line.find('#'))), file);
    }

    std::vector<std::string> directories;

private:
    void readLine(const std::string& line, const std::string& file) {
        if (line.empty() || startsWithWord(line, "hwcap"))
            return;
        if (startsWithWord(line, "include")) {
            include(trimmed(line.substr(7)), file);
            return;
        }
        addDirectory(line.substr(0, line.find('=')));
    }

    static bool startsWithWord(const std::string& line, const std::string& word) {
        return line.compare(0, word.size(), word) == 0 && line.size() > word.size() &&
               (line[word.size()] == ' ' || line[word.size()] == '\t');
    }

    // The directories of the pattern that hold no wildcard are followed
    // inside the root, and so is each match when it is read; a pattern
    // whose wildcards are in a directory is matched as written under the
    // root.
    void include(const std::string& pattern, const std::string& file) {
        std::string absolute = pattern;
        if (pattern.front() != '/')
            absolute = file.substr(0, file.rfind('/') + 1) + pattern;
        std::string::size_type wildcard = absolute.find_first_of("*?[");
        std::string::size_type slash = absolute.rfind('/', wildcard == std::string::npos ? absolute.size() : wildcard);
        std::string directory = absolute.substr(0, slash);
        if (!directory.empty() && !sysroot.empty()) {
            std::error_code unresolved;
            std::string followed = followedInRoot(sysroot, directory, unresolved);
            if (unresolved)
                return; // a loop of links: nothing to read, as for the loader
            directory = followed == "/" ? std::string() : followed;
        }
        const std::string under = sysroot + directory;
        for (const std::string& match : matches(under + absolute.substr(slash)))
            read(directory + match.substr(under.size()));
    }

    // Where the system's `file` is read on this one: under a root, each
    // symbolic link on its way followed inside the root, so that a link to
    // an absolute name reads the root's file of that name; "" (nothing to
    // read) for a loop of links.
    std::string inRoot(const std::string& file) const {
        if (sysroot.empty())
            return file;
        std::error_code unresolved;
        std::string followed = followedInRoot(sysroot, file, unresolved);
        return unresolved ? std::string() : sysroot + followed;
    }

    void addDirectory(std::string directory) {
        directory = trimmed(directory);
        while (directory.size() > 1 && directory.back() == '/')
            directory.pop_back();
        if (!directory.empty() && std::find(directories.begin(), directories.end(), directory) == directories.end())
            directories.push_back(directory);
    }

    const std::string& sysroot;
    std::set<std::string> readFiles;
};

} // namespace

std::vector<std::string> configuredDirectories(const std::string& sysroot) {
    ConfigurationReader reader(sysroot);
    reader.read("/etc/ld.so.conf");
    return reader.directories;
}

} // namespace qxqr

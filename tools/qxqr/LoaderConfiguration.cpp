// SPDX-License-Identifier: MIT
#include "LoaderConfiguration.hpp"

#include <glob.h>

#include <algorithm>
#include <fstream>
#include <set>

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
        std::ifstream lines(sysroot + file);
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

    void include(const std::string& pattern, const std::string& file) {
        std::string absolute = pattern;
        if (pattern.front() != '/')
            absolute = file.substr(0, file.rfind('/') + 1) + pattern;
        for (const std::string& match : matches(sysroot + absolute))
            read(match.substr(sysroot.size()));
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

// SPDX-License-Identifier: MIT
#include "RootedPath.hpp"

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace qxqr {

namespace {

const int maxLinks = 40;

// Puts the components of `path` on `pending`, the first on top.
void pushComponents(const std::string& path, std::vector<std::string>& pending) {
    std::size_t end = path.size();
    while (end > 0) {
        std::size_t slash = path.rfind('/', end - 1);
        std::size_t start = slash == std::string::npos ? 0 : slash + 1;
        if (end > start)
            pending.push_back(path.substr(start, end - start));
        if (slash == std::string::npos)
            break;
        end = slash;
    }
}

std::string readLink(const std::string& link, std::error_code& error) {
    std::string target(256, '\0');
    while (true) {
        ssize_t length = readlink(link.c_str(), &target[0], target.size());
        if (length < 0) {
            error.assign(errno, std::generic_category());
            return std::string();
        }
        if (static_cast<std::size_t>(length) < target.size()) {
            target.resize(length);
            return target;
        }
        target.resize(target.size() * 2);
    }
}

} // namespace

std::optional<std::string> systemPathUnder(const std::string& root, const std::string& hostPath) {
    if (root.empty())
        return hostPath;
    if (hostPath.compare(0, root.size(), root) == 0 && hostPath.size() > root.size() && hostPath[root.size()] == '/')
        return hostPath.substr(root.size());
    return std::nullopt;
}

std::string followedInRoot(const std::string& root, const std::string& systemPath, std::error_code& error) {
    error.clear();
    std::vector<std::string> pending;
    pushComponents(systemPath, pending);
    std::string followed; // "" is the root itself
    int links = 0;
    while (!pending.empty()) {
        const std::string component = pending.back();
        pending.pop_back();
        if (component == ".")
            continue;
        if (component == "..") {
            followed.erase(followed.empty() ? 0 : followed.rfind('/'));
            continue;
        }
        std::string next = followed;
        next += '/';
        next += component;
        struct stat status;
        if (lstat((root + next).c_str(), &status) != 0) {
            followed = next;
            while (!pending.empty()) {
                followed += "/" + pending.back();
                pending.pop_back();
            }
            break;
        }
        if (!S_ISLNK(status.st_mode)) {
            followed = next;
            continue;
        }
        if (++links > maxLinks) {
            error.assign(ELOOP, std::generic_category());
            return systemPath;
        }
        const std::string target = readLink(root + next, error);
        if (error)
            return systemPath;
        if (!target.empty() && target.front() == '/')
            followed.clear();
        pushComponents(target, pending);
    }
    return followed.empty() ? "/" : followed;
}

} // namespace qxqr

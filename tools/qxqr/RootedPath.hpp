// SPDX-License-Identifier: MIT
#ifndef QXQR_ROOTEDPATH_HPP
#define QXQR_ROOTEDPATH_HPP

#include <optional>
#include <string>
#include <system_error>

namespace qxqr {

// Names on a system installed under a directory `root` of this one (the
// root "" being this system itself).

// `hostPath` as that system names it ("ROOT/usr/lib" is "/usr/lib"); none
// when it lies outside the root.
std::optional<std::string> systemPathUnder(const std::string& root, const std::string& hostPath);

// Where the absolute `systemPath` leads on that system, as a process whose
// root is `root` would find it: component by component, each symbolic link
// followed inside the root, an absolute target taken from the root and
// ".." stopping at it, so that no name can reach a file outside it. The
// result is a system path with no link on its way. A component that is not
// there ends the following, and the rest is kept as written, so that
// opening the result fails as opening the name would. After 40 links (the
// kernel's limit) `error` is set to ELOOP, as the kernel reports a loop.
// Costs one lstat a component, and one readlink a link.
std::string followedInRoot(const std::string& root, const std::string& systemPath, std::error_code& error);

} // namespace qxqr

#endif

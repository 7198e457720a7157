// SPDX-License-Identifier: MIT
#ifndef QXQR_LOADERCONFIGURATION_HPP
#define QXQR_LOADERCONFIGURATION_HPP

#include <string>
#include <vector>

namespace qxqr {

// The directories that the system's loader configuration adds to the
// search, in order: /etc/ld.so.conf, one directory a line, '#' starting a
// comment, "include PATTERN" reading every file the wildcard pattern
// matches (in name order, a relative pattern taken from the including
// file's directory), "hwcap" lines ignored, a directory written
// "DIR=TYPE" taken as DIR. A directory named twice counts once, at its
// first place; a file included twice is read once, so that no loop of
// includes can go on for ever. Everything is read under `sysroot` ("" for
// the running system); the directories are returned as the system names
// them, without it. A configuration that cannot be read adds nothing, as
// for the loader.
std::vector<std::string> configuredDirectories(const std::string& sysroot);

} // namespace qxqr

#endif

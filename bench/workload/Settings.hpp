// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_SETTINGS_HPP
#define QXQR_BENCH_SETTINGS_HPP

#include <string>

namespace qxqr::bench {

// The host's configuration of every generated rule set: the installation
// root ($vantor, and $toolbox below it) and the current directory ($cwd).
struct Settings {
    std::string vantorRoot = "/opt/vantor";
    std::string cwd = "/home/user/project";
};

// `path` with the variables whose value does not depend on the file
// ($vantor, $toolbox, $cwd, $vrk, $lib, $arch) replaced by their values;
// the file's own variables ($file, $dir, $name, $ext) stay as written.
std::string withHostValues(const std::string& path, const Settings& settings);

} // namespace qxqr::bench

#endif

// SPDX-License-Identifier: MIT
#ifndef QXQR_FILETRACES_HPP
#define QXQR_FILETRACES_HPP

#include <qxqrscript/observe.hpp>

#include <string>

namespace qxqr {

// The three questions about one file, each asked with a trace.
struct FileTraces {
    std::string file;
    QuorelScript::Observe::QueryTrace excluded;
    QuorelScript::Observe::QueryTrace pruned;
    QuorelScript::Observe::QueryTrace includes;
};

} // namespace qxqr

#endif

#ifndef QXQR_FILETRACES_HPP
#define QXQR_FILETRACES_HPP

#include <qxqrscript/inspect.hpp>

#include <string>

namespace qxqr {

// The three questions about one file, each asked with a trace.
struct FileTraces {
    std::string file;
    QuorelScript::Inspect::QueryTrace excluded;
    QuorelScript::Inspect::QueryTrace pruned;
    QuorelScript::Inspect::QueryTrace includes;
};

} // namespace qxqr

#endif

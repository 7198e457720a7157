// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_QUERYVARIABLES_HPP
#define QXQRSCRIPT_RULES_QUERYVARIABLES_HPP

#include "expr/Bindings.hpp"
#include "expr/filePathParts.hpp"
#include "rules/ConfiguredVariables.hpp"
#include "rules/QueryVariable.hpp"

#include <optional>
#include <string>
#include <string_view>

namespace QuorelScript {

// The values of the eleven variables during one query, each worked out the
// first time it is asked for, into buffers that the next query reuses, so a
// query that needs only $ext never normalizes the caller.
class QueryVariables {
public:
    explicit QueryVariables(const ConfiguredVariables& configured);
    QueryVariables(const QueryVariables&) = delete;
    QueryVariables& operator=(const QueryVariables&) = delete;

    // A new query about `file`, referred to by `caller` (null for none).
    // Both are copied at once: the host may reuse or free its texts while
    // the query runs (from its includer, say).
    void start(const char* file, const char* caller);

    // The value as the query's bindings hold it.
    std::string_view value(QueryVariable variable);
    // Whether that value is in normal form, so that normalizing it again
    // would change nothing.
    bool isNormal(QueryVariable variable);

    // The bindings map that the query's conditions are defined against, for
    // the nodes that can only evaluate themselves; made on first use.
    const Bindings& bindings();

private:
    const ConfiguredVariables* configured_;
    std::string file_;
    std::string callerArgument_;
    std::string caller_;
    FilePathParts fileParts_;
    bool fileFreeOfDoubledSlashes_{true};
    bool callerReady_{false};
    std::optional<Bindings> bindings_;
};

} // namespace QuorelScript

#endif

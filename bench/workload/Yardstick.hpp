// SPDX-License-Identifier: MIT
#ifndef QXQR_BENCH_YARDSTICK_HPP
#define QXQR_BENCH_YARDSTICK_HPP

#include "FileParts.hpp"
#include "Rule.hpp"
#include "Settings.hpp"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace qxqr::bench {

// The three queries answered by hand from the rule model: the host's values
// are put into the rules' paths once, and a query then does only what the
// rules themselves ask for: cut the file into its parts, compare strings in
// rule order (first match for exclude and prune rules, every rule for
// include rules) and, for a holding include rule, write its paths. It is
// the floor a query of the library is measured against, and the answers
// that library's answers are checked against.
class Yardstick {
public:
    Yardstick(const std::vector<Rule>& rules, const Settings& settings);

    bool isExcluded(std::string_view file) const;
    bool isPruned(std::string_view file) const;

    // Calls `includer(path)`, with a `const char*` valid during the call, for
    // each path the include rules add for `file`, in rule and list order.
    template <class Includer>
    void getIncludes(std::string_view file, Includer&& includer);

private:
    struct ResolvedTest {
        FileVariable variable;
        Comparison comparison;
        std::vector<std::string> paths;
        bool negated;
    };
    using Condition = std::vector<ResolvedTest>;

    // A piece of an include path: plain text, or a part of the file.
    struct PathPiece {
        std::optional<FileVariable> variable;
        std::string text;
    };
    using PathPieces = std::vector<PathPiece>;

    struct ResolvedInclude {
        Condition condition;
        std::vector<PathPieces> paths;
    };

    static Condition resolved(const std::vector<Test>& condition, const Settings& settings);
    static PathPieces pieces(const std::string& path, const Settings& settings);
    static bool holds(const ResolvedTest& test, const FileParts& parts);
    static bool holds(const Condition& condition, const FileParts& parts);
    static bool anyHolds(const std::vector<Condition>& conditions, std::string_view file);
    void write(const PathPieces& pieces, const FileParts& parts);

    std::vector<Condition> excludes;
    std::vector<Condition> prunes;
    std::vector<ResolvedInclude> includes;
    std::string path; // the include path being written, kept so that it stops allocating once grown
};

template <class Includer>
void Yardstick::getIncludes(std::string_view file, Includer&& includer) {
    const FileParts parts = fileParts(file);
    for (const ResolvedInclude& rule : includes) {
        if (!holds(rule.condition, parts))
            continue;
        for (const PathPieces& pathPieces : rule.paths) {
            write(pathPieces, parts);
            includer(path.c_str());
        }
    }
}

} // namespace qxqr::bench

#endif

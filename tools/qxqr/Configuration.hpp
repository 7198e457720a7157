#ifndef QXQR_CONFIGURATION_HPP
#define QXQR_CONFIGURATION_HPP

#include <string>
#include <vector>

namespace CLI {
class App;
}
namespace QuorelScript {
class Rules;
}

namespace qxqr {

// How a rule set is set up before it is queried, as the options --root,
// --cwd, --set and --precompute of `query` and `walk` give it.
class Configuration {
public:
    void addOptions(CLI::App& command);
    // In the order a host follows: root, current directory, variables, and
    // precomputation last, once everything it can bind is known.
    void apply(QuorelScript::Rules& rules) const;

private:
    std::string root;
    std::string cwd;
    std::vector<std::string> assignments;  // NAME=VALUE, checked by the parser
    bool precompute = false;
};

} // namespace qxqr

#endif

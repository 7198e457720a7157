// SPDX-License-Identifier: MIT
// A minimal host: reads a rules script, points the rule set at an
// installation, precomputes it, and asks about each file it is given.
//
//   qxqr_host_example SCRIPT ROOT FILE...

#include <qxqrscript.hpp>

#include <iostream>
#include <memory>

namespace {

// The host's callback for the files that include rules add.
class PrintIncludes : public QuorelRules::Includer {
public:
    bool include(const char* path) override {
        std::cout << "    includes " << path << "\n";
        return true;
    }
};

} // namespace

int main(int argc, char** argv) {
    if (argc < 4) {
        std::cerr << "usage: qxqr_host_example SCRIPT ROOT FILE...\n";
        return 2;
    }

    // Parse the script. Syntax errors are kept inside the parser until a sink
    // is set; this host wants them on standard error.
    QuorelScript::FileReader reader;
    reader.getParser().setErrorSink(&std::cerr);
    std::unique_ptr<QuorelScript::Rules> rules(reader.read(argv[1]));
    if (!rules) { // a syntax error (reported above) or a file that cannot be read
        std::cerr << "qxqr_host_example: no rules from " << argv[1] << "\n";
        return 1;
    }

    // Configure once, then precompute once, before the first query.
    rules->setVantorRoot(argv[2]);
    rules->setCwdFromProcess();
    rules->precompute();

    for (int i = 3; i < argc; ++i) {
        const char* file = argv[i];
        if (rules->isExcluded(file, nullptr, nullptr)) {
            std::cout << file << ": excluded\n";
        } else if (rules->isPruned(file, nullptr, nullptr)) {
            std::cout << file << ": pruned\n";
        } else {
            std::cout << file << ": kept\n";
            PrintIncludes includes;
            rules->getIncludes(file, nullptr, includes);
        }
    }
    return 0;
}

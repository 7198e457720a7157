// SPDX-License-Identifier: MIT
#include "RulesTesting.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>

using namespace testing_rules;

namespace {

// A rule set that only prints, to see that operator<< goes through print.
class PrintOnlyRules : public Rules {
public:
    explicit PrintOnlyRules(bool& destroyed) : destroyed_(destroyed) {}
    ~PrintOnlyRules() override { destroyed_ = true; }

    bool isExcluded(const char*, const char*, const char*) override { return false; }
    bool isPruned(const char*, const char*, const char*) override { return false; }
    void getIncludes(const char*, const char*, QuorelRules::Includer&) override {}
    void setVantorRoot(const char*) override {}
    void setCwd(const char*) override {}
    int setCwdFromProcess() override { return 0; }
    void bindVariable(const char*, const char*) override {}
    void precompute() override {}
    std::ostream& print(std::ostream& os) const override {
        printedTo = &os;
        return os << "printed";
    }
    const std::string& getLastMatchText() const override { return text_; }

    mutable std::ostream* printedTo = nullptr;

private:
    bool& destroyed_;
    std::string text_;
};

} // namespace

TEST(Rules, StreamOperatorPrintsThroughTheVirtualPrint) {
    bool destroyed = false;
    PrintOnlyRules rules(destroyed);
    std::ostringstream out;
    std::ostream& result = out << static_cast<const Rules*>(&rules);
    EXPECT_EQ(&result, &out);
    EXPECT_EQ(rules.printedTo, &out);
    EXPECT_EQ(out.str(), "printed");
}

TEST(Rules, IsDestroyedThroughTheHostsView) {
    bool destroyed = false;
    QuorelRules* rules = new PrintOnlyRules(destroyed);
    delete rules;
    EXPECT_TRUE(destroyed);
}

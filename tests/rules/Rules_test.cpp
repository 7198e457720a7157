// SPDX-License-Identifier: MIT
#include "RulesTesting.hpp"
#include "StubRules.hpp"

#include <gtest/gtest.h>

#include <ostream>
#include <sstream>

using namespace testing_rules;

namespace {

// A rule set that only prints, to see that operator<< goes through print.
class PrintOnlyRules : public StubRules {
public:
    explicit PrintOnlyRules(bool& destroyed) : destroyed_(destroyed) {}
    ~PrintOnlyRules() override { destroyed_ = true; }

    std::ostream& print(std::ostream& os) const override {
        printedTo = &os;
        return os << "printed";
    }

    mutable std::ostream* printedTo = nullptr;

private:
    bool& destroyed_;
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

// SPDX-License-Identifier: MIT
#include "pelor/pelor.hpp"
#include "scan.hpp"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using pelor::ch;
using pelor::ref;
using pelor::rule;

TEST(RecursiveGrammar, BalancedParentheses) {
    rule balanced;
    balanced = pelor::zero_or_more(ch('(') >> ref<rule>(balanced) >> ch(')'));
    rule whole;
    whole = ref<rule>(balanced) >> pelor::end_of_input();

    EXPECT_EQ(scan(whole, ""), matched(0));
    EXPECT_EQ(scan(whole, "(()())()"), matched(8));
    EXPECT_EQ(scan(whole, "((((((((((()))))))))))"), matched(22));
    EXPECT_EQ(scan(whole, "(()"), failed());
    EXPECT_EQ(scan(whole, "())"), failed());
    EXPECT_EQ(scan(balanced, "()(()"), matched(2));
}

// A calculator for + - * / over integers with parentheses, whose actions
// evaluate on a stack as they go.
class Calculator {
public:
    Calculator() {
        using pelor::zero_or_more;
        const pelor::char_class<Digit> digit;
        number = pelor::one_or_more(digit)[Push(this)];
        factor = ref<rule>(number) | (ch('(') >> ref<rule>(sum) >> ch(')'));
        product = ref<rule>(factor) >> zero_or_more((ch('*') >> ref<rule>(factor))[Apply(this, '*')] |
                                                    (ch('/') >> ref<rule>(factor))[Apply(this, '/')]);
        sum = ref<rule>(product) >> zero_or_more((ch('+') >> ref<rule>(product))[Apply(this, '+')] |
                                                 (ch('-') >> ref<rule>(product))[Apply(this, '-')]);
        whole = ref<rule>(sum) >> pelor::end_of_input();
    }

    // The value of `text`, or false when it is not an expression.
    bool evaluate(const std::string& text, long& value) {
        stack_.clear();
        const char* pos = text.data();
        if (!whole.match(pos, text.data() + text.size())) {
            return false;
        }
        value = stack_.back();
        return true;
    }

private:
    struct Digit {
        bool operator()(char c) const { return c >= '0' && c <= '9'; }
    };

    class Push {
    public:
        explicit Push(Calculator* calculator) : calculator_(calculator) {}

        template <class Iterator>
        void operator()(Iterator first, Iterator last) const {
            calculator_->stack_.push_back(std::stol(std::string(first, last)));
        }

    private:
        Calculator* calculator_;
    };

    class Apply {
    public:
        Apply(Calculator* calculator, char op) : calculator_(calculator), op_(op) {}

        template <class Iterator>
        void operator()(Iterator, Iterator) const {
            std::vector<long>& stack = calculator_->stack_;
            const long right = stack.back();
            stack.pop_back();
            long& left = stack.back();
            switch (op_) {
            case '+':
                left += right;
                break;
            case '-':
                left -= right;
                break;
            case '*':
                left *= right;
                break;
            default:
                left /= right;
                break;
            }
        }

    private:
        Calculator* calculator_;
        char op_;
    };

    rule number;
    rule factor;
    rule product;
    rule sum;
    rule whole;
    std::vector<long> stack_;
};

TEST(RecursiveGrammar, ArithmeticIsEvaluatedByItsActions) {
    Calculator calculator;
    long value = 0;
    ASSERT_TRUE(calculator.evaluate("42", value));
    EXPECT_EQ(value, 42);
    ASSERT_TRUE(calculator.evaluate("2*(3+4)-5", value));
    EXPECT_EQ(value, 9);
    ASSERT_TRUE(calculator.evaluate("100-20-30", value));
    EXPECT_EQ(value, 50);
    ASSERT_TRUE(calculator.evaluate("1+2*3", value));
    EXPECT_EQ(value, 7);
    ASSERT_TRUE(calculator.evaluate("((7))/(1+1)*((3))", value));
    EXPECT_EQ(value, 9);
    EXPECT_FALSE(calculator.evaluate("2*(3+4", value));
    EXPECT_FALSE(calculator.evaluate("2+", value));
}

} // namespace

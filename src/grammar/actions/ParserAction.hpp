// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_GRAMMAR_ACTIONS_PARSERACTION_HPP
#define QXQRSCRIPT_GRAMMAR_ACTIONS_PARSERACTION_HPP

namespace QuorelScript {

class ParserImpl;

// What every parse action carries: the parser whose state it works on.
// Actions are small values, copied into the grammar that runs them.
class ParserAction {
public:
    explicit ParserAction(ParserImpl& parser) : parser_(&parser) {}

protected:
    ParserImpl& parser() const { return *parser_; }

private:
    ParserImpl* parser_;
};

} // namespace QuorelScript

#endif

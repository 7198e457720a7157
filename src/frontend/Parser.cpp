// SPDX-License-Identifier: MIT
#include <qxqrscript/Parser.hpp>

#include "frontend/ErrorSink.hpp"
#include "frontend/SyntaxErrorReport.hpp"
#include "grammar/ParserImpl.hpp"
#include "host/textOrEmpty.hpp"
#include "rules/ParsedRules.hpp"

#include <cstring>

namespace QuorelScript {

namespace {

// What a Parser points to: the parser proper, and where its syntax errors
// go, which is the facade's business. The facade's one member is a pointer to
// ParserImpl, and its type is part of the recorded binary interface, so the
// pointer keeps that type; this object is made and deleted as itself.
class ParserWithErrorSink : public ParserImpl {
public:
    ErrorSink errors;
};

ParserWithErrorSink& withErrorSink(ParserImpl* impl) {
    return static_cast<ParserWithErrorSink&>(*impl);
}

// Runs the grammar over the whole of `text`. A text that does not match to
// its end is reported on the error sink, with a word on the nesting when
// that is what stopped it; the rules that its good lines made stay with the
// parser and go with the next text that matches completely.
bool matchesCompletely(ParserWithErrorSink& impl, const char* text) {
    text = textOrEmpty(text);
    const char* cursor = text;
    const char* end = text + std::strlen(text);
    impl.matchScript(cursor, end);
    if (cursor == end)
        return true;
    reportSyntaxError(impl.errors.stream(), impl.scriptName(), impl.lineCount(), cursor);
    if (impl.nestedTooDeep())
        reportNestingTooDeep(impl.errors.stream(), ParserImpl::nestingLimit);
    return false;
}

// Switches the debug trace for one parse, and back on every way out.
class VerboseScope {
public:
    VerboseScope(ParserImpl& impl, bool verbose) : impl_(impl), saved_(impl.debugVerbose()) {
        impl_.setDebugVerbose(verbose);
    }
    VerboseScope(const VerboseScope&) = delete;
    VerboseScope& operator=(const VerboseScope&) = delete;
    ~VerboseScope() { impl_.setDebugVerbose(saved_); }

private:
    ParserImpl& impl_;
    bool saved_;
};

} // namespace

Parser::Parser() : impl(new ParserWithErrorSink) {}

Parser::~Parser() {
    delete &withErrorSink(impl);
}

void Parser::parse(Rules* rules, const char* text) {
    if (rules == nullptr)
        return;
    if (matchesCompletely(withErrorSink(impl), text))
        impl->handOverRules(static_cast<ParsedRules&>(*rules));
}

void Parser::parse(Rules* rules, const char* text, bool verbose) {
    VerboseScope scope(*impl, verbose);
    parse(rules, text);
}

Rules* Parser::parse(const char* text) {
    if (matchesCompletely(withErrorSink(impl), text))
        return impl->releaseRules();
    return nullptr;
}

Rules* Parser::parse(const char* text, bool verbose) {
    VerboseScope scope(*impl, verbose);
    return parse(text);
}

void Parser::setScriptName(const char* name) {
    impl->setScriptName(textOrEmpty(name));
}

void Parser::setDebugVerbose(bool on) {
    impl->setDebugVerbose(on);
}

bool Parser::getDebugVerbose() const {
    return impl->debugVerbose();
}

void Parser::setErrorSink(std::ostream* sink) {
    withErrorSink(impl).errors.redirect(sink);
}

} // namespace QuorelScript

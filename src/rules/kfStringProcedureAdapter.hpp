// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_RULES_KFSTRINGPROCEDUREADAPTER_HPP
#define QXQRSCRIPT_RULES_KFSTRINGPROCEDUREADAPTER_HPP

#include <qxqrscript/QuorelRules.hpp>
#include <qxqrscript/host.hpp>

template <class Receiver>
class kfStringProcedureAdapter;

// Hands every path that the directory services report to a host's includer,
// which it does not own.
template <>
class kfStringProcedureAdapter<QuorelRules::Includer> : public kfStringProcedure {
public:
    explicit kfStringProcedureAdapter(QuorelRules::Includer& includer) : includer_(&includer) {}

    bool operator()(const char* path) const override { return includer_->include(path); }

private:
    QuorelRules::Includer* includer_;
};

#endif

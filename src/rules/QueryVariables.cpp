// SPDX-License-Identifier: MIT
#include "rules/QueryVariables.hpp"

#include "expr/pathTextNormalForm.hpp"

namespace QuorelScript {

namespace {

bool assignNormalized(std::string& target, const char* text) {
    target.assign(text != nullptr ? text : "");
    return normalizePathText(target);
}

} // namespace

QueryVariables::QueryVariables(const ConfiguredVariables& configured) : configured_(&configured) {}

// The caller is normalized only if a condition looks at it.
void QueryVariables::start(const char* file, const char* caller) {
    fileFreeOfDoubledSlashes_ = assignNormalized(file_, file);
    fileParts_ = splitFilePath(file_);
    callerArgument_.assign(caller != nullptr ? caller : "");
    callerReady_ = false;
    bindings_.reset();
}

std::string_view QueryVariables::value(QueryVariable variable) {
    switch (variable) {
    case QueryVariable::file:
        return file_;
    case QueryVariable::dir:
        return fileParts_.dir;
    case QueryVariable::name:
        return fileParts_.name;
    case QueryVariable::ext:
        return fileParts_.ext;
    case QueryVariable::caller:
        if (!callerReady_) {
            caller_ = callerArgument_;
            normalizePathText(caller_);
            callerReady_ = true;
        }
        return caller_;
    default:
        return configured_->value(variable);
    }
}

// The file and the caller are normalized as they are bound, and
// normalizing a normalized text changes nothing. The pieces of the file can
// still carry white space at their ends, and hold doubled slashes only where
// the file does.
bool QueryVariables::isNormal(QueryVariable variable) {
    switch (variable) {
    case QueryVariable::file:
    case QueryVariable::caller:
        return true;
    case QueryVariable::dir:
    case QueryVariable::name:
    case QueryVariable::ext:
        return fileFreeOfDoubledSlashes_ && !endsInPathWhiteSpace(value(variable));
    default:
        return isNormalPathText(value(variable));
    }
}

const Bindings& QueryVariables::bindings() {
    if (!bindings_)
        // The file as normalized binds the same as the file as given.
        bindings_.emplace(configured_->vantorRoot().c_str(), file_.c_str(), callerArgument_.c_str(),
                          configured_->cwd().c_str());
    return *bindings_;
}

} // namespace QuorelScript

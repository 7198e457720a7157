#include "rules/QueryVariables.hpp"

#include "expr/pathTextNormalForm.hpp"

namespace QuorelScript {

namespace {

bool assignNormalized(std::string& target, const char* text) {
    target.assign(text != nullptr ? text : "");
    return normalizePathText(target);
}

} // namespace

QueryVariables::QueryVariables(const ConfiguredVariables& configured)
    : configured_(&configured),
      fileArgument_(nullptr),
      callerArgument_(nullptr),
      fileFreeOfDoubledSlashes_(true),
      fileReady_(false),
      callerReady_(false) {}

void QueryVariables::start(const char* file, const char* caller) {
    fileArgument_ = file;
    callerArgument_ = caller;
    fileReady_ = false;
    callerReady_ = false;
    bindings_.reset();
}

const std::string& QueryVariables::file() {
    if (!fileReady_) {
        fileFreeOfDoubledSlashes_ = assignNormalized(file_, fileArgument_);
        fileParts_ = splitFilePath(file_);
        fileReady_ = true;
    }
    return file_;
}

std::string_view QueryVariables::value(QueryVariable variable) {
    switch (variable) {
    case QueryVariable::file:
        return file();
    case QueryVariable::dir:
        file();
        return fileParts_.dir;
    case QueryVariable::name:
        file();
        return fileParts_.name;
    case QueryVariable::ext:
        file();
        return fileParts_.ext;
    case QueryVariable::caller:
        if (!callerReady_) {
            assignNormalized(caller_, callerArgument_);
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
        file();
        return fileFreeOfDoubledSlashes_ && !endsInPathWhiteSpace(value(variable));
    default:
        return isNormalPathText(value(variable));
    }
}

const Bindings& QueryVariables::bindings() {
    if (!bindings_)
        bindings_.emplace(configured_->vantorRoot().c_str(), fileArgument_, callerArgument_,
                          configured_->cwd().c_str());
    return *bindings_;
}

} // namespace QuorelScript

// SPDX-License-Identifier: MIT
#include "frontend/ErrorSink.hpp"

namespace QuorelScript {

ErrorSink::ErrorSink() : capture_(std::ios_base::out), sink_(&capture_) {}

void ErrorSink::redirect(std::ostream* sink) {
    if (sink == nullptr) {
        sink_ = &capture_;
        return;
    }
    if (sink_ == &capture_) {
        *sink << capture_.str();
        capture_.str("");
    }
    sink_ = sink;
}

} // namespace QuorelScript

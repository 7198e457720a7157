// SPDX-License-Identifier: MIT
#include "expr/Path.hpp"

#include <boost/make_shared.hpp>

#include <ostream>

namespace QuorelScript {

Path::Path() {
    installFreshNormalizer();
}

Path::Path(const std::string& text) {
    installFreshNormalizer();
    normalizer_->assign(text_, text.data(), text.length());
}

Path Path::verbatim(const char* first, const char* last) {
    Path path;
    path.text_.str().assign(first, last);
    return path;
}

const std::string& Path::text() const {
    return text_.str();
}

const char* Path::c_str() const {
    return text_.c_str();
}

std::size_t Path::length() const {
    return text_.length();
}

const boost::shared_ptr<PathNormalizer>& Path::normalizer() const {
    return normalizer_;
}

void Path::installFreshNormalizer() {
    normalizer_ = boost::make_shared<WellFormedPathNormalizer>();
    text_.setNormalizer(normalizer_);
}

// std::string compares its characters as unsigned char, over the shorter
// length first and then by length, which is the order paths are kept in.
bool operator<(const Path& a, const Path& b) {
    return a.text() < b.text();
}

bool operator==(const Path& a, const Path& b) {
    return a.text() == b.text();
}

bool operator!=(const Path& a, const Path& b) {
    return !(a == b);
}

std::ostream& operator<<(std::ostream& out, const Path& path) {
    return out << path.text();
}

} // namespace QuorelScript

// SPDX-License-Identifier: MIT
#include "expr/pathTextNormalForm.hpp"

#include <qxqrscript/host.hpp>

#include <algorithm>
#include <array>
#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>

namespace QuorelScript {

namespace {

// The set as a table of all byte values, so that testing a character is one
// look-up rather than a search of the set.
constexpr std::array<bool, 256> pathWhiteSpaceTable() {
    std::array<bool, 256> table{};
    for (const char* space = pathWhiteSpace; *space != '\0'; ++space)
        table[static_cast<unsigned char>(*space)] = true;
    return table;
}

constexpr std::array<bool, 256> isPathWhiteSpaceByte = pathWhiteSpaceTable();

bool isPathWhiteSpace(char c) {
    return isPathWhiteSpaceByte[static_cast<unsigned char>(c)];
}

// Whether two slashes follow each other among the bytes of the text up to
// its first NUL. The slashes are jumped to, since a path is mostly other
// characters.
bool holdsDoubledSlashBytes(std::string_view text) {
    const char* const end = text.data() + std::min(text.find('\0'), text.size());
    for (const char* slash = text.data();; ++slash) {
        slash = static_cast<const char*>(std::memchr(slash, '/', static_cast<std::size_t>(end - slash)));
        if (slash == nullptr || slash + 1 == end)
            return false;
        if (slash[1] == '/')
            return true;
    }
}

// In a locale whose characters are single bytes, and in UTF-8, a '/' byte is
// always a whole character, so a plain byte search finds exactly what the
// multibyte-aware search finds. Other multibyte encodings are left to the
// host's search. The locale can change between two calls, so it is asked
// every time; both questions are cheap.
bool slashesAreWholeCharacters() {
    if (MB_CUR_MAX == 1)
        return true;
    const char* codeset = nl_langinfo(CODESET);
    return std::strcmp(codeset, "UTF-8") == 0 || std::strcmp(codeset, "utf8") == 0;
}

// Where a slash is a whole character wherever its byte stands, the search
// finds every slash that another one follows, so each run of slashes before
// the first NUL shrinks to one, and the text ends at that NUL: one pass.
void collapseBytewise(std::string& text) {
    const std::size_t end = std::min(text.find('\0'), text.size());
    std::size_t kept = 0;
    for (std::size_t read = 0; read < end; ++read) {
        const char c = text[read];
        if (c == '/' && kept > 0 && text[kept - 1] == '/')
            continue;
        text[kept++] = c;
    }
    text.resize(kept);
}

// Elsewhere each slash that the host's search finds right before another one
// is dropped. The characters are moved left once, as the copy goes along,
// so the cost stays linear however many slashes there are. Dropping a slash
// keeps every character boundary after it, so each search from a kept
// position finds what a search over the shortened text would.
void collapseWithHostSearch(std::string& text) {
    static char doubledSlash[] = "//";
    char* const chars = &text[0];
    char* hit = hbMultiByteStrStr(chars, doubledSlash);
    if (hit == nullptr)
        return;
    char* const cStringEnd = chars + std::strlen(chars);
    char* kept = hit;
    char* read = hit;
    while (hit != nullptr) {
        const std::size_t run = static_cast<std::size_t>(hit - read);
        std::memmove(kept, read, run);
        kept += run;
        read = hit + 1;
        hit = hbMultiByteStrStr(read, doubledSlash);
    }
    std::memmove(kept, read, static_cast<std::size_t>(cStringEnd - read));
    kept += cStringEnd - read;
    text.resize(static_cast<std::size_t>(kept - chars));
}

} // namespace

bool collapseDoubledSlashes(std::string& text) {
    // Without two slashes in a row among its bytes, no search can find any.
    if (!holdsDoubledSlashBytes(text))
        return true;
    if (slashesAreWholeCharacters()) {
        collapseBytewise(text);
        return true;
    }
    collapseWithHostSearch(text);
    return !holdsDoubledSlashBytes(text);
}

std::string_view trimmedOfPathWhiteSpace(std::string_view text) {
    std::string_view::size_type first = 0;
    std::string_view::size_type end = text.size();
    while (end > first && isPathWhiteSpace(text[end - 1]))
        --end;
    while (first < end && isPathWhiteSpace(text[first]))
        ++first;
    return text.substr(first, end - first);
}

void trimPathWhiteSpace(std::string& text) {
    const std::string_view trimmed = trimmedOfPathWhiteSpace(text);
    const std::string::size_type first = static_cast<std::string::size_type>(trimmed.data() - text.data());
    text.erase(first + trimmed.size());
    text.erase(0, first);
}

bool normalizePathText(std::string& text) {
    const bool noDoubledSlash = collapseDoubledSlashes(text);
    trimPathWhiteSpace(text);
    return noDoubledSlash;
}

bool endsInPathWhiteSpace(std::string_view text) {
    return !text.empty() && (isPathWhiteSpace(text.front()) || isPathWhiteSpace(text.back()));
}

bool isNormalPathText(std::string_view text) {
    return !endsInPathWhiteSpace(text) && !holdsDoubledSlashBytes(text);
}

} // namespace QuorelScript

#include "expr/pathTextNormalForm.hpp"

#include <qxqrscript/host.hpp>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>

namespace QuorelScript {

namespace {

// A loop the compiler unrolls into seven compares, where a search of the
// set would cost a library call per character.
constexpr bool isPathWhiteSpace(char c) {
    for (const char* space = pathWhiteSpace; *space != '\0'; ++space)
        if (*space == c)
            return true;
    return false;
}

// Whether two slashes follow each other among the bytes of the text up to
// its first NUL. One pass, since paths hold many single slashes.
bool holdsDoubledSlashBytes(std::string_view text) {
    bool afterSlash = false;
    for (const char c : text) {
        if (c == '\0')
            return false;
        if (c == '/' && afterSlash)
            return true;
        afterSlash = c == '/';
    }
    return false;
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

char* findDoubledSlash(char* from) {
    static char doubledSlash[] = "//";
    if (slashesAreWholeCharacters())
        return std::strstr(from, doubledSlash);
    return hbMultiByteStrStr(from, doubledSlash);
}

} // namespace

// Every slash that the search finds right before another one is dropped.
// The characters are moved left once, as the copy goes along, so the cost
// is linear however many slashes there are. Dropping a slash keeps every
// character boundary after it, so each search from a kept position finds
// what a search over the shortened text would.
void collapseDoubledSlashes(std::string& text) {
    // Without two slashes in a row among its bytes, no search can find any.
    if (!holdsDoubledSlashBytes(text))
        return;
    char* const chars = &text[0];
    char* hit = findDoubledSlash(chars);
    if (hit == nullptr)
        return;
    const std::size_t cStringLength = std::strlen(chars);
    char* const cStringEnd = chars + cStringLength;
    char* kept = hit;
    char* read = hit;
    while (hit != nullptr) {
        // Keep everything up to the doubled slash, then drop its first slash.
        const std::size_t run = static_cast<std::size_t>(hit - read);
        std::memmove(kept, read, run);
        kept += run;
        read = hit + 1;
        hit = findDoubledSlash(read);
    }
    std::memmove(kept, read, static_cast<std::size_t>(cStringEnd - read));
    kept += cStringEnd - read;
    text.resize(static_cast<std::size_t>(kept - chars));
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

void normalizePathText(std::string& text) {
    collapseDoubledSlashes(text);
    trimPathWhiteSpace(text);
}

bool isNormalPathText(std::string_view text) {
    if (text.empty())
        return true;
    if (isPathWhiteSpace(text.front()) || isPathWhiteSpace(text.back()))
        return false;
    return !holdsDoubledSlashBytes(text);
}

} // namespace QuorelScript

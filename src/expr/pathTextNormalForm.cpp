#include "expr/pathTextNormalForm.hpp"

#include <qxqrscript/host.hpp>

#include <clocale>
#include <cstdlib>
#include <cstring>
#include <langinfo.h>

namespace QuorelScript {

namespace {

bool isPathWhiteSpace(char c) {
    return std::memchr(pathWhiteSpace, c, sizeof pathWhiteSpace - 1) != nullptr;
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
    const std::string_view::size_type first = text.find_first_not_of(pathWhiteSpace);
    if (first == std::string_view::npos)
        return text.substr(0, 0);
    const std::string_view::size_type last = text.find_last_not_of(pathWhiteSpace);
    return text.substr(first, last + 1 - first);
}

void trimPathWhiteSpace(std::string& text) {
    const std::string::size_type last = text.find_last_not_of(pathWhiteSpace);
    text.erase(last == std::string::npos ? 0 : last + 1);
    text.erase(0, text.find_first_not_of(pathWhiteSpace));
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
    // A NUL would end the text for the search, and cut it after a collapse.
    const std::string_view searched = text.substr(0, text.find('\0'));
    return searched.find("//") == std::string_view::npos;
}

} // namespace QuorelScript

#ifndef QXQRSCRIPT_FILEREADER_HPP
#define QXQRSCRIPT_FILEREADER_HPP

#include <qxqrscript/Parser.hpp>
#include <qxqrscript/version.hpp>

namespace QuorelScript {

class Rules;

// Reads a script file whole and parses it under the file's name.
// A file that cannot be read is not reported: the result is as for a syntax
// error (nothing added, or null), and no message is written.
class QXQRSCRIPT_API FileReader {
public:
    FileReader();

    void read(Rules* rules, const char* file);
    Rules* read(const char* file);

    Parser& getParser();
    const Parser& getParser() const;

private:
    Parser parser;
};

} // namespace QuorelScript

#endif

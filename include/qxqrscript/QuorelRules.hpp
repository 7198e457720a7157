// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_QUORELRULES_HPP
#define QXQRSCRIPT_QUORELRULES_HPP

#include <qxqrscript/version.hpp>

// The view of a rule set that a dependency-analysis host needs: for every
// file it meets, whether to skip the file, whether to stop descending at it,
// and which further files come with it.
class QXQRSCRIPT_API QuorelRules {
public:
    // The host's callback for the files that include rules add.
    class QXQRSCRIPT_API Includer {
    public:
        virtual ~Includer();
        virtual bool include(const char* path) = 0;
    };

    virtual ~QuorelRules();

    // The second argument is reserved and ignored. A null file or caller is
    // the empty path.
    virtual bool isExcluded(const char* file, const char* reserved, const char* caller) = 0;
    virtual bool isPruned(const char* file, const char* reserved, const char* caller) = 0;
    virtual void getIncludes(const char* file, const char* reserved, QuorelRules::Includer& includer) = 0;
};

#endif

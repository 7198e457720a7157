// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_VERSION_HPP
#define QXQRSCRIPT_VERSION_HPP

// Marks the library's public interface. The library is built with hidden
// visibility, so everything without this mark stays internal to it.
#define QXQRSCRIPT_API __attribute__((visibility("default")))

// The version of these headers, for a host to test at compile time. A host
// built against one version runs with any later library of the same major
// version (the "1" of libqxqrscript.so.1).
#define QXQRSCRIPT_VERSION_MAJOR 1
#define QXQRSCRIPT_VERSION_MINOR 0
#define QXQRSCRIPT_VERSION_PATCH 0

// The library's version ("1.0.0") and the date it was built ("YYYY-MM-DD",
// taken from SOURCE_DATE_EPOCH when that is set, so builds can be reproduced).
extern QXQRSCRIPT_API const char* libqxqrscript_version;
extern QXQRSCRIPT_API const char* libqxqrscript_build_date;

#endif

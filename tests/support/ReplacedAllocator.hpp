// SPDX-License-Identifier: MIT
#ifndef QXQRSCRIPT_TESTS_REPLACEDALLOCATOR_HPP
#define QXQRSCRIPT_TESTS_REPLACEDALLOCATOR_HPP

#include <cstddef>

// A test executable built with ReplacedAllocator.cpp has its global
// allocation functions replaced by ones that count every allocation and can
// be told to fail, so that a test can show that something allocates nothing,
// or that it survives running out of memory at any one allocation.
namespace ReplacedAllocator {

// How many allocations have succeeded so far.
std::size_t count();

// How many of them have not been freed yet.
std::size_t held();

// Lets `allowed` more allocations succeed and fails the ones after them,
// with std::bad_alloc (or null, for the non-throwing forms); a negative
// number lifts the limit. Also clears failed().
void failAfter(long allowed);

// Whether an allocation has failed since the last failAfter.
bool failed();

} // namespace ReplacedAllocator

#endif

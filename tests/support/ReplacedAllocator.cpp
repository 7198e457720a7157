// SPDX-License-Identifier: MIT
#include "ReplacedAllocator.hpp"

#include <cstdlib>
#include <new>

namespace {

std::size_t allocationCount = 0;
std::size_t releaseCount = 0;
long allocationsLeft = -1;
bool allocationFailed = false;

void* allocateOrNull(std::size_t size) noexcept {
    if (allocationsLeft == 0) {
        allocationFailed = true;
        return nullptr;
    }
    void* memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        return nullptr;
    if (allocationsLeft > 0)
        --allocationsLeft;
    ++allocationCount;
    return memory;
}

void release(void* memory) noexcept {
    if (memory != nullptr)
        ++releaseCount;
    std::free(memory);
}

void* allocate(std::size_t size) {
    if (void* memory = allocateOrNull(size))
        return memory;
    throw std::bad_alloc();
}

} // namespace

namespace ReplacedAllocator {

std::size_t count() {
    return allocationCount;
}

std::size_t held() {
    return allocationCount - releaseCount;
}

void failAfter(long allowed) {
    allocationsLeft = allowed < 0 ? -1 : allowed;
    allocationFailed = false;
}

bool failed() {
    return allocationFailed;
}

} // namespace ReplacedAllocator

void* operator new(std::size_t size) {
    return allocate(size);
}
void* operator new[](std::size_t size) {
    return allocate(size);
}
void* operator new(std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
}
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept {
    return allocateOrNull(size);
}
void operator delete(void* memory) noexcept {
    release(memory);
}
void operator delete[](void* memory) noexcept {
    release(memory);
}
void operator delete(void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete[](void* memory, std::size_t) noexcept {
    release(memory);
}
void operator delete(void* memory, const std::nothrow_t&) noexcept {
    release(memory);
}
void operator delete[](void* memory, const std::nothrow_t&) noexcept {
    release(memory);
}

#include "bench/measure/Allocations.h"

#include <malloc.h>

#include <cerrno>
#include <cstdlib>
#include <unordered_map>
#include <utility>

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
// NOLINTEND(bugprone-reserved-identifier)

}  // extern "C"

namespace bench {
namespace {

bool counts = false;
Allocations allocations;

/// The sizes of the blocks taken since `StartCounting` that are still held.
std::unordered_map<void*, std::size_t>& Sizes() {
    static std::unordered_map<void*, std::size_t> sizes;
    return sizes;
}

/// What a block takes in the heap: glibc puts the size ahead of it.
std::ptrdiff_t InHeap(void* block) {
    return static_cast<std::ptrdiff_t>(malloc_usable_size(block) + sizeof(std::size_t));
}

void* Born(void* block, std::size_t size) {
    if (counts && block != nullptr) {
        counts = false;  // the table allocates too
        Sizes()[block] = size;
        counts = true;
        ++allocations.count;
        allocations.requested += size;
        allocations.held += static_cast<std::ptrdiff_t>(size);
        allocations.heldInHeap += InHeap(block);
    }
    return block;
}

void Gone(void* block) {
    if (!counts || block == nullptr) {
        return;
    }
    counts = false;
    // Blocks from before are not this count's.
    const auto found = Sizes().find(block);
    if (found != Sizes().end()) {
        allocations.held -= static_cast<std::ptrdiff_t>(found->second);
        allocations.heldInHeap -= InHeap(block);
        Sizes().erase(found);
    }
    counts = true;
}

}  // namespace

void StartCounting() {
    Sizes().clear();
    allocations = {};
    counts = true;
}

Allocations StopCounting() {
    counts = false;
    return allocations;
}

}  // namespace bench

extern "C" {

void* malloc(std::size_t size) noexcept {
    return bench::Born(__libc_malloc(size), size);
}

void* calloc(std::size_t nmemb, std::size_t size) noexcept {
    return bench::Born(__libc_calloc(nmemb, size), nmemb * size);
}

void free(void* ptr) noexcept {
    bench::Gone(ptr);
    __libc_free(ptr);
}

void* realloc(void* ptr, std::size_t size) noexcept {
    bench::Gone(ptr);
    return bench::Born(__libc_realloc(ptr, size), size);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return bench::Born(__libc_memalign(alignment, size), size);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

int posix_memalign(void** memptr, std::size_t alignment, std::size_t size) noexcept {
    void* const block = memalign(alignment, size);
    if (block == nullptr) {
        return ENOMEM;
    }
    *memptr = block;
    return 0;
}

}  // extern "C"

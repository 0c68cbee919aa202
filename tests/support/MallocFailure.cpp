#include "tests/support/AllocationFailure.h"

#include <cerrno>
#include <cstdlib>

#include "tests/support/AllocationCountdown.h"

// The real functions have other names in the GNU C library only; a sanitizer needs its own ones.
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(__GLIBC__)
#define QUAVERA_REPLACES_MALLOC 0
#elif defined(__has_feature)
#if __has_feature(address_sanitizer) || __has_feature(thread_sanitizer) || \
    __has_feature(memory_sanitizer)
#define QUAVERA_REPLACES_MALLOC 0
#endif
#endif
#ifndef QUAVERA_REPLACES_MALLOC
#define QUAVERA_REPLACES_MALLOC 1
#endif

bool allocation::IsAvailable() {
    return QUAVERA_REPLACES_MALLOC != 0;
}

#if QUAVERA_REPLACES_MALLOC

extern "C" {

// NOLINTBEGIN(bugprone-reserved-identifier): the C library's names
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);
// NOLINTEND(bugprone-reserved-identifier)

}  // extern "C"

namespace {

/// The block that `allocate` yields, or null and "out of memory".
template <class Allocation>
void* Allocate(Allocation allocate) {
    if (allocation::IsToFail()) {
        errno = ENOMEM;
        return nullptr;
    }
    return allocation::Born(allocate());
}

}  // namespace

extern "C" {

void* malloc(std::size_t size) noexcept {
    return Allocate([=] { return __libc_malloc(size); });
}

void* calloc(std::size_t nmemb, std::size_t size) noexcept {
    return Allocate([=] { return __libc_calloc(nmemb, size); });
}

void free(void* ptr) noexcept {
    allocation::Gone(ptr);
    __libc_free(ptr);
}

void* realloc(void* ptr, std::size_t size) noexcept {
    if (ptr == nullptr) {
        return malloc(size);
    }
    if (size == 0) {
        free(ptr);
        return nullptr;
    }
    if (allocation::IsToFail()) {
        errno = ENOMEM;
        return nullptr;
    }
    return __libc_realloc(ptr, size);
}

void* reallocarray(void* ptr, std::size_t nmemb, std::size_t size) noexcept {
    std::size_t bytes = 0;
    if (__builtin_mul_overflow(nmemb, size, &bytes)) {
        errno = ENOMEM;
        return nullptr;
    }
    return realloc(ptr, bytes);
}

void* memalign(std::size_t alignment, std::size_t size) noexcept {
    return Allocate([=] { return __libc_memalign(alignment, size); });
}

void* aligned_alloc(std::size_t alignment, std::size_t size) noexcept {
    return memalign(alignment, size);
}

int posix_memalign(void** memptr, std::size_t alignment, std::size_t size) noexcept {
    void* const allocated = memalign(alignment, size);
    if (allocated == nullptr) {
        return ENOMEM;
    }
    *memptr = allocated;
    return 0;
}

}  // extern "C"

#endif

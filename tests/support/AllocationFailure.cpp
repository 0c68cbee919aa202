#include "tests/support/AllocationFailure.h"

#include <cstdlib>
#include <new>

#include "tests/support/AllocationCountdown.h"

namespace {

/// Null where the allocation is to fail or fails of itself.
void* Allocate(std::size_t size) {
    return allocation::IsToFail() ? nullptr : allocation::Born(std::malloc(size == 0 ? 1 : size));
}

void* Allocate(std::size_t size, std::align_val_t alignment) {
    if (allocation::IsToFail()) {
        return nullptr;
    }
    void* block = nullptr;
    const auto bytes = static_cast<std::size_t>(alignment);
    const int status = posix_memalign(&block, bytes, size == 0 ? 1 : size);
    return allocation::Born(status == 0 ? block : nullptr);
}

void* Checked(void* block) {
    if (block == nullptr) {
        throw std::bad_alloc();
    }
    return block;
}

void Free(void* block) {
    allocation::Gone(block);
    std::free(block);
}

}  // namespace

bool allocation::IsAvailable() {
    return true;
}

void* operator new(std::size_t size) {
    return Checked(Allocate(size));
}
void* operator new[](std::size_t size) {
    return Checked(Allocate(size));
}
void* operator new(std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
}
void* operator new[](std::size_t size, const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment) {
    return Checked(Allocate(size, alignment));
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
    return Checked(Allocate(size, alignment));
}
void* operator new(std::size_t size, std::align_val_t alignment,
                   const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment,
                     const std::nothrow_t& /*tag*/) noexcept {
    return Allocate(size, alignment);
}

void operator delete(void* block) noexcept {
    Free(block);
}
void operator delete[](void* block) noexcept {
    Free(block);
}
void operator delete(void* block, std::size_t /*size*/) noexcept {
    Free(block);
}
void operator delete[](void* block, std::size_t /*size*/) noexcept {
    Free(block);
}
void operator delete(void* block, const std::nothrow_t& /*tag*/) noexcept {
    Free(block);
}
void operator delete[](void* block, const std::nothrow_t& /*tag*/) noexcept {
    Free(block);
}
void operator delete(void* block, std::align_val_t /*alignment*/) noexcept {
    Free(block);
}
void operator delete[](void* block, std::align_val_t /*alignment*/) noexcept {
    Free(block);
}
void operator delete(void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    Free(block);
}
void operator delete[](void* block, std::size_t /*size*/, std::align_val_t /*alignment*/) noexcept {
    Free(block);
}
void operator delete(void* block, std::align_val_t /*alignment*/,
                     const std::nothrow_t& /*tag*/) noexcept {
    Free(block);
}
void operator delete[](void* block, std::align_val_t /*alignment*/,
                       const std::nothrow_t& /*tag*/) noexcept {
    Free(block);
}

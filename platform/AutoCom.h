#ifndef QUAVERA_PLATFORM_AUTO_COM_H_
#define QUAVERA_PLATFORM_AUTO_COM_H_

#include <cstddef>
#include <utility>

namespace zq {

/// Owning pointer to a reference-counted object: holds one reference or none, and gives the one
/// that it holds back through `Release()` when it is destroyed.
template <class T>
class auto_com {
 public:
    auto_com() noexcept = default;
    // Converts implicitly so that a function may `return nullptr` for "no object".
    auto_com(std::nullptr_t) noexcept {}
    /// Takes over the reference that the caller holds on `object`; null is allowed.
    explicit auto_com(T* object) noexcept : object_(object) {}

    auto_com(const auto_com&) = delete;
    auto_com& operator=(const auto_com&) = delete;

    auto_com(auto_com&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    auto_com& operator=(auto_com&& other) noexcept {
        auto_com(std::move(other)).swap(*this);
        return *this;
    }

    ~auto_com() {
        if (object_ != nullptr) {
            object_->Release();
            object_ = nullptr;  // after it: an object that looks at its owner finds itself there
        }
    }

    /// The object, borrowed; null when there is none.
    T* get() const noexcept { return object_; }
    T* operator->() const noexcept { return object_; }
    explicit operator bool() const noexcept { return object_ != nullptr; }

    void swap(auto_com& other) noexcept { std::swap(object_, other.object_); }

 private:
    T* object_ = nullptr;
};

}  // namespace zq

#endif  // QUAVERA_PLATFORM_AUTO_COM_H_

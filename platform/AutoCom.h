#ifndef QUAVERA_PLATFORM_AUTO_COM_H_
#define QUAVERA_PLATFORM_AUTO_COM_H_

#include <cstddef>
#include <utility>

namespace zq {

/// Owning pointer to a reference-counted object: holds one reference or none, and gives it back
/// through `Release()` when it is destroyed. Nothing here throws, and neither may `Release()`.
template <class T>
class auto_com {
 public:
    /// Holds nothing.
    auto_com() noexcept = default;
    /// Holds nothing. Converts implicitly, so that a function may `return nullptr` for "no object".
    auto_com(std::nullptr_t) noexcept {}
    /// Takes over the reference that the caller holds on `object`; null is allowed.
    explicit auto_com(T* object) noexcept : object_(object) {}

    auto_com(const auto_com&) = delete;
    auto_com& operator=(const auto_com&) = delete;

    /// Takes over the reference of `other`, which then holds nothing.
    auto_com(auto_com&& other) noexcept : object_(std::exchange(other.object_, nullptr)) {}
    /// The same, after which the reference that was held here is given back.
    auto_com& operator=(auto_com&& other) noexcept {
        auto_com(std::move(other)).swap(*this);
        return *this;
    }

    /// Gives the reference back, if there is one.
    ~auto_com() {
        if (object_ != nullptr) {
            object_->Release();
            object_ = nullptr;  // after it: an object that looks at its owner finds itself there
        }
    }

    /// The object, borrowed for as long as this holds it; null when there is none.
    T* get() const noexcept { return object_; }
    /// The same, for use only where there is one.
    T* operator->() const noexcept { return object_; }
    /// Whether there is one.
    explicit operator bool() const noexcept { return object_ != nullptr; }

    /// Exchanges the references.
    void swap(auto_com& other) noexcept { std::swap(object_, other.object_); }

 private:
    T* object_ = nullptr;
};

}  // namespace zq

#endif  // QUAVERA_PLATFORM_AUTO_COM_H_

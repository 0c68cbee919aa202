#ifndef QUAVERA_TESTS_TOOLS_DESCRIPTOR_H_
#define QUAVERA_TESTS_TOOLS_DESCRIPTOR_H_

#include <unistd.h>

#include <utility>

namespace tooltest {

/// Owns a file descriptor.
class Descriptor {
 public:
    explicit Descriptor(int number = -1) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() { Close(); }

    int get() const { return number_; }
    bool IsOpen() const { return number_ >= 0; }

    void Close() {
        if (IsOpen()) {
            close(std::exchange(number_, -1));
        }
    }

 private:
    int number_;
};

}  // namespace tooltest

#endif  // QUAVERA_TESTS_TOOLS_DESCRIPTOR_H_

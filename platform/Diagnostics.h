#ifndef QUAVERA_PLATFORM_DIAGNOSTICS_H_
#define QUAVERA_PLATFORM_DIAGNOSTICS_H_

#include <array>

#include "platform/Export.h"

/// @file
/// Reports of what cannot happen, and where in the program it did.

namespace zq {

/// The calling thread's stack at the moment of construction. Copyable; allocates nothing itself,
/// though the C library may for the first one of a process.
class ZQ_API StackTrace {
 public:
    /// The most addresses that are captured.
    static constexpr int kMaxDepth = 32;

    /// Captures up to `kMaxDepth` return addresses, innermost first.
    StackTrace();

    /// Number of addresses captured; 0 where the platform cannot walk the stack.
    int depth() const { return depth_; }
    /// The return address at `index`, which has to be 0 (innermost) to `depth() - 1`.
    void* address(int index) const { return addresses_[static_cast<std::size_t>(index)]; }

    /// Writes one line for each address to the file descriptor, without allocating. Nothing tells
    /// of a descriptor that cannot be written to.
    void Write(int descriptor) const;

 private:
    std::array<void*, kMaxDepth> addresses_;
    int depth_;
};

/// Receives assertion reports: the source path and line as the reporter states them, and the stack
/// of the moment, all borrowed for the call. It is called on the reporting thread, on several at
/// once where they report at once, and must not throw.
using AssertHandler = void (*)(const char* path, int line, const StackTrace& trace);

/// Installs `handler` for the whole process and returns the previous one; null puts the default
/// handler back, which writes path (400 bytes of it at most), line and trace to standard error. May
/// be called on any thread.
ZQ_API AssertHandler SetAssertHandler(AssertHandler handler);

/// Reports to the installed handler that something happened that cannot happen. Returns: execution
/// goes on. `path` is a C string and must not be null.
ZQ_API void AssertWrite(const char* path, int line, const StackTrace& trace);

}  // namespace zq

#endif  // QUAVERA_PLATFORM_DIAGNOSTICS_H_

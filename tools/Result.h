#ifndef QUAVERA_TOOLS_RESULT_H_
#define QUAVERA_TOOLS_RESULT_H_

#include <string>
#include <utility>
#include <variant>

namespace tool {

/// Why something failed: where (a file, an endpoint, an element) and what.
struct Failure {
    std::string where;
    std::string what;
};

/// The failure on one line: "where: what".
std::string Message(const Failure& failure);

/// A value, or why there is none. It converts from both, so that a function returns either as it
/// is.
template <class T>
class Result {
 public:
    Result(T value) : content_(std::move(value)) {}
    Result(Failure failure) : content_(std::move(failure)) {}

    explicit operator bool() const { return std::holds_alternative<T>(content_); }

    // Only of a result that is true.
    T& operator*() { return *std::get_if<T>(&content_); }
    const T& operator*() const { return *std::get_if<T>(&content_); }
    T* operator->() { return std::get_if<T>(&content_); }
    const T* operator->() const { return std::get_if<T>(&content_); }

    // Only of a result that is false.
    const Failure& failure() const { return *std::get_if<Failure>(&content_); }

 private:
    std::variant<T, Failure> content_;
};

/// The value of an action that has succeeded.
struct Done {};

}  // namespace tool

#endif  // QUAVERA_TOOLS_RESULT_H_

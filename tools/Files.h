#ifndef QUAVERA_TOOLS_FILES_H_
#define QUAVERA_TOOLS_FILES_H_

#include <cstdio>
#include <string>

namespace tool {

/// Why something failed: where (a file, an endpoint, an element) and what.
struct Failure {
    std::string where;
    std::string what;
};

/// The failure on one line: "where: what".
std::string Message(const Failure& failure);

/// How messages name what is read from `path`.
std::string DisplayName(const std::string& path);

/// Reads a file whole into `text`; "-" is standard input. False with a reason when it cannot.
bool ReadFile(const std::string& path, std::string* text, Failure* failure);

/// The same of an open stream, which messages call `name`.
bool ReadStream(std::FILE* stream, const std::string& name, std::string* text, Failure* failure);

/// Writes all of `text`, to the last byte. False with a reason when it cannot.
bool WriteStream(std::FILE* stream, const std::string& name, const std::string& text,
                 Failure* failure);

/// The same to standard output.
bool WriteOutput(const std::string& text, Failure* failure);

}  // namespace tool

#endif  // QUAVERA_TOOLS_FILES_H_

#ifndef QUAVERA_TOOLS_FILES_H_
#define QUAVERA_TOOLS_FILES_H_

#include <cstdio>
#include <memory>
#include <string>

#include "tools/Result.h"

namespace tool {

struct CloseStream {
    void operator()(std::FILE* stream) const { std::fclose(stream); }
};
using Stream = std::unique_ptr<std::FILE, CloseStream>;

/// How messages name what is read from `path`.
std::string DisplayName(const std::string& path);

/// The whole contents of a file; "-" is standard input.
Result<std::string> ReadFile(const std::string& path);

/// The same of an open stream, which messages call `name`.
Result<std::string> ReadStream(std::FILE* stream, const std::string& name);

/// Writes all of `text`, to the last byte.
Result<Done> WriteStream(std::FILE* stream, const std::string& name, const std::string& text);

/// The same to standard output.
Result<Done> WriteOutput(const std::string& text);

/// Tells the user of a failure, on standard error.
void Report(const Failure& failure);

}  // namespace tool

#endif  // QUAVERA_TOOLS_FILES_H_

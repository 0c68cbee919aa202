#include "tools/Files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>

#include "platform/zqshared.h"

namespace tool {

std::string DisplayName(const std::string& path) {
    return path == "-" ? "standard input" : path;
}

Result<std::string> ReadFile(const std::string& path) {
    if (path == "-") {
        return ReadStream(stdin, DisplayName(path));
    }
    const Stream file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) {
        return Failure{path, std::strerror(errno)};
    }
    return ReadStream(file.get(), path);
}

Result<std::string> ReadStream(std::FILE* stream, const std::string& name) {
    std::array<char, 65536> buffer;
    std::string text;
    while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), stream)) {
        text.append(buffer.data(), size);
        if (text.size() > ZQXML::kMaxXmlSize) {
            return Failure{name, "longer than any document that is read"};
        }
    }
    if (std::ferror(stream) != 0) {
        return Failure{name, std::strerror(errno)};
    }
    return text;
}

Result<Done> WriteStream(std::FILE* stream, const std::string& name, const std::string& text) {
    if (std::fwrite(text.data(), 1, text.size(), stream) != text.size() ||
        std::fflush(stream) != 0) {
        return Failure{name, std::strerror(errno)};
    }
    return Done();
}

Result<Done> WriteOutput(const std::string& text) {
    return WriteStream(stdout, "standard output", text);
}

void Report(const Failure& failure) {
    std::fprintf(stderr, "quavera: %s\n", Message(failure).c_str());
}

}  // namespace tool

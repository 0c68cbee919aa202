#include "tools/Files.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <memory>

#include "platform/zqshared.h"

namespace tool {
namespace {

struct CloseFile {
    void operator()(std::FILE* file) const { std::fclose(file); }
};

}  // namespace

std::string Message(const Failure& failure) {
    std::string message = failure.where + ": " + failure.what;
    // Some of it comes from files and services: it may be long, and hold control characters, of
    // which UTF-8 has one-byte and two-byte ones.
    constexpr std::size_t kLongest = 2000;
    if (message.size() > kLongest) {
        std::size_t end = kLongest;
        while (end > 0 && (static_cast<unsigned char>(message[end]) & 0xC0U) == 0x80) {
            --end;
        }
        message.replace(end, std::string::npos, "...");
    }
    unsigned char before = 0;
    for (char& character : message) {
        const auto code = static_cast<unsigned char>(character);
        if (code < 0x20 || code == 0x7F) {
            character = ' ';
        } else if (before == 0xC2 && code < 0xA0) {
            character = static_cast<char>(0xA0);  // with the byte before: a blank
        }
        before = code;
    }
    return message;
}

std::string DisplayName(const std::string& path) {
    return path == "-" ? "standard input" : path;
}

bool ReadFile(const std::string& path, std::string* text, Failure* failure) {
    if (path == "-") {
        return ReadStream(stdin, DisplayName(path), text, failure);
    }
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (file == nullptr) {
        *failure = {path, std::strerror(errno)};
        return false;
    }
    return ReadStream(file.get(), path, text, failure);
}

bool ReadStream(std::FILE* stream, const std::string& name, std::string* text, Failure* failure) {
    std::array<char, 65536> buffer;
    text->clear();
    while (const std::size_t size = std::fread(buffer.data(), 1, buffer.size(), stream)) {
        text->append(buffer.data(), size);
        if (text->size() > ZQXML::kMaxXmlSize) {
            *failure = {name, "longer than any document that is read"};
            return false;
        }
    }
    if (std::ferror(stream) != 0) {
        *failure = {name, std::strerror(errno)};
        return false;
    }
    return true;
}

bool WriteStream(std::FILE* stream, const std::string& name, const std::string& text,
                 Failure* failure) {
    if (std::fwrite(text.data(), 1, text.size(), stream) == text.size() &&
        std::fflush(stream) == 0) {
        return true;
    }
    *failure = {name, std::strerror(errno)};
    return false;
}

bool WriteOutput(const std::string& text, Failure* failure) {
    return WriteStream(stdout, "standard output", text, failure);
}

}  // namespace tool

#ifndef QUAVERA_BENCH_FLOOR_PEN_H_
#define QUAVERA_BENCH_FLOOR_PEN_H_

#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>
#include <utility>

#include "bench/floor/Digits.h"

namespace bench::floor {

/// Writes pieces one after the other into a string. A string has to be filled before it is written
/// to, which is done a little ahead of the writing.
class Pen {
 public:
    explicit Pen(std::size_t size) {
        text_.reserve(size);
        at_ = text_.data();
    }

    /// Makes room for that much, for pieces that are then written without looking.
    void Ensure(std::size_t room) {
        constexpr std::size_t kAhead = 1024;
        const std::size_t size = Size();
        if (text_.size() - size < room) {
            text_.resize(size + room + kAhead);
            at_ = text_.data() + size;
        }
    }

    template <std::size_t Size>
    void Label(const char (&text)[Size]) {
        std::memcpy(at_, text, Size - 1);
        at_ += Size - 1;
    }

    /// Any string of the library has memory for 15 characters and a zero, and so have we.
    void Plain(const std::string& text) {
        constexpr std::size_t kShort = 16;
        if (text.size() < kShort) {
            std::memcpy(at_, text.data(), kShort);
        } else {
            text.copy(at_, text.size());
        }
        at_ += text.size();
    }

    void Display(const std::wstring& text) {
        const std::size_t done = text.size() >= 16  ? PutSteps<16>(text)
                                 : text.size() >= 8 ? PutSteps<8>(text)
                                                    : 0;
        at_ += done;
        if (done != text.size()) {
            DisplayRest(text, done);
        }
    }

    void Number(int value) {
        char digits[32];
        const char* const end = digits + 16;
        const char* const begin = PutNumber(value, digits + 16);
        std::memcpy(at_, begin, 16);
        at_ += end - begin;
    }

    void Flag(bool value) {
        if (value) {
            Label("true");
        } else {
            Label("false");
        }
    }

    std::size_t Capacity() const { return text_.capacity(); }

    std::string Take() {
        text_.resize(Size());
        return std::move(text_);
    }

 private:
    std::size_t Size() const { return static_cast<std::size_t>(at_ - text_.data()); }

    /// As many characters, if all are ASCII; tells whether they are.
    template <std::size_t kStep>
    static bool PutStep(const wchar_t* __restrict from, char* __restrict to) {
        std::uint64_t all = 0;
        for (std::size_t at = 0; at < kStep; at += 2) {
            std::uint64_t two = 0;
            std::memcpy(&two, from + at, sizeof two);
            all |= two;
        }
        if ((all & 0xFFFFFF80FFFFFF80) != 0) {
            return false;
        }
        for (std::size_t at = 0; at < kStep; ++at) {
            to[at] = static_cast<char>(from[at]);
        }
        return true;
    }

    /// ASCII characters that the text begins with; their number.
    template <std::size_t kStep>
    std::size_t PutSteps(const std::wstring& text) const {
        const std::size_t last = text.size() - kStep;
        std::size_t at = 0;
        do {
            if (!PutStep<kStep>(&text[at], at_ + at)) {
                return at;
            }
            at += kStep;
        } while (at < last);
        return PutStep<kStep>(&text[last], at_ + last) ? text.size() : last;
    }

    [[gnu::noinline]] void DisplayRest(const std::wstring& text, std::size_t start) {
        char* to = at_;
        for (const wchar_t character : std::wstring_view(text).substr(start)) {
            const auto code = static_cast<char32_t>(character);
            if (code < 0x80) {
                *to++ = static_cast<char>(code);
                continue;
            }
            if (code < 0x800) {
                *to++ = static_cast<char>(0xC0 | code >> 6);
            } else if (code < 0x10000) {
                *to++ = static_cast<char>(0xE0 | code >> 12);
                *to++ = static_cast<char>(0x80 | (code >> 6 & 0x3F));
            } else {
                *to++ = static_cast<char>(0xF0 | code >> 18);
                *to++ = static_cast<char>(0x80 | (code >> 12 & 0x3F));
                *to++ = static_cast<char>(0x80 | (code >> 6 & 0x3F));
            }
            *to++ = static_cast<char>(0x80 | (code & 0x3F));
        }
        at_ = to;
    }

    std::string text_;
    char* at_ = nullptr;
};

}  // namespace bench::floor

#endif  // QUAVERA_BENCH_FLOOR_PEN_H_

#include "tools/WireTrace.h"

#include <strings.h>

#include <algorithm>
#include <cstdio>

#include "base/Utf8.h"

namespace tool {
namespace {

/// Of each part, in bytes.
constexpr std::size_t kMostShown = std::size_t{16} * 1024;

constexpr char kHidden[] = "(not shown)";

/// A secret that is shorter may be a part of any word.
constexpr std::size_t kShortestSecret = 4;

constexpr std::string_view kPrefixes[] = {"* ", "> ", "> ", "< ", "< "};

bool IsHarmless(char32_t code) {
    return code == '\t' || (code >= 0x20 && (code < 0x7F || code > 0x9F));
}

/// With the codes of all bytes that are no UTF-8 or control something.
std::string Visible(std::string_view line) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    std::string visible;
    while (!line.empty()) {
        const quavera::Utf8Character first = quavera::FirstCharacter(line);
        const std::string_view bytes = line.substr(0, std::max<std::size_t>(first.size, 1));
        if (first.size != 0 && IsHarmless(first.code)) {
            visible += bytes;
        } else {
            for (const char each : bytes) {
                const auto byte = static_cast<unsigned char>(each);
                visible += {'\\', 'x', kDigits[byte >> 4], kDigits[byte & 0xF]};
            }
        }
        line.remove_prefix(bytes.size());
    }
    return visible;
}

void Show(std::string_view prefix, const std::string& text) {
    // In one piece; that it cannot be shown is no failure of the exchange.
    const std::string line = std::string(prefix) + text + "\n";
    static_cast<void>(std::fwrite(line.data(), 1, line.size(), stderr));
}

}  // namespace

void WireTrace::Take(Part part, std::string_view bytes) {
    if (part != part_) {
        ShowLine();
        part_ = part;
    }
    std::size_t* const taken = &taken_[part];
    const std::size_t room = kMostShown - std::min(kMostShown, *taken);
    *taken += bytes.size();
    for (const char each : bytes.substr(0, room)) {
        line_ += each;
        if (each == '\n') {
            ShowLine();
        }
    }
}

void WireTrace::End() {
    ShowLine();
    for (std::size_t part = 0; part < kParts; ++part) {
        if (taken_[part] > kMostShown) {
            const std::size_t left = taken_[part] - kMostShown;
            Show(kPrefixes[part], "(" + std::to_string(left) + " more bytes are not shown)");
        }
    }
    *this = WireTrace();
}

void WireTrace::ShowLine() {
    if (line_.empty()) {
        return;
    }
    std::string line;
    line.swap(line_);
    for (const char end : {'\n', '\r'}) {
        if (!line.empty() && line.back() == end) {
            line.pop_back();
        }
    }
    Hide(&line);
    Show(kPrefixes[part_], Visible(line));
}

void WireTrace::Hide(std::string* line) {
    constexpr std::string_view kName = "Authorization:";
    if (part_ == kRequestHead && strncasecmp(line->c_str(), kName.data(), kName.size()) == 0) {
        const std::size_t value = line->find_first_not_of(' ', kName.size());
        secret_ = line->substr(std::min(line->size(), value));
        secret_.erase(0, secret_.find(' ') + 1);  // the scheme, which is no secret
        line->replace(kName.size(), std::string::npos, std::string(" ") + kHidden);
    }
    // A service may repeat what it has been sent.
    std::size_t at = secret_.size() < kShortestSecret ? std::string::npos : line->find(secret_);
    while (at != std::string::npos) {
        line->replace(at, secret_.size(), kHidden);
        at = line->find(secret_, at + sizeof kHidden - 1);
    }
}

}  // namespace tool

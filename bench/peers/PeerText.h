#ifndef QUAVERA_BENCH_PEERS_PEER_TEXT_H_
#define QUAVERA_BENCH_PEERS_PEER_TEXT_H_

#include <iconv.h>

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace bench {

/// What a program without this library would convert texts with: OpenSSL's base64, the C library's
/// converter opened once, and buffers that are used again and again.
class PeerText {
 public:
    PeerText();
    PeerText(const PeerText&) = delete;
    PeerText& operator=(const PeerText&) = delete;
    ~PeerText();

    /// Base64 of `text`, zero-terminated, valid until the next call of any function here.
    std::string_view Encode(const std::string& text);
    /// The wide string of a base64 text's bytes, likewise; the text must be well-formed.
    std::wstring_view DecodeToWide(std::string_view text);
    /// The wide string of a UTF-8 text, likewise.
    std::wstring_view ToWide(std::string_view text);

 private:
    iconv_t converter_;
    std::vector<char> bytes_;
    std::vector<wchar_t> characters_;
};

}  // namespace bench

#endif  // QUAVERA_BENCH_PEERS_PEER_TEXT_H_

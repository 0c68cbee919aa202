#include "tools/HttpClient.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <exception>
#include <memory>
#include <new>

namespace tool {
namespace {

constexpr int kMostSecondsToConnect = 10;

struct CleanUp {
    void operator()(CURL* transfer) const { curl_easy_cleanup(transfer); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using Transfer = std::unique_ptr<CURL, CleanUp>;
using Headers = std::unique_ptr<curl_slist, CleanUp>;

/// What is received, or why that was broken off.
struct Body {
    std::string text;
    bool isTooLong = false;
    std::exception_ptr failure;  // must not pass through libcurl's frames
};

std::size_t TakeBody(char* data, std::size_t size, std::size_t count, void* user) {
    auto* const body = static_cast<Body*>(user);
    const std::size_t bytes = size * count;
    body->isTooLong = bytes > kLongestAnswer - body->text.size();
    if (body->isTooLong) {
        return 0;
    }
    try {
        body->text.append(data, bytes);
    } catch (...) {
        body->failure = std::current_exception();
        return 0;
    }
    return bytes;
}

void Add(Headers* headers, const std::string& line) {
    curl_slist* const longer = curl_slist_append(headers->get(), line.c_str());
    if (longer == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(headers->release());  // it goes on in the longer one
    headers->reset(longer);
}

Headers RequestHeaders(const HttpPost& post) {
    Headers headers;
    Add(&headers, "Content-Type: " + post.contentType);
    Add(&headers, "SOAPAction: \"" + post.soapAction + "\"");
    Add(&headers, "Expect:");  // no asking for leave before the body
    return headers;
}

/// Sets one option of a transfer.
class Options {
 public:
    explicit Options(CURL* transfer) : transfer_(transfer) {}

    template <class Value>
    Options& Set(CURLoption option, Value value) {
        code_ = code_ == CURLE_OK ? curl_easy_setopt(transfer_, option, value) : code_;
        return *this;
    }

    CURLcode code() const { return code_; }

 private:
    CURL* transfer_;
    CURLcode code_ = CURLE_OK;
};

CURLcode Prepare(CURL* transfer, const HttpPost& post, curl_slist* headers, Body* body) {
    return Options(transfer)
        .Set(CURLOPT_URL, post.url.c_str())
        .Set(CURLOPT_PROTOCOLS_STR, "http")
        .Set(CURLOPT_PROXY, "")
        .Set(CURLOPT_NOSIGNAL, 1L)
        .Set(CURLOPT_USERAGENT, "quavera")
        .Set(CURLOPT_ACCEPT_ENCODING, "")  // all that this libcurl can read
        .Set(CURLOPT_HTTPHEADER, headers)
        .Set(CURLOPT_POSTFIELDS, post.body.c_str())
        .Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(post.body.size()))
        .Set(CURLOPT_CONNECTTIMEOUT, long{std::min(post.seconds, kMostSecondsToConnect)})
        .Set(CURLOPT_TIMEOUT, long{post.seconds})
        .Set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(kLongestAnswer))
        .Set(CURLOPT_WRITEFUNCTION, TakeBody)
        .Set(CURLOPT_WRITEDATA, body)
        .code();
}

HttpReply ReplyOf(CURL* transfer, Body* body) {
    HttpReply reply;
    const char* type = nullptr;
    curl_easy_getinfo(transfer, CURLINFO_RESPONSE_CODE, &reply.status);
    curl_easy_getinfo(transfer, CURLINFO_CONTENT_TYPE, &type);
    reply.contentType = type == nullptr ? "" : type;
    reply.body = std::move(body->text);
    return reply;
}

/// Why a transfer has failed. libcurl keeps to itself why a host was not reached, and takes a line
/// that is longer than it allows for a want of memory.
std::string Describe(CURL* transfer, CURLcode code, const char* detail) {
    if (code == CURLE_OUT_OF_MEMORY) {
        return "a header of the answer is too long, or memory has run out";
    }
    const std::string reason = *detail == '\0' ? curl_easy_strerror(code) : detail;
    long number = 0;
    curl_easy_getinfo(transfer, CURLINFO_OS_ERRNO, &number);
    return code == CURLE_COULDNT_CONNECT && number != 0
               ? reason + ": " + std::strerror(static_cast<int>(number))
               : reason;
}

}  // namespace

Result<HttpReply> Post(const HttpPost& post) {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    const Transfer transfer(ready == CURLE_OK ? curl_easy_init() : nullptr);
    if (transfer == nullptr) {
        throw std::bad_alloc();
    }
    std::array<char, CURL_ERROR_SIZE> detail = {};
    curl_easy_setopt(transfer.get(), CURLOPT_ERRORBUFFER, detail.data());
    const Headers headers = RequestHeaders(post);
    Body body;
    CURLcode code = Prepare(transfer.get(), post, headers.get(), &body);
    code = code == CURLE_OK ? curl_easy_perform(transfer.get()) : code;
    if (body.failure != nullptr) {
        std::rethrow_exception(body.failure);
    }
    if (body.isTooLong || code == CURLE_FILESIZE_EXCEEDED) {
        return Failure{post.url,
                       "the answer is longer than " + std::to_string(kLongestAnswer) + " bytes"};
    }
    if (code != CURLE_OK) {
        return Failure{post.url, Describe(transfer.get(), code, detail.data())};
    }
    return ReplyOf(transfer.get(), &body);
}

}  // namespace tool

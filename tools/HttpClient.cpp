#include "tools/HttpClient.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <exception>
#include <memory>
#include <new>

#include "tools/HttpHeader.h"
#include "tools/TransferFailure.h"

namespace tool {
namespace {

/// No server is waited for that long: what it asks for beyond that makes no difference.
constexpr curl_off_t kLongestWait = 1000000;

struct CleanUp {
    void operator()(CURL* transfer) const { curl_easy_cleanup(transfer); }
    void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};
using Transfer = std::unique_ptr<CURL, CleanUp>;
using Headers = std::unique_ptr<curl_slist, CleanUp>;

/// What libcurl hands over of an exchange, or why that was broken off.
struct Exchange {
    std::string body;
    bool isTooLong = false;
    WireTrace* trace = nullptr;
    std::exception_ptr failure;  // must not pass through libcurl's frames
};

/// Does what may throw in a function that libcurl calls. False: it has thrown.
template <class Action>
bool Guard(Exchange* exchange, const Action& action) {
    try {
        action();
    } catch (...) {
        exchange->failure = std::current_exception();
    }
    return exchange->failure == nullptr;
}

std::size_t TakeBody(char* data, std::size_t size, std::size_t count, void* user) {
    auto* const exchange = static_cast<Exchange*>(user);
    const std::size_t bytes = size * count;
    exchange->isTooLong = bytes > kLongestAnswer - exchange->body.size();
    const bool isTaken = !exchange->isTooLong && Guard(exchange, [exchange, data, bytes] {
        exchange->body.append(data, bytes);
    });
    return isTaken ? bytes : 0;
}

int TakeTrace(CURL* /*transfer*/, curl_infotype type, char* data, std::size_t size, void* user) {
    constexpr struct {
        curl_infotype type;
        WireTrace::Part part;
    } kParts[] = {
        {CURLINFO_TEXT, WireTrace::kFacts},
        {CURLINFO_HEADER_OUT, WireTrace::kRequestHead},
        {CURLINFO_DATA_OUT, WireTrace::kRequestBody},
        {CURLINFO_HEADER_IN, WireTrace::kAnswerHead},
        {CURLINFO_DATA_IN, WireTrace::kAnswerBody},
    };
    auto* const exchange = static_cast<Exchange*>(user);
    Guard(exchange, [=] {
        for (const auto& each : kParts) {
            if (each.type == type) {
                exchange->trace->Take(each.part, {data, size});
            }
        }
    });
    return 0;
}

void Add(Headers* headers, const std::string& line) {
    curl_slist* const longer = curl_slist_append(headers->get(), line.c_str());
    if (longer == nullptr) {
        throw std::bad_alloc();
    }
    static_cast<void>(headers->release());  // it goes on in the longer one
    headers->reset(longer);
}

/// Of a header without a value libcurl takes the name away, unless it is told so by a semicolon.
std::string FurtherHeader(const std::string& line) {
    const std::size_t colon = line.find(':');
    const bool hasValue = line.find_first_not_of(" \t", colon + 1) != std::string::npos;
    return hasValue ? line : line.substr(0, colon) + ";";
}

bool IsSoapAction(const std::string& line) {
    return HeaderName(line) == "soapaction";
}

Headers RequestHeaders(const HttpPost& post, const HttpWay& way) {
    Headers headers;
    Add(&headers, "Content-Type: " + post.contentType);
    if (std::none_of(way.headers.begin(), way.headers.end(), IsSoapAction)) {
        Add(&headers, "SOAPAction: \"" + post.soapAction + "\"");
    }
    Add(&headers, "Expect:");  // no asking for leave before the body
    for (const std::string& line : way.headers) {
        Add(&headers, FurtherHeader(line));
    }
    return headers;
}

/// Sets the options of a transfer.
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

void SetRequest(Options* options, const HttpPost& post, curl_slist* headers) {
    options->Set(CURLOPT_URL, post.url.c_str())
        .Set(CURLOPT_PROTOCOLS_STR, "http,https")
        .Set(CURLOPT_HTTP_VERSION, long{CURL_HTTP_VERSION_1_1})  // one request needs no more
        .Set(CURLOPT_PROXY, "")
        .Set(CURLOPT_NOSIGNAL, 1L)
        .Set(CURLOPT_USERAGENT, "quavera")
        .Set(CURLOPT_ACCEPT_ENCODING, "")  // all that this libcurl can read
        .Set(CURLOPT_HTTPHEADER, headers)
        .Set(CURLOPT_POSTFIELDS, post.body.c_str())
        .Set(CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(post.body.size()));
}

void SetWay(Options* options, const HttpWay& way) {
    options->Set(CURLOPT_CONNECTTIMEOUT, long{std::min(way.seconds, way.secondsToConnect)})
        .Set(CURLOPT_TIMEOUT, long{way.seconds})
        .Set(CURLOPT_SSLVERSION, long{CURL_SSLVERSION_TLSv1_2})  // or later
        .Set(CURLOPT_SSL_VERIFYPEER, way.takesAnyCertificate ? 0L : 1L)
        .Set(CURLOPT_SSL_VERIFYHOST, way.takesAnyCertificate ? 0L : 2L);
    if (!way.authorities.empty()) {
        const char* const noFolder = nullptr;  // of the system's, which were trusted beside them
        options->Set(CURLOPT_CAINFO, way.authorities.c_str()).Set(CURLOPT_CAPATH, noFolder);
    }
    if (!way.user.empty()) {
        options->Set(CURLOPT_HTTPAUTH, CURLAUTH_BASIC)
            .Set(CURLOPT_USERNAME, way.user.c_str())
            .Set(CURLOPT_PASSWORD, way.password.c_str());
    }
}

void SetExchange(Options* options, Exchange* exchange) {
    options->Set(CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(kLongestAnswer))
        .Set(CURLOPT_WRITEFUNCTION, TakeBody)
        .Set(CURLOPT_WRITEDATA, exchange);
    if (exchange->trace != nullptr) {
        options->Set(CURLOPT_VERBOSE, 1L)
            .Set(CURLOPT_DEBUGFUNCTION, TakeTrace)
            .Set(CURLOPT_DEBUGDATA, exchange);
    }
}

CURLcode Perform(CURL* transfer, const HttpPost& post, const HttpWay& way, Exchange* exchange) {
    const Headers headers = RequestHeaders(post, way);
    Options options(transfer);
    SetRequest(&options, post, headers.get());
    SetWay(&options, way);
    SetExchange(&options, exchange);
    const CURLcode code = options.code() == CURLE_OK ? curl_easy_perform(transfer) : options.code();
    if (exchange->trace != nullptr) {
        exchange->trace->End();
    }
    if (exchange->failure != nullptr) {
        std::rethrow_exception(exchange->failure);
    }
    return code;
}

HttpReply ReplyOf(CURL* transfer, Exchange* exchange) {
    HttpReply reply;
    const char* type = nullptr;
    curl_off_t seconds = 0;
    curl_easy_getinfo(transfer, CURLINFO_RESPONSE_CODE, &reply.status);
    curl_easy_getinfo(transfer, CURLINFO_CONTENT_TYPE, &type);
    curl_easy_getinfo(transfer, CURLINFO_RETRY_AFTER, &seconds);
    reply.contentType = type == nullptr ? "" : type;
    reply.body = std::move(exchange->body);
    reply.secondsToWait = static_cast<long>(std::clamp<curl_off_t>(seconds, 0, kLongestWait));
    return reply;
}

}  // namespace

HttpOutcome Post(const HttpPost& post, const HttpWay& way) {
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    const Transfer transfer(ready == CURLE_OK ? curl_easy_init() : nullptr);
    if (transfer == nullptr) {
        throw std::bad_alloc();
    }
    std::array<char, CURL_ERROR_SIZE> detail = {};
    curl_easy_setopt(transfer.get(), CURLOPT_ERRORBUFFER, detail.data());
    Exchange exchange;
    exchange.trace = way.trace;
    const CURLcode code = Perform(transfer.get(), post, way, &exchange);
    if (exchange.isTooLong || code == CURLE_FILESIZE_EXCEEDED) {
        return {Failure{post.url, "the answer is longer than " + std::to_string(kLongestAnswer) +
                                      " bytes (receiving)"}};
    }
    if (code != CURLE_OK) {
        return {Failure{post.url, DescribeFailure(transfer.get(), code, detail.data(), post, way)},
                IsPassing(code)};
    }
    return {ReplyOf(transfer.get(), &exchange)};
}

}  // namespace tool

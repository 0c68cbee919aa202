#include "bench/measure/StagesSoap.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

namespace bench {
namespace {

constexpr soap_mode kTexts = SOAP_C_UTFSTRING;
constexpr soap_mode kRecommended = kTexts | SOAP_XML_TREE;

/// Without the schema of which no album has anything.
const Namespace kFewNamespaces[] = {
    {"SOAP-ENV", "http://schemas.xmlsoap.org/soap/envelope/", nullptr, nullptr},
    {"SOAP-ENC", "http://schemas.xmlsoap.org/soap/encoding/", nullptr, nullptr},
    {"xsi", "http://www.w3.org/2001/XMLSchema-instance", nullptr, nullptr},
    {"xsd", "http://www.w3.org/2001/XMLSchema", nullptr, nullptr},
    {"Quavera2", "urn:quavera:v2", nullptr, nullptr},
    {nullptr, nullptr, nullptr, nullptr},
};

[[noreturn]] void Fail(soap* context) {
    soap_print_fault(context, stderr);
    std::exit(1);
}

}  // namespace

const std::vector<SoapOptions>& SoapOptionsCompared() {
    static const std::vector<SoapOptions> compared = {
        {"recommended", kRecommended},
        {"stream", kRecommended, SoapSource::kStream},
        {"packets", kRecommended, SoapSource::kPackets},
        {"context-set-back", kRecommended, SoapSource::kMemory, SoapContext::kSetBack},
        {"context-made-anew", kRecommended, SoapSource::kMemory, SoapContext::kMadeAnew},
        {"few-namespaces", kRecommended, SoapSource::kMemory, SoapContext::kKept, kFewNamespaces},
        {"no-tree", kTexts},
        {"graph", kTexts | SOAP_XML_GRAPH},
        {"strict", kRecommended | SOAP_XML_STRICT},
        {"ignore-namespaces", kRecommended | SOAP_XML_IGNORENS},
        {"no-index-faults", kRecommended | SOAP_C_NOIOB},
        {"plain-body", kRecommended | SOAP_ENC_PLAIN},
        {"buffered", kRecommended | SOAP_IO_BUFFER},
        {"stored", kRecommended | SOAP_IO_STORE},
        {"chunked", kRecommended | SOAP_IO_CHUNK},
        {"kept-alive", kRecommended | SOAP_IO_KEEPALIVE},
    };
    return compared;
}

const SoapOptions* FindSoapOptions(std::string_view name) {
    const std::vector<SoapOptions>& compared = SoapOptionsCompared();
    const auto found = std::find_if(compared.begin(), compared.end(),
                                    [&](const SoapOptions& each) { return each.name == name; });
    return found == compared.end() ? nullptr : &*found;
}

std::string SoapAnswer(SoapAlbum* album) {
    std::ostringstream text;
    soap context(kTexts);
    context.os = &text;
    album->soap_serialize(&context);
    const bool isWritten =
        soap_begin_send(&context) == SOAP_OK && soap_envelope_begin_out(&context) == SOAP_OK &&
        soap_putheader(&context) == SOAP_OK && soap_body_begin_out(&context) == SOAP_OK &&
        album->soap_put(&context, "Quavera2:AlbumMetadata", "") == SOAP_OK &&
        soap_body_end_out(&context) == SOAP_OK && soap_envelope_end_out(&context) == SOAP_OK &&
        soap_end_send(&context) == SOAP_OK;
    if (!isWritten) {
        Fail(&context);
    }
    soap_destroy(&context);
    soap_end(&context);
    return text.str();
}

SoapReader::SoapReader(const SoapOptions& options) : options_(options) {
    Make();
}

SoapReader::~SoapReader() {
    Free();
}

void SoapReader::Make() {
    context_.reset(soap_new1(options_.mode));
    SetUp();
}

void SoapReader::SetUp() {
    context_->user = this;
    if (options_.source != SoapSource::kStream) {
        context_->frecv = Receive;
    }
    if (options_.namespaces != nullptr) {
        soap_set_namespaces(context_.get(), options_.namespaces);
    }
}

SoapAlbum* SoapReader::Read(const std::string& answer) {
    if (options_.context == SoapContext::kMadeAnew) {
        Make();
    } else if (options_.context == SoapContext::kSetBack) {
        soap_done(context_.get());
        soap_init1(context_.get(), options_.mode);
        SetUp();
    }
    left_ = answer;
    if (options_.source == SoapSource::kStream) {
        context_->is = &stream_.emplace(answer);
    }
    // What a client's call does once it has sent the request.
    if (Quavera::soap_recv_Quavera2__getAlbum(context_.get(), album_.emplace()) != SOAP_OK) {
        Fail(context_.get());
    }
    return &*album_;
}

void SoapReader::Free() {
    soap_destroy(context_.get());
    soap_end(context_.get());
    stream_.reset();
}

std::size_t SoapReader::Receive(soap* context, char* to, std::size_t room) {
    constexpr std::size_t kPacket = 1460;
    auto* const self = static_cast<SoapReader*>(context->user);
    const bool isWhole = self->options_.source == SoapSource::kMemory;
    const std::size_t size = self->left_.copy(to, isWhole ? room : std::min(room, kPacket));
    self->left_.remove_prefix(size);
    return size;
}

}  // namespace bench

// What is read of a connection, whatever it delivers and says that it has.

#include <stdsoap2.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "common/ClientMessages.h"
#include "common/SocketHelpers.h"
#include "fuzz/Expect.h"
#include "fuzz/Input.h"
#include "fuzz/Target.h"
#include "platform/zqshared.h"

namespace {

using fuzz::Expect;
using fuzz::ExpectSame;

/// What a call of the receive callback has done.
struct Delivery {
    std::size_t asked;
    std::string bytes;
    std::size_t count;  // what it reports
};

/// A context whose receive callback delivers what an input says.
class ScriptedContext {
 public:
    explicit ScriptedContext(fuzz::Input* input) : input_(*input), soap_(soap_new()) {
        soap_->user = this;
        soap_->frecv = Receive;
    }
    ScriptedContext(const ScriptedContext&) = delete;
    ScriptedContext& operator=(const ScriptedContext&) = delete;
    ~ScriptedContext() {
        Expect(soap_->error == SOAP_OK && soap_->socket == SOAP_INVALID_SOCKET,
               "nothing is closed, and no error set", soap_->error);
        soap_destroy(soap_);
        soap_end(soap_);
        soap_free(soap_);
    }

    struct soap* Get() const {
        return soap_;
    }

    std::vector<Delivery> TakeDeliveries() { return std::exchange(deliveries_, {}); }

 private:
    static std::size_t Receive(struct soap* context, char* buffer, std::size_t size) {
        auto* const self = static_cast<ScriptedContext*>(context->user);
        const Delivery delivery = self->Next(size);
        std::copy(delivery.bytes.begin(), delivery.bytes.end(), buffer);
        self->deliveries_.push_back(delivery);
        return delivery.count;
    }

    /// All that is asked for, or less, down to nothing, as of an error or an interrupted call; or
    /// a count that is none.
    Delivery Next(std::size_t asked) {
        const std::size_t kind = input_.Below(8);
        const std::size_t offered = kind == 1 ? input_.Below(8) : kind == 2 ? 0 : asked;
        std::string bytes(input_.Take(std::min(offered, asked)));
        const std::size_t count = kind == 3   ? asked + 1 + input_.Byte()
                                  : kind == 4 ? static_cast<std::size_t>(-1)
                                              : bytes.size();
        return {asked, bytes, count};
    }

    fuzz::Input& input_;
    struct soap* soap_;
    std::vector<Delivery> deliveries_;
};

std::size_t reports = 0;

void CountReport(const char* /*path*/, int /*line*/, const zq::StackTrace& /*trace*/) {
    ++reports;
}

unsigned char ByteAt(const std::string& bytes, std::size_t at) {
    return at < bytes.size() ? static_cast<unsigned char>(bytes[at]) : 0;
}

void CheckString(ScriptedContext* context) {
    const std::string text = GetStringFromSocket(context->Get());
    const std::vector<Delivery> calls = context->TakeDeliveries();
    ExpectSame<std::size_t>(calls[0].asked, 2, "the length has two bytes");
    const std::size_t length =
        calls[0].count < 2 ? 0 : ByteAt(calls[0].bytes, 0) * 256U + ByteAt(calls[0].bytes, 1);
    ExpectSame<std::size_t>(calls.size(), length == 0 ? 1 : 2, "one call for each part");
    std::string expected;
    if (length > 0) {
        ExpectSame(calls[1].asked, length, "as many bytes as the length says");
        if (calls[1].count >= length) {
            expected = calls[1].bytes.substr(0, calls[1].bytes.find('\0'));
        }
    }
    ExpectSame(text, expected, "GetStringFromSocket");
    ExpectSame<std::size_t>(reports, 0, "texts are not worth a report");
}

void CheckNumber(ScriptedContext* context) {
    const unsigned int number = GetDWORDFromSocket(context->Get());
    const std::vector<Delivery> calls = context->TakeDeliveries();
    ExpectSame<std::size_t>(calls.size(), 1, "one call");
    ExpectSame<std::size_t>(calls[0].asked, 4, "four bytes");
    const bool isWhole = calls[0].count == 4;
    unsigned int expected = 0;
    for (unsigned int at = 0; at < 4; ++at) {
        expected |= static_cast<unsigned int>(ByteAt(calls[0].bytes, at))
                    << 8 * (isWhole ? 3 - at : at);
    }
    ExpectSame(number, expected, "GetDWORDFromSocket");
    ExpectSame<std::size_t>(reports, isWhole ? 0 : 1, "any other count is reported");
    reports = 0;
}

/// A receive callback that has all bytes at once.
std::size_t ReceiveWritten(struct soap* context, char* buffer, std::size_t size) {
    auto* const written = static_cast<fuzz::Input*>(context->user);
    const std::string_view bytes = written->Take(size);
    std::copy(bytes.begin(), bytes.end(), buffer);
    return bytes.size();
}

/// What the functions that append write is read back.
void CheckWayBack(fuzz::Input* input) {
    const std::uint32_t number = input->Number();
    const std::string text(input->Rest());
    const std::size_t size = 4 + 2 + text.size();
    fuzz::Block block(size);
    auto* const buffer = reinterpret_cast<unsigned char*>(block.Data());
    ExpectSame(AddDWORDToBuffer(buffer, 0, number), 4U, "AddDWORDToBuffer");
    ExpectSame<std::size_t>(AddStringToBuffer(buffer, 4, text), size, "AddStringToBuffer");

    fuzz::Input written(buffer, size);
    struct soap* const context = soap_new();
    context->user = &written;
    context->frecv = ReceiveWritten;
    ExpectSame(GetDWORDFromSocket(context), number, "a number's way");
    ExpectSame(GetStringFromSocket(context), text.substr(0, text.find('\0')), "a text's way");
    Expect(written.IsAtEnd(), "all is read", size);
    soap_free(context);
}

}  // namespace

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    zq::SetAssertHandler(CountReport);
    reports = 0;
    fuzz::Input input(data, size);
    if (input.Below(8) == 0) {
        CheckWayBack(&input);
        return 0;
    }
    ScriptedContext context(&input);
    while (!input.IsAtEnd()) {
        if (input.Flag()) {
            CheckString(&context);
        } else {
            CheckNumber(&context);
        }
    }
    return 0;
}

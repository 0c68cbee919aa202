#include <fcntl.h>
#include <stdsoap2.h>
#include <unistd.h>

#include <array>
#include <string>

#include "common/SocketHelpers.h"
#include "platform/zqshared.h"

namespace {

// The place that an unexpected end of data is reported with; reports are looked up by it.
constexpr char kReportPath[] = "common/QuaveraCommon";
constexpr int kReportLine = 192;

/// The one call that a read is.
std::size_t Receive(struct soap* context, void* buffer, std::size_t size) {
    return context->frecv(context, static_cast<char*>(buffer), size);
}

}  // namespace

std::string GetStringFromSocket(struct soap* context) {
    std::array<unsigned char, 2> prefix{};
    if (Receive(context, prefix.data(), prefix.size()) < prefix.size()) {
        return {};
    }
    const std::size_t length = std::size_t{prefix[0]} << 8 | prefix[1];
    std::string text(length, '\0');
    if (length > 0 && Receive(context, text.data(), length) < length) {
        return {};
    }
    return text.substr(0, text.find('\0'));
}

unsigned int GetDWORDFromSocket(struct soap* context) {
    std::uint32_t value = 0;
    if (Receive(context, &value, sizeof(value)) == sizeof(value)) {
        return ntohl(value);
    }
    zq::AssertWrite(kReportPath, kReportLine, zq::StackTrace());
    return value;
}

int EnableNonBlocking(bool enable, int descriptor) {
    const int flags = fcntl(descriptor, F_GETFL);
    if (flags == -1) {
        return -1;
    }
    const int changed = enable ? flags | O_NONBLOCK : flags & ~O_NONBLOCK;
    return fcntl(descriptor, F_SETFL, changed) == -1 ? -1 : 0;
}

int Sleep(int milliseconds) {
    return usleep(static_cast<useconds_t>(milliseconds) * 1000U);
}

void SetSoapTimeouts(struct soap* context) {
    context->recv_timeout = 35;
    context->send_timeout = 5;
    context->connect_timeout = 35;
}

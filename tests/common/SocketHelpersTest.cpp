#include <dlfcn.h>
#include <fcntl.h>
#include <gtest/gtest.h>
#include <stdsoap2.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdint>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "common/QuaveraCommon.h"
#include "platform/zqshared.h"
#include "tests/tools/Descriptor.h"
#include "tests/tools/Socket.h"

namespace {

/// The calls of `usleep` that a test has taken over, and what they return.
struct SleepCalls {
    std::vector<std::uint32_t> microseconds;
    int result = 0;
};

SleepCalls* sleepCalls = nullptr;

}  // namespace

/// Stands in front of the C library's, for the library under test too.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): theirs is reserved
extern "C" int usleep(useconds_t microseconds) {
    if (sleepCalls != nullptr) {
        sleepCalls->microseconds.push_back(microseconds);
        return sleepCalls->result;
    }
    using Function = int (*)(useconds_t);
    static const auto real = reinterpret_cast<Function>(dlsym(RTLD_NEXT, "usleep"));
    return real(microseconds);
}

namespace {

using std::string_literals::operator""s;
using tooltest::Descriptor;

// --- Contexts and reports ----------------------------------------------------------------------

/// A gSOAP context.
class Context {
 public:
    Context() : soap_(soap_new()) {}
    Context(const Context&) = delete;
    Context& operator=(const Context&) = delete;
    ~Context() {
        soap_destroy(soap_);
        soap_end(soap_);
        soap_free(soap_);
    }

    struct soap* get() const {
        return soap_;
    }
    struct soap* operator->() const {
        return soap_;
    }

 private:
    struct soap* soap_;
};

/// What one call of the receive callback delivers: the bytes, and the count that it reports.
struct Delivery {
    Delivery(const std::string& delivered) : Delivery(delivered, delivered.size()) {}
    Delivery(std::string delivered, std::size_t reported)
        : bytes(std::move(delivered)), count(reported) {}

    std::string bytes;
    std::size_t count;
};

/// A context whose receive callback delivers what a test says, and keeps the lengths asked for.
class ScriptedContext : public Context {
 public:
    explicit ScriptedContext(std::vector<Delivery> deliveries)
        : deliveries_(std::move(deliveries)) {
        get()->user = this;
        get()->frecv = Receive;
    }
    ~ScriptedContext() {
        // Nothing is read but through the callback, closed, or noted as an error.
        EXPECT_EQ(get()->error, SOAP_OK);
        EXPECT_EQ(get()->socket, SOAP_INVALID_SOCKET);
    }

    const std::vector<std::size_t>& requests() const { return requests_; }

 private:
    static std::size_t Receive(struct soap* context, char* buffer, std::size_t size) {
        auto* const self = static_cast<ScriptedContext*>(context->user);
        const std::size_t call = self->requests_.size();
        self->requests_.push_back(size);
        if (call >= self->deliveries_.size()) {
            ADD_FAILURE() << "call " << call << " of the callback";
            return 0;
        }
        const Delivery& delivery = self->deliveries_[call];
        EXPECT_LE(delivery.bytes.size(), size);
        std::copy_n(delivery.bytes.begin(), std::min(size, delivery.bytes.size()), buffer);
        return delivery.count;
    }

    std::vector<Delivery> deliveries_;
    std::vector<std::size_t> requests_;
};

using Requests = std::vector<std::size_t>;

struct Report {
    std::string path;
    int line;
    int depth;
};

std::vector<Report> reports;

void KeepReport(const char* path, int line, const zq::StackTrace& trace) {
    reports.push_back({path, line, trace.depth()});
}

/// Tests that read: they see all assertion reports.
class Reading : public testing::Test {
 protected:
    Reading() { reports.clear(); }
    ~Reading() override { zq::SetAssertHandler(previous_); }

    static void ExpectOneReport() {
        ASSERT_EQ(reports.size(), 1U);
        EXPECT_EQ(reports[0].path, "common/QuaveraCommon");
        EXPECT_EQ(reports[0].line, 192);
        EXPECT_GT(reports[0].depth, 0);
        reports.clear();
    }
    static void ExpectNoReport() { EXPECT_EQ(reports.size(), 0U); }

 private:
    zq::AssertHandler previous_ = zq::SetAssertHandler(KeepReport);
};

// --- GetStringFromSocket -----------------------------------------------------------------------

class GetStringFromSocketTest : public Reading {
 protected:
    /// No shape of data is worth a report here.
    ~GetStringFromSocketTest() override { ExpectNoReport(); }

    static void ExpectText(const std::vector<Delivery>& deliveries, const std::string& text,
                           const Requests& requests) {
        const ScriptedContext context(deliveries);
        EXPECT_EQ(GetStringFromSocket(context.get()), text);
        EXPECT_EQ(context.requests(), requests);
    }
};

TEST_F(GetStringFromSocketTest, ReadsLengthAndTextInOneCallEach) {
    ExpectText({"\x00\x03"s, "abc"s}, "abc", {2, 3});
    ExpectText({"\x00\x01"s, "\xFF"s}, "\xFF", {2, 1});
}

TEST_F(GetStringFromSocketTest, ReadsNothingBehindAZeroLength) {
    ExpectText({"\x00\x00"s}, "", {2});
}

TEST_F(GetStringFromSocketTest, TakesTheLengthsMostSignificantByteFirst) {
    for (const auto& [prefix, length] :
         std::vector<std::pair<std::string, std::size_t>>{{"\x01\x00"s, 0x0100},
                                                          {"\x01\x02"s, 0x0102},
                                                          {"\x00\xFF"s, 0x00FF},
                                                          {"\x80\x00"s, 0x8000},
                                                          {"\xFF\xFF"s, 0xFFFF}}) {
        std::string text(length, 'x');
        text.back() = 'z';
        ExpectText({prefix, text}, text, {2, length});
    }
}

TEST_F(GetStringFromSocketTest, IsEmptyForACutLength) {
    ExpectText({""s}, "", {2});
    ExpectText({"\x01"s}, "", {2});
}

TEST_F(GetStringFromSocketTest, IsEmptyForEveryCutText) {
    const std::string text = "abcde";
    for (std::size_t count = 0; count < text.size(); ++count) {
        ExpectText({"\x00\x05"s, text.substr(0, count)}, "", {2, 5});
    }
    ExpectText({"\xFF\xFF"s, std::string(0xFFFE, 'x')}, "", {2, 0xFFFF});
}

TEST_F(GetStringFromSocketTest, IsEmptyWhereDataEndsInTheText) {
    ExpectText({"\x00\x05"s, "ab"s}, "", {2, 5});
}

TEST_F(GetStringFromSocketTest, TakesLargerCountsForWholeReads) {
    ExpectText({{"\x00\x03"s, 3}, {"abc", 4}}, "abc", {2, 3});
    ExpectText({{"\x00\x03"s, SIZE_MAX}, {"abc", SIZE_MAX}}, "abc", {2, 3});
    ExpectText({{"\x00\x00"s, 3}}, "", {2});
}

TEST_F(GetStringFromSocketTest, CutsTheTextAtItsFirstZeroByte) {
    ExpectText({"\x00\x05"s, "ab\0cd"s}, "ab", {2, 5});
    ExpectText({"\x00\x05"s, "a\0c\0e"s}, "a", {2, 5});
    ExpectText({"\x00\x03"s, "ab\0"s}, "ab", {2, 3});
    ExpectText({"\x00\x03"s, "\0bc"s}, "", {2, 3});
}

// --- GetDWORDFromSocket ------------------------------------------------------------------------

class GetDWORDFromSocketTest : public Reading {
 protected:
    static void ExpectValue(const Delivery& delivery, unsigned int value) {
        const ScriptedContext context({delivery});
        EXPECT_EQ(GetDWORDFromSocket(context.get()), value);
        EXPECT_EQ(context.requests(), Requests({4}));
    }
};

TEST_F(GetDWORDFromSocketTest, TakesTheMostSignificantByteFirst) {
    ExpectValue("\x11\x22\x33\x44"s, 0x11223344);
    ExpectValue("\x00\x00\x00\x01"s, 1);
    ExpectValue("\x80\x00\x00\x00"s, 0x80000000);
    ExpectValue("\xFF\xFE\xFD\xFC"s, 0xFFFEFDFC);
    ExpectValue("\x00\x00\x00\x00"s, 0);
    ExpectNoReport();
}

TEST_F(GetDWORDFromSocketTest, ReportsEveryCutReadAndReturnsItsBytesInTheMachinesOrder) {
    static_assert(__BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__, "the values are for this order");
    const std::vector<std::pair<std::string, unsigned int>> cutReads = {
        {"", 0},
        {"\x7F", 0x0000007F},
        {"\x11", 0x00000011},
        {"\x11\x22", 0x00002211},
        {"\x11\x22\x33", 0x00332211},
        {"\xFF\xFF\xFF", 0x00FFFFFF},
    };
    for (const auto& [bytes, value] : cutReads) {
        ExpectValue(bytes, value);
        ExpectOneReport();
    }
}

TEST_F(GetDWORDFromSocketTest, ReportsLargerCountsToo) {
    for (const std::size_t count : {std::size_t{5}, std::size_t{SIZE_MAX}}) {
        ExpectValue({"\x11\x22\x33\x44", count}, 0x44332211);
        ExpectOneReport();
    }
}

// --- Both on a connection ----------------------------------------------------------------------

/// A context on a loopback connection, and the peer at its other end.
class Connection {
 public:
    Connection() {
        const tooltest::Port port;
        port.Listen();
        peer_ = tooltest::Connect(port.Number());
        own_ = port.Accept();
        context_->socket = own_.get();
        context_->recv_timeout = 60;
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;
    ~Connection() {
        EXPECT_EQ(context_->error, SOAP_OK);
        EXPECT_EQ(context_->socket, own_.get());
        context_->socket = SOAP_INVALID_SOCKET;
    }

    struct soap* context() const {
        return context_.get();
    }

    /// Sends, and waits until all of it has arrived: each read gets what it asks for at once.
    void Send(const std::vector<unsigned char>& bytes) {
        tooltest::Send(peer_, {bytes.begin(), bytes.end()});
        std::vector<unsigned char> arrived(bytes.size());
        const ssize_t size =
            recv(own_.get(), arrived.data(), arrived.size(), MSG_PEEK | MSG_WAITALL);
        EXPECT_EQ(size, static_cast<ssize_t>(bytes.size()));
        EXPECT_EQ(arrived, bytes);
    }
    void EndSending() { tooltest::EndSending(peer_); }

 private:
    Context context_;
    Descriptor own_;
    Descriptor peer_;
};

class LoopbackConnection : public Reading {};

TEST_F(LoopbackConnection, CarriesWhatTheAppendFunctionsWrite) {
    const std::string longText(4000, 'x');
    std::vector<unsigned char> buffer(5 + 4 + 2 + 4002 + 4);
    unsigned int end = AddStringToBuffer(buffer.data(), 0, "abc");
    end = AddDWORDToBuffer(buffer.data(), end, 0x11223344);
    end = AddStringToBuffer(buffer.data(), end, "");
    end = AddStringToBuffer(buffer.data(), end, longText);
    end = AddDWORDToBuffer(buffer.data(), end, 0xFFFEFDFC);
    ASSERT_EQ(end, buffer.size());

    Connection connection;
    connection.Send(buffer);
    EXPECT_EQ(GetStringFromSocket(connection.context()), "abc");
    EXPECT_EQ(GetDWORDFromSocket(connection.context()), 0x11223344U);
    EXPECT_EQ(GetStringFromSocket(connection.context()), "");
    EXPECT_EQ(GetStringFromSocket(connection.context()), longText);
    EXPECT_EQ(GetDWORDFromSocket(connection.context()), 0xFFFEFDFCU);
    ExpectNoReport();
}

TEST_F(LoopbackConnection, ThatEndsInATextGivesAnEmptyOne) {
    Connection connection;
    connection.Send({0x00, 0x05, 0x61, 0x62});
    connection.EndSending();
    EXPECT_EQ(GetStringFromSocket(connection.context()), "");
    EXPECT_EQ(GetStringFromSocket(connection.context()), "");
    ExpectNoReport();
}

TEST_F(LoopbackConnection, ThatEndsInANumberGivesItsBytesAndAReport) {
    Connection connection;
    connection.Send({0x7F});
    connection.EndSending();
    EXPECT_EQ(GetDWORDFromSocket(connection.context()), 0x7FU);
    ExpectOneReport();
    EXPECT_EQ(GetDWORDFromSocket(connection.context()), 0U);
    ExpectOneReport();
}

// --- EnableNonBlocking -------------------------------------------------------------------------

struct Ends {
    Descriptor first;
    Descriptor second;
};

Ends NewPipe() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

Ends NewSocketPair() {
    int ends[2] = {-1, -1};
    EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    return {Descriptor(ends[0]), Descriptor(ends[1])};
}

int FlagsOf(const Descriptor& descriptor) {
    return fcntl(descriptor.get(), F_GETFL);
}

/// What reading from an empty descriptor comes to: the error.
int ErrorOfReading(const Descriptor& descriptor) {
    char byte = 0;
    EXPECT_EQ(read(descriptor.get(), &byte, 1), -1);
    return errno;
}

/// Switches on twice and off twice.
void ExpectSwitching(const Descriptor& descriptor) {
    const int blocking = FlagsOf(descriptor);
    ASSERT_NE(blocking, -1);
    ASSERT_EQ(blocking & O_NONBLOCK, 0);
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(EnableNonBlocking(true, descriptor.get()), 0);
        EXPECT_EQ(FlagsOf(descriptor), blocking | O_NONBLOCK);
    }
    EXPECT_EQ(ErrorOfReading(descriptor), EAGAIN);
    for (int call = 0; call < 2; ++call) {
        EXPECT_EQ(EnableNonBlocking(false, descriptor.get()), 0);
        EXPECT_EQ(FlagsOf(descriptor), blocking);
    }
}

TEST(EnableNonBlocking, SwitchesASocket) {
    const Ends ends = NewSocketPair();
    ExpectSwitching(ends.first);
    EXPECT_EQ(FlagsOf(ends.second) & O_NONBLOCK, 0);
}

TEST(EnableNonBlocking, SwitchesAPipe) {
    ExpectSwitching(NewPipe().first);
}

TEST(EnableNonBlocking, KeepsOtherFlags) {
    const Ends ends = NewSocketPair();
    ASSERT_EQ(fcntl(ends.first.get(), F_SETFL, FlagsOf(ends.first) | O_APPEND), 0);
    ASSERT_NE(FlagsOf(ends.first) & O_APPEND, 0);
    ExpectSwitching(ends.first);
}

/// Expects that switching fails, and how.
void ExpectFailure(int descriptor, int error) {
    for (const bool enable : {true, false}) {
        errno = 0;
        EXPECT_EQ(EnableNonBlocking(enable, descriptor), -1);
        EXPECT_EQ(errno, error);
    }
}

TEST(EnableNonBlocking, FailsForDescriptorsThatAreNotOpen) {
    int closed = -1;
    {
        const Ends ends = NewPipe();
        closed = ends.first.get();
    }
    ExpectFailure(closed, EBADF);
    ExpectFailure(-1, EBADF);
}

TEST(EnableNonBlocking, FailsWhereFlagsCanBeReadButNotSet) {
    const Descriptor path(open("/", O_PATH | O_CLOEXEC));
    ASSERT_NE(FlagsOf(path), -1);
    ExpectFailure(path.get(), EBADF);
}

// --- Sleep -------------------------------------------------------------------------------------

/// What `Sleep` hands to `usleep`, which returns `result`.
std::uint32_t MicrosecondsOf(int milliseconds, int result = 0) {
    SleepCalls calls;
    calls.result = result;
    sleepCalls = &calls;
    const int returned = Sleep(milliseconds);
    sleepCalls = nullptr;
    EXPECT_EQ(returned, result);
    EXPECT_EQ(calls.microseconds.size(), 1U);
    return calls.microseconds.empty() ? 0 : calls.microseconds.front();
}

TEST(Sleep, HandsMicrosecondsToUsleep) {
    EXPECT_EQ(MicrosecondsOf(0), 0U);
    EXPECT_EQ(MicrosecondsOf(1), 1000U);
    EXPECT_EQ(MicrosecondsOf(250), 250000U);
    EXPECT_EQ(MicrosecondsOf(4294967), 4294967000U);
}

TEST(Sleep, MultipliesNegativeAndLargeNumbersModulo32Bits) {
    EXPECT_EQ(MicrosecondsOf(4294968), 704U);
    EXPECT_EQ(MicrosecondsOf(1 << 29), 0U);
    EXPECT_EQ(MicrosecondsOf(INT_MAX), 4294966296U);
    EXPECT_EQ(MicrosecondsOf(-1), 4294966296U);
    EXPECT_EQ(MicrosecondsOf(-4294967), 296U);
    EXPECT_EQ(MicrosecondsOf(INT_MIN), 0U);
    EXPECT_EQ(MicrosecondsOf(INT_MIN + 1), 1000U);
}

TEST(Sleep, ReturnsWhatUsleepReturns) {
    EXPECT_EQ(MicrosecondsOf(3, -1), 3000U);
    EXPECT_EQ(MicrosecondsOf(3, 7), 3000U);
}

TEST(Sleep, ReturnsAtOnceForProductsThatAreSmallModulo32Bits) {
    for (const int milliseconds : {0, 1 << 29, -(1 << 29), 4294968, -4294967, INT_MIN}) {
        EXPECT_EQ(Sleep(milliseconds), 0) << milliseconds;
    }
}

TEST(Sleep, LastsAtLeastAsLongAsAskedFor) {
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(Sleep(250), 0);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(250));
}

// --- SetSoapTimeouts ---------------------------------------------------------------------------

/// The memory of a context itself.
std::string BytesOf(const Context& context) {
    return {reinterpret_cast<const char*>(context.get()), sizeof(struct soap)};
}

void SetFields(const Context& context, int receive, int send, int connect) {
    context->recv_timeout = receive;
    context->send_timeout = send;
    context->connect_timeout = connect;
}

TEST(SetSoapTimeouts, SetsThreeFields) {
    const Context context;
    SetFields(context, -1, -2, -3);
    SetSoapTimeouts(context.get());
    EXPECT_EQ(context->recv_timeout, 35);
    EXPECT_EQ(context->send_timeout, 5);
    EXPECT_EQ(context->connect_timeout, 35);
}

TEST(SetSoapTimeouts, ChangesNothingElse) {
    const Context context;
    context->accept_timeout = 4711;
    context->transfer_timeout = 4712;
    SetFields(context, -1, -2, -3);
    const std::string before = BytesOf(context);
    SetSoapTimeouts(context.get());
    EXPECT_EQ(context->accept_timeout, 4711);
    EXPECT_EQ(context->transfer_timeout, 4712);
    SetFields(context, -1, -2, -3);
    EXPECT_TRUE(BytesOf(context) == before);
}

// --- Signatures --------------------------------------------------------------------------------

static_assert(std::is_same_v<decltype(&GetStringFromSocket), std::string (*)(struct soap*)>);
static_assert(std::is_same_v<decltype(&GetDWORDFromSocket), unsigned int (*)(struct soap*)>);
static_assert(std::is_same_v<decltype(&EnableNonBlocking), int (*)(bool, int)>);
static_assert(std::is_same_v<decltype(&Sleep), int (*)(int)>);
static_assert(std::is_same_v<decltype(&SetSoapTimeouts), void (*)(struct soap*)>);

}  // namespace

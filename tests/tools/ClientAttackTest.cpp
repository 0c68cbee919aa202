// `fetch` from servers that lie, stop, drip, never answer or never end: it comes to an end by
// itself, in bounded memory, and says what was wrong.

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "tests/tools/Files.h"
#include "tests/tools/Process.h"
#include "tests/tools/Socket.h"

namespace {

using tooltest::Descriptor;

const std::string kTrack = tooltest::Envelope(tooltest::Track("<trackId>1</trackId>"));
const std::string kOk = "HTTP/1.1 200 OK\r\nContent-Type: text/xml\r\n";

/// What `fetch` makes of a server that answers its request with what `answer` sends.
tooltest::Outcome FetchFrom(const tooltest::Port& port,
                            const std::function<void(const Descriptor& connection)>& answer,
                            const std::string& seconds) {
    port.Listen();
    tooltest::Process fetch(
        {"fetch", "--endpoint", port.Endpoint(), "--timeout", seconds, "track", "Tra.1", "--tree"});
    {
        const Descriptor connection = port.Accept();
        EXPECT_NE(tooltest::ReceiveRequest(connection).find("Tra.1"), std::string::npos);
        answer(connection);
    }
    return fetch.Finish();
}

/// The same for a server that sends these bytes, and goes.
tooltest::Outcome FetchBytes(const tooltest::Port& port, const std::string& bytes) {
    return FetchFrom(
        port, [&bytes](const Descriptor& connection) { tooltest::Send(connection, bytes); }, "60");
}

struct Case {
    std::string name;
    std::string answer;
    std::string reason;
};

void PrintTo(const Case& printed, std::ostream* out) {
    *out << printed.name;
}

std::string TestName(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

class Lie : public testing::TestWithParam<Case> {};

TEST_P(Lie, IsToldByItsReason) {
    const tooltest::Port port;
    EXPECT_TRUE(tooltest::Refused(FetchBytes(port, GetParam().answer), 1,
                                  {port.Endpoint() + ": ", GetParam().reason}));
}

std::string WithLength(const std::string& length) {
    return kOk + "Content-Length: " + length + "\r\n\r\n" + kTrack;
}

INSTANTIATE_TEST_SUITE_P(
    All, Lie,
    testing::Values(
        // The XML is whole, the body is not.
        Case{"LongerThanItIs", WithLength(std::to_string(kTrack.size() + 10)),
             "10 bytes remaining"},
        Case{"NegativeLength", WithLength("-1"), "Invalid Content-Length"},
        Case{"LengthThatIsNoNumber", WithLength("x"), "Invalid Content-Length"},
        Case{"HugeLength", WithLength("100000000000"), "longer than 67108864 bytes"},
        Case{"LengthBeyondAllNumbers", WithLength("99999999999999999999999"), "67108864 bytes"},
        Case{"CutChunk", kOk + "Transfer-Encoding: chunked\r\n\r\nFFFF\r\n" + kTrack,
             "outstanding read data remaining"},
        Case{"ChunkOfNoSize", kOk + "Transfer-Encoding: chunked\r\n\r\nsize\r\n" + kTrack, "chunk"},
        Case{"NoGzip", kOk + "Content-Encoding: gzip\r\n\r\n" + kTrack, "content unencoding"},
        Case{"UnknownEncoding", kOk + "Content-Encoding: morse\r\n\r\n" + kTrack,
             "content encoding"},
        Case{"LongHeader", kOk + "X: " + std::string(400000, 'x') + "\r\n\r\n" + kTrack,
             "header of the answer is too long"},
        Case{"NoStatus", "HTTP/1.1 yes\r\n\r\n", "HTTP"},
        Case{"NoHttp", "hello\r\n\r\n", "HTTP/0.9"}, Case{"Nothing", "", "Empty reply"}),
    TestName);

/// A text in the format of gzip, not made any shorter.
std::string Gzip(const std::string& text) {
    const auto littleEndian = [](std::uint32_t value, int bytes) {
        std::string all;
        for (; bytes > 0; --bytes, value >>= 8) {
            all += static_cast<char>(value & 0xFF);
        }
        return all;
    };
    std::uint32_t sum = 0xFFFFFFFF;
    for (const char byte : text) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit) {
            sum = (sum >> 1) ^ ((sum & 1) == 0 ? 0 : 0xEDB88320);
        }
    }
    const auto size = static_cast<std::uint32_t>(text.size());
    return std::string("\x1F\x8B\x08\0\0\0\0\0\0\xFF", 10) + '\1' + littleEndian(size, 2) +
           littleEndian(~size, 2) + text + littleEndian(~sum, 4) + littleEndian(size, 4);
}

TEST(ClientAttack, CompressedAnswerIsRead) {
    const tooltest::Port port;
    const std::string body = Gzip(kTrack);
    const std::string answer =
        kOk + "Content-Encoding: gzip\r\nContent-Length: " + std::to_string(body.size()) +
        "\r\n\r\n" + body;
    EXPECT_TRUE(
        tooltest::Printed(FetchBytes(port, answer), "<Track><TrackId>1</TrackId></Track>\n"));
}

TEST(ClientAttack, ServerThatNeverAnswersIsLeft) {
    for (const std::string& begin :
         {std::string(), std::string("HTTP/1.1 200"), kOk, WithLength("1000")}) {
        const tooltest::Port port;
        const auto keepSilent = [&begin](const Descriptor& connection) {
            tooltest::Send(connection, begin);
            tooltest::ReceiveAll(connection);  // until the client has had enough
        };
        EXPECT_TRUE(tooltest::Refused(FetchFrom(port, keepSilent, "1"), 1,
                                      {port.Endpoint() + ": ", "timed out"}));
    }
}

/// Sends a piece again and again, until the other side closes. Returns how many were sent.
std::size_t SendOn(const Descriptor& connection, const std::string& piece) {
    std::size_t sent = 0;
    while (tooltest::TrySend(connection, piece)) {
        ++sent;
    }
    return sent;
}

TEST(ClientAttack, ServerThatDripsIsLeft) {
    const tooltest::Port port;
    const auto drip = [](const Descriptor& connection) {
        tooltest::Send(connection, kOk + "\r\n<a>");
        while (tooltest::TrySend(connection, " ")) {
            tooltest::WaitForEnd(connection, 50);
        }
    };
    EXPECT_TRUE(
        tooltest::Refused(FetchFrom(port, drip, "2"), 1, {port.Endpoint() + ": ", "timed out"}));
}

TEST(ClientAttack, EndlessAnswerIsLeftAtItsLimit) {
    const std::string piece(100000, ' ');
    const struct {
        std::string head;
        std::string piece;
    } cases[] = {
        {kOk + "\r\n", piece},
        {kOk + "Transfer-Encoding: chunked\r\n\r\n", "186A0\r\n" + piece + "\r\n"},
    };
    for (const auto& each : cases) {
        const tooltest::Port port;
        std::size_t sent = 0;
        const auto sendOn = [&](const Descriptor& connection) {
            tooltest::Send(connection, each.head);
            sent = SendOn(connection, each.piece);
        };
        const tooltest::Outcome outcome = FetchFrom(port, sendOn, "60");
        EXPECT_TRUE(tooltest::Refused(
            outcome, 1, {port.Endpoint() + ": the answer is longer than 67108864 bytes"}));
        EXPECT_LT(sent, 1500U);  // the limit, and what stands in the kernel's buffers
        EXPECT_LT(outcome.mostMemory, 400 * 1024);
    }
}

TEST(ClientAttack, EndlessHeadIsLeft) {
    const tooltest::Port port;
    const auto sendOn = [](const Descriptor& connection) {
        tooltest::Send(connection, kOk);
        SendOn(connection, "X: y\r\n");
    };
    EXPECT_TRUE(tooltest::Refused(FetchFrom(port, sendOn, "60"), 1, {port.Endpoint() + ": "}));
}

}  // namespace

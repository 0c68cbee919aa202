#include "tests/tools/Socket.h"

#include <arpa/inet.h>
#include <gtest/gtest.h>
#include <netinet/in.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/time.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdlib>

namespace tooltest {
namespace {

constexpr timeval kPatience = {60, 0};

Descriptor NewSocket() {
    Descriptor created(socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    EXPECT_TRUE(created.IsOpen());
    return created;
}

void LimitWaiting(const Descriptor& connection) {
    setsockopt(connection.get(), SOL_SOCKET, SO_RCVTIMEO, &kPatience, sizeof kPatience);
}

sockaddr_in Loopback(int port) {
    return {AF_INET, htons(static_cast<std::uint16_t>(port)), {htonl(INADDR_LOOPBACK)}, {}};
}

/// False at the end of the other side's bytes.
bool ReceiveSome(const Descriptor& connection, std::string* bytes) {
    std::array<char, 4096> buffer;
    const ssize_t size = recv(connection.get(), buffer.data(), buffer.size(), 0);
    EXPECT_FALSE(size < 0 && errno == EAGAIN) << "neither bytes nor an end for a minute";
    bytes->append(buffer.data(), static_cast<std::size_t>(size > 0 ? size : 0));
    return size > 0;
}

/// The size of the request that begins with `bytes`; as large as can be while it is not known.
std::size_t RequestSize(const std::string& bytes) {
    constexpr char kLength[] = "\r\nContent-Length: ";
    const std::size_t head = bytes.find("\r\n\r\n");
    const std::size_t length = bytes.find(kLength);
    if (head == std::string::npos || length > head) {
        return std::string::npos;
    }
    return head + 4 + std::strtoul(bytes.c_str() + length + sizeof kLength - 1, nullptr, 10);
}

}  // namespace

Descriptor Connect(int port) {
    Descriptor connection = NewSocket();
    LimitWaiting(connection);
    const sockaddr_in address = Loopback(port);
    EXPECT_EQ(
        connect(connection.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return connection;
}

void Send(const Descriptor& connection, const std::string& bytes) {
    TrySend(connection, bytes);
}

bool TrySend(const Descriptor& connection, const std::string& bytes) {
    std::size_t sent = 0;
    ssize_t size = 0;
    while (sent < bytes.size() && size >= 0) {
        size = send(connection.get(), bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        sent += static_cast<std::size_t>(size > 0 ? size : 0);
    }
    return sent == bytes.size();
}

bool WaitForEnd(const Descriptor& connection, int milliseconds) {
    pollfd polled = {connection.get(), POLLIN, 0};
    return poll(&polled, 1, milliseconds) > 0;
}

void EndSending(const Descriptor& connection) {
    shutdown(connection.get(), SHUT_WR);
}

std::string ReceiveAll(const Descriptor& connection) {
    std::string bytes;
    while (ReceiveSome(connection, &bytes)) {
    }
    return bytes;
}

std::string ReceiveRequest(const Descriptor& connection) {
    std::string bytes;
    while (bytes.size() < RequestSize(bytes) && ReceiveSome(connection, &bytes)) {
    }
    return bytes;
}

Port::Port() : socket_(NewSocket()) {
    LimitWaiting(socket_);
    sockaddr_in address = Loopback(0);
    socklen_t size = sizeof address;
    EXPECT_EQ(bind(socket_.get(), reinterpret_cast<const sockaddr*>(&address), size), 0);
    EXPECT_EQ(getsockname(socket_.get(), reinterpret_cast<sockaddr*>(&address), &size), 0);
    number_ = ntohs(address.sin_port);
}

void Port::Listen() const {
    EXPECT_EQ(listen(socket_.get(), 1), 0);
}

Descriptor Port::Accept() const {
    Descriptor connection(accept4(socket_.get(), nullptr, nullptr, SOCK_CLOEXEC));
    EXPECT_TRUE(connection.IsOpen());
    LimitWaiting(connection);
    return connection;
}

}  // namespace tooltest

#include "http/PortSockets.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>
#include <thread>

namespace kor::veltrano::daemons {
namespace {

// A TCP socket that listens on a free port of the loopback.
class ListeningSocket
{
public:
    ListeningSocket()
    {
        address.sin_family = AF_INET;
        address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
        EXPECT_EQ(bind(descriptor, socketAddress(), sizeof(address)), 0);
        EXPECT_EQ(listen(descriptor, 4), 0);
        socklen_t size = sizeof(address);
        EXPECT_EQ(getsockname(descriptor, socketAddress(), &size), 0);
    }
    ~ListeningSocket() { close(descriptor); }
    ListeningSocket(const ListeningSocket&) = delete;
    ListeningSocket& operator=(const ListeningSocket&) = delete;

    int port() const { return ntohs(address.sin_port); }
    sockaddr* socketAddress() { return reinterpret_cast<sockaddr*>(&address); }

    bool takesConnections()
    {
        const int client = socket(AF_INET, SOCK_STREAM, 0);
        const bool isTaken = connect(client, socketAddress(), sizeof(address)) == 0;
        close(client);
        return isTaken;
    }

    const int descriptor = socket(AF_INET, SOCK_STREAM | SOCK_NONBLOCK, 0);
    sockaddr_in address = {};
};

TEST(PortSocketsTest, TheDescriptorStaysAndNeverGetsAConnection)
{
    ListeningSocket listening;
    ASSERT_TRUE(listening.takesConnections());
    ASSERT_TRUE(silenceListeningSocket(listening.port()));
    EXPECT_FALSE(listening.takesConnections());
    EXPECT_EQ(accept(listening.descriptor, nullptr, nullptr), -1);
    EXPECT_EQ(errno, EAGAIN);
}

TEST(PortSocketsTest, OtherSocketsAreLeftAlone)
{
    ListeningSocket one;
    ListeningSocket other;
    ASSERT_TRUE(silenceListeningSocket(one.port()));
    EXPECT_TRUE(other.takesConnections());
}

TEST(PortSocketsTest, APortThatNobodyListensOnIsNotFound)
{
    int freePort = 0;
    {
        const ListeningSocket gone;
        freePort = gone.port();
    }
    EXPECT_FALSE(silenceListeningSocket(freePort));
}

TEST(PortSocketsTest, TheProcesssListeningPortsAreKnown)
{
    int port = 0;
    {
        const ListeningSocket listening;
        port = listening.port();
        EXPECT_EQ(listeningPorts().count(port), 1U);
    }
    EXPECT_EQ(listeningPorts().count(port), 0U);
}

TEST(PortSocketsTest, WhatIsNoTcpSocketIsLeftAlone)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    EXPECT_FALSE(silenceListeningSocket(0));
    EXPECT_TRUE(endConnections(0, std::chrono::milliseconds(0)));
    EXPECT_EQ(write(ends[0], "x", 1), 1);
    char byte = 0;
    EXPECT_EQ(read(ends[1], &byte, 1), 1);
    close(ends[0]);
    close(ends[1]);
}

// A client of a listening socket and the server's end of it, which is closed as the library closes
// its connections: by a thread that reads until the end.
class Connection
{
public:
    explicit Connection(ListeningSocket& listening)
    {
        EXPECT_EQ(connect(client, listening.socketAddress(), sizeof(sockaddr_in)), 0);
        const int server = accept(listening.descriptor, nullptr, nullptr);
        EXPECT_GE(server, 0);
        reader = std::thread([server] {
            char byte = 0;
            while (read(server, &byte, 1) == 1) { }
            close(server);
        });
    }
    ~Connection()
    {
        close(client);
        reader.join();
    }
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

private:
    const int client = socket(AF_INET, SOCK_STREAM, 0);
    std::thread reader;
};

TEST(PortSocketsTest, IdleConnectionsEndAtOnce)
{
    ListeningSocket listening;
    const Connection first(listening);
    const Connection second(listening);
    EXPECT_TRUE(endConnections(listening.port(), std::chrono::seconds(10)));
}

TEST(PortSocketsTest, AConnectionThatNobodyClosesIsWaitedForInBounds)
{
    ListeningSocket listening;
    ASSERT_TRUE(listening.takesConnections());
    const int server = accept(listening.descriptor, nullptr, nullptr);
    ASSERT_GE(server, 0);
    EXPECT_FALSE(endConnections(listening.port(), std::chrono::milliseconds(10)));
    close(server);
    EXPECT_TRUE(endConnections(listening.port(), std::chrono::milliseconds(0)));
}

TEST(PortSocketsTest, ThePortsOwnListenerIsNoConnection)
{
    ListeningSocket listening;
    EXPECT_TRUE(endConnections(listening.port(), std::chrono::milliseconds(0)));
    EXPECT_TRUE(listening.takesConnections());
}

} // namespace
} // namespace kor::veltrano::daemons

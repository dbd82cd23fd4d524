#include "http/ListenerSocket.h"

#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <cerrno>

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

TEST(ListenerSocketTest, TheDescriptorStaysAndNeverGetsAConnection)
{
    ListeningSocket listening;
    ASSERT_TRUE(listening.takesConnections());
    ASSERT_TRUE(silenceListeningSocket(listening.port()));
    EXPECT_FALSE(listening.takesConnections());
    EXPECT_EQ(accept(listening.descriptor, nullptr, nullptr), -1);
    EXPECT_EQ(errno, EAGAIN);
}

TEST(ListenerSocketTest, OtherSocketsAreLeftAlone)
{
    ListeningSocket one;
    ListeningSocket other;
    ASSERT_TRUE(silenceListeningSocket(one.port()));
    EXPECT_TRUE(other.takesConnections());
}

TEST(ListenerSocketTest, APortThatNobodyListensOnIsNotFound)
{
    int freePort = 0;
    {
        const ListeningSocket gone;
        freePort = gone.port();
    }
    EXPECT_FALSE(silenceListeningSocket(freePort));
}

} // namespace
} // namespace kor::veltrano::daemons

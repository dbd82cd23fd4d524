#include "HttpClient.h"

#include "Problem.h"

#include <QCoreApplication>
#include <QTcpServer>

#include <gtest/gtest.h>

#include <atomic>
#include <memory>
#include <thread>

using namespace kor::veltrano::lumview;

namespace {

constexpr int longWaitMs = 30000;

// A server that takes one request and answers it in the given pieces.
class OneReplyServer
{
public:
    explicit OneReplyServer(QList<QByteArray> pieces) : thread([this, pieces] { serve(pieces); })
    {
        while (port == 0) {
            std::this_thread::yield();
        }
    }
    ~OneReplyServer() { end(); }

    OneReplyServer(const OneReplyServer&) = delete;
    OneReplyServer& operator=(const OneReplyServer&) = delete;

    std::string address() const { return "http://127.0.0.1:" + std::to_string(port); }

    // What the client has sent, once the connection is over.
    QByteArray request()
    {
        end();
        return received;
    }

private:
    void serve(const QList<QByteArray>& pieces)
    {
        QTcpServer server;
        server.listen(QHostAddress::LocalHost);
        port = server.serverPort();
        server.waitForNewConnection(longWaitMs);
        const std::unique_ptr<QTcpSocket> socket(server.nextPendingConnection());
        while (!received.endsWith("[body]")) {
            if (socket == nullptr || !socket->waitForReadyRead(longWaitMs)) {
                return;
            }
            received += socket->readAll();
        }
        for (const QByteArray& piece : pieces) {
            socket->write(piece);
            socket->waitForBytesWritten(longWaitMs);
        }
        // Without a piece the reply never comes, and the client loses its patience.
        if (pieces.isEmpty()) {
            socket->waitForDisconnected(longWaitMs);
        }
    }

    void end()
    {
        if (thread.joinable()) {
            thread.join();
        }
    }

    std::atomic<int> port{0};
    QByteArray received;
    std::thread thread;
};

std::string failureOf(HttpClient& client)
{
    try {
        client.request("PUT", "/x", "[body]");
        return {};
    } catch (const Problem& problem) {
        return problem.what();
    }
}

class HttpClientTest : public testing::Test
{
private:
    char name[5] = "test";
    char* arguments[2] = {name, nullptr};
    int count = 1;
    // Sockets need one.
    QCoreApplication application{count, arguments};
};

} // namespace

TEST_F(HttpClientTest, SendsTheRequestAndGivesTheReply)
{
    OneReplyServer server({"HTTP/1.1 400 Bad Request\r\nContent-Length: 5\r\n\r\nhello"});
    const HttpReply reply = HttpClient(server.address()).request("PUT", "/a?b=c", "[body]");
    EXPECT_EQ(reply.status, 400);
    EXPECT_EQ(reply.body, "hello");
    const QByteArray request = server.request();
    EXPECT_TRUE(request.startsWith("PUT /a?b=c HTTP/1.1\r\nHost: 127.0.0.1:")) << request.data();
    EXPECT_TRUE(request.contains("\r\nContent-Length: 6\r\n")) << request.data();
}

TEST_F(HttpClientTest, PutsAReplyTogetherThatComesInPieces)
{
    OneReplyServer server({"HTTP/1.1 2", "00 OK\r\ncontent-LENGTH:4\r", "\n\r", "\nab", "cd"});
    const HttpReply reply = HttpClient(server.address()).request("GET", "/", "[body]");
    EXPECT_EQ(reply.status, 200);
    EXPECT_EQ(reply.body, "abcd");
}

TEST_F(HttpClientTest, RefusesAReplyThatIsCutOff)
{
    OneReplyServer server({"HTTP/1.1 200 OK\r\nContent-Length: 5\r\n\r\nhell"});
    HttpClient client(server.address());
    EXPECT_EQ(failureOf(client),
              "the daemon at " + server.address()
                  + " doesn't answer: The remote host closed the "
                    "connection");
}

TEST_F(HttpClientTest, LosesItsPatienceWithAServerThatDoesntAnswer)
{
    OneReplyServer server({});
    HttpClient client(server.address(), 50);
    EXPECT_EQ(failureOf(client),
              "the daemon at " + server.address() + " doesn't answer: Network operation timed out");
}

TEST_F(HttpClientTest, RefusesWhatIsNoAddress)
{
    for (const char* address :
         {"", "127.0.0.1:8080", "https://127.0.0.1", "http://", "http://a b"}) {
        EXPECT_THROW(HttpClient{address}, Problem) << address;
    }
}

#include "support/ChildProcess.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace kor::veltrano::daemons {
namespace {

constexpr int deadlineMs = 30'000;

// The numbers of the descriptors that a child has, without the one that lists them.
QByteArray descriptorsOf(QProcess& process)
{
    process.start(QStringLiteral("/bin/sh"),
                  {QStringLiteral("-c"),
                   QStringLiteral("for d in /proc/self/fd/*; do "
                                  "[ -e \"$d\" ] && printf '%s ' \"${d##*/}\"; "
                                  "done")});
    EXPECT_TRUE(process.waitForFinished(deadlineMs));
    return process.readAllStandardOutput();
}

class ChildProcessTest : public testing::Test
{
protected:
    // Sockets without close-on-exec, as the HTTP library opens them, at low and high numbers.
    ChildProcessTest()
    {
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, sockets), 0);
        EXPECT_EQ(dup2(sockets[0], highDescriptor), highDescriptor);
    }
    ~ChildProcessTest() override
    {
        close(sockets[0]);
        close(sockets[1]);
        close(highDescriptor);
    }

    static constexpr int highDescriptor = 900;
    int sockets[2] = {-1, -1};
};

TEST_F(ChildProcessTest, TheChildHasItsStandardStreamsAlone)
{
    ChildProcess process;
    EXPECT_EQ(descriptorsOf(process), "0 1 2 ");
    QProcess plain;
    EXPECT_NE(descriptorsOf(plain), "0 1 2 ");
}

TEST_F(ChildProcessTest, TheParentKeepsItsFilesAsTheyWere)
{
    ChildProcess process;
    descriptorsOf(process);
    for (const int descriptor : {sockets[0], sockets[1], highDescriptor}) {
        EXPECT_EQ(fcntl(descriptor, F_GETFD), 0);
    }
}

TEST_F(ChildProcessTest, TheOtherEndOfASocketSeesItsEndWhileAChildLives)
{
    ChildProcess process;
    process.start(QStringLiteral("/bin/sleep"), {QStringLiteral("100")});
    ASSERT_TRUE(process.waitForStarted(deadlineMs));
    close(sockets[0]);
    close(highDescriptor);
    char byte = 0;
    EXPECT_EQ(recv(sockets[1], &byte, 1, MSG_DONTWAIT), 0);
    process.kill();
    EXPECT_TRUE(process.waitForFinished(deadlineMs));
}

TEST_F(ChildProcessTest, AChildThatAsksForInputFindsItsEnd)
{
    ChildProcess process;
    process.start(QStringLiteral("cat"), QStringList(), QIODevice::ReadOnly);
    EXPECT_TRUE(process.waitForFinished(deadlineMs));
}

TEST_F(ChildProcessTest, AProgramThatCannotBeStartedIsTold)
{
    ChildProcess process;
    process.start(QStringLiteral("/no/such/program"), QStringList());
    EXPECT_FALSE(process.waitForStarted(deadlineMs));
    EXPECT_EQ(process.error(), QProcess::FailedToStart);
}

} // namespace
} // namespace kor::veltrano::daemons

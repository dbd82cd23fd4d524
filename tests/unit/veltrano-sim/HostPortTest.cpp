#include "HostPort.h"

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(HostPortTest, ReadsAndWritesAddresses)
{
    for (const char* const text : {"127.0.0.1:12080", "0.0.0.0:0", "[::1]:65535"}) {
        const std::optional<HostPort> address = toHostPort(QString::fromLatin1(text));
        ASSERT_TRUE(address) << text;
        EXPECT_EQ(address->text().toStdString(), text);
    }
    EXPECT_EQ(toHostPort(QStringLiteral("localhost:1"))->text().toStdString(), "127.0.0.1:1");
}

TEST(HostPortTest, RefusesEverythingElse)
{
    for (const char* const text :
         {"", "127.0.0.1", "12080", ":12080", "127.0.0.1:", "127.0.0.1:x", "127.0.0.1:65536",
          "127.0.0.1:-1", "::1:80", "robot:80", "256.0.0.1:80"}) {
        EXPECT_FALSE(toHostPort(QString::fromLatin1(text))) << text;
    }
}

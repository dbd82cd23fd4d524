#include "Address.h"

#include <gtest/gtest.h>

using kor::veltrano::api2::detail::parseAddress;

namespace {

struct Row {
    const char* text;
    const char* host;
    int port;
};

TEST(Address, TakesHostAndPortWithDefaultsForWhatIsMissing)
{
    for (const Row& row :
         {Row{"", "127.0.0.1", 12080}, Row{"robot", "robot", 12080}, Row{"robot:1", "robot", 1},
          Row{"robot:65535", "robot", 65535}, Row{"robot:", "robot", 12080},
          Row{":99", "127.0.0.1", 99}, Row{":", "127.0.0.1", 12080}, Row{" robot:7 ", "robot", 7},
          Row{"192.168.0.1:12081", "192.168.0.1", 12081}, Row{"::1", "::1", 12080},
          Row{"[::1]", "::1", 12080}, Row{"[::1]:7", "::1", 7}, Row{"[::1]:", "::1", 12080}}) {
        const auto address = parseAddress(row.text);
        ASSERT_TRUE(address) << row.text;
        EXPECT_EQ(address->host, row.host) << row.text;
        EXPECT_EQ(address->port, row.port) << row.text;
    }
}

TEST(Address, RefusesAPortThatIsNone)
{
    for (const char* text :
         {"robot:0", "robot:65536", "robot:-1", "robot:abc", "robot:1x", "[::1]7", "[::1]:x"}) {
        EXPECT_FALSE(parseAddress(text)) << text;
    }
}

} // namespace

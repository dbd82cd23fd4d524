#include "http/Query.h"

#include "support/LogFixture.h"

namespace kor::veltrano::daemons {
namespace {

class QueryTest : public LogFixture
{
};

TEST_F(QueryTest, ItemsStayPercentEncoded)
{
    const auto items = parseQuery("sid=a%20b&k%3D=%zz");
    EXPECT_EQ(items.value("sid"), "a%20b");
    EXPECT_EQ(items.value("k%3D"), "%zz");
}

TEST_F(QueryTest, NoQueryGivesNoItems)
{
    EXPECT_TRUE(parseQuery("").isEmpty());
}

TEST_F(QueryTest, OfARepeatedKeyOneValueIsKept)
{
    const auto items = parseQuery("a=1&a=2&b=3");
    EXPECT_EQ(items.size(), 2);
    EXPECT_EQ(items.value("b"), "3");
}

TEST_F(QueryTest, PairsAreLoggedAtLevelTwoAsTheyCame)
{
    openLog(2);
    parseQuery("a%1=%2&b=2");
    EXPECT_EQ(logLines().mid(1), (QStringList{"a%1 : %2", "b : 2"}));
}

TEST_F(QueryTest, NothingIsLoggedBelowLevelTwo)
{
    openLog(1);
    parseQuery("a=1");
    EXPECT_EQ(logLines().mid(1), QStringList());
}

} // namespace
} // namespace kor::veltrano::daemons

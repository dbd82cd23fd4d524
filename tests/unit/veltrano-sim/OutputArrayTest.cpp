#include "OutputArray.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

QJsonObject object(const char* json)
{
    return QJsonDocument::fromJson(json).object();
}

} // namespace

TEST(OutputArrayTest, TakesItsCommandWithTheRightCountOfValues)
{
    OutputArray relays(QStringLiteral("relays"), QStringLiteral("relayArray.setValues"), 2);
    EXPECT_EQ(relays.values(), (std::vector<int>{0, 0}));
    EXPECT_TRUE(
        relays.command(QStringLiteral("relayArray.setValues"), object(R"({"values":[1,0]})")));
    EXPECT_EQ(relays.values(), (std::vector<int>{1, 0}));
}

TEST(OutputArrayTest, IgnoresCommandsOfAWrongShape)
{
    OutputArray relays(QStringLiteral("relays"), QStringLiteral("relayArray.setValues"), 2);
    for (const char* const wrong :
         {R"({})", R"({"values":[]})", R"({"values":[1]})", R"({"values":[1,1,1]})",
          R"({"values":[1,2]})", R"({"values":[1,-1]})", R"({"values":[1,0.5]})",
          R"({"values":[1,true]})", R"({"values":[1,"1"]})", R"({"values":{"0":1,"1":1}})"}) {
        EXPECT_FALSE(relays.command(QStringLiteral("relayArray.setValues"), object(wrong)))
            << wrong;
    }
    EXPECT_FALSE(relays.command(QStringLiteral("digitalOutputArray.setValues"),
                                object(R"({"values":[1,1]})")));
    EXPECT_EQ(relays.values(), (std::vector<int>{0, 0}));
}

TEST(OutputArrayTest, CanBeSetAndIsNeverHeld)
{
    OutputArray relays(QStringLiteral("relays"), QStringLiteral("relayArray.setValues"), 2);
    const QString key = QStringLiteral("relays");
    relays.prepare(key, object(R"({"a":[1,1]})")["a"]).apply();
    EXPECT_EQ(relays.values(), (std::vector<int>{1, 1}));
    EXPECT_FALSE(relays.isHeld());
    EXPECT_EQ(relays.prepare(key, 3).reason().toStdString(),
              "relays must be an array of 2 numbers 0 or 1");
}

#include "rpc/Message.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace kor::veltrano::rpc;

namespace {

QJsonObject objectOf(const QByteArray& line)
{
    EXPECT_TRUE(line.endsWith('\n'));
    EXPECT_EQ(line.count('\n'), 1);
    return QJsonDocument::fromJson(line).object();
}

TEST(Message, NotificationCarriesVersionMethodAndParams)
{
    EXPECT_EQ(
        objectOf(notificationLine("a.b", {{"x", 1}})),
        (QJsonObject{{"jsonrpc", "2.0"}, {"method", "a.b"}, {"params", QJsonObject{{"x", 1}}}}));
}

TEST(Message, NotificationWithoutMembersCarriesEmptyParams)
{
    EXPECT_EQ(objectOf(notificationLine("a.b", {}))["params"], QJsonObject());
}

TEST(Message, RequestWithoutParamsLeavesThemOut)
{
    EXPECT_EQ(objectOf(requestLine(7, "ping", {})),
              (QJsonObject{{"jsonrpc", "2.0"}, {"id", 7}, {"method", "ping"}}));
}

TEST(Message, RequestCarriesItsParams)
{
    EXPECT_EQ(objectOf(requestLine("a", "hello", {{"protocol", 1}}))["params"],
              (QJsonObject{{"protocol", 1}}));
}

TEST(Message, ResultAndErrorCarryTheRequestsId)
{
    EXPECT_EQ(objectOf(resultLine("a", QJsonObject())),
              (QJsonObject{{"jsonrpc", "2.0"}, {"id", "a"}, {"result", QJsonObject()}}));
    const QJsonObject error{{"code", methodNotFound}, {"message", "no"}};
    EXPECT_EQ(objectOf(errorLine(QJsonValue::Null, methodNotFound, "no")),
              (QJsonObject{{"jsonrpc", "2.0"}, {"id", QJsonValue::Null}, {"error", error}}));
}

TEST(Message, TextWithALineFeedStaysOnOneLine)
{
    EXPECT_EQ(objectOf(notificationLine("m", {{"text", "a\nb"}}))["params"].toObject()["text"],
              "a\nb");
}

TEST(Message, EveryFloatReadsBackAsTheSameFloat)
{
    using Limits = std::numeric_limits<float>;
    for (const float value : {0.1F, 1.0F / 3, -2.0001F, Limits::max(), Limits::lowest(),
                              Limits::min(), Limits::denorm_min(), std::nextafter(1.0F, 2.0F)}) {
        const QByteArray line = notificationLine("m", {{"v", static_cast<double>(value)}});
        EXPECT_EQ(static_cast<float>(objectOf(line)["params"].toObject()["v"].toDouble()), value);
    }
}

TEST(Message, ReadsANotification)
{
    const auto message = parseMessage(R"({"jsonrpc":"2.0","method":"m","params":{"a":1}})");
    ASSERT_TRUE(message);
    EXPECT_TRUE(message->isNotification());
    EXPECT_FALSE(message->isRequest() || message->isAnswer());
    EXPECT_EQ(message->method, "m");
    EXPECT_EQ(message->params, (QJsonObject{{"a", 1}}));
}

TEST(Message, ReadsARequestAlsoWithoutParamsAndWithANullId)
{
    for (const char* line : {R"({"id":1,"method":"m"})", R"({"id":null,"method":"m"})"}) {
        const auto message = parseMessage(line);
        ASSERT_TRUE(message);
        EXPECT_TRUE(message->isRequest());
        EXPECT_FALSE(message->isNotification() || message->isAnswer());
        EXPECT_TRUE(message->params.isEmpty());
    }
}

TEST(Message, ReadsAnswers)
{
    const auto result = parseMessage(R"({"id":1,"result":{"a":1}})");
    const auto error = parseMessage(R"({"id":1,"error":{"code":-32601}})");
    ASSERT_TRUE(result && error);
    EXPECT_TRUE(result->isAnswer() && error->isAnswer());
    EXPECT_EQ(result->result.toObject()["a"], 1);
    EXPECT_EQ(error->error.toObject()["code"], methodNotFound);
}

TEST(Message, ReadsALineThatEndsWithACarriageReturn)
{
    EXPECT_TRUE(parseMessage("{\"method\":\"m\"}\r"));
}

TEST(Message, TakesAMemberOfAWrongTypeForMissing)
{
    const auto message = parseMessage(R"({"method":5,"params":[1]})");
    ASSERT_TRUE(message);
    EXPECT_TRUE(message->method.isEmpty() && message->params.isEmpty());
    EXPECT_FALSE(message->isNotification() || message->isRequest() || message->isAnswer());
}

TEST(Message, RefusesALineThatIsNoJsonObject)
{
    for (const char* line :
         {"", " ", "\r", "hello", "[]", "[{}]", "1", "null", R"("text")", "{", R"({"a":1)",
          R"({"a":1}x)", R"({"a":1}{"a":1})", "{a:1}", "{\"a\":\"\xff\"}"}) {
        EXPECT_FALSE(parseMessage(line)) << line;
    }
}

TEST(Message, RefusesNestingThatWouldExhaustTheStack)
{
    EXPECT_FALSE(parseMessage("{\"a\":" + QByteArray(1'000'000, '[')));
}

} // namespace

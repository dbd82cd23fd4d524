#include "CommandLog.h"

#include <QJsonArray>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

QJsonArray commands(const CommandLog& log, qint64 since = 0)
{
    return log.list(since)["commands"].toArray();
}

void add(CommandLog& log, const char* method, int bytes = 10)
{
    log.add(1, QString::fromLatin1(method), {}, true, bytes);
}

} // namespace

TEST(CommandLogTest, ListsCommandsWithTheirTimesInOrder)
{
    const double before = CommandLog::nowMs();
    CommandLog log;
    log.add(3, QStringLiteral("a"), {{QStringLiteral("vx"), 1}}, false, 10);
    add(log, "b");
    const QJsonObject list = log.list(0);
    const QJsonObject first = list["commands"].toArray().at(0).toObject();
    EXPECT_EQ(first["index"].toInt(), 0);
    EXPECT_EQ(first["client"].toInt(), 3);
    EXPECT_EQ(first["method"].toString().toStdString(), "a");
    EXPECT_EQ(first["params"]["vx"].toInt(), 1);
    EXPECT_EQ(first["carriedOut"], QJsonValue(false));
    EXPECT_GE(first["timeMs"].toDouble(), before);
    const QJsonObject second = list["commands"].toArray().at(1).toObject();
    EXPECT_GE(second["timeMs"].toDouble(), first["timeMs"].toDouble());
    EXPECT_GE(list["nowMs"].toDouble(), second["timeMs"].toDouble());
}

TEST(CommandLogTest, ListsFromAnIndexOn)
{
    CommandLog log;
    add(log, "a");
    add(log, "b");
    ASSERT_EQ(commands(log, 1).size(), 1);
    EXPECT_EQ(commands(log, 1).at(0)["method"].toString().toStdString(), "b");
    EXPECT_TRUE(commands(log, 2).isEmpty());
    EXPECT_TRUE(commands(log, 1000).isEmpty());
}

TEST(CommandLogTest, GoesOnCountingAfterItWasCleared)
{
    CommandLog log;
    add(log, "a");
    log.clear();
    EXPECT_TRUE(commands(log).isEmpty());
    add(log, "b");
    EXPECT_EQ(commands(log).at(0)["index"].toInt(), 1);
}

TEST(CommandLogTest, KeepsTheNewestOnly)
{
    CommandLog log;
    for (std::size_t count = 0; count < CommandLog::mostEntries + 5; ++count) {
        add(log, "a");
    }
    EXPECT_EQ(commands(log).size(), static_cast<int>(CommandLog::mostEntries));
    EXPECT_EQ(commands(log).at(0)["index"].toInt(), 5);
}

TEST(CommandLogTest, KeepsNoMoreBytesThanItMay)
{
    CommandLog log;
    add(log, "old");
    add(log, "big", CommandLog::mostBytes - 20);
    EXPECT_EQ(commands(log).size(), 2);
    add(log, "new", 50);
    ASSERT_EQ(commands(log).size(), 1);
    EXPECT_EQ(commands(log).at(0)["method"].toString().toStdString(), "new");
}

TEST(CommandLogTest, HandsEachCommandOnAsItIsListed)
{
    CommandLog log;
    add(log, "early");
    QJsonArray received;
    log.handOnTo([&received](const QJsonObject& command) { received.append(command); });
    add(log, "a");
    add(log, "too big to be kept", CommandLog::mostBytes + 1);
    ASSERT_EQ(received.size(), 2);
    EXPECT_EQ(received.at(1)["method"].toString().toStdString(), "too big to be kept");
    add(log, "b");
    EXPECT_EQ(commands(log), (QJsonArray{received.at(2)}));
    EXPECT_EQ(received.at(2)["index"].toInt(), 3);
}

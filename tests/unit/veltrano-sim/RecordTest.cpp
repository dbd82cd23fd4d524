#include "Record.h"

#include "Battery.h"
#include "Robot.h"
#include "records.h"
#include "support/worlds.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QSysInfo>

#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

TEST(RecordTest, IsSentAsBase64EveryTwoSeconds)
{
    Record record(QStringLiteral("controllerInfo"), QStringLiteral("controllerInfo.infoChanged"),
                  [] { return QByteArray("bytes\xff"); });
    record.step(1);
    EXPECT_FALSE(record.hasNews());
    record.step(1);
    ASSERT_TRUE(record.hasNews());
    const std::vector<Event> news = record.takeNews();
    ASSERT_EQ(news.size(), 1U);
    EXPECT_EQ(news[0].method.toStdString(), "controllerInfo.infoChanged");
    EXPECT_EQ(news[0].params["data"].toString().toStdString(), "Ynl0ZXP/");
}

TEST(RecordTest, IsWrittenOnlyWhenSomebodyWantsIt)
{
    int written = 0;
    Record record(QStringLiteral("key"), QStringLiteral("method"), [&written] {
        ++written;
        return QByteArray();
    });
    record.step(10);
    record.dropNews();
    EXPECT_EQ(written, 0);
    record.state();
    EXPECT_EQ(written, 1);
}

TEST(RecordTest, IsHeldAsSetUntilItIsReleased)
{
    Record record(QStringLiteral("key"), QStringLiteral("method"),
                  [] { return QByteArray("own"); });
    const QString key = QStringLiteral("key");
    record.prepare(key, QJsonObject{{QStringLiteral("text"), QStringLiteral("set")}}).apply();
    EXPECT_TRUE(record.hasNews());
    EXPECT_EQ(record.bytes(), "set");
    record.release();
    EXPECT_EQ(record.bytes(), "own");
    EXPECT_EQ(record.prepare(key, QStringLiteral("set")).reason().toStdString(),
              "key must be an object with either text or base64, both texts");
}

TEST(RecordTest, TheControllersRecordTellsOfThisMachine)
{
    const QJsonObject record = QJsonDocument::fromJson(controllerRecord()).object();
    EXPECT_EQ(record["hostname"].toString(), QSysInfo::machineHostName());
    EXPECT_GT(record["uptime"].toDouble(), 0);
    EXPECT_EQ(record["load"].toArray().size(), 3);
    EXPECT_GT(record["memoryTotal"].toDouble(), record["memoryFree"].toDouble());
    EXPECT_GT(record["memoryFree"].toDouble(), 0);
}

TEST(RecordTest, TheBatteryPacksRecordTellsOfTheBattery)
{
    const World world = emptyWorld();
    const Robot robot(world);
    Battery battery(robot);
    battery.prepare(QStringLiteral("battery"), QJsonObject{{QStringLiteral("charge"), 0.42}})
        .apply();
    const QJsonObject record = QJsonDocument::fromJson(batteryPackRecord(battery)).object();
    EXPECT_EQ(record["charge"].toDouble(), 42);
    EXPECT_EQ(record["state"].toString().toStdString(), "discharging");
    EXPECT_LT(record["current"].toDouble(), 0);
}

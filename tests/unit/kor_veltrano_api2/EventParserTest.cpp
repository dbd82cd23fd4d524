#include "EventParser.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

using namespace kor::veltrano::api2::detail;

namespace {

QJsonObject jsonOf(const char* text)
{
    QJsonParseError error{};
    QJsonObject object = QJsonDocument::fromJson(text, &error).object();
    EXPECT_EQ(error.error, QJsonParseError::NoError) << text;
    return object;
}

template<class Value>
Value parsed(const char* method, const char* params)
{
    const auto event = parseEvent(method, jsonOf(params));
    EXPECT_TRUE(event) << method << params;
    return event ? std::get<Value>(*event) : Value();
}

// One fit set of params for each method of the protocol.
const std::map<std::string, const char*>& fitParams()
{
    static const std::map<std::string, const char*> rows{
        {"analogInputArray.valuesChanged", R"({"values":[0,1,2.5,3,4,5,6,-7]})"},
        {"digitalInputArray.valuesChanged", R"({"values":[0,1,0,1,0,1,0,1]})"},
        {"distanceSensorArray.distancesChanged", R"({"values":[0,1,2,3,4,5,6,7,0.5]})"},
        {"distanceSensorArray.voltagesChanged", R"({"values":[0,1,2,3,4,5,6,7,0.5]})"},
        {"bumper.changed", R"({"value":true})"},
        {"odometry.readings",
         R"({"x":1,"y":2,"phi":3,"vx":0.5,"vy":-0.5,"omega":1.5,"sequence":9})"},
        {"powerManagement.readings",
         R"({"voltage":24.5,"current":1.5,"ext_power":true,"num_chargers":2,"batteryType":"LiFe",
             "batteryLow":true,"batteryLowShutdownCounter":7})"},
        {"charger.infoChanged",
         R"({"chargerNumber":1,"time":4294967295,"batteryVoltage":24,"chargingCurrent":2,
             "bat1temp":20,"bat2temp":21,"state_number":3,"state":"charging"})"},
        {"charger.versionChanged", R"({"chargerNumber":0,"major":1,"minor":2,"patch":3})"},
        {"charger.errorChanged", R"({"chargerNumber":1,"time":5,"message":"hot"})"},
        {"controllerInfo.infoChanged", R"({"data":"AAEC"})"},
        {"festoolCharger.infoChanged", R"({"data":""})"},
        {"camera.imageReceived",
         R"({"format":"jpeg","width":640,"height":480,"step":1920,"data":"/9j/"})"},
        {"laserRangeFinder.scan",
         R"({"seq":1,"stamp":2,"angle_min":-1.5,"angle_max":1.5,"angle_increment":0.5,
             "time_increment":0.25,"scan_time":0.125,"range_min":0.5,"range_max":30,
             "ranges":[1,2,3],"intensities":[]})"},
    };
    return rows;
}

TEST(EventParser, TakesEveryMethodOfTheProtocol)
{
    for (const auto& [method, params] : fitParams()) {
        EXPECT_TRUE(parseEvent(QString::fromStdString(method), jsonOf(params))) << method;
    }
}

TEST(EventParser, IgnoresUnknownMethods)
{
    EXPECT_FALSE(parseEvent("bumper.Changed", jsonOf(R"({"value":true})")));
    EXPECT_FALSE(parseEvent("", {}));
}

TEST(EventParser, RefusesEachMethodWithAnyMemberMissing)
{
    for (const auto& [method, params] : fitParams()) {
        const QJsonObject whole = jsonOf(params);
        for (const QString& name : whole.keys()) {
            QJsonObject lacking = whole;
            lacking.remove(name);
            EXPECT_FALSE(parseEvent(QString::fromStdString(method), lacking))
                << method << " without " << name.toStdString();
        }
    }
}

// Values of every JSON type but that of the given one.
std::vector<QJsonValue> valuesOfOtherTypes(QJsonValue::Type type)
{
    std::vector<QJsonValue> values;
    for (const QJsonValue& value :
         {QJsonValue(QJsonValue::Null), QJsonValue(true), QJsonValue(1), QJsonValue("1"),
          QJsonValue(QJsonArray{1}), QJsonValue(QJsonObject{{"a", 1}})}) {
        if (value.type() != type) {
            values.push_back(value);
        }
    }
    return values;
}

void expectRefused(const std::string& method, const QString& name, const QJsonValue& value)
{
    QJsonObject spoiled = jsonOf(fitParams().at(method));
    ASSERT_TRUE(spoiled.contains(name)) << method << " " << name.toStdString();
    spoiled[name] = value;
    EXPECT_FALSE(parseEvent(QString::fromStdString(method), spoiled))
        << method << QJsonDocument(spoiled).toJson().toStdString();
}

TEST(EventParser, RefusesEachMethodWithAnyMemberOfAWrongType)
{
    for (const auto& [method, params] : fitParams()) {
        const QJsonObject whole = jsonOf(params);
        for (const QString& name : whole.keys()) {
            for (const QJsonValue& wrong : valuesOfOtherTypes(whole[name].type())) {
                expectRefused(method, name, wrong);
            }
        }
    }
}

TEST(EventParser, RefusesArraysOfAWrongLengthOrWithEntriesOfAWrongType)
{
    for (const auto& [method, params] : fitParams()) {
        const QJsonArray values = jsonOf(params)["values"].toArray();
        if (values.isEmpty()) {
            continue;
        }
        QJsonArray shorter = values;
        shorter.removeLast();
        QJsonArray longer = values;
        longer.append(1);
        for (const QJsonArray& wrong : {shorter, longer, QJsonArray()}) {
            expectRefused(method, "values", wrong);
        }
        for (const QJsonValue& entry : valuesOfOtherTypes(QJsonValue::Double)) {
            QJsonArray spoiled = values;
            spoiled[3] = entry;
            expectRefused(method, "values", spoiled);
        }
    }
}

TEST(EventParser, RefusesIntegersWithAFractionOrOutOfRange)
{
    const std::pair<const char*, const char*> members[]{
        {"odometry.readings", "sequence"},
        {"powerManagement.readings", "num_chargers"},
        {"powerManagement.readings", "batteryLowShutdownCounter"},
        {"charger.infoChanged", "state_number"},
        {"charger.versionChanged", "major"},
        {"charger.versionChanged", "minor"},
        {"charger.versionChanged", "patch"},
        {"laserRangeFinder.scan", "seq"},
        {"laserRangeFinder.scan", "stamp"}};
    for (const auto& [method, name] : members) {
        for (const double wrong : {1.5, 2147483648.0, -2147483649.0, 1e300}) {
            expectRefused(method, name, wrong);
        }
    }
    for (const double wrong : {1.5, -1.0, 4294967296.0}) {
        expectRefused("charger.infoChanged", "time", wrong);
        expectRefused("charger.errorChanged", "time", wrong);
        expectRefused("camera.imageReceived", "width", wrong);
        expectRefused("camera.imageReceived", "height", wrong);
        expectRefused("camera.imageReceived", "step", wrong);
    }
    expectRefused("digitalInputArray.valuesChanged", "values",
                  QJsonArray{0, 1, 0, 1, 0, 1, 0, 0.5});
    for (const char* method :
         {"charger.infoChanged", "charger.versionChanged", "charger.errorChanged"}) {
        for (const double wrong : {-1.0, 2.0, 0.5}) {
            expectRefused(method, "chargerNumber", wrong);
        }
    }
}

TEST(EventParser, TakesIntegersAtTheEndsOfTheirRange)
{
    EXPECT_EQ(parsed<OdometryReadings>("odometry.readings",
                                       R"({"x":0,"y":0,"phi":0,"vx":0,"vy":0,"omega":0,
                                           "sequence":-2147483648})")
                  .sequence,
              -2147483647 - 1);
    EXPECT_EQ(parsed<ChargerVersion>("charger.versionChanged",
                                     R"({"chargerNumber":1,"major":2147483647,"minor":1.0,
                                         "patch":1e2})")
                  .patchNumber,
              100);
    EXPECT_EQ(
        parsed<ChargerInfo>("charger.infoChanged", fitParams().at("charger.infoChanged")).time,
        4294967295U);
}

TEST(EventParser, RefusesNumbersThatNoFloatCanHold)
{
    expectRefused("odometry.readings", "vx", 1e39);
    expectRefused("powerManagement.readings", "voltage", -1e39);
    expectRefused("laserRangeFinder.scan", "ranges", QJsonArray{1, 1e39});
    expectRefused("analogInputArray.valuesChanged", "values",
                  QJsonArray{1e39, 0, 0, 0, 0, 0, 0, 0});
}

TEST(EventParser, KeepsThePoseInDoublePrecision)
{
    const auto readings = parsed<OdometryReadings>(
        "odometry.readings",
        R"({"x":0.1,"y":1e300,"phi":3,"vx":0.1,"vy":0,"omega":0,"sequence":1})");
    EXPECT_EQ(readings.x, 0.1);
    EXPECT_EQ(readings.y, 1e300);
    EXPECT_EQ(readings.vx, 0.1F);
}

TEST(EventParser, RefusesTextThatIsNoBase64)
{
    for (const char* wrong : {"A", "AA", "AAA", "A===", "====", "AA=A", "A-_A", "AAAA\n", " AAAA",
                              "AAAA====", "\xc3\xa4=="}) {
        expectRefused("controllerInfo.infoChanged", "data", wrong);
        expectRefused("festoolCharger.infoChanged", "data", wrong);
        expectRefused("camera.imageReceived", "data", wrong);
    }
}

TEST(EventParser, DecodesBase64)
{
    const char* method = "controllerInfo.infoChanged";
    EXPECT_EQ(parsed<ControllerRecord>(method, R"({"data":"AAEC"})").bytes,
              std::string("\0\1\2", 3));
    EXPECT_EQ(parsed<ControllerRecord>(method, R"({"data":"+/8="})").bytes, "\xfb\xff");
    EXPECT_EQ(parsed<ControllerRecord>(method, R"({"data":"eA=="})").bytes, "x");
    EXPECT_EQ(parsed<ControllerRecord>(method, R"({"data":""})").bytes, "");
}

TEST(EventParser, TakesBothImageFormatsAndNoOther)
{
    const char* method = "camera.imageReceived";
    const auto jpeg = parsed<CameraImage>(method, fitParams().at(method));
    EXPECT_TRUE(jpeg.isJpeg);
    EXPECT_EQ(jpeg.width, 640U);
    EXPECT_EQ(jpeg.height, 480U);
    EXPECT_EQ(jpeg.step, 1920U);
    EXPECT_EQ(*jpeg.bytes, "\xff\xd8\xff");
    const auto raw = parsed<CameraImage>(
        method, R"({"format":"raw","width":2,"height":1,"step":2,"data":"AAA="})");
    EXPECT_FALSE(raw.isJpeg);
    for (const char* wrong : {"", "JPEG", "png"}) {
        expectRefused(method, "format", wrong);
    }
}

TEST(EventParser, ReadsEachMemberOfAScanIntoItsOwnField)
{
    const char* method = "laserRangeFinder.scan";
    const auto scan = parsed<Scan>(method, fitParams().at(method));
    ASSERT_TRUE(scan.readings);
    EXPECT_EQ(scan.readings->seq, 1);
    EXPECT_EQ(scan.readings->stamp, 2);
    EXPECT_EQ(scan.readings->angle_min, -1.5F);
    EXPECT_EQ(scan.readings->angle_max, 1.5F);
    EXPECT_EQ(scan.readings->angle_increment, 0.5F);
    EXPECT_EQ(scan.readings->time_increment, 0.25F);
    EXPECT_EQ(scan.readings->scan_time, 0.125F);
    EXPECT_EQ(scan.readings->range_min, 0.5F);
    EXPECT_EQ(scan.readings->range_max, 30.0F);
    EXPECT_EQ(scan.readings->ranges, (std::vector<float>{1, 2, 3}));
    EXPECT_TRUE(scan.readings->intensities.empty());
}

TEST(EventParser, IgnoresMembersThatItDoesNotKnow)
{
    EXPECT_TRUE(parsed<BumperState>("bumper.changed", R"({"value":true,"extra":[1]})").isHit);
}

TEST(EventParser, KeepsTextAsUtf8)
{
    EXPECT_EQ(parsed<ChargerError>("charger.errorChanged",
                                   R"({"chargerNumber":0,"time":1,"message":"zu hei\u00df"})")
                  .message,
              "zu hei\xc3\x9f");
}

} // namespace

#include "programs/ServiceList.h"

#include "config/ConfigFile.h"
#include "programs/ServiceControl.h"

#include "support/LogFixture.h"
#include "support/SystemPaths.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>

namespace kor::veltrano::daemons {
namespace {

// The site's scripts are shell scripts that each test writes.
class ServiceListTest : public LogFixture
{
protected:
    ~ServiceListTest() override { settings = ConfigFile(); }

    void script(const QString& key, const QByteArray& text)
    {
        const QString path = folder.filePath(key.section('/', 1));
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("#!/bin/sh\n" + text);
        file.close();
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        settings.values[key] = path;
    }

    void states(const QByteArray& lines)
    {
        script("Scripts/servicestate", "cat <<'END'\n" + lines + "END\n");
    }

    // What each group's list prints.
    void lists(const QByteArray& daemons, const QByteArray& master, const QByteArray& slave)
    {
        script("Scripts/listservices",
               "case $1 in\nveltrano-daemons) printf '" + daemons
                   + "';;\nveltrano-smartsoft-master) printf '" + master
                   + "';;\nveltrano-smartsoft-slave) printf '" + slave + "';;\nesac\n");
    }

    static QJsonArray services() { return QJsonDocument::fromJson(createServiceData()).array(); }

    // "id name active" of all services of a group, and whether each can be activated.
    static QStringList entries(const QJsonValue& group)
    {
        QStringList texts;
        const QJsonArray children = group["_children"].toArray();
        for (const QJsonValue& child : children) {
            texts.append(QStringLiteral("%1 %2 %3%4")
                             .arg(QString::number(child["id"].toInt()), child["name"].toString(),
                                  child["active"].toString(),
                                  child["activation"].isUndefined() ? "" : " +"));
        }
        return texts;
    }
};

TEST_F(ServiceListTest, ALineOfFiveWordsIsAUnitWithAndWithoutAMarker)
{
    states("a.service loaded active running A\n  b.service loaded failed failed B\n"
           "* c.service not-found inactive dead C\nsix words.service without a leading blank\n"
           "d.service loaded active running Two words\n\nfour words are none\n");
    const ServiceStateMap map = readServiceStates();
    EXPECT_EQ(map.keys(), QStringList({"a", "b", "c", "loaded", "words"}));
    EXPECT_EQ(map["b"].load + ' ' + map["b"].active + ' ' + map["b"].sub + ' '
                  + map["b"].description,
              "loaded failed failed B");
    EXPECT_EQ(map["c"].load, "not-found");
    EXPECT_EQ(map["words"].load, "without");
}

TEST_F(ServiceListTest, EveryServiceSuffixGoesAndTheLaterRecordWins)
{
    states("a.service.service loaded active running A\na loaded failed failed A\n");
    const ServiceStateMap map = readServiceStates();
    EXPECT_EQ(map.keys(), QStringList("a"));
    EXPECT_EQ(map["a"].active, "failed");
}

TEST_F(ServiceListTest, AScriptThatIsMissingOrTooSlowGivesNothing)
{
    EXPECT_TRUE(readServiceStates().isEmpty());
    EXPECT_TRUE(listServices("veltrano-daemons").isEmpty());
    EXPECT_EQ(createServiceData(), "[\n]\n");
    script("Scripts/servicestate", "echo a.service loaded active running A; exec sleep 1000\n");
    script("Scripts/listservices", "echo a; exec sleep 1000\n");
    EXPECT_TRUE(readServiceStates().isEmpty());
    EXPECT_TRUE(listServices("veltrano-daemons").isEmpty());
}

TEST_F(ServiceListTest, GroupsWithoutServicesAreLeftOutAndTheNumbersGoOn)
{
    states("a.service loaded active running A\n");
    lists("a\\n\\nb\\n", "", " c \\n");
    const QJsonArray groups = services();
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(groups.at(0)["name"].toString(), "veltrano-daemons");
    EXPECT_EQ(groups.at(1)["name"].toString(), "smartsoft-slave");
    EXPECT_EQ(entries(groups.at(0)), QStringList({"1 a active +", "2 b  +"}));
    EXPECT_EQ(entries(groups.at(1)), QStringList("3  c   +"));
    lists("", "m\\n", "");
    EXPECT_EQ(services().at(0)["name"].toString(), "smartsoft-master");
}

TEST_F(ServiceListTest, InstancesStandBehindTheirTemplate)
{
    states("t@b.service loaded active running B\nt@a.service loaded failed failed A\n"
           "other@x.service loaded active running X\n");
    lists("t@\\nz\\n", "t@\\n", "");
    const QJsonArray groups = services();
    EXPECT_EQ(entries(groups.at(0)),
              QStringList({"1 t@  +", "2 t@a failed", "3 t@b active", "4 z  +"}));
    EXPECT_EQ(entries(groups.at(1)), QStringList("5 t@  +"));
}

TEST_F(ServiceListTest, ATemplateWithARecordOfItsOwnStandsThereTwice)
{
    states("t@.service loaded active running T\n");
    lists("t@\\n", "", "");
    EXPECT_EQ(entries(services().at(0)), QStringList({"1 t@ active +", "2 t@ active +"}));
}

TEST_F(ServiceListTest, AnEntryHasItsStateInStrings)
{
    int nextId = 7;
    const ServiceStateMap map{{"a", {"a", "loaded", "active", "running", "A"}}};
    EXPECT_EQ(QJsonDocument(createServiceEntry("a", map, nextId)).toJson(QJsonDocument::Compact),
              "{\"activation\":\"true\",\"active\":\"active\",\"id\":7,\"load\":\"loaded\","
              "\"name\":\"a\",\"sub\":\"running\"}");
    EXPECT_EQ(nextId, 8);
}

// The name leads from the system's units to a folder of the test's own.
TEST_F(ServiceListTest, OnlyALinkInTheUnitsPlaceDeactivates)
{
    const QDir units(QString::fromUtf8(unitDirectory));
    ASSERT_TRUE(units.exists()) << units.path().toStdString() << ", which systemd's package brings";
    const QString place = units.relativeFilePath(QDir(folder.path()).canonicalPath()) + '/';
    QFile file(folder.filePath("file.service"));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    ASSERT_TRUE(QFile::link("/dev/null", folder.filePath("masked.service")));
    ASSERT_TRUE(QFile::link("nowhere", folder.filePath("dead@.service")));
    ASSERT_TRUE(QFile::link("/dev/null", folder.filePath("bare")));
    int nextId = 1;
    const auto activation = [&](const QString& name) {
        return createServiceEntry(place + name, {}, nextId).value("activation").toString();
    };
    EXPECT_EQ(activation("masked"), "false");
    EXPECT_EQ(activation("dead@"), "false");
    EXPECT_EQ(activation("file"), "true");
    EXPECT_EQ(activation("missing"), "true");
    EXPECT_EQ(activation("bare"), "true");
}

TEST_F(ServiceListTest, TheWritesHandTheNameAndAWordToTheirScript)
{
    const QByteArray record = "echo \"$0 [$1] [$2] $#\" | sed 's|.*/||' >> "
        + folder.filePath("calls").toUtf8() + "\nexit 4\n";
    script("Scripts/startstopservice", record);
    script("Scripts/enableservice", record);
    EXPECT_TRUE(startService("a"));
    EXPECT_TRUE(stopService(" b; c "));
    EXPECT_TRUE(activateService(QByteArray("d\0e", 3)));
    EXPECT_TRUE(deactivateService(""));
    QFile calls(folder.filePath("calls"));
    ASSERT_TRUE(calls.open(QIODevice::ReadOnly));
    EXPECT_EQ(calls.readAll(),
              "startstopservice [a] [start] 2\n"
              "startstopservice [ b; c ] [stop] 2\n"
              "enableservice [d] [enable] 2\n"
              "enableservice [] [disable] 2\n");
}

TEST_F(ServiceListTest, AWriteFailsWhereItsScriptIsMissingOrTooSlow)
{
    EXPECT_FALSE(startService("a"));
    script("Scripts/enableservice", "exec sleep 1000\n");
    EXPECT_FALSE(activateService("a"));
}

TEST_F(ServiceListTest, TheStatusIsWhatSystemctlPrints)
{
    openLog(2);
    script("Scripts/systemctl", "echo \"$*\"; echo; echo '  two '; echo no >&2; exit 3\n");
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", folder.path().toUtf8() + ':' + path);
    const QByteArray status = createServiceStatusData("a%1");
    qputenv("PATH", path);
    EXPECT_EQ(status,
              "[\n    {\n        \"text\": \"status a%1\"\n    },\n    {\n"
              "        \"text\": \"  two \"\n    }\n]\n");
    EXPECT_EQ(logLines().last(), "createServiceStatusData a%1");
}

} // namespace
} // namespace kor::veltrano::daemons

#include "network/WlanConfigure.h"

#include "SettingsFixture.h"
#include "StartRequests.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace kor::veltrano::daemons {
namespace {

QString capturedPath(const char* name)
{
    return QStringLiteral(TESSARAD_TEST_DATA "/network/") + name;
}

class WlanConfigureTest : public SettingsFixture
{
protected:
    WlanConfigureTest() { wlanConfigure = &object; }
    ~WlanConfigureTest() override { wlanConfigure = nullptr; }

    QString argumentsOf(const QByteArray& body)
    {
        EXPECT_TRUE(writeWlanConfigData(body));
        return requests.takeOne().join('|');
    }

    // Those that a write of leaves of these values hands to the script.
    QString argumentsOf(const QMap<QString, QString>& values)
    {
        QJsonArray leaves;
        for (auto value = values.cbegin(); value != values.cend(); ++value) {
            leaves.append(QJsonObject{{"name", value.key()}, {"value", value.value()}});
        }
        return argumentsOf(QJsonDocument(leaves).toJson());
    }

    // The value of a leaf of the tree.
    static QString shown(const char* name)
    {
        const QJsonArray tree = QJsonDocument::fromJson(createWlanConfigData()).array();
        for (const QJsonValue& leaf : tree) {
            if (leaf["name"] == name) {
                return leaf["value"].toString("(no text)");
            }
        }
        return QStringLiteral("(no leaf)");
    }

    WlanConfigure object;
    StartRequests requests{object};
};

// The tree

TEST_F(WlanConfigureTest, WithoutFilesTheTreeShowsTheDefaults)
{
    EXPECT_EQ(createWlanConfigData(), read(capturedPath("wireless-defaults.tree.json")));
}

TEST_F(WlanConfigureTest, TheTreeShowsAnAccessPoint)
{
    set(QStringLiteral("NetworkManager/legacyiface"), capturedPath("interfaces-access-point"));
    set(QStringLiteral("NetworkManager/hostapd"), capturedPath("hostapd-access-point.conf"));
    EXPECT_EQ(createWlanConfigData(), read(capturedPath("wireless-access-point.tree.json")));
}

TEST_F(WlanConfigureTest, TheTreeShowsAClient)
{
    set(QStringLiteral("NetworkManager/wlan0"),
        capturedPath("wireless-auto.nmcli-1.42.nmconnection"));
    EXPECT_EQ(createWlanConfigData(), read(capturedPath("wireless-client.tree.json")));
}

TEST_F(WlanConfigureTest, AnyMethodButAutoIsShownAsManual)
{
    for (const char* method : {"shared", "manual", "AUTO", "auto ", ""}) {
        setFile(QStringLiteral("NetworkManager/wlan0"), QByteArray("[ipv4]\nmethod=") + method);
        EXPECT_EQ(shown("method"), "manual") << method;
    }
}

TEST_F(WlanConfigureTest, AnyCipherButCcmpIsShownAsTkip)
{
    setFile(QStringLiteral("NetworkManager/legacyiface"), "iface wlan0\n");
    for (const char* cipher : {"TKIP", "CCMP TKIP", "ccmp", "CCMP ", ""}) {
        setFile(QStringLiteral("NetworkManager/hostapd"), QByteArray("rsn_pairwise=") + cipher);
        EXPECT_EQ(shown("cipher"), "TKIP") << cipher;
    }
}

TEST_F(WlanConfigureTest, NameServersAreNeverShown)
{
    setFile(QStringLiteral("NetworkManager/wlan0"), "[ipv4]\ndns=1.1.1.1;\n");
    EXPECT_EQ(shown("dns"), "");
}

TEST_F(WlanConfigureTest, AnEmptyGatewayIsShownAsItIs)
{
    setFile(QStringLiteral("NetworkManager/wlan0"), "[ipv4]\naddress1=1/,\n");
    EXPECT_EQ(shown("gateway"), "");
    EXPECT_EQ(shown("netmask"), "");
}

// The script's arguments

TEST_F(WlanConfigureTest, ATreeThatWasReadCanBeWrittenBack)
{
    EXPECT_EQ(argumentsOf(read(capturedPath("wireless-access-point.tree.json"))),
              "master|Robot 7|CCMP|open sesame");
    EXPECT_EQ(argumentsOf(read(capturedPath("wireless-client.tree.json"))),
              "client|dhcp|Halle 7|open sesame");
    EXPECT_EQ(argumentsOf(read(capturedPath("wireless-defaults.tree.json"))),
              "client|static|||0.0.0.0|||");
}

TEST_F(WlanConfigureTest, AnAccessPointHasNoAddressArguments)
{
    EXPECT_EQ(argumentsOf({{"type", "master"},
                           {"method", "auto"},
                           {"address", "a"},
                           {"dns", "d"},
                           {"ssid", "s"},
                           {"cipher", "c"},
                           {"psk", "p"}}),
              "master|s|c|p");
    EXPECT_EQ(argumentsOf({{"type", "master"}}), "master|||");
}

TEST_F(WlanConfigureTest, AClientWithAnAutomaticAddressHasNoAddressArguments)
{
    EXPECT_EQ(argumentsOf({{"type", "client"},
                           {"method", "auto"},
                           {"address", "a"},
                           {"netmask", "n"},
                           {"gateway", "g"},
                           {"dns", "d"},
                           {"ssid", "s"},
                           {"cipher", "c"},
                           {"psk", "p"}}),
              "client|dhcp|s|p");
}

TEST_F(WlanConfigureTest, AClientWithAFixedAddressHasThemAll)
{
    EXPECT_EQ(argumentsOf({{"type", "client"},
                           {"method", "manual"},
                           {"address", "a"},
                           {"netmask", "n"},
                           {"gateway", "g"},
                           {"dns", "d;"},
                           {"ssid", "s"},
                           {"cipher", "c"},
                           {"psk", "p"}}),
              "client|static|a|n|g|d;|s|p");
}

TEST_F(WlanConfigureTest, AnyOtherTypeIsAClientAndAnyOtherMethodFixed)
{
    for (const char* type : {"", "Master", "master ", "client"}) {
        for (const char* method : {"", "AUTO", "dhcp", "manual"}) {
            EXPECT_EQ(argumentsOf({{"type", type}, {"method", method}}),
                      "client|static|||0.0.0.0|||");
        }
    }
}

TEST_F(WlanConfigureTest, AnEmptyGatewayGoesOutAsNone)
{
    EXPECT_EQ(argumentsOf({{"gateway", ""}}), "client|static|||0.0.0.0|||");
    EXPECT_EQ(argumentsOf(QMap<QString, QString>()), "client|static|||0.0.0.0|||");
}

TEST_F(WlanConfigureTest, NameServersGoOutWithASemicolonAtTheirEnd)
{
    EXPECT_EQ(argumentsOf({{"dns", "1.1.1.1"}}), "client|static|||0.0.0.0|1.1.1.1;||");
    EXPECT_EQ(argumentsOf({{"dns", "1.1.1.1;"}}), "client|static|||0.0.0.0|1.1.1.1;||");
    EXPECT_EQ(argumentsOf({{"dns", "1;2"}}), "client|static|||0.0.0.0|1;2;||");
    EXPECT_EQ(argumentsOf({{"dns", " "}}), "client|static|||0.0.0.0| ;||");
    EXPECT_EQ(argumentsOf({{"dns", ""}}), "client|static|||0.0.0.0|||");
}

TEST_F(WlanConfigureTest, AnythingElseThanLeavesIsIgnored)
{
    for (const char* body : {"[]", "{}", R"({"name": "type", "value": "master"})",
                             R"(["type", 5, null, [{"name": "type", "value": "master"}], {}])",
                             R"([{"name": "Type", "value": "master"}])",
                             R"([{"_children": [{"name": "type", "value": "master"}]}])"}) {
        EXPECT_EQ(argumentsOf(QByteArray(body)), "client|static|||0.0.0.0|||") << body;
    }
}

TEST_F(WlanConfigureTest, TheLaterOfTwoLeavesOfOneNameWins)
{
    EXPECT_EQ(argumentsOf(QByteArray(R"([{"name": "ssid", "value": "a"},
                                         {"name": "ssid", "value": "b"}])")),
              "client|static|||0.0.0.0||b|");
    EXPECT_EQ(argumentsOf(QByteArray(R"([{"name": "ssid", "value": "a"}, {"name": "ssid"},
                                         {"name": "psk", "value": 5}])")),
              "client|static|||0.0.0.0|||");
}

TEST_F(WlanConfigureTest, ABodyThatIsNoJsonStartsNothing)
{
    for (const char* body : {"", "[", "master", "5", "null"}) {
        EXPECT_FALSE(writeWlanConfigData(body)) << body;
    }
    EXPECT_TRUE(requests.takeAll().isEmpty());
}

// The hardware

TEST_F(WlanConfigureTest, HardwareIsFoundWhereItsFileExists)
{
    const QByteArray found = "{\n    \"found\": true\n}\n";
    const QByteArray missing = "{\n    \"found\": false\n}\n";
    const QString key = QStringLiteral("Scripts/wlan0available");
    EXPECT_EQ(createWlanHardwareData(), missing);
    set(key, {});
    EXPECT_EQ(createWlanHardwareData(), missing);
    set(key, pathOf(QStringLiteral("wlan0")));
    EXPECT_EQ(createWlanHardwareData(), missing);
    write(pathOf(QStringLiteral("wlan0")), "");
    EXPECT_EQ(createWlanHardwareData(), found);
    set(key, folder.path());
    EXPECT_EQ(createWlanHardwareData(), found);
}

} // namespace
} // namespace kor::veltrano::daemons

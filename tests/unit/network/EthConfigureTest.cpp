#include "network/EthConfigure.h"

#include "SettingsFixture.h"
#include "StartRequests.h"

#include <QJsonArray>
#include <QJsonDocument>

namespace kor::veltrano::daemons {
namespace {

QString capturedPath(const char* name)
{
    return QStringLiteral(TESSARAD_TEST_DATA "/network/") + name;
}

class EthConfigureTest : public SettingsFixture
{
protected:
    EthConfigureTest() { ethConfigure = &object; }
    ~EthConfigureTest() override { ethConfigure = nullptr; }

    // The arguments that a write hands to the script.
    QStringList argumentsOf(const QByteArray& body)
    {
        EXPECT_TRUE(writeEthConfigData(body));
        return requests.takeOne();
    }

    EthConfigure object;
    StartRequests requests{object};
};

EthInterface parse(const QByteArray& node)
{
    return parseEthInterface(QJsonDocument::fromJson(node).object());
}

// The tree

TEST_F(EthConfigureTest, WithoutAFileTheTreeShowsTheDefaults)
{
    EXPECT_EQ(createEthConfigData(), read(capturedPath("wired-defaults.tree.json")));
}

TEST_F(EthConfigureTest, TheTreeShowsWhatTheFileTells)
{
    set(QStringLiteral("NetworkManager/eth0"),
        capturedPath("wired-static.nmcli-1.42.nmconnection"));
    EXPECT_EQ(createEthConfigData(), read(capturedPath("wired-static.tree.json")));
}

TEST_F(EthConfigureTest, AnAutomaticSetupShowsInTheTree)
{
    set(QStringLiteral("NetworkManager/eth0"), capturedPath("wired-auto.nmcli-1.42.nmconnection"));
    const QByteArray defaults = read(capturedPath("wired-defaults.tree.json"));
    EXPECT_EQ(createEthConfigData(),
              QByteArray(defaults).replace("\"value\": \"manual\"", "\"value\": \"auto\""));
}

TEST_F(EthConfigureTest, AnEmptyGatewayIsShownAsNone)
{
    setFile(QStringLiteral("NetworkManager/eth0"), "[ipv4]\naddress1=,\naddress2=,\n");
    const QJsonArray tree = QJsonDocument::fromJson(createEthConfigData()).array();
    for (int alias = 0; alias < 2; ++alias) {
        const QJsonArray leaves = tree[alias]["_children"].toArray();
        EXPECT_EQ(leaves[leaves.size() - 2]["value"], "24") << alias;
        EXPECT_EQ(leaves.last()["value"], "0.0.0.0") << alias;
    }
    EXPECT_EQ(tree[1]["_children"][0]["value"], "true");
    EXPECT_EQ(tree[2]["_children"][0]["value"], "false");
}

// One interface of a write

TEST_F(EthConfigureTest, AnInterfaceWithoutLeavesHasTheDefaults)
{
    for (const char* node : {"{}", R"({"_children": []})", R"({"_children": {"name": "method"}})",
                             R"({"_children": ["method", 5, null, [1], {}]})"}) {
        const EthInterface interface = parse(node);
        EXPECT_FALSE(interface.enable);
        EXPECT_EQ(interface.method, "manual");
        EXPECT_EQ(interface.address + interface.netmask + interface.gateway + interface.dns, "");
    }
}

TEST_F(EthConfigureTest, EachLeafFillsTheFieldOfItsName)
{
    const EthInterface interface =
        parse(R"({"_children": [{"name": "dns", "value": "d"}, {"name": "gateway", "value": "g"},
            {"name": "netmask", "value": "n"}, {"name": "address", "value": "a"},
            {"name": "method", "value": "m"}, {"name": "enable", "value": "true"},
            {"name": "Address", "value": "x"}, {"name": "name", "value": "x"}]})");
    EXPECT_TRUE(interface.enable);
    EXPECT_EQ(interface.method, "m");
    EXPECT_EQ(interface.address, "a");
    EXPECT_EQ(interface.netmask, "n");
    EXPECT_EQ(interface.gateway, "g");
    EXPECT_EQ(interface.dns, "d");
}

TEST_F(EthConfigureTest, OnlyTheTextTrueEnables)
{
    EXPECT_TRUE(parse(R"({"_children": [{"name": "enable", "value": "true"}]})").enable);
    for (const char* value : {R"("false")", R"("True")", R"("yes")", R"("1")", R"(" true")", "true",
                              "1", "null", R"(["true"])"}) {
        const QByteArray leaf = QByteArray(R"({"name": "enable", "value": )") + value + '}';
        EXPECT_FALSE(parse(R"({"_children": [)" + leaf + "]}").enable) << value;
    }
}

TEST_F(EthConfigureTest, AValueThatIsNoTextIsEmpty)
{
    const EthInterface interface = parse(
        R"({"_children": [{"name": "method", "value": 5}, {"name": "netmask", "value": 24}]})");
    EXPECT_EQ(interface.method, "");
    EXPECT_EQ(interface.netmask, "");
}

TEST_F(EthConfigureTest, TheLaterOfTwoLeavesOfOneNameWins)
{
    EXPECT_EQ(
        parse(R"({"_children": [{"name": "dns", "value": "1"}, {"name": "dns", "value": "2"}]})")
            .dns,
        "2");
}

// The script's arguments

const QString noneOfAll = QStringLiteral(",,,0.0.0.0,,,,,0.0.0.0,,,,0.0.0.0");

TEST_F(EthConfigureTest, AWholeTreeGivesThirteenArgumentsInOrder)
{
    EXPECT_EQ(
        argumentsOf(read(capturedPath("wired-static.tree.json"))),
        QStringList({"manual", "192.168.10.1", "24", "192.168.10.254", "192.168.10.254;8.8.8.8;",
                     "yes", "10.0.0.5", "16", "0.0.0.0", "yes", "172.16.3.9", "12", "0.0.0.0"}));
    EXPECT_EQ(argumentsOf(read(capturedPath("wired-defaults.tree.json"))).join(','),
              "manual,,24,0.0.0.0,,no,,24,0.0.0.0,no,,24,0.0.0.0");
}

TEST_F(EthConfigureTest, ADocumentWithoutInterfacesGivesEmptyArguments)
{
    for (const char* body : {"[]", "{}", R"({"name": "eth0"})", R"([[{"name": "eth0"}]])", "[1]",
                             R"(["eth0"])", R"([{"name": "eth1"}, {"name": "eth0:3"}, {}])",
                             R"([{"name": "ETH0"}, {"name": "eth0 "}])"}) {
        EXPECT_EQ(argumentsOf(body).join(','), noneOfAll) << body;
    }
}

TEST_F(EthConfigureTest, AnInterfaceThatIsNotNamedHasEmptyArguments)
{
    EXPECT_EQ(argumentsOf(R"([{"name": "eth0"}])").join(','),
              "manual,,,0.0.0.0,,,,,0.0.0.0,,,,0.0.0.0");
    EXPECT_EQ(argumentsOf(R"([{"name": "eth0:2"}])").join(','),
              ",,,0.0.0.0,,,,,0.0.0.0,no,,,0.0.0.0");
    EXPECT_EQ(argumentsOf(R"([{"name": "eth0:1"}])").join(','),
              ",,,0.0.0.0,,no,,,0.0.0.0,,,,0.0.0.0");
}

TEST_F(EthConfigureTest, TheLaterOfTwoInterfacesOfOneNameReplacesAllOfTheEarlier)
{
    EXPECT_EQ(argumentsOf(R"([{"name": "eth0", "_children": [{"name": "dns", "value": "1"}]},
                              {"name": "eth0", "_children": [{"name": "address", "value": "2"}]}])")
                  .join(','),
              "manual,2,,0.0.0.0,,,,,0.0.0.0,,,,0.0.0.0");
}

TEST_F(EthConfigureTest, LeavesThatAnInterfaceDoesNotHaveAreDropped)
{
    EXPECT_EQ(argumentsOf(R"([{"name": "eth0", "_children": [{"name": "enable", "value": "true"}]},
        {"name": "eth0:1", "_children": [{"name": "dns", "value": "d"},
                                         {"name": "method", "value": "auto"}]}])")
                  .join(','),
              "manual,,,0.0.0.0,,no,,,0.0.0.0,,,,0.0.0.0");
}

TEST_F(EthConfigureTest, AnAliasIsSwitchedOnEvenWithoutAnAddress)
{
    EXPECT_EQ(argumentsOf(R"([{"name": "eth0:1", "_children": [{"name": "enable", "value": "true"},
                                                               {"name": "address", "value": ""}]},
        {"name": "eth0:2", "_children": [{"name": "enable", "value": "true"}]}])")
                  .join(','),
              ",,,0.0.0.0,,yes,,,0.0.0.0,yes,,,0.0.0.0");
}

TEST_F(EthConfigureTest, ValuesGoOutAsTheyCame)
{
    const QString odd = QString::fromUtf8(" $(x) `y` \\\"'\n%1 \u00e4\u20ac");
    const QJsonObject leaf{{"name", "address"}, {"value", odd}};
    const QJsonObject enabled{{"name", "enable"}, {"value", "true"}};
    const QJsonArray tree{
        QJsonObject{{"name", "eth0:1"}, {"_children", QJsonArray{leaf, enabled}}}};
    const QStringList arguments = argumentsOf(QJsonDocument(tree).toJson());
    ASSERT_EQ(arguments.size(), 13);
    EXPECT_EQ(arguments[5], "yes");
    EXPECT_EQ(arguments[6], odd);
}

TEST_F(EthConfigureTest, AnEmptyArgumentIsAnArgument)
{
    for (const QString& argument : argumentsOf("[]")) {
        EXPECT_FALSE(argument.isNull());
    }
}

TEST_F(EthConfigureTest, ABodyThatIsNoJsonStartsNothing)
{
    for (const char* body : {"", "[", "eth0", "[{]", "\xff", "5", "null", "[],"}) {
        EXPECT_FALSE(writeEthConfigData(body)) << body;
    }
    EXPECT_TRUE(requests.takeAll().isEmpty());
}

} // namespace
} // namespace kor::veltrano::daemons

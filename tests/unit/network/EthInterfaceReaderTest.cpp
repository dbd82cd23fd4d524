#include "network/EthInterfaceReader.h"

#include "SettingsFixture.h"

namespace kor::veltrano::daemons {
namespace {

class EthInterfaceReaderTest : public SettingsFixture
{
protected:
    EthInterfaceMap readText(const QByteArray& text) const
    {
        setFile(QStringLiteral("NetworkManager/eth0"), text);
        return readEthInterfaces();
    }

    static EthInterfaceMap readCaptured(const char* name)
    {
        set(QStringLiteral("NetworkManager/eth0"),
            QStringLiteral(TESSARAD_TEST_DATA "/network/") + name);
        return readEthInterfaces();
    }
};

// All fields in one text, for short expectations.
QString told(const EthInterface& interface)
{
    return QStringList({interface.enable ? "on" : "off", interface.method, interface.address,
                        interface.netmask, interface.gateway, interface.dns})
        .join('|');
}

QString told(const EthInterfaceMap& interfaces)
{
    QStringList texts;
    for (auto found = interfaces.cbegin(); found != interfaces.cend(); ++found) {
        texts.append(QString::number(found.key()) + ' ' + told(found.value()));
    }
    return texts.join('\n');
}

const QString nothing = QStringLiteral("0 on|manual||||");

TEST_F(EthInterfaceReaderTest, WithoutAFileThereIsTheMainInterfaceAlone)
{
    EXPECT_EQ(told(readEthInterfaces()), nothing);
    set(QStringLiteral("NetworkManager/eth0"), {});
    EXPECT_EQ(told(readEthInterfaces()), nothing);
    for (const QString& path : {pathOf(QStringLiteral("missing")), folder.path()}) {
        set(QStringLiteral("NetworkManager/eth0"), path);
        EXPECT_EQ(told(readEthInterfaces()), nothing);
    }
}

TEST_F(EthInterfaceReaderTest, AnAbsentAliasIsOff)
{
    EXPECT_EQ(told(readText("").value(1)), "off|manual||||");
}

TEST_F(EthInterfaceReaderTest, AnAutomaticSetupOfNetworkManagerIsRead)
{
    EXPECT_EQ(told(readCaptured("wired-auto.nmcli-1.42.nmconnection")), "0 on|auto||||");
}

TEST_F(EthInterfaceReaderTest, AStaticSetupOfNetworkManagerIsRead)
{
    EXPECT_EQ(told(readCaptured("wired-static.nmcli-1.42.nmconnection")),
              "0 on|manual|192.168.10.1|24|192.168.10.254|192.168.10.254;8.8.8.8;\n"
              "1 on|manual|10.0.0.5|16|0.0.0.0|\n"
              "2 on|manual|172.16.3.9|12|0.0.0.0|\n"
              "3 on|manual|192.168.99.1|30|0.0.0.0|");
}

TEST_F(EthInterfaceReaderTest, TheFileIsReadAfreshEachTime)
{
    EXPECT_EQ(told(readText("[ipv4]\nmethod=auto\n")), "0 on|auto||||");
    EXPECT_EQ(told(readText("[ipv4]\nmethod=manual\n")), nothing);
}

struct Line {
    const char* situation;
    QByteArray text;
    QString expected;
};

void PrintTo(const Line& line, std::ostream* out)
{
    *out << line.situation;
}

// What one line below "[ipv4]" gives.
class EthInterfaceLineTest : public EthInterfaceReaderTest, public testing::WithParamInterface<Line>
{
};

TEST_P(EthInterfaceLineTest, IsReadAsTheKeyfileMeansIt)
{
    const QString expected =
        GetParam().expected.startsWith("0 ") ? GetParam().expected : GetParam().expected + nothing;
    EXPECT_EQ(told(readText("[ipv4]\n" + GetParam().text)), expected);
}

const Line lines[] = {
    {"auto", "method=auto", "0 on|auto||||"},
    {"the later method", "method=auto\nmethod=manual", nothing},
    {"another method", "method=auto\nmethod=shared", "0 on|auto||||"},
    {"a method with a trailing blank", "method=auto ", nothing},
    {"an indented method", " method=auto", nothing},
    {"a method in capitals", "method=AUTO", nothing},
    {"name servers", "dns=1.1.1.1;8.8.8.8;", "0 on|manual||||1.1.1.1;8.8.8.8;"},
    {"name servers with their blanks", "dns= 1.1.1.1 ", "0 on|manual|||| 1.1.1.1 "},
    {"name servers that hold the prefix", "dns=a.dns=b", "0 on|manual||||a.b"},
    {"indented name servers", "\tdns=1.1.1.1", nothing},
    {"search domains", "dns-search=a;", nothing},
    {"an address with its gateway", "address1=1.2.3.4/24,1.2.3.1",
     "0 on|manual|1.2.3.4|24|1.2.3.1|"},
    {"an address without a gateway", "address1=1.2.3.4/24", "0 on|manual|1.2.3.4|24|0.0.0.0|"},
    {"an empty gateway", "address1=1.2.3.4/24,", "0 on|manual|1.2.3.4|24||"},
    {"an address without a prefix", "address1=1.2.3.4", "0 on|manual|1.2.3.4|1.2.3.4|0.0.0.0|"},
    {"a gateway without a prefix", "address1=1.2.3.4,1.2.3.1",
     "0 on|manual|1.2.3.4,1.2.3.1|1.2.3.4|1.2.3.1|"},
    {"two commas", "address1=1.2.3.4/24,5,6", "0 on|manual|1.2.3.4|24|5,6|"},
    {"two slashes", "address1=1.2.3.4/24/8,5", "0 on|manual|1.2.3.4|24/8|5|"},
    {"an empty address", "address1=", "0 on|manual|||0.0.0.0|"},
    {"no equals sign", "address1", "0 on|manual|||0.0.0.0|"},
    {"the first alias", "address2=192.168.10.2/24,192.168.10.1",
     nothing + "\n1 on|manual|192.168.10.2|24|192.168.10.1|"},
    {"the second alias", "address3=1.2.3.4/8", nothing + "\n2 on|manual|1.2.3.4|8|0.0.0.0|"},
    {"the prefix in the value", "address1=address7.8/address9,address", "0 on|manual|7.8|9||"},
    {"an address number of two digits", "address12=1.2.3.4/8", "0 on|manual|=1.2.3.4|8|0.0.0.0|"},
    {"the number zero", "address0=1.2.3.4/8", "-1 on|manual|1.2.3.4|8|0.0.0.0|\n"},
    {"no number", "address=1.2.3.4/8", "-1 on|manual|.2.3.4|8|0.0.0.0|\n"},
    {"a longer word", "addresses1=1.2.3.4/8", "-1 on|manual|1=1.2.3.4|8|0.0.0.0|\n"},
    {"an indented address", " address1=1.2.3.4/8", nothing},
    {"a commented address", "#address1=1.2.3.4/8", nothing},
    {"another key", "may-fail=false", nothing},
};

INSTANTIATE_TEST_SUITE_P(Lines, EthInterfaceLineTest, testing::ValuesIn(lines));

TEST_F(EthInterfaceReaderTest, AnAddressNumberOfFourOrMoreShowsInNoTree)
{
    const EthInterfaceMap interfaces = readText("[ipv4]\naddress4=1.2.3.4/8\naddress9=5/6\n");
    EXPECT_EQ(interfaces.keys(), QList<int>({0, 3, 8}));
}

TEST_F(EthInterfaceReaderTest, LinesOfOtherSectionsDoNotCount)
{
    const QByteArray others = "method=auto\ndns=1\naddress1=1.2.3.4/8\naddress2=1.2.3.4/8\n";
    EXPECT_EQ(told(readText(others)), nothing);
    EXPECT_EQ(told(readText("[ipv6]\n" + others)), nothing);
    EXPECT_EQ(told(readText("[ipv4]\n[ipv6]\n" + others)), nothing);
    EXPECT_EQ(told(readText("[ipv4]\n[\n" + others)), nothing);
}

TEST_F(EthInterfaceReaderTest, OnlyTheSectionsExactNameOpensIt)
{
    for (const char* name : {"[ipv4] ", " [ipv4]", "[IPV4]", "[ipv4", "ipv4"}) {
        EXPECT_EQ(told(readText(QByteArray(name) + "\nmethod=auto\n")), nothing) << name;
    }
    EXPECT_EQ(told(readText("[ipv4]\n[ipv4] \nmethod=auto\n")), nothing);
    EXPECT_EQ(told(readText("[ipv4]\n [ipv6]\nmethod=auto\n")), "0 on|auto||||");
}

TEST_F(EthInterfaceReaderTest, ASectionMayComeTwice)
{
    EXPECT_EQ(told(readText("[ipv4]\nmethod=auto\n[x]\ndns=1\n[ipv4]\ndns=2\n")), "0 on|auto||||2");
}

TEST_F(EthInterfaceReaderTest, TheLastOfTwoLinesOfOneNumberWins)
{
    EXPECT_EQ(told(readText("[ipv4]\naddress1=1/2,3\naddress1=4/5\n")), "0 on|manual|4|5|0.0.0.0|");
}

TEST_F(EthInterfaceReaderTest, LineEndsOfAnySortEndALine)
{
    EXPECT_EQ(told(readText("[ipv4]\r\nmethod=auto\r\naddress1=1/2\r\n")),
              "0 on|auto|1|2|0.0.0.0|");
    EXPECT_EQ(told(readText("[ipv4]\nmethod=auto\naddress1=1/2")), "0 on|auto|1|2|0.0.0.0|");
}

TEST_F(EthInterfaceReaderTest, BinaryAndHugeFilesAreReadWithoutComplaint)
{
    EXPECT_EQ(told(readText(QByteArray("[ipv4]\n\xff\xfe\0\n\xc3\nmethod=auto\n", 24))),
              "0 on|auto||||");
    const QByteArray huge(1 << 20, '9');
    EXPECT_EQ(readText("[ipv4]\ndns=" + huge).value(0).dns, QString(huge));
}

} // namespace
} // namespace kor::veltrano::daemons

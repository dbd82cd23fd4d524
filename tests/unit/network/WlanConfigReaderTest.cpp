#include "network/WlanConfigReader.h"

#include "SettingsFixture.h"

namespace kor::veltrano::daemons {
namespace {

const QString interfacesKey = QStringLiteral("NetworkManager/legacyiface");
const QString hostapdKey = QStringLiteral("NetworkManager/hostapd");
const QString keyfileKey = QStringLiteral("NetworkManager/wlan0");

class WlanConfigReaderTest : public SettingsFixture
{
protected:
    static void setCaptured(const QString& key, const char* name)
    {
        set(key, QStringLiteral(TESSARAD_TEST_DATA "/network/") + name);
    }
};

// All fields in one text, for short expectations.
QString told(const WlanConfig& config)
{
    return QStringList({config.type, config.method, config.address, config.netmask, config.gateway,
                        config.dns, config.ssid, config.cipher, config.psk})
        .join('|');
}

QString toldWlan()
{
    return told(readWlanConfig());
}

const QString nothing = QStringLiteral("|manual|||0.0.0.0||||");
const QString master = "master" + nothing;
const QString client = "client" + nothing;

TEST_F(WlanConfigReaderTest, WithoutFilesNothingIsKnown)
{
    EXPECT_EQ(toldWlan(), nothing);
    for (const QString& key : {interfacesKey, hostapdKey, keyfileKey}) {
        set(key, pathOf(QStringLiteral("missing")));
    }
    EXPECT_EQ(toldWlan(), nothing);
    for (const QString& key : {interfacesKey, hostapdKey, keyfileKey}) {
        set(key, folder.path());
    }
    EXPECT_EQ(toldWlan(), nothing);
}

TEST_F(WlanConfigReaderTest, AnAccessPointIsRead)
{
    setCaptured(interfacesKey, "interfaces-access-point");
    setCaptured(hostapdKey, "hostapd-access-point.conf");
    EXPECT_EQ(toldWlan(), "master|manual|10.42.0.1|16|0.0.0.0||Robot 7|CCMP|open sesame");
}

TEST_F(WlanConfigReaderTest, AClientWithAnAutomaticAddressIsRead)
{
    setCaptured(interfacesKey, "interfaces-client");
    setCaptured(hostapdKey, "hostapd-access-point.conf");
    setCaptured(keyfileKey, "wireless-auto.nmcli-1.42.nmconnection");
    EXPECT_EQ(toldWlan(), "client|auto|||0.0.0.0||Halle 7||open sesame");
}

// NetworkManager writes what is not ASCII as a list of bytes, and escapes some characters. They are
// shown as they stand.
TEST_F(WlanConfigReaderTest, AClientWithAFixedAddressIsRead)
{
    setCaptured(keyfileKey, "wireless-static.nmcli-1.42.nmconnection");
    EXPECT_EQ(toldWlan(),
              "client|manual|192.168.1.5|23|192.168.1.1||"
              "71;114;195;182;195;159;101;||a;b\\\\c d e");
}

TEST_F(WlanConfigReaderTest, AnAccessPointHasPrecedenceOverAClient)
{
    setFile(interfacesKey, "iface wlan0 inet static\n");
    setCaptured(keyfileKey, "wireless-static.nmcli-1.42.nmconnection");
    EXPECT_EQ(toldWlan(), master);
    setCaptured(interfacesKey, "interfaces-client");
    EXPECT_EQ(readWlanConfig().type, "client");
}

TEST_F(WlanConfigReaderTest, AnEmptyKeyfileIsAClientsToo)
{
    setFile(keyfileKey, "");
    EXPECT_EQ(toldWlan(), client);
}

struct File {
    const char* situation;
    QByteArray text;
    QString expected;
};

void PrintTo(const File& file, std::ostream* out)
{
    *out << file.situation;
}

class WlanInterfacesFileTest : public WlanConfigReaderTest, public testing::WithParamInterface<File>
{
};

TEST_P(WlanInterfacesFileTest, TellsWhetherThereIsAnAccessPointAndWhere)
{
    setFile(interfacesKey, GetParam().text);
    EXPECT_EQ(toldWlan(), GetParam().expected);
}

QString masterAt(const char* address, const char* netmask)
{
    return QStringLiteral("master|manual|%1|%2|0.0.0.0||||").arg(address, netmask);
}

const File interfacesFiles[] = {
    {"empty", "", nothing},
    {"a stanza of another interface", "iface eth0 inet static\naddress 1\nnetmask 255.0.0.0\n",
     nothing},
    {"no stanza", "address 1\nnetmask 255.0.0.0\n", nothing},
    {"lines of other stanzas",
     "address 1\niface wlan0\naddress 2\niface lo\naddress 3\nnetmask 255.0.0.0\n",
     masterAt("2", "")},
    {"a stanza that comes twice", "iface wlan0\naddress 1\niface lo\niface wlan0\naddress 2\n",
     masterAt("2", "")},
    {"a commented stanza", "# iface wlan0\naddress 1\n", masterAt("1", "")},
    {"a comment that ends the stanza", "iface wlan0\n# the next iface\naddress 1\n", master},
    {"a commented address", "iface wlan0\n#address 1\n", masterAt("# 1", "")},
    {"an address on the stanza's own line", "iface wlan0 address 1\n",
     masterAt("iface wlan0  1", "")},
    {"a netmask on the stanza's own line", "iface wlan0 netmask 255.0.0.0\n", masterAt("", "24")},
    {"an interface whose name begins alike", "iface wlan01\n address 1 \n", masterAt("1", "")},
    {"two blanks in the stanza", "iface  wlan0\n", nothing},
    {"a stanza in capitals", "IFACE wlan0\n", nothing},
    {"an address that comes twice in a line", "iface wlan0\naddress 1 address 2\n",
     masterAt("1  2", "")},
    {"address and netmask in a line", "iface wlan0\naddress 1 netmask 255.0.0.0\n",
     masterAt("1 netmask 255.0.0.0", "")},
    {"tabs", "iface wlan0\n\taddress\t1.2.3.4\t\n\tnetmask\t255.0.0.0\n", masterAt("1.2.3.4", "8")},
    {"carriage returns", "iface wlan0\r\naddress 1\r\nnetmask 255.0.0.0\r\n", masterAt("1", "8")},
    {"three numbers", "iface wlan0\nnetmask 255.255.255.0\n", masterAt("", "24")},
    {"two numbers", "iface wlan0\nnetmask 255.255.0.0\n", masterAt("", "16")},
    {"one number", "iface wlan0\nnetmask 255.0.0.0\n", masterAt("", "8")},
    {"a mask that cannot be chosen", "iface wlan0\nnetmask 255.255.255.128\n", masterAt("", "24")},
    {"a prefix length", "iface wlan0\nnetmask 16\n", masterAt("", "24")},
    {"an empty mask", "iface wlan0\nnetmask\n", masterAt("", "24")},
};

INSTANTIATE_TEST_SUITE_P(Files, WlanInterfacesFileTest, testing::ValuesIn(interfacesFiles));

class WlanHostapdFileTest : public WlanConfigReaderTest, public testing::WithParamInterface<File>
{
};

TEST_P(WlanHostapdFileTest, NamesTheAccessPointsNetwork)
{
    setFile(interfacesKey, "iface wlan0\n");
    setFile(hostapdKey, GetParam().text);
    EXPECT_EQ(toldWlan(), "master|manual|||0.0.0.0||" + GetParam().expected);
}

const File hostapdFiles[] = {
    {"empty", "", "||"},
    {"the three keys", "wpa_passphrase=p\nrsn_pairwise=c\nssid=s\n", "s|c|p"},
    {"blanks, which count", "wpa_passphrase= p \nrsn_pairwise=c \nssid= s\n", " s|c | p "},
    {"other keys", "wpa_pairwise=TKIP\nssid2=x\nutf8_ssid=1\nwpa_psk=x\nmethod=auto\n", "||"},
    {"indented keys", " ssid=s\n", "||"},
    {"comments", "#ssid=s\n", "||"},
    {"later lines", "ssid=a\nssid=b\n", "b||"},
    {"a passphrase that holds its own prefix", "wpa_passphrase=a wpa_passphrase=b\n", "||a b"},
    {"a passphrase that holds another prefix", "wpa_passphrase=ssid=x\n", "||ssid=x"},
    {"a name that holds its own prefix", "ssid=ssid=x\n", "x||"},
    {"two ciphers", "rsn_pairwise=CCMP TKIP\n", "|CCMP TKIP|"},
};

INSTANTIATE_TEST_SUITE_P(Files, WlanHostapdFileTest, testing::ValuesIn(hostapdFiles));

class WlanKeyfileTest : public WlanConfigReaderTest, public testing::WithParamInterface<File>
{
};

TEST_P(WlanKeyfileTest, TellsOfTheClient)
{
    setFile(keyfileKey, GetParam().text);
    EXPECT_EQ(toldWlan(), GetParam().expected);
}

const File keyfiles[] = {
    {"name and passphrase in any section", "ssid=a\n[x]\npsk=b\n", "client|manual|||0.0.0.0||a||b"},
    {"name and passphrase below the address", "[ipv4]\nssid=a\npsk=b\nmethod=auto\n",
     "client|auto|||0.0.0.0||a||b"},
    {"later lines", "psk=a\nssid=a\npsk=b\nssid=b\n", "client|manual|||0.0.0.0||b||b"},
    {"a passphrase that holds its own prefix", "psk=psk=a\n", "client|manual|||0.0.0.0||||a"},
    {"an indented name", " ssid=a\n", client},
    {"any method", "[ipv4]\nmethod=shared \n", "client|shared |||0.0.0.0||||"},
    {"a method of another section", "method=auto\n[ipv6]\nmethod=auto\n", client},
    {"a section with a blank behind it", "[ipv4] \nmethod=auto\n", client},
    {"a section that ends", "[ipv4]\n[ipv4] \nmethod=auto\n", client},
    {"an address with its gateway", "[ipv4]\naddress1=1.2.3.4/24,1.2.3.1\n",
     "client|manual|1.2.3.4|24|1.2.3.1||||"},
    {"an address without a gateway", "[ipv4]\naddress1=1.2.3.4/24\n",
     "client|manual|1.2.3.4|24|0.0.0.0||||"},
    {"an address without a prefix", "[ipv4]\naddress1=1.2.3.4\n",
     "client|manual|1.2.3.4|1.2.3.4|0.0.0.0||||"},
    {"the prefix in the value", "[ipv4]\naddress1=address1=7/8\n", "client|manual|7|8|0.0.0.0||||"},
    {"other address numbers", "[ipv4]\naddress2=1/2\naddress=1/2\naddress10=1/2\n", client},
    {"an address of another section", "address1=1/2\n[ipv6]\naddress1=1/2\n", client},
    {"name servers, which are not read", "[ipv4]\ndns=1.1.1.1;\n", client},
    {"carriage returns", "[ipv4]\r\nmethod=auto\r\nssid=a\r\n", "client|auto|||0.0.0.0||a||"},
};

INSTANTIATE_TEST_SUITE_P(Files, WlanKeyfileTest, testing::ValuesIn(keyfiles));

} // namespace
} // namespace kor::veltrano::daemons

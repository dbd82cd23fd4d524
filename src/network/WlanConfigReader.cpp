#include "network/WlanConfigReader.h"

#include "network/KeyfileAddress.h"
#include "network/SettingsFile.h"

namespace kor::veltrano::daemons {

namespace {

// The line without its prefix, wherever that stands in it.
QString rest(const QString& line, const QString& prefix)
{
    return QString(line).remove(prefix);
}

QString prefixLength(const QString& dottedMask)
{
    if (dottedMask == QLatin1String("255.255.0.0")) {
        return QStringLiteral("16");
    }
    if (dottedMask == QLatin1String("255.0.0.0")) {
        return QStringLiteral("8");
    }
    // Nothing but these three can be chosen in the browser.
    return QStringLiteral("24");
}

void readInterfacesFile(WlanConfig& config)
{
    const QString address = QStringLiteral("address");
    const QString netmask = QStringLiteral("netmask");
    bool isWlan = false;
    readSettingsFile(QStringLiteral("NetworkManager/legacyiface"), [&](const QString& line) {
        if (line.contains(QLatin1String("iface"))) {
            isWlan = line.contains(QLatin1String("iface wlan0"));
            if (isWlan) {
                config.type = QStringLiteral("master");
            }
        }
        if (!isWlan) {
            return;
        }
        if (line.contains(address)) {
            config.address = rest(line, address).trimmed();
        } else if (line.contains(netmask)) {
            config.netmask = prefixLength(rest(line, netmask).trimmed());
        }
    });
}

void readHostapdFile(WlanConfig& config)
{
    const QString passphrase = QStringLiteral("wpa_passphrase=");
    const QString cipher = QStringLiteral("rsn_pairwise=");
    const QString ssid = QStringLiteral("ssid=");
    readSettingsFile(QStringLiteral("NetworkManager/hostapd"), [&](const QString& line) {
        if (line.startsWith(passphrase)) {
            config.psk = rest(line, passphrase);
        } else if (line.startsWith(cipher)) {
            config.cipher = rest(line, cipher);
        } else if (line.startsWith(ssid)) {
            config.ssid = rest(line, ssid);
        }
    });
}

void readIpv4Line(const QString& line, WlanConfig& config)
{
    const QString method = QStringLiteral("method=");
    const QString address = QStringLiteral("address1=");
    if (line.startsWith(method)) {
        config.method = rest(line, method);
    } else if (line.startsWith(address)) {
        const KeyfileAddress found = parseKeyfileAddress(rest(line, address));
        config.address = found.address;
        config.netmask = found.netmask;
        config.gateway = found.gateway;
    }
}

void readKeyfile(WlanConfig& config)
{
    const QString ssid = QStringLiteral("ssid=");
    const QString psk = QStringLiteral("psk=");
    bool isIpv4 = false;
    const bool isRead =
        readSettingsFile(QStringLiteral("NetworkManager/wlan0"), [&](const QString& line) {
            if (line.startsWith(QLatin1Char('['))) {
                isIpv4 = line == QLatin1String("[ipv4]");
            }
            if (line.startsWith(ssid)) {
                config.ssid = rest(line, ssid);
            } else if (line.startsWith(psk)) {
                config.psk = rest(line, psk);
            } else if (isIpv4) {
                readIpv4Line(line, config);
            }
        });
    if (isRead) {
        config.type = QStringLiteral("client");
    }
}

} // namespace

WlanConfig readWlanConfig()
{
    WlanConfig config;
    readInterfacesFile(config);
    if (config.type.isEmpty()) {
        readKeyfile(config);
    } else {
        readHostapdFile(config);
    }
    return config;
}

} // namespace kor::veltrano::daemons

#include "network/EthInterfaceReader.h"

#include "network/KeyfileAddress.h"
#include "network/SettingsFile.h"

#include <QDebug>

namespace kor::veltrano::daemons {

namespace {

constexpr const char* addressKey = "address";

void readAddress(QString line, EthInterfaceMap& interfaces)
{
    line.remove(QLatin1String(addressKey));
    qDebug() << line;
    // A first character that is no digit counts as 0, and ends where no tree shows it.
    const int number = line.left(1).toInt();
    line.remove(0, 2);
    qDebug() << line;
    const KeyfileAddress found = parseKeyfileAddress(line);
    EthInterface& interface = interfaces[number - 1];
    interface.enable = true;
    interface.address = found.address;
    interface.netmask = found.netmask;
    interface.gateway = found.gateway;
}

void readIpv4Line(QString line, EthInterfaceMap& interfaces)
{
    const QString dnsKey = QStringLiteral("dns=");
    qDebug() << line;
    if (line == QLatin1String("method=auto") || line == QLatin1String("method=manual")) {
        interfaces[0].method = line.mid(line.indexOf(QLatin1Char('=')) + 1);
        qDebug() << interfaces[0].method;
    } else if (line.startsWith(dnsKey)) {
        interfaces[0].dns = line.remove(dnsKey);
    } else if (line.startsWith(QLatin1String(addressKey))) {
        readAddress(line, interfaces);
    }
}

} // namespace

EthInterfaceMap readEthInterfaces()
{
    EthInterfaceMap interfaces;
    interfaces[0].enable = true;
    bool isIpv4 = false;
    readSettingsFile(QStringLiteral("NetworkManager/eth0"), [&](const QString& line) {
        if (line.startsWith(QLatin1Char('['))) {
            isIpv4 = line == QLatin1String("[ipv4]");
        }
        if (isIpv4) {
            readIpv4Line(line, interfaces);
        }
    });
    return interfaces;
}

} // namespace kor::veltrano::daemons

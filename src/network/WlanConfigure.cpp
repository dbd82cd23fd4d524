#include "network/WlanConfigure.h"

#include "config/ConfigFile.h"
#include "network/ConfigNodes.h"
#include "network/ConnectionInfo.h"
#include "network/WlanConfigReader.h"
#include "support/Json.h"

#include <QDebug>
#include <QFile>
#include <QJsonDocument>

namespace kor::veltrano::daemons {

WlanConfigure* wlanConfigure = nullptr;

namespace {

QString oneOf(const QString& value, const char* wanted, const char* other)
{
    return QString::fromLatin1(value == QLatin1String(wanted) ? wanted : other);
}

// The field that a leaf of this name holds; null for any other name.
QString* fieldOf(WlanConfig& config, const QString& name)
{
    const QMap<QString, QString WlanConfig::*> fields = {
        {QStringLiteral("type"), &WlanConfig::type},
        {QStringLiteral("method"), &WlanConfig::method},
        {QStringLiteral("address"), &WlanConfig::address},
        {QStringLiteral("netmask"), &WlanConfig::netmask},
        {QStringLiteral("gateway"), &WlanConfig::gateway},
        {QStringLiteral("dns"), &WlanConfig::dns},
        {QStringLiteral("ssid"), &WlanConfig::ssid},
        {QStringLiteral("psk"), &WlanConfig::psk},
        {QStringLiteral("cipher"), &WlanConfig::cipher},
    };
    const auto field = fields.constFind(name);
    return field == fields.constEnd() ? nullptr : &(config.*field.value());
}

WlanConfig parseWlanConfig(const QJsonArray& leaves)
{
    WlanConfig config;
    for (const QJsonValue& leaf : leaves) {
        QString* field = fieldOf(config, leaf[QLatin1String("name")].toString());
        if (field != nullptr) {
            *field = leaf[QLatin1String("value")].toString();
        }
    }
    if (config.gateway.isEmpty()) {
        config.gateway = QStringLiteral("0.0.0.0");
    }
    if (!config.dns.isEmpty() && !config.dns.endsWith(QLatin1Char(';'))) {
        config.dns += QLatin1Char(';');
    }
    return config;
}

QStringList scriptArguments(const WlanConfig& config)
{
    if (config.type == QLatin1String("master")) {
        return {QStringLiteral("master"), config.ssid, config.cipher, config.psk};
    }
    if (config.method == QLatin1String("auto")) {
        return {QStringLiteral("client"), QStringLiteral("dhcp"), config.ssid, config.psk};
    }
    return {QStringLiteral("client"),
            QStringLiteral("static"),
            config.address,
            config.netmask,
            config.gateway,
            config.dns,
            config.ssid,
            config.psk};
}

QJsonArray createLeaves(const WlanConfig& config)
{
    const QString always = QStringLiteral("master,client,auto,manual");
    const QString fixed = QStringLiteral("client,manual");
    const QStringList lengths{QStringLiteral("8"), QStringLiteral("16"), QStringLiteral("24")};
    int id = 1;
    QJsonArray leaves;
    leaves.append(selectNode(id++, QStringLiteral("type"), config.type, always,
                             {QStringLiteral("master"), QStringLiteral("client")}));
    leaves.append(selectNode(id++, QStringLiteral("method"), oneOf(config.method, "auto", "manual"),
                             QStringLiteral("client,auto,manual"),
                             {QStringLiteral("auto"), QStringLiteral("manual")}));
    leaves.append(inputNode(id++, QStringLiteral("address"), config.address, fixed));
    leaves.append(selectNode(id++, QStringLiteral("netmask"), config.netmask, fixed, lengths));
    leaves.append(inputNode(id++, QStringLiteral("gateway"), config.gateway, fixed));
    leaves.append(inputNode(id++, QStringLiteral("dns"), config.dns, fixed));
    leaves.append(inputNode(id++, QStringLiteral("ssid"), config.ssid, always));
    leaves.append(inputNode(id++, QStringLiteral("psk"), config.psk, always));
    leaves.append(selectNode(id++, QStringLiteral("cipher"), oneOf(config.cipher, "CCMP", "TKIP"),
                             QStringLiteral("master"),
                             {QStringLiteral("CCMP"), QStringLiteral("TKIP")}));
    return leaves;
}

} // namespace

WlanConfigure::WlanConfigure() : NetworkScript(QStringLiteral("Scripts/configurewlan")) { }

QByteArray createWlanInfoData()
{
    return createConnectionInfo(QStringLiteral("wlan"));
}

QByteArray createWlanConfigData()
{
    QByteArray document = renderJson(createLeaves(readWlanConfig()));
    qDebug() << document;
    return document;
}

bool writeWlanConfigData(const QByteArray& data)
{
    qDebug() << data;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(data, &error);
    if (error.error != QJsonParseError::NoError) {
        return false;
    }
    wlanConfigure->start(scriptArguments(parseWlanConfig(document.array())));
    return true;
}

QByteArray createWlanHardwareData()
{
    const QString file = settings.value(QStringLiteral("Scripts/wlan0available"));
    return renderJson(QJsonObject{{QStringLiteral("found"), QFile::exists(file)}});
}

} // namespace kor::veltrano::daemons

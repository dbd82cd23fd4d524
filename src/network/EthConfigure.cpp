#include "network/EthConfigure.h"

#include "network/ConfigNodes.h"
#include "network/ConnectionInfo.h"
#include "network/EthInterfaceReader.h"
#include "support/Json.h"

#include <QDebug>
#include <QJsonDocument>

namespace kor::veltrano::daemons {

EthConfigure* ethConfigure = nullptr;

namespace {

constexpr int aliasCount = 3;
constexpr int longestPrefix = 32;
constexpr const char* noGateway = "0.0.0.0";

QString orDefault(const QString& text, const char* defaultText)
{
    return text.isEmpty() ? QString::fromLatin1(defaultText) : text;
}

QStringList prefixLengths()
{
    QStringList lengths;
    for (int length = 0; length <= longestPrefix; ++length) {
        lengths.append(QString::number(length));
    }
    return lengths;
}

QString interfaceName(int alias)
{
    const QString name = QStringLiteral("eth0");
    return alias == 0 ? name : name + QStringLiteral(":%1").arg(alias);
}

QJsonArray mainNodes(const EthInterface& interface, int& nextId)
{
    const bool isAutomatic = interface.method == QLatin1String("auto");
    QJsonArray nodes;
    nodes.append(selectNode(nextId++, QStringLiteral("method"),
                            isAutomatic ? QStringLiteral("auto") : QStringLiteral("manual"), {},
                            {QStringLiteral("auto"), QStringLiteral("manual")}));
    nodes.append(inputNode(nextId++, QStringLiteral("dns"), interface.dns, {}));
    return nodes;
}

QJsonArray aliasNodes(const EthInterface& interface, const QString& enabledTag,
                      const QString& disabledTag, int& nextId)
{
    return {selectNode(nextId++, QStringLiteral("enable"),
                       interface.enable ? QStringLiteral("true") : QStringLiteral("false"),
                       enabledTag + QLatin1Char(',') + disabledTag,
                       {QStringLiteral("true"), QStringLiteral("false")})};
}

QJsonObject interfaceNode(int alias, const EthInterface& interface, int& nextId)
{
    const QString enabledTag = QStringLiteral("eth%1_enabled").arg(alias);
    const QString disabledTag = QStringLiteral("eth%1_disabled").arg(alias);
    const int id = nextId++;
    QJsonArray children = alias == 0 ? mainNodes(interface, nextId)
                                     : aliasNodes(interface, enabledTag, disabledTag, nextId);
    children.append(inputNode(nextId++, QStringLiteral("address"), interface.address, enabledTag));
    children.append(selectNode(nextId++, QStringLiteral("netmask"),
                               orDefault(interface.netmask, "24"), enabledTag, prefixLengths()));
    children.append(inputNode(nextId++, QStringLiteral("gateway"),
                              orDefault(interface.gateway, noGateway), enabledTag));
    return {{QStringLiteral("id"), id},
            {QStringLiteral("name"), interfaceName(alias)},
            {QStringLiteral("_children"), children}};
}

// The script's arguments by the name of their interface, empty where the tree has none of it.
QMap<QString, QStringList> emptyArguments()
{
    const QString none = QLatin1String("");
    return {{interfaceName(0), {none, none, none, none, none}},
            {interfaceName(1), {none, none, none, none}},
            {interfaceName(2), {none, none, none, none}}};
}

QStringList argumentsOf(const QString& name, const EthInterface& interface)
{
    QStringList arguments{interface.address, interface.netmask, interface.gateway};
    if (name == interfaceName(0)) {
        arguments.prepend(interface.method);
        arguments.append(interface.dns);
    } else {
        arguments.prepend(interface.enable ? QStringLiteral("yes") : QStringLiteral("no"));
    }
    return arguments;
}

QStringList scriptArguments(const QJsonArray& tree)
{
    QMap<QString, QStringList> arguments = emptyArguments();
    for (const QJsonValue& value : tree) {
        const QJsonObject node = value.toObject();
        const QString name = node[QLatin1String("name")].toString();
        if (arguments.contains(name)) {
            arguments[name] = argumentsOf(name, parseEthInterface(node));
        }
    }
    QStringList all;
    for (int alias = 0; alias < aliasCount; ++alias) {
        constexpr int gatewayAt = 3;
        QStringList& own = arguments[interfaceName(alias)];
        own[gatewayAt] = orDefault(own.at(gatewayAt), noGateway);
        all += own;
    }
    return all;
}

} // namespace

EthConfigure::EthConfigure() : NetworkScript(QStringLiteral("Scripts/configureeth")) { }

QByteArray createEthInfoData()
{
    return createConnectionInfo(QStringLiteral("eth0"));
}

QByteArray createEthConfigData()
{
    const EthInterfaceMap interfaces = readEthInterfaces();
    QJsonArray tree;
    int nextId = 1;
    for (int alias = 0; alias < aliasCount; ++alias) {
        tree.append(interfaceNode(alias, interfaces.value(alias), nextId));
    }
    return renderJson(tree);
}

EthInterface parseEthInterface(const QJsonObject& node)
{
    EthInterface interface;
    const QJsonArray children = node[QLatin1String("_children")].toArray();
    for (const QJsonValue& child : children) {
        const QString name = child[QLatin1String("name")].toString();
        const QString value = child[QLatin1String("value")].toString();
        if (name == QLatin1String("method")) {
            interface.method = value;
        } else if (name == QLatin1String("address")) {
            interface.address = value;
        } else if (name == QLatin1String("netmask")) {
            interface.netmask = value;
        } else if (name == QLatin1String("gateway")) {
            interface.gateway = value;
        } else if (name == QLatin1String("dns")) {
            interface.dns = value;
        } else if (name == QLatin1String("enable")) {
            interface.enable = value == QLatin1String("true");
        }
    }
    return interface;
}

bool writeEthConfigData(const QByteArray& data)
{
    qDebug() << data;
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(data, &error);
    if (error.error != QJsonParseError::NoError) {
        return false;
    }
    ethConfigure->start(scriptArguments(document.array()));
    return true;
}

} // namespace kor::veltrano::daemons

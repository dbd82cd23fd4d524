#include "config/ConfigTree.h"

#include "config/ConfigFile.h"
#include "daemon/Log.h"
#include "support/Json.h"
#include "support/SystemPaths.h"

#include <QDir>

namespace kor::veltrano::daemons {

namespace {

constexpr QDir::SortFlags byNameIgnoringCase = QDir::Name | QDir::IgnoreCase;

// What a choice of files offers: the names in the directory that the params name first.
QJsonArray fileChoices(const QStringList& params)
{
    if (params.isEmpty()) {
        return {};
    }
    const QDir directory(params.first());
    return QJsonArray::fromStringList(
        directory.entryList(params.mid(1), QDir::Files | QDir::NoDotAndDotDot, byNameIgnoringCase));
}

QJsonObject createLeaf(const ConfigEntry& entry, int id)
{
    QJsonObject leaf{
        {QStringLiteral("id"), id},
        {QStringLiteral("file"), entry.file},
        {QStringLiteral("group"), entry.group},
        {QStringLiteral("name"), entry.name},
        {QStringLiteral("value"), entry.value},
        {QStringLiteral("type"), QStringLiteral("input")},
    };
    if (entry.type == 1 || entry.type == 2) {
        leaf[QLatin1String("type")] = QStringLiteral("select");
        leaf[QLatin1String("params")] =
            entry.type == 1 ? QJsonArray::fromStringList(entry.params) : fileChoices(entry.params);
    }
    return leaf;
}

QJsonObject createNode(const QString& name, const QJsonArray& children)
{
    return {{QStringLiteral("name"), name}, {QStringLiteral("_children"), children}};
}

// The children of a file's node; nextId is that of the next leaf.
QJsonArray createChildren(const QList<ConfigEntry>& entries, int& nextId)
{
    QJsonArray children;
    QMap<QString, QJsonArray> groups;
    for (const ConfigEntry& entry : entries) {
        QJsonArray& siblings = entry.group.isEmpty() ? children : groups[entry.group];
        siblings.append(createLeaf(entry, nextId++));
    }
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        children.append(createNode(group.key(), group.value()));
    }
    return children;
}

} // namespace

QByteArray createConfigData()
{
    return createConfigTree(QString::fromUtf8(configDirectory));
}

QByteArray createConfigTree(const QString& directory)
{
    QJsonArray tree;
    int nextId = 1;
    const auto files =
        QDir(directory).entryInfoList({QStringLiteral("*.conf")}, QDir::Files, byNameIgnoringCase);
    for (const QFileInfo& file : files) {
        const QString path = file.absoluteFilePath();
        logMessage(QStringLiteral("createConfigData for %1").arg(path), 1);
        ConfigFile config;
        if (parseConfigFile(config, path) && !config.entries.isEmpty()) {
            tree.append(createNode(path, createChildren(config.entries, nextId)));
        }
    }
    return renderJson(tree);
}

} // namespace kor::veltrano::daemons

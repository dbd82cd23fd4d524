#include "network/ConfigNodes.h"

namespace kor::veltrano::daemons {

QJsonObject inputNode(int id, const QString& name, const QString& value, const QString& tag)
{
    QJsonObject node{
        {QStringLiteral("id"), id},
        {QStringLiteral("name"), name},
        {QStringLiteral("value"), value},
        {QStringLiteral("type"), QStringLiteral("input")},
    };
    if (!tag.isEmpty()) {
        node[QLatin1String("tag")] = tag;
    }
    return node;
}

QJsonObject selectNode(int id, const QString& name, const QString& value, const QString& tag,
                       const QStringList& params)
{
    QJsonObject node = inputNode(id, name, value, tag);
    node[QLatin1String("type")] = QStringLiteral("select");
    node[QLatin1String("params")] = QJsonArray::fromStringList(params);
    return node;
}

} // namespace kor::veltrano::daemons

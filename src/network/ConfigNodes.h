// The leaves of the network trees.
#pragma once

#include <QJsonArray>
#include <QJsonObject>
#include <QString>
#include <QStringList>

namespace kor::veltrano::daemons {

// A free text. An empty tag is left out.
QJsonObject inputNode(int id, const QString& name, const QString& value, const QString& tag);

// A choice of params.
QJsonObject selectNode(int id, const QString& name, const QString& value, const QString& tag,
                       const QStringList& params);

} // namespace kor::veltrano::daemons

#include "support/Json.h"

#include <QJsonDocument>

namespace kor::veltrano::daemons {

QByteArray renderJson(const QJsonArray& array)
{
    return QJsonDocument(array).toJson();
}

QByteArray renderJson(const QJsonObject& object)
{
    return QJsonDocument(object).toJson();
}

} // namespace kor::veltrano::daemons

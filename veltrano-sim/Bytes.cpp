#include "Bytes.h"

#include <QString>

namespace kor::veltrano::sim {

namespace {

const QLatin1String textKey("text");
const QLatin1String base64Key("base64");

} // namespace

std::optional<QByteArray> toBytes(const QJsonObject& object)
{
    const QJsonValue text = object.value(textKey);
    const QJsonValue base64 = object.value(base64Key);
    if (object.size() != 1 || !(text.isString() || base64.isString())) {
        return std::nullopt;
    }
    if (text.isString()) {
        return text.toString().toUtf8();
    }
    const auto decoded = QByteArray::fromBase64Encoding(base64.toString().toUtf8(),
                                                        QByteArray::AbortOnBase64DecodingErrors);
    return decoded ? std::optional(*decoded) : std::nullopt;
}

QJsonObject fromBytes(const QByteArray& bytes)
{
    QJsonObject object{{base64Key, QString::fromLatin1(bytes.toBase64())}};
    const QString text = QString::fromUtf8(bytes.constData(), bytes.size());
    if (text.toUtf8() == bytes) {
        object.insert(textKey, text);
    }
    return object;
}

} // namespace kor::veltrano::sim

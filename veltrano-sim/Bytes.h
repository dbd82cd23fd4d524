// Bytes in the control door's JSON: an object with either text or base64. Free functions.
#pragma once

#include <QByteArray>
#include <QJsonObject>

#include <optional>

namespace kor::veltrano::sim {

// The bytes of an object with exactly one of text and base64; nothing where it has neither or both,
// a further member, or text that is no Base64.
std::optional<QByteArray> toBytes(const QJsonObject& object);
// Always base64, and also text where the bytes are UTF-8.
QJsonObject fromBytes(const QByteArray& bytes);

} // namespace kor::veltrano::sim

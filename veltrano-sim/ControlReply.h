// ControlReply: what a method of the control door answers, a result or an error. A plain value.
#pragma once

#include <QJsonObject>
#include <QString>

namespace kor::veltrano::sim {

struct ControlReply {
    QJsonObject result;
    // JSON-RPC's code of an error; 0 for a result.
    int errorCode = 0;
    QString errorText;

    static ControlReply ok(const QJsonObject& result = {}) { return {result, 0, {}}; }
    static ControlReply error(int code, const QString& text) { return {{}, code, text}; }
};

} // namespace kor::veltrano::sim

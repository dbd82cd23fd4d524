#include "ControlMethods.h"

#include "rpc/Message.h"

namespace kor::veltrano::sim {

QStringList ControlMethods::names() const
{
    QStringList result;
    for (const auto& entry : methods) {
        result.append(entry.first);
    }
    return result;
}

ControlReply ControlMethods::call(const QString& name, const QJsonObject& params) const
{
    const auto found = methods.find(name);
    if (found == methods.end()) {
        return ControlReply::error(rpc::methodNotFound,
                                   QStringLiteral("There is no method %1; known are %2")
                                       .arg(name, names().join(QStringLiteral(", "))));
    }
    Params reader(params);
    ControlReply reply = found->second(reader);
    if (reply.errorCode != 0) {
        reply.errorText = QStringLiteral("%1: %2").arg(name, reply.errorText);
    }
    return reply;
}

ControlReply ControlMethods::badParams(const QString& problem)
{
    return ControlReply::error(rpc::invalidParams, problem);
}

} // namespace kor::veltrano::sim

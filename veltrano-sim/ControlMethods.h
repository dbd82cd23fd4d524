// ControlMethods: the table of the methods that the control door offers.
//
// main fills it when it wires the program; the control door calls by name. Main thread only.
#pragma once

#include "ControlReply.h"
#include "Params.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <map>

namespace kor::veltrano::sim {

class ControlMethods
{
public:
    // Reads its params, gives the reason of a refusal as an error, and only then acts.
    using Method = std::function<ControlReply(Params& params)>;

    void add(const QString& name, const Method& method) { methods[name] = method; }
    QStringList names() const;
    // Gives -32601 where there is no such method.
    ControlReply call(const QString& name, const QJsonObject& params) const;

    // A method's answer to params that do not fit: -32602 and the problem.
    static ControlReply badParams(const QString& problem);

private:
    std::map<QString, Method> methods;
};

} // namespace kor::veltrano::sim

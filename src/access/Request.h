// Request: what the rows of both chains know of a request, and whether its caller may have one.
#pragma once

#include "access/Role.h"

#include <QMap>
#include <QString>

namespace kor::veltrano::daemons {

struct Request {
    // Percent-encoding untouched, as are the keys and values of the parameters.
    const QString& path;
    const QMap<QString, QString>& parameters;

    // The session identifier; empty where the client sends none.
    QString sid() const { return parameters.value(QStringLiteral("sid")); }

    // Whether the session's role is enough. Asks accessManager only where the access is limited.
    bool isGranted(Access access) const;
};

} // namespace kor::veltrano::daemons

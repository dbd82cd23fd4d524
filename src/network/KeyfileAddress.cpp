#include "network/KeyfileAddress.h"

#include <QDebug>

namespace kor::veltrano::daemons {

namespace {

// The text in front of the first separator, which goes with it; all of it, which then stays, where
// there is no separator.
QString takeUntil(QChar separator, QString& text)
{
    const int position = text.indexOf(separator);
    QString taken = text.left(position);
    text.remove(0, position + 1);
    qDebug() << text;
    return taken;
}

} // namespace

KeyfileAddress parseKeyfileAddress(QString text)
{
    KeyfileAddress result;
    result.address = takeUntil(QLatin1Char('/'), text);
    if (text.contains(QLatin1Char(','))) {
        result.netmask = takeUntil(QLatin1Char(','), text);
        result.gateway = text;
    } else {
        result.netmask = text;
        result.gateway = QStringLiteral("0.0.0.0");
    }
    return result;
}

} // namespace kor::veltrano::daemons

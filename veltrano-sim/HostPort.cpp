#include "HostPort.h"

namespace kor::veltrano::sim {

QString HostPort::text() const
{
    QString name = host.toString();
    if (host.protocol() == QAbstractSocket::IPv6Protocol) {
        name = QLatin1Char('[') + name + QLatin1Char(']');
    }
    return name + QLatin1Char(':') + QString::number(port);
}

std::optional<HostPort> toHostPort(const QString& text)
{
    const int colon = text.lastIndexOf(QLatin1Char(':'));
    if (colon < 0) {
        return std::nullopt;
    }
    bool isNumber = false;
    const quint16 port = text.mid(colon + 1).toUShort(&isNumber);
    QString name = text.left(colon);
    if (name.startsWith(QLatin1Char('[')) && name.endsWith(QLatin1Char(']'))) {
        name = name.mid(1, name.size() - 2);
    } else if (name.contains(QLatin1Char(':'))) {
        return std::nullopt;
    }
    const QHostAddress host = name == QLatin1String("localhost")
        ? QHostAddress(QHostAddress::LocalHost)
        : QHostAddress(name);
    if (!isNumber || host.isNull()) {
        return std::nullopt;
    }
    return HostPort{host, port};
}

} // namespace kor::veltrano::sim

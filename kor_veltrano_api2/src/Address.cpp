#include "Address.h"

namespace kor::veltrano::api2::detail {

namespace {

constexpr quint16 defaultPort = 12080;

std::optional<quint16> parsePort(const QByteArray& text)
{
    if (text.isEmpty()) {
        return defaultPort;
    }
    bool isNumber = false;
    const quint16 port = text.toUShort(&isNumber);
    return isNumber && port != 0 ? std::optional<quint16>(port) : std::nullopt;
}

} // namespace

std::optional<Address> parseAddress(const QByteArray& text)
{
    QByteArray host = text.trimmed();
    QByteArray portText;
    const int bracket = host.startsWith('[') ? host.indexOf(']') : -1;
    if (bracket > 0) {
        portText = host.mid(bracket + 1);
        host = host.mid(1, bracket - 1);
        if (!portText.isEmpty() && !portText.startsWith(':')) {
            return std::nullopt;
        }
        portText.remove(0, 1);
    } else if (host.count(':') == 1) {
        const int colon = host.indexOf(':');
        portText = host.mid(colon + 1);
        host.truncate(colon);
    }
    const std::optional<quint16> port = parsePort(portText);
    if (!port) {
        return std::nullopt;
    }
    return Address{host.isEmpty() ? "127.0.0.1" : host.toStdString(), *port};
}

} // namespace kor::veltrano::api2::detail

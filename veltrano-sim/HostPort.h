// HostPort: an address to listen on. A plain value.
#pragma once

#include <QHostAddress>
#include <QString>

#include <optional>

namespace kor::veltrano::sim {

struct HostPort {
    QHostAddress host;
    quint16 port = 0;

    // As "127.0.0.1:12080" or "[::1]:12080".
    QString text() const;
};

// Reads the form of text(); the host is an address or localhost, the port 0 to 65535.
std::optional<HostPort> toHostPort(const QString& text);

} // namespace kor::veltrano::sim

// Address: where the robot's server is.
#pragma once

#include <QByteArray>

#include <optional>
#include <string>

namespace kor::veltrano::api2::detail {

struct Address {
    std::string host;
    quint16 port = 0;
};

// Takes "host:port", "host", ":port" or an empty text, with 127.0.0.1 and 12080 for what is
// missing. An IPv6 address stands in brackets where a port follows it. Nothing where the port is no
// number from 1 to 65535.
std::optional<Address> parseAddress(const QByteArray& text);

} // namespace kor::veltrano::api2::detail

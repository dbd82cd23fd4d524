// Outputs: the command that digital outputs and relays have in common.
#pragma once

#include <QByteArray>

namespace kor::veltrano::api2::detail {

// Sends count values as 0 or 1. Dropped while the connection is down. Any thread.
void sendOutputs(const QByteArray& method, const int* values, unsigned int count);

} // namespace kor::veltrano::api2::detail

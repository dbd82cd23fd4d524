// EventParser: makes an event of a received notification.
#pragma once

#include "Events.h"

#include <QJsonObject>
#include <QString>

#include <optional>

namespace kor::veltrano::api2::detail {

// Nothing where the method is unknown or where any member is missing, of a wrong type or
// out of range. Any thread.
std::optional<Event> parseEvent(const QString& method, const QJsonObject& members);

} // namespace kor::veltrano::api2::detail

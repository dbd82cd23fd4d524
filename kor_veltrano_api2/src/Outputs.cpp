#include "Outputs.h"

#include "Library.h"

#include <QJsonArray>

namespace kor::veltrano::api2::detail {

void sendOutputs(const QString& method, const int* values, unsigned int count)
{
    QJsonArray bits;
    for (unsigned int i = 0; i < count; ++i) {
        bits.append(values[i] != 0 ? 1 : 0);
    }
    library().hub.sendCommand(method, {{QStringLiteral("values"), bits}});
}

} // namespace kor::veltrano::api2::detail

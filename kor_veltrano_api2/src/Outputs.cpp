#include "Outputs.h"

#include "Library.h"

namespace kor::veltrano::api2::detail {

void sendOutputs(const QByteArray& method, const int* values, unsigned int count)
{
    QByteArray params = R"({"values":[)";
    for (unsigned int i = 0; i < count; ++i) {
        params += i == 0 ? "" : ",";
        params += values[i] != 0 ? '1' : '0';
    }
    library().hub.sendCommand(method, params + "]}");
}

} // namespace kor::veltrano::api2::detail

#include "robot/MyDigitalInputArray.h"

#include "support/Json.h"

#include <vector>

namespace kor::veltrano::daemons {

MyDigitalInputArray* digitalInputArray = nullptr;

QByteArray createDigitalInputArrayData()
{
    std::vector<int> values(api2::DigitalInputArray::numDigitalInputs());
    digitalInputArray->values(values.data());
    QJsonArray array;
    for (const int value : values) {
        array.append(value > 0);
    }
    return renderJson(array);
}

} // namespace kor::veltrano::daemons

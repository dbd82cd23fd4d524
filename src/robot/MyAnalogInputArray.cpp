#include "robot/MyAnalogInputArray.h"

#include "support/Json.h"

#include <vector>

namespace kor::veltrano::daemons {

MyAnalogInputArray* analogInputArray = nullptr;

QByteArray createAnalogInputArrayData()
{
    std::vector<float> values(api2::AnalogInputArray::numAnalogInputs());
    analogInputArray->values(values.data());
    QJsonArray array;
    for (const float value : values) {
        array.append(double(value));
    }
    return renderJson(array);
}

} // namespace kor::veltrano::daemons

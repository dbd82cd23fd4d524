#include "robot/MyDistanceSensorArray.h"

#include "support/Json.h"

#include <array>

namespace kor::veltrano::daemons {

MyDistanceSensorArray* distanceSensorArray = nullptr;

QByteArray createDistanceSensorArrayData()
{
    // The library has no operation that tells their number.
    std::array<float, 9> distances = {};
    distanceSensorArray->distances(distances.data());
    QJsonArray array;
    for (const float distance : distances) {
        array.append(double(distance));
    }
    return renderJson(array);
}

} // namespace kor::veltrano::daemons

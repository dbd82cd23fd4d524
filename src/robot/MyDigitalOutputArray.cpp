#include "robot/MyDigitalOutputArray.h"

#include "robot/Switches.h"

namespace kor::veltrano::daemons {

MyDigitalOutputArray* digitalOutputArray = nullptr;

bool MyDigitalOutputArray::setData(const QByteArray& data)
{
    return applySwitches(data, {8, "8"}, [this](const int* values, unsigned int count) {
        setValues(values, count);
    });
}

} // namespace kor::veltrano::daemons

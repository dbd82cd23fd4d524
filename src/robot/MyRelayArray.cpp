#include "robot/MyRelayArray.h"

#include "robot/Switches.h"

namespace kor::veltrano::daemons {

MyRelayArray* relayArray = nullptr;

bool MyRelayArray::setData(const QByteArray& data)
{
    return applySwitches(data, {2, "two"}, [this](const int* values, unsigned int count) {
        setValues(values, count);
    });
}

} // namespace kor::veltrano::daemons

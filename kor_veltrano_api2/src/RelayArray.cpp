#include "kor/veltrano/api2/RelayArray.h"

#include "Outputs.h"

namespace kor::veltrano::api2 {

RelayArray::RelayArray() = default;

RelayArray::~RelayArray() = default;

void RelayArray::setValues(const int* values, unsigned int count)
{
    detail::sendOutputs(QByteArrayLiteral("relayArray.setValues"), values, count);
}

} // namespace kor::veltrano::api2

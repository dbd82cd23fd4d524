#include "kor/veltrano/api2/DigitalOutputArray.h"

#include "Outputs.h"

namespace kor::veltrano::api2 {

DigitalOutputArray::DigitalOutputArray() = default;

DigitalOutputArray::~DigitalOutputArray() = default;

void DigitalOutputArray::setValues(const int* values, unsigned int count)
{
    detail::sendOutputs(QByteArrayLiteral("digitalOutputArray.setValues"), values, count);
}

} // namespace kor::veltrano::api2

#include "Sensor.h"

#include "Problem.h"
#include "Value.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kor::veltrano::lumview {

namespace {

int highestNumber(Sensor sensor)
{
    switch (sensor) {
    case Sensor::Odometry:
        return 5;
    case Sensor::Distance:
        return 8;
    case Sensor::Analog:
    case Sensor::Digital:
        return 7;
    case Sensor::Bumper:
        break;
    }
    return 0;
}

} // namespace

void checkNumber(Sensor sensor, double number)
{
    const int highest = highestNumber(sensor);
    if (number < 0 || number > highest || number != std::floor(number)) {
        throw Problem("expected the number of a sensor, a whole one from 0 to "
                      + std::to_string(highest) + ", but found " + Value(number).text());
    }
}

int odometryNumber(const std::string& name)
{
    static const std::array<const char*, 6> names{"x", "y", "phi", "vx", "vy", "omega"};
    const auto* found = std::find(names.begin(), names.end(), name);
    return found == names.end() ? -1 : int(found - names.begin());
}

} // namespace kor::veltrano::lumview

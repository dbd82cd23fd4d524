#include "robot/MyFestoolCharger.h"

namespace kor::veltrano::daemons {

MyFestoolCharger* festoolCharger = nullptr;

} // namespace kor::veltrano::daemons

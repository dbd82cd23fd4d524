#include "robot/MyControllerInfo.h"

namespace kor::veltrano::daemons {

MyControllerInfo* controllerInfo = nullptr;

} // namespace kor::veltrano::daemons

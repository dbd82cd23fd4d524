#include "daemon/MyLogHandler.h"

namespace kor::veltrano::daemons {

MyLogHandler* logHandler = nullptr;

MyLogHandler::~MyLogHandler() = default;

} // namespace kor::veltrano::daemons

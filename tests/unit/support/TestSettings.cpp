// The settings of test programs that link no daemon frame, which defines them in the daemon.
#include "config/ConfigFile.h"

namespace kor::veltrano::daemons {

ConfigFile settings;

} // namespace kor::veltrano::daemons

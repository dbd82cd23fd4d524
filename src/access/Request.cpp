#include "access/Request.h"

#include "access/AccessManager.h"

namespace kor::veltrano::daemons {

bool Request::isGranted(Access access) const
{
    return access == Access::Anyone || isPermitted(access, accessManager->role(sid()));
}

} // namespace kor::veltrano::daemons

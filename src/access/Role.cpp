#include "access/Role.h"

namespace kor::veltrano::daemons {

QString roleName(int role)
{
    switch (role) {
    case operatorRole:
        return QStringLiteral("operator");
    case admin:
        return QStringLiteral("admin");
    default:
        return QStringLiteral("guest");
    }
}

int roleNumber(const QString& name)
{
    for (const int role : {operatorRole, admin}) {
        if (name == roleName(role)) {
            return role;
        }
    }
    return guest;
}

bool isPermitted(Access access, int role)
{
    switch (access) {
    case Access::OperatorOrHigher:
        return role >= operatorRole;
    case Access::ExactlyAdmin:
        return role == admin;
    case Access::Anyone:
        break;
    }
    return true;
}

} // namespace kor::veltrano::daemons

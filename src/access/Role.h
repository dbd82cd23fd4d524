// The roles that a client can have, and what a path may ask of them.
#pragma once

#include <QString>

namespace kor::veltrano::daemons {

// Their order carries meaning: a higher number may do more. Plain integers, as sessions store them.
enum Role : int { guest = 0, operatorRole = 1, admin = 2 };

// "operator" and "admin" for their numbers, "guest" for any other.
QString roleName(int role);

// The number of a name, compared with case; guest for every other text.
int roleNumber(const QString& name);

// What a row of the read or write chain asks of its caller.
enum class Access { Anyone, OperatorOrHigher, ExactlyAdmin };

// Whether a caller with this role may have what asks for this access.
bool isPermitted(Access access, int role);

} // namespace kor::veltrano::daemons

#include "access/Role.h"

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

TEST(RoleTest, NumbersHaveNames)
{
    EXPECT_EQ(roleName(1), "operator");
    EXPECT_EQ(roleName(2), "admin");
    for (const int other : {0, -1, 3}) {
        EXPECT_EQ(roleName(other), "guest");
    }
}

TEST(RoleTest, NamesAreComparedWithCase)
{
    EXPECT_EQ(roleNumber("operator"), 1);
    EXPECT_EQ(roleNumber("admin"), 2);
    for (const char* other : {"guest", "", "Admin", "OPERATOR", "administrator"}) {
        EXPECT_EQ(roleNumber(other), 0) << other;
    }
}

TEST(RoleTest, AnAccessIsPermittedFromItsRoleOn)
{
    for (const int role : {0, 1, 2}) {
        EXPECT_TRUE(isPermitted(Access::Anyone, role));
        EXPECT_EQ(isPermitted(Access::OperatorOrHigher, role), role >= 1);
        EXPECT_EQ(isPermitted(Access::ExactlyAdmin, role), role == 2);
    }
}

} // namespace
} // namespace kor::veltrano::daemons

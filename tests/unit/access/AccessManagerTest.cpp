#include "access/AccessManager.h"

#include "access/Role.h"
#include "config/ConfigFile.h"

#include "support/LogFixture.h"

#include <QJsonDocument>
#include <QJsonObject>

#include <atomic>
#include <thread>
#include <vector>

namespace kor::veltrano::daemons {
namespace {

class AccessManagerTest : public LogFixture
{
protected:
    AccessManagerTest() { setPasswords(QStringLiteral("op"), QStringLiteral("ad")); }
    ~AccessManagerTest() override { settings = ConfigFile(); }

    static void setPasswords(const QString& ofOperator, const QString& ofAdministrator)
    {
        settings.values[QStringLiteral("Login/operator")] = ofOperator;
        settings.values[QStringLiteral("Login/administrator")] = ofAdministrator;
    }

    // Posts a login as a client does and gives the reply's message.
    static QString logIn(AccessManager& manager, const QString& sid, const QByteArray& body)
    {
        QByteArray result;
        EXPECT_TRUE(manager.setData(body, {{QStringLiteral("sid"), sid}}, result));
        const QJsonObject reply = QJsonDocument::fromJson(result).object();
        EXPECT_TRUE(reply.value(QLatin1String("success")).toBool()) << result.constData();
        return reply.value(QLatin1String("message")).toString();
    }
};

const char* const operatorLogin = R"({"role":"operator","password":"op"})";
const char* const adminLogin = R"({"role":"admin","password":"ad"})";

TEST_F(AccessManagerTest, TheDefaultRoleFollowsThePasswordsAtTheStart)
{
    EXPECT_EQ(AccessManager().role("any"), guest);
    setPasswords("", "ad");
    EXPECT_EQ(AccessManager().role("any"), operatorRole);
    setPasswords("op", "");
    EXPECT_EQ(AccessManager().role("any"), admin);
    settings.values.clear();
    EXPECT_EQ(AccessManager().role(""), admin);
}

TEST_F(AccessManagerTest, TheDefaultRoleStaysWhenPasswordsChange)
{
    AccessManager manager;
    setPasswords("", "");
    EXPECT_EQ(manager.role("any"), guest);
}

TEST_F(AccessManagerTest, TheRightPasswordGivesTheRole)
{
    AccessManager manager;
    EXPECT_EQ(manager.login("s", operatorRole, "op"), operatorRole);
    EXPECT_EQ(manager.role("s"), operatorRole);
    EXPECT_EQ(manager.login("s", admin, "ad"), admin);
    EXPECT_EQ(manager.role("s"), admin);
}

TEST_F(AccessManagerTest, AWrongPasswordLeavesTheSessionAlone)
{
    AccessManager manager;
    manager.login("s", operatorRole, "op");
    EXPECT_EQ(manager.login("s", admin, "AD"), guest);
    EXPECT_EQ(manager.role("s"), operatorRole);
}

TEST_F(AccessManagerTest, ARequestForARoleNotAboveTheDefaultLogsOut)
{
    AccessManager manager;
    manager.login("s", admin, "ad");
    EXPECT_EQ(manager.login("s", guest, ""), guest);
    EXPECT_EQ(manager.role("s"), guest);
}

TEST_F(AccessManagerTest, ANumberThatIsNoRoleLogsOut)
{
    AccessManager manager;
    manager.login("s", admin, "ad");
    EXPECT_EQ(manager.login("s", 3, "ad"), guest);
    EXPECT_EQ(manager.role("s"), guest);
}

TEST_F(AccessManagerTest, APasswordEmptiedWhileRunningIsMatchedByAnEmptyOne)
{
    AccessManager manager;
    setPasswords("", "ad");
    EXPECT_EQ(manager.login("s", operatorRole, "op"), guest);
    EXPECT_EQ(manager.login("s", operatorRole, ""), operatorRole);
}

TEST_F(AccessManagerTest, SessionsAreApartAndTheEmptyOneIsShared)
{
    AccessManager manager;
    QByteArray result;
    logIn(manager, "a", operatorLogin);
    logIn(manager, "b", adminLogin);
    manager.setData(operatorLogin, {}, result);
    EXPECT_EQ(manager.role("a"), operatorRole);
    EXPECT_EQ(manager.role("b"), admin);
    EXPECT_EQ(manager.role("c"), guest);
    EXPECT_EQ(manager.role(""), operatorRole);
}

TEST_F(AccessManagerTest, TheReplyIsAnIndentedObjectAndTheMessageIsLogged)
{
    AccessManager manager;
    QByteArray result;
    EXPECT_TRUE(manager.setData(operatorLogin, {{"sid", "s"}}, result));
    EXPECT_EQ(result, "{\n    \"message\": \"Logged in as operator\",\n    \"success\": true\n}\n");
    EXPECT_EQ(logLines(), QStringList("Logged in as operator"));
}

TEST_F(AccessManagerTest, AFailedLoginNamesTheDefaultRole)
{
    AccessManager manager;
    logIn(manager, "s", operatorLogin);
    EXPECT_EQ(logIn(manager, "s", R"({"role":"admin","password":"wrong"})"), "Logged in as guest");
    EXPECT_EQ(manager.role("s"), operatorRole);
}

TEST_F(AccessManagerTest, WithoutPasswordsAnyLoginNamesAdmin)
{
    settings.values.clear();
    AccessManager manager;
    EXPECT_EQ(logIn(manager, "s", operatorLogin), "Logged in as admin");
    EXPECT_EQ(logIn(manager, "s", "{}"), "Logged in as admin");
}

TEST_F(AccessManagerTest, ARoleInCapitalsCountsAsGuest)
{
    AccessManager manager;
    logIn(manager, "s", operatorLogin);
    EXPECT_EQ(logIn(manager, "s", R"({"role":"Operator","password":"op"})"), "Logged in as guest");
    EXPECT_EQ(manager.role("s"), guest);
}

TEST_F(AccessManagerTest, AnArrayClearsTheSession)
{
    AccessManager manager;
    logIn(manager, "s", operatorLogin);
    EXPECT_EQ(logIn(manager, "s", "[1]"), "Logged in as guest");
    EXPECT_EQ(manager.role("s"), guest);
}

TEST_F(AccessManagerTest, FieldsThatAreNoStringsReadAsEmpty)
{
    AccessManager manager;
    EXPECT_EQ(logIn(manager, "s", R"({"role":2,"password":["ad"]})"), "Logged in as guest");
}

TEST_F(AccessManagerTest, ABodyThatIsNoJsonFailsAndLeavesTheSessionAlone)
{
    AccessManager manager;
    logIn(manager, "s", operatorLogin);
    QByteArray result;
    EXPECT_TRUE(manager.setData("{", {{"sid", "s"}}, result));
    EXPECT_EQ(result,
              "{\n    \"message\": \"Error: AccessManager::setData - Invalid JSON: "
              "unterminated object\",\n    \"success\": false\n}\n");
    EXPECT_EQ(logLines().last(),
              "Error: AccessManager::setData - Invalid JSON: unterminated object");
    EXPECT_EQ(manager.role("s"), operatorRole);
}

TEST_F(AccessManagerTest, ManyThreadsLogInAndAskAtOnce)
{
    AccessManager manager;
    std::atomic<int> right = 0;
    std::vector<std::thread> threads;
    for (int number = 0; number < 4; ++number) {
        threads.emplace_back([&manager, &right, number] {
            for (int round = 0; round < 500; ++round) {
                const QString sid = QStringLiteral("%1-%2").arg(number).arg(round);
                manager.login(sid, operatorRole, "op");
                right += manager.role(sid) == operatorRole ? 1 : 0;
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_EQ(right, 2000);
}

} // namespace
} // namespace kor::veltrano::daemons

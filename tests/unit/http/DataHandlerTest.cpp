#include "http/DataHandler.h"

#include "access/AccessManager.h"
#include "config/ConfigFile.h"

#include "support/LogFixture.h"

namespace kor::veltrano::daemons {
namespace {

class DataHandlerTest : public LogFixture
{
protected:
    DataHandlerTest()
    {
        settings.values = {{"Login/administrator", "ad"}, {"Login/operator", "op"}};
        manager = std::make_unique<AccessManager>();
        accessManager = manager.get();
    }
    ~DataHandlerTest() override
    {
        accessManager = nullptr;
        settings = ConfigFile();
    }

    std::unique_ptr<AccessManager> manager;
    DataHandler dataHandler;
    QByteArray result;
};

TEST_F(DataHandlerTest, AKnownPathIsAnswered)
{
    EXPECT_EQ(dataHandler.data("/data/userrole", {}), "{\n    \"role\": \"guest\"\n}\n");
    EXPECT_TRUE(logLines().isEmpty());
}

TEST_F(DataHandlerTest, APathIsComparedWholeAndWithCase)
{
    for (const char* path : {"/data", "/data/", "/data/userrole/", "/data/UserRole", "/database"}) {
        EXPECT_EQ(dataHandler.data(path, {}), QByteArray()) << path;
        EXPECT_EQ(logLines().last(), QStringLiteral("invalid -- %1").arg(path));
    }
}

TEST_F(DataHandlerTest, AnUnknownWriteFailsWithoutAText)
{
    EXPECT_FALSE(dataHandler.setData("/elsewhere", {}, "[]", result));
    EXPECT_TRUE(result.isEmpty());
    EXPECT_EQ(logLines(), QStringList("Error: DataHandler::setData with path /elsewhere"));
}

TEST_F(DataHandlerTest, ARefusedWriteLooksLikeAnUnknownOne)
{
    EXPECT_FALSE(dataHandler.setData("/data/relayarray", {{"sid", "x"}}, "[1,1]", result));
    EXPECT_TRUE(result.isEmpty());
    EXPECT_EQ(logLines(), QStringList("Error: DataHandler::setData with path /data/relayarray"));
}

TEST_F(DataHandlerTest, ALoginPutsItsReplyIntoTheResult)
{
    EXPECT_TRUE(dataHandler.setData("/data/login", {{"sid", "x"}},
                                    R"({"role":"admin","password":"ad"})", result));
    EXPECT_TRUE(result.contains("Logged in as admin"));
    EXPECT_EQ(dataHandler.data("/data/userrole", {{"sid", "x"}}),
              "{\n    \"role\": \"admin\"\n}\n");
}

TEST_F(DataHandlerTest, PathsAndBodiesAreLoggedAtLevelTwo)
{
    openLog(2);
    dataHandler.data("/data/userrole", {});
    dataHandler.setData("/data/%2", {}, QByteArray("body %1\0hidden", 14), result);
    EXPECT_EQ(logLines().mid(1),
              (QStringList{"DataHandler::data with path /data/userrole",
                           "DataHandler::setData with path /data/%2 and data body %1",
                           "Error: DataHandler::setData with path /data/%2"}));
}

} // namespace
} // namespace kor::veltrano::daemons

// Ends of a process that has not called shutdown(). Each runs as a program of its own, which must
// end at once, with its own exit code and without a word of a sanitizer.
#include "RecordingCom.h"

#include "kor/veltrano/api2/Bumper.h"
#include "kor/veltrano/api2/Camera.h"

#include <cstdlib>

using namespace kor::veltrano::api2;

namespace {

class ProcessExitTest : public testing::Test
{
protected:
    void SetUp() override { testing::FLAGS_gtest_death_test_style = "threadsafe"; }
};

// Connects without a destructor that would end anything.
Com* connectWithoutEnd(ScriptedServer* server)
{
    auto* com = new RecordingCom;
    com->setAddress(server->address().constData());
    com->setAutoReconnectEnabled(true);
    com->connectToServer(false);
    return com;
}

[[noreturn]] void exitWhileConnected()
{
    static ScriptedServer server;
    static const Com* com = connectWithoutEnd(&server);
    static ScriptedPeer peer = server.acceptAndGreet();
    static const Camera camera(com->id());
    peer.sync();
    std::exit(7);
}

[[noreturn]] void exitWhileTryingToConnect()
{
    static ScriptedServer server;
    server.stopListening();
    static const Com* com = connectWithoutEnd(&server);
    std::exit(com == nullptr ? 1 : 7);
}

[[noreturn]] void exitWithStaticObjects()
{
    static ScriptedServer server;
    static RecordingCom com;
    static const Bumper bumper;
    com.setAddress(server.address().constData());
    com.connectToServer(false);
    static const Camera madeLater(com.id());
    static ScriptedPeer peer = server.acceptAndGreet();
    peer.sync();
    std::exit(7);
}

// Made before the connection, and so destroyed when the library's thread must already have ended.
struct WatchesTheEnd {
    ~WatchesTheEnd()
    {
        if (!peer->isEndedWithin(std::chrono::seconds(0))) {
            std::_Exit(1);
        }
    }

    std::optional<ScriptedPeer> peer;
};

[[noreturn]] void exitWithAWitness()
{
    static ScriptedServer server;
    static WatchesTheEnd witness;
    static const Com* com = connectWithoutEnd(&server);
    witness.peer.emplace(server.acceptAndGreet());
    witness.peer->sync();
    std::exit(com == nullptr ? 1 : 7);
}

// Calls connectToServer() when no thread may be started any more.
struct ConnectsAtTheEnd {
    ~ConnectsAtTheEnd()
    {
        RecordingCom com;
        com.setAddress(server.address().constData());
        com.connectToServer(true);
        if (server.acceptWithin(std::chrono::milliseconds(200))) {
            std::_Exit(1);
        }
    }

    ScriptedServer server;
};

[[noreturn]] void exitWithALateConnection()
{
    static const ConnectsAtTheEnd late;
    exitWhileConnected();
}

[[noreturn]] void exitInsideAHandler()
{
    struct ExitingBumper : Bumper {
        void bumperEvent(bool) override { std::exit(7); }
    };
    static ScriptedServer server;
    static Com* com = connectWithoutEnd(&server);
    static const ExitingBumper bumper;
    static ScriptedPeer peer = server.acceptAndGreet();
    peer.notify("bumper.changed", R"({"value":true})");
    peer.sync();
    com->processEvents();
    std::exit(1);
}

TEST_F(ProcessExitTest, WhileConnected)
{
    EXPECT_EXIT(exitWhileConnected(), testing::ExitedWithCode(7), "^$");
}

TEST_F(ProcessExitTest, WhileTryingToConnect)
{
    EXPECT_EXIT(exitWhileTryingToConnect(), testing::ExitedWithCode(7), "^$");
}

TEST_F(ProcessExitTest, WithObjectsInStaticVariables)
{
    EXPECT_EXIT(exitWithStaticObjects(), testing::ExitedWithCode(7), "^$");
}

TEST_F(ProcessExitTest, EndsTheConnectionBeforeOlderStaticVariablesGo)
{
    EXPECT_EXIT(exitWithAWitness(), testing::ExitedWithCode(7), "^$");
}

TEST_F(ProcessExitTest, WithAStaticObjectThatConnectsInItsDestructor)
{
    EXPECT_EXIT(exitWithALateConnection(), testing::ExitedWithCode(7), "^$");
}

TEST_F(ProcessExitTest, InsideAHandler)
{
    EXPECT_EXIT(exitInsideAHandler(), testing::ExitedWithCode(7), "^$");
}

} // namespace

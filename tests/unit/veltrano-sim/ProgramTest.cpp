// The program as a process of its own: what it prints and how it ends.

#include "WorldFile.h"
#include "support/RawClient.h"
#include "support/TestRobot.h"
#include "support/waiting.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>

using namespace kor::veltrano::sim;

namespace {

constexpr int deadlineMs = 20000;

class Program
{
public:
    explicit Program(const QStringList& arguments)
    {
        process.start(QStringLiteral(SIMULATOR_PATH), arguments);
        EXPECT_TRUE(process.waitForStarted(deadlineMs));
    }

    // The port that a line names which begins so.
    quint16 portAfter(const QString& beginning)
    {
        while (!process.canReadLine() && process.waitForReadyRead(deadlineMs)) { }
        const QString line = QString::fromUtf8(process.readLine());
        const QRegularExpression form(
            QStringLiteral("^%1 127\\.0\\.0\\.1:(\\d+)\n$").arg(beginning));
        const QRegularExpressionMatch match = form.match(line);
        EXPECT_TRUE(match.hasMatch()) << line.toStdString();
        return match.captured(1).toUShort();
    }

    // The exit code, or -1 where the program has not ended or has crashed.
    int wait()
    {
        const bool hasEnded = process.waitForFinished(deadlineMs);
        return hasEnded && process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
    }

    QProcess process;
};

std::string errorOf(const QStringList& arguments)
{
    Program program(arguments);
    EXPECT_EQ(program.wait(), 1);
    EXPECT_EQ(program.process.readAllStandardOutput().toStdString(), "");
    return program.process.readAllStandardError().toStdString();
}

const QString anyPort = QStringLiteral("--listen=127.0.0.1:0");
const QString listening = QStringLiteral("veltrano-sim: listening on");

} // namespace

class StopSignalTest : public testing::TestWithParam<int>
{
};

TEST_P(StopSignalTest, EndsTheProgramInOrderAndInSilence)
{
    Program program({anyPort});
    EXPECT_NE(program.portAfter(listening), 0);
    ASSERT_EQ(kill(static_cast<pid_t>(program.process.processId()), GetParam()), 0);
    EXPECT_EQ(program.wait(), 0);
    EXPECT_EQ(program.process.readAllStandardError().toStdString(), "");
    EXPECT_EQ(program.process.readAllStandardOutput().toStdString(), "");
}

INSTANTIATE_TEST_SUITE_P(Program, StopSignalTest, testing::Values(SIGINT, SIGTERM));

TEST(ProgramTest, TellsWhereItsDoorsAreAndServesThem)
{
    Program program({anyPort, QStringLiteral("--control=127.0.0.1:0"), QStringLiteral("--seed=3")});
    RawClient client(program.portAfter(listening));
    RawClient control(program.portAfter(QStringLiteral("veltrano-sim: control door on")));
    client.open();
    EXPECT_TRUE(client.nextOf(QStringLiteral("odometry.readings")).isObject());
    control.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"state.get"})");
    EXPECT_EQ(control.answer(1)["result"]["world"].toString().toStdString(), "room");
    control.sendLine(R"({"jsonrpc":"2.0","id":2,"method":"sim.quit"})");
    EXPECT_TRUE(control.answer(2).isObject());
    EXPECT_EQ(program.wait(), 0);
    EXPECT_EQ(program.process.readAllStandardError().toStdString(), "");
}

TEST(ProgramTest, ReadsAWorldFile)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("yard.json"));
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(R"({"name":"yard","start":{"x":7,"y":0,"phi":0},"walls":[]})");
    file.close();
    Program program(
        {anyPort, QStringLiteral("--control=127.0.0.1:0"), QStringLiteral("--world=") + path});
    program.portAfter(listening);
    RawClient control(program.portAfter(QStringLiteral("veltrano-sim: control door on")));
    control.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"state.get"})");
    const QJsonObject state = control.answer(1)["result"].toObject();
    EXPECT_EQ(state["world"].toString().toStdString(), "yard");
    EXPECT_EQ(state["pose"]["x"].toInt(), 7);
    control.sendLine(R"({"jsonrpc":"2.0","id":2,"method":"sim.quit"})");
    EXPECT_TRUE(control.answer(2).isObject());
    EXPECT_EQ(program.wait(), 0);
}

TEST(ProgramTest, SaysWhyItCannotStart)
{
    EXPECT_EQ(errorOf({QStringLiteral("--seed=x")}),
              "veltrano-sim: --seed=x is no whole number of 0 or above; see --help\n");
    EXPECT_EQ(errorOf({QStringLiteral("--world=/nowhere")}),
              "veltrano-sim: /nowhere: No such file or directory\n");
    EXPECT_EQ(errorOf({anyPort, QStringLiteral("--record=/nowhere/commands")}),
              "veltrano-sim: cannot record in /nowhere/commands: No such file or directory\n");
    TestRobot robot;
    const QString taken = robot.server.address().text();
    const std::string reason = ": The bound address is already in use\n";
    EXPECT_EQ(errorOf({QStringLiteral("--listen=") + taken}),
              "veltrano-sim: cannot listen on " + taken.toStdString() + reason);
    EXPECT_EQ(errorOf({anyPort, QStringLiteral("--control=") + taken}),
              "veltrano-sim: cannot listen on " + taken.toStdString() + reason);
}

TEST(ProgramTest, HelpNamesOptionsAndMethods)
{
    Program program({QStringLiteral("--help")});
    EXPECT_EQ(program.wait(), 0);
    const QString help = QString::fromUtf8(program.process.readAllStandardOutput());
    EXPECT_TRUE(help.contains(QStringLiteral("--world")));
    EXPECT_TRUE(help.contains(QStringLiteral("state.release")));
}

TEST(ProgramTest, TheShippedWorldsAreTheBuiltInOnes)
{
    for (const QString& name : builtInWorlds()) {
        QFile file(QStringLiteral(WORLDS_PATH "/%1.json").arg(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        QFile builtIn(worldPath(name));
        ASSERT_TRUE(builtIn.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), builtIn.readAll());
    }
}

TEST(ProgramTest, TakesABuiltInWorldByItsName)
{
    Program program(
        {anyPort, QStringLiteral("--control=127.0.0.1:0"), QStringLiteral("--world=maze")});
    program.portAfter(listening);
    RawClient control(program.portAfter(QStringLiteral("veltrano-sim: control door on")));
    control.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"state.get"})");
    EXPECT_EQ(control.answer(1)["result"]["world"].toString().toStdString(), "maze");
    control.sendLine(R"({"jsonrpc":"2.0","id":2,"method":"sim.quit"})");
    EXPECT_TRUE(control.answer(2).isObject());
    EXPECT_EQ(program.wait(), 0);
}

TEST(ProgramTest, RecordsCommandsAsTheyComeAndLosesNoneWhenItIsStopped)
{
    const QTemporaryDir folder;
    QFile record(folder.filePath(QStringLiteral("commands")));
    Program program({anyPort, QStringLiteral("--control=127.0.0.1:0"),
                     QStringLiteral("--record=") + record.fileName()});
    RawClient client(program.portAfter(listening));
    RawClient control(program.portAfter(QStringLiteral("veltrano-sim: control door on")));
    ASSERT_TRUE(record.open(QIODevice::ReadOnly)) << "it is there from the start";
    EXPECT_EQ(record.size(), 0);
    client.open();
    client.sendLine(
        R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":1,"vy":0,"omega":0}})");
    client.sendLine(R"({"jsonrpc":"2.0","method":"omniDrive.honk","params":{}})");
    client.untilPing();
    control.sendLine(R"({"jsonrpc":"2.0","id":1,"method":"commands.list"})");
    const QJsonArray listed = control.answer(1)["result"]["commands"].toArray();
    ASSERT_EQ(listed.size(), 2);
    for (const QJsonValue& command : listed) {
        EXPECT_EQ(QJsonDocument::fromJson(record.readLine()).object(), command.toObject());
    }
    EXPECT_EQ(listed.at(1)["carriedOut"], QJsonValue(false));
    // The program finds these together with the signal.
    const auto pid = static_cast<pid_t>(program.process.processId());
    ASSERT_EQ(kill(pid, SIGSTOP), 0);
    for (int count = 0; count < 1000; ++count) {
        client.sendLine(R"({"jsonrpc":"2.0","method":"camera.unsubscribe","params":{}})");
    }
    EXPECT_TRUE(waitUntil([&client] { return client.hasSent(); }));
    ASSERT_EQ(kill(pid, SIGTERM), 0);
    ASSERT_EQ(kill(pid, SIGCONT), 0);
    EXPECT_EQ(program.wait(), 0);
    EXPECT_EQ(record.readAll().count('\n'), 1000);
}

TEST(ProgramTest, SaysOnceThatItCannotRecordAndDrivesOn)
{
    Program program({anyPort, QStringLiteral("--record=/dev/full")});
    RawClient client(program.portAfter(listening));
    client.open();
    for (int count = 0; count < 3; ++count) {
        client.sendLine(
            R"({"jsonrpc":"2.0","method":"omniDrive.setVelocity","params":{"vx":1,"vy":0,"omega":0}})");
    }
    while (client.nextOf(QStringLiteral("odometry.readings"))["params"]["x"].toDouble() < 0.05) { }
    ASSERT_EQ(kill(static_cast<pid_t>(program.process.processId()), SIGTERM), 0);
    EXPECT_EQ(program.wait(), 0);
    EXPECT_EQ(program.process.readAllStandardError().toStdString(),
              "veltrano-sim: cannot record in /dev/full: No space left on device\n");
}

TEST(ProgramTest, AStartThatFailsLeavesTheRecordOfAnotherAlone)
{
    const QTemporaryDir folder;
    QFile record(folder.filePath(QStringLiteral("commands")));
    ASSERT_TRUE(record.open(QIODevice::ReadWrite));
    record.write("of another");
    record.flush();
    TestRobot robot;
    errorOf({QStringLiteral("--listen=") + robot.server.address().text(),
             QStringLiteral("--record=") + record.fileName()});
    EXPECT_EQ(record.size(), 10);
}

TEST(ProgramTest, ThePageDescribesEveryMethodAndEveryMemberOfTheState)
{
    QFile file(QStringLiteral(PAGE_PATH));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString page = QString::fromUtf8(file.readAll());
    const TestRobot robot;
    const QStringList names =
        robot.methods.names() + robot.call(QStringLiteral("state.get")).keys();
    for (const QString& name : names) {
        EXPECT_TRUE(page.contains(QStringLiteral("`%1`").arg(name))) << name.toStdString();
    }
}

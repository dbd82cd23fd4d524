// The program as a process of its own: what it prints and how it ends.

#include "WorldFile.h"
#include "support/RawClient.h"
#include "support/TestRobot.h"

#include <QFile>
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

TEST(ProgramTest, TheShippedRoomIsTheBuiltInOne)
{
    QFile file(QStringLiteral(WORLDS_PATH "/room.json"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    QFile builtIn(worldPath(QStringLiteral("room")));
    ASSERT_TRUE(builtIn.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), builtIn.readAll());
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

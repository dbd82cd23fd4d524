#include "CommandFile.h"

#include <QFile>
#include <QJsonDocument>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

using namespace kor::veltrano::sim;

namespace {

class CommandFileTest : public testing::Test
{
protected:
    static QByteArray content(const QString& path)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    static QJsonObject command(const char* method)
    {
        return {{QStringLiteral("method"), QString::fromLatin1(method)}};
    }

    QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("commands"));
    QStringList complaints;
    CommandFile record{[this](const QString& text) { complaints.append(text); }};
};

} // namespace

TEST_F(CommandFileTest, HasEachCommandInALineOfItsOwnAtOnce)
{
    ASSERT_EQ(record.open(path).toStdString(), "");
    record.write(command("a\nb"));
    EXPECT_EQ(content(path).toStdString(), "{\"method\":\"a\\nb\"}\n");
    record.write(command("c"));
    EXPECT_EQ(content(path).toStdString(), "{\"method\":\"a\\nb\"}\n{\"method\":\"c\"}\n");
    EXPECT_TRUE(complaints.isEmpty());
}

TEST_F(CommandFileTest, IsEmptyAtFirst)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("what an earlier run has left");
    file.close();
    ASSERT_EQ(record.open(path).toStdString(), "");
    EXPECT_EQ(content(path).toStdString(), "");
}

TEST_F(CommandFileTest, SaysWhyItCannotBeOpened)
{
    EXPECT_EQ(record.open(QStringLiteral("/nowhere/commands")).toStdString(),
              "cannot record in /nowhere/commands: No such file or directory");
}

TEST_F(CommandFileTest, AFullDiskIsSaidOnce)
{
    ASSERT_EQ(record.open(QStringLiteral("/dev/full")).toStdString(), "");
    record.write(command("a"));
    record.write(command("b"));
    ASSERT_EQ(complaints.size(), 1);
    EXPECT_EQ(complaints[0].toStdString(), "cannot record in /dev/full: No space left on device");
}

TEST_F(CommandFileTest, NoHalfLineStaysWhereTheFileCannotGrow)
{
    ASSERT_EQ(record.open(path).toStdString(), "");
    record.write(command("first"));
    const QByteArray before = content(path);
    // A limit on the size of files stands in for a disk that fills up in the middle of a line.
    const auto previous = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &limit), 0);
    const rlimit tight{static_cast<rlim_t>(before.size()) + 5, limit.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &tight), 0);
    record.write(command("second"));
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
    std::signal(SIGXFSZ, previous);
    EXPECT_EQ(complaints.size(), 1);
    EXPECT_EQ(content(path), before);
    record.write(command("third"));
    EXPECT_EQ(content(path).toStdString(), before.toStdString() + "{\"method\":\"third\"}\n");
}

#include "config/ConfigReplace.h"

#include "config/ConfigFile.h"

#include "support/LogFixture.h"

#include <QDir>
#include <QFileInfo>
#include <QUuid>

#include <sys/stat.h>
#include <unistd.h>

namespace kor::veltrano::daemons {
namespace {

using Changes = QMap<QString, QString>;

const QByteArray ownedFile = "#@restart command begin\n#@name motors\n#@cmd restart motors\n\n"
                             "[G]\nkey=old\n";

class ConfigReplaceTest : public LogFixture
{
protected:
    ConfigReplaceTest()
    {
        openLog(1);
        write(path(), ownedFile);
    }
    ~ConfigReplaceTest() override { QFile::remove(temporary()); }

    // A name of its own for each test, as all files of one name share their temporary file.
    QString path() const { return folder.filePath(name + QStringLiteral(".conf")); }
    QString backup() const { return path() + QStringLiteral(".bak"); }
    QString temporary() const { return temporaryConfigPath(path()); }

    static void write(const QString& file, const QByteArray& text)
    {
        QFile target(file);
        EXPECT_TRUE(target.open(QIODevice::WriteOnly)) << qPrintable(file);
        target.write(text);
    }

    static QByteArray read(const QString& file)
    {
        QFile source(file);
        return source.open(QIODevice::ReadOnly) ? source.readAll() : QByteArray("(no file)");
    }

    static mode_t modeOf(const QString& file)
    {
        struct stat status = {};
        EXPECT_EQ(stat(qPrintable(file), &status), 0);
        return status.st_mode & 07777;
    }

    bool replace(const Changes& changes) { return replaceConfigFile(changes, path(), restart); }
    bool replaceKey() { return replace({{QStringLiteral("G/key"), QStringLiteral("new")}}); }

    const QString name = QUuid::createUuid().toString(QUuid::Id128);
    std::pair<QString, QString> restart;
};

TEST_F(ConfigReplaceTest, ANewValueIsSwappedInAndTheOldTextStaysAsTheBackup)
{
    EXPECT_TRUE(replaceKey());
    const QByteArray newText = QByteArray(ownedFile).replace("old", "new");
    EXPECT_EQ(read(path()), newText);
    EXPECT_EQ(read(backup()), ownedFile);
    EXPECT_EQ(read(temporary()), newText);
    EXPECT_EQ(restart, std::pair(QString("restart motors\n"), QString("motors")));
    EXPECT_EQ(logLines().mid(1),
              QStringList({"Renamed " + path() + " -> " + backup(),
                           "Copied " + temporary() + " -> " + path(),
                           "Keys match between old and new version of " + path()}));
}

TEST_F(ConfigReplaceTest, UnchangedValuesLeaveOnlyTheTemporaryFile)
{
    EXPECT_TRUE(replace({{QStringLiteral("G/key"), QStringLiteral("old")}}));
    EXPECT_EQ(read(path()), ownedFile);
    EXPECT_FALSE(QFile::exists(backup()));
    EXPECT_TRUE(QFile::exists(temporary()));
    EXPECT_EQ(restart, std::pair(QString(), QString()));
    EXPECT_EQ(logLines().size(), 1);
}

TEST_F(ConfigReplaceTest, OnlyTheNewestOldTextIsKept)
{
    EXPECT_TRUE(replaceKey());
    const QByteArray second = read(path());
    EXPECT_TRUE(replace({{QStringLiteral("G/key"), QStringLiteral("newer")}}));
    EXPECT_EQ(read(backup()), second);
    EXPECT_TRUE(logLines().contains("Removed old backup " + backup()));
}

TEST_F(ConfigReplaceTest, AnEmptyFileChangesNothing)
{
    write(path(), "");
    EXPECT_TRUE(replaceKey());
    EXPECT_EQ(read(path()), "");
    EXPECT_FALSE(QFile::exists(backup()));
}

TEST_F(ConfigReplaceTest, AMissingFileAFolderAndAPipeFailWithoutAWord)
{
    QFile::remove(path());
    EXPECT_FALSE(replaceKey());
    QDir().mkdir(path());
    EXPECT_FALSE(replaceKey());
    QDir().rmdir(path());
    ASSERT_EQ(mkfifo(qPrintable(path()), 0600), 0);
    EXPECT_FALSE(replaceKey());
    EXPECT_EQ(logLines().size(), 1);
}

TEST_F(ConfigReplaceTest, AFolderInTheTemporaryFilesPlaceFailsWithoutAWord)
{
    QDir().mkdir(temporary());
    EXPECT_FALSE(replaceKey());
    QDir().rmdir(temporary());
    EXPECT_EQ(read(path()), ownedFile);
    EXPECT_EQ(logLines().size(), 1);
}

TEST_F(ConfigReplaceTest, AValueThatWouldBringAKeyInIsRefused)
{
    EXPECT_FALSE(replace({{QStringLiteral("G/key"), QStringLiteral("1\nadded=2")}}));
    EXPECT_EQ(read(path()), ownedFile);
    EXPECT_FALSE(QFile::exists(backup()));
    EXPECT_TRUE(QFile::exists(temporary()));
    EXPECT_EQ(logLines().last(),
              "Keys of " + temporary() + " and " + path() + " are not identical!");
    EXPECT_EQ(restart, std::pair(QString(), QString()));
}

TEST_F(ConfigReplaceTest, AFolderInTheBackupsPlaceStopsTheReplacement)
{
    QDir().mkdir(backup());
    EXPECT_FALSE(replaceKey());
    EXPECT_EQ(read(path()), ownedFile);
    EXPECT_TRUE(QFileInfo(backup()).isDir());
    EXPECT_EQ(logLines().last(), "Error removing old backup " + backup());
}

TEST_F(ConfigReplaceTest, OwnerAndModeOfTheOldFileStay)
{
    for (const mode_t mode : {0640U, 0600U, 0644U}) {
        ASSERT_EQ(chmod(qPrintable(path()), mode), 0);
        EXPECT_TRUE(replace({{QStringLiteral("G/key"), QString::number(mode)}}));
        EXPECT_EQ(modeOf(path()), mode);
        EXPECT_EQ(modeOf(temporary()), 0600U);
    }
    if (geteuid() == 0) {
        ASSERT_EQ(chown(qPrintable(path()), 12, 34), 0);
        EXPECT_TRUE(replaceKey());
        EXPECT_EQ(QFileInfo(path()).ownerId(), 12U);
        EXPECT_EQ(QFileInfo(path()).groupId(), 34U);
    }
}

TEST_F(ConfigReplaceTest, ALinkInTheTemporaryFilesPlaceIsNotFollowed)
{
    const QString target = folder.filePath(QStringLiteral("target"));
    write(target, "precious");
    ASSERT_EQ(symlink(qPrintable(target), qPrintable(temporary())), 0);
    EXPECT_TRUE(replaceKey());
    EXPECT_EQ(read(target), "precious");
    EXPECT_FALSE(QFileInfo(temporary()).isSymLink());
}

TEST_F(ConfigReplaceTest, AFileThatIsItsOwnTemporaryFileIsRefused)
{
    write(temporary(), ownedFile);
    EXPECT_FALSE(replaceConfigFile({{QStringLiteral("G/key"), QStringLiteral("new")}}, temporary(),
                                   restart));
    EXPECT_EQ(read(temporary()), ownedFile);
    QFile::remove(path());
    ASSERT_EQ(symlink(qPrintable(temporary()), qPrintable(path())), 0);
    EXPECT_FALSE(replaceKey());
    EXPECT_EQ(read(temporary()), ownedFile);
}

TEST_F(ConfigReplaceTest, TheTemporaryNameEndsAtTheFirstDotAndKeepsItsBlanks)
{
    EXPECT_EQ(temporaryConfigPath(QStringLiteral("/etc/a b.c.conf")), "/tmp/a b");
    EXPECT_EQ(temporaryConfigPath(QStringLiteral("/etc/x/|\\\\|\\s.conf")), "/tmp/|\\\\|\\s");
}

} // namespace
} // namespace kor::veltrano::daemons

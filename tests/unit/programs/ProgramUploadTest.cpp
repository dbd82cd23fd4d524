#include "programs/ProgramUpload.h"

#include "config/ConfigFile.h"

#include "support/LogFixture.h"

#include <QDir>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/stat.h>
#include <unistd.h>

namespace kor::veltrano::daemons {
namespace {

struct Reply {
    QString message;
    bool success;
};

class ProgramUploadTest : public LogFixture
{
protected:
    ProgramUploadTest()
    {
        openLog(1);
        QDir(folder.path()).mkdir(QStringLiteral("programs"));
        settings.values[QStringLiteral("Lumview/programpath")] = programs();
    }
    ~ProgramUploadTest() override { settings = ConfigFile(); }

    QString programs() const { return folder.filePath(QStringLiteral("programs")); }
    QString pathOf(const QString& name) const { return programs() + QLatin1Char('/') + name; }

    QByteArray contentOf(const QString& name) const
    {
        QFile file(pathOf(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    static Reply upload(const QByteArray& body)
    {
        QByteArray result;
        EXPECT_TRUE(uploadProgram(body, result));
        const QJsonObject reply = QJsonDocument::fromJson(result).object();
        EXPECT_EQ(reply.size(), 2);
        return {reply.value(QLatin1String("message")).toString(),
                reply.value(QLatin1String("success")).toBool()};
    }

    static Reply upload(const QString& name, const QJsonValue& size, const QString& data)
    {
        return upload(
            QJsonDocument(QJsonObject{{"name", name}, {"size", size}, {"data", data}}).toJson());
    }
};

TEST_F(ProgramUploadTest, ADataUrlsHeadIsLeftOut)
{
    const Reply reply = upload("a.lv", 5, "data:text/plain;base64,aGVsbG8=");
    EXPECT_TRUE(reply.success);
    EXPECT_EQ(reply.message, "Wrote 5 bytes to file " + pathOf("a.lv"));
    EXPECT_EQ(contentOf("a.lv"), "hello");
    EXPECT_EQ(logLines().last(), reply.message);
}

TEST_F(ProgramUploadTest, DataWithoutACommaOrWithOneInFrontIsDecodedWhole)
{
    EXPECT_TRUE(upload("a", 5, "aGVsbG8=").success);
    EXPECT_TRUE(upload("b", 5, ",aGVsbG8=").success);
    EXPECT_EQ(contentOf("a"), "hello");
    EXPECT_EQ(contentOf("b"), "hello");
}

TEST_F(ProgramUploadTest, AnEmptyProgramIsAFileOfNoBytes)
{
    const Reply reply = upload("empty", 0, "");
    EXPECT_TRUE(reply.success);
    EXPECT_EQ(reply.message, "Wrote 0 bytes to file " + pathOf("empty"));
    EXPECT_EQ(contentOf("empty"), "");
}

TEST_F(ProgramUploadTest, SizesAreToldInBytesOrWholeKilobytes)
{
    for (const auto& [size, text] : {std::pair(1023, "1023 bytes"), std::pair(1024, "1kB"),
                                     std::pair(2047, "1kB"), std::pair(2048, "2kB")}) {
        const QByteArray content(size, '\xFE');
        const Reply reply = upload("sized", size, QString::fromLatin1(content.toBase64()));
        EXPECT_EQ(reply.message, QStringLiteral("Wrote %1 to file ").arg(text) + pathOf("sized"));
        EXPECT_EQ(contentOf("sized"), content);
    }
}

TEST_F(ProgramUploadTest, AnotherSizeWritesNothing)
{
    upload("kept", 5, "aGVsbG8=");
    const Reply reply = upload("kept", 6, "d29ybGQ=");
    EXPECT_FALSE(reply.success);
    EXPECT_EQ(reply.message, "decoded file size 5 != expected file size 6");
    EXPECT_EQ(contentOf("kept"), "hello");
    EXPECT_EQ(logLines().last(), reply.message);
}

TEST_F(ProgramUploadTest, AFileThatCannotBeOpenedIsReported)
{
    QDir(programs()).mkdir(QStringLiteral("folder"));
    for (const QString& name : {QStringLiteral("missing/%1"), QStringLiteral("folder")}) {
        const Reply reply = upload(name, 5, "aGVsbG8=");
        EXPECT_FALSE(reply.success);
        EXPECT_EQ(reply.message, "Error writing file " + pathOf(name) + " with size 5");
    }
}

TEST_F(ProgramUploadTest, ABodyThatIsNoJsonIsReported)
{
    const Reply reply = upload(QByteArray("{"));
    EXPECT_FALSE(reply.success);
    EXPECT_EQ(reply.message, "Error: /data/uploadProgram/ - Invalid JSON: unterminated object");
}

TEST_F(ProgramUploadTest, MissingFieldsReadAsNothing)
{
    EXPECT_EQ(upload(QByteArray("[]")).message,
              "Error writing file " + programs() + "/ with size 0");
    EXPECT_EQ(upload("a", "5", "aGVsbG8=").message, "decoded file size 5 != expected file size 0");
}

TEST_F(ProgramUploadTest, TheNameIsUsedAsItComes)
{
    EXPECT_TRUE(upload("../beside \u00fc.lv", 5, "aGVsbG8=").success);
    EXPECT_TRUE(QFile::exists(folder.filePath(QStringLiteral("beside \u00fc.lv"))));
}

TEST_F(ProgramUploadTest, AReaderOfTheOldFileKeepsTheOldBytes)
{
    upload("a", 5, "aGVsbG8=");
    QFile reader(pathOf("a"));
    ASSERT_TRUE(reader.open(QIODevice::ReadOnly));
    upload("a", 5, "d29ybGQ=");
    EXPECT_EQ(reader.readAll(), "hello");
    EXPECT_EQ(contentOf("a"), "world");
    EXPECT_EQ(QDir(programs()).entryList(QDir::Files), QStringList("a"));
}

TEST_F(ProgramUploadTest, AFileOfSeveralNamesKeepsThemAll)
{
    upload("a", 5, "aGVsbG8=");
    ASSERT_EQ(link(qPrintable(pathOf("a")), qPrintable(pathOf("b"))), 0);
    EXPECT_TRUE(upload("a", 5, "d29ybGQ=").success);
    EXPECT_EQ(contentOf("b"), "world");
}

TEST_F(ProgramUploadTest, APipeThatNobodyReadsIsReportedAndStaysAPipe)
{
    ASSERT_EQ(mkfifo(qPrintable(pathOf("pipe")), 0600), 0);
    EXPECT_EQ(upload("pipe", 5, "aGVsbG8=").message,
              "Error writing file " + pathOf("pipe") + " with size 5");
    struct stat status = {};
    ASSERT_EQ(stat(qPrintable(pathOf("pipe")), &status), 0);
    EXPECT_TRUE(S_ISFIFO(status.st_mode));
}

TEST_F(ProgramUploadTest, ADeviceIsWrittenToAndStaysADevice)
{
    ASSERT_EQ(symlink("/dev/null", qPrintable(pathOf("null"))), 0);
    EXPECT_TRUE(upload("null", 5, "aGVsbG8=").success);
    struct stat status = {};
    ASSERT_EQ(stat("/dev/null", &status), 0);
    EXPECT_TRUE(S_ISCHR(status.st_mode));
}

} // namespace
} // namespace kor::veltrano::daemons

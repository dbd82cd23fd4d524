#include "programs/ProgramStore.h"

#include "config/ConfigFile.h"
#include "programs/ScriptRunner.h"

#include "support/LogFixture.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QEventLoop>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace kor::veltrano::daemons {
namespace {

class ProgramStoreTest : public LogFixture
{
protected:
    ProgramStoreTest()
    {
        QDir(folder.path()).mkdir(QStringLiteral("programs"));
        settings.values[QStringLiteral("Lumview/programpath")] = directory();
        scriptRunner = new ScriptRunner;
    }
    ~ProgramStoreTest() override
    {
        delete std::exchange(scriptRunner, nullptr);
        settings = ConfigFile();
    }

    QString directory() const { return folder.filePath(QStringLiteral("programs")); }

    void write(const QString& name, const QByteArray& text = "x") const
    {
        QFile file(directory() + '/' + name);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QStringList files() const { return QDir(directory()).entryList(QDir::Files, QDir::Name); }

    static QByteArray text(const QJsonArray& array) { return QJsonDocument(array).toJson(); }
    static QByteArray text(const QJsonObject& object) { return QJsonDocument(object).toJson(); }

    static QJsonObject renaming(const QString& old, const QString& name, const QString& suffix)
    {
        return {{"old", old}, {"name", name}, {"suffix", suffix}};
    }
};

TEST_F(ProgramStoreTest, FilesAreListedByNameWhateverTheirCaseAndSplitAtTheFirstDot)
{
    for (const char* name : {"b.lv", "A.b.lv", "c", ".hidden"}) {
        write(QString::fromLatin1(name));
    }
    QDir(directory()).mkdir("folder.lv");
    EXPECT_EQ(programList(), R"([
    {
        "action": "stopped",
        "id": 1,
        "name": "A",
        "old": "A",
        "suffix": "b.lv"
    },
    {
        "action": "stopped",
        "id": 2,
        "name": "b",
        "old": "b",
        "suffix": "lv"
    },
    {
        "action": "stopped",
        "id": 3,
        "name": "c",
        "old": "c",
        "suffix": ""
    }
]
)");
}

TEST_F(ProgramStoreTest, AnEmptyAndAMissingDirectoryGiveAnEmptyArray)
{
    EXPECT_EQ(programList(), "[\n]\n");
    settings.values[QStringLiteral("Lumview/programpath")] = directory() + "/missing";
    EXPECT_EQ(programList(), "[\n]\n");
}

TEST_F(ProgramStoreTest, VariablesAndOutputAreNumbered)
{
    scriptRunner->parseOutput("one\n## b;;2 ##\n## a;;1 ##\ntwo\n");
    EXPECT_EQ(globalVarList(),
              "[\n    {\n        \"id\": 1,\n        \"name\": \"a\",\n"
              "        \"value\": \"1\"\n    },\n    {\n        \"id\": 2,\n"
              "        \"name\": \"b\",\n        \"value\": \"2\"\n    }\n]\n");
    EXPECT_EQ(programOutputList(),
              "[\n    {\n        \"id\": 1,\n        \"value\": \"one\"\n    "
              "},\n    {\n        \"id\": 2,\n        \"value\": \"two\"\n"
              "    }\n]\n");
}

TEST_F(ProgramStoreTest, OnlyNewNamesAreRenamed)
{
    for (const char* name : {"a.lv", "b.lv", "c.lv", "d.b.lv"}) {
        write(QString::fromLatin1(name));
    }
    EXPECT_TRUE(renamePrograms(text(QJsonArray{
        renaming("a", " a ", "lv"), renaming("b", "  ", "lv"), renaming("c", " new name ", "lv"),
        renaming("d", "e", "b.lv"), renaming("missing", "x", "lv"), 7})));
    EXPECT_EQ(files(), QStringList({"a.lv", "b.lv", "e.b.lv", "new name.lv"}));
}

TEST_F(ProgramStoreTest, ARenameLeavesAFileThatHasTheNewName)
{
    write("a.lv", "a");
    write("b.lv", "b");
    EXPECT_TRUE(renamePrograms(text(QJsonArray{renaming("a", "b", "lv")})));
    EXPECT_EQ(files(), QStringList({"a.lv", "b.lv"}));
    EXPECT_TRUE(renamePrograms("{}"));
    EXPECT_FALSE(renamePrograms("["));
}

TEST_F(ProgramStoreTest, AFileWithoutADotIsOutOfReach)
{
    write("plain");
    EXPECT_TRUE(renamePrograms(text(QJsonArray{renaming("plain", "other", "")})));
    EXPECT_FALSE(removeProgram(text(QJsonObject{{"name", "plain"}, {"suffix", ""}})));
    EXPECT_EQ(files(), QStringList("plain"));
}

TEST_F(ProgramStoreTest, RemovingTellsWhetherItWorked)
{
    write("a.lv");
    const QByteArray body = text(QJsonObject{{"name", "a"}, {"suffix", "lv"}});
    EXPECT_TRUE(removeProgram(body));
    EXPECT_TRUE(files().isEmpty());
    EXPECT_FALSE(removeProgram(body));
    EXPECT_FALSE(removeProgram("nonsense"));
    EXPECT_TRUE(logLines().isEmpty());
}

TEST_F(ProgramStoreTest, OneRequestStartsAndTheNextOneStops)
{
    settings.values[QStringLiteral("Lumview/path")] = folder.filePath("interpreter");
    QFile interpreter(folder.filePath("interpreter"));
    ASSERT_TRUE(interpreter.open(QIODevice::WriteOnly));
    interpreter.write("#!/bin/sh\nexec sleep 1000\n");
    interpreter.close();
    interpreter.setPermissions(QFile::ReadOwner | QFile::ExeOwner);
    delete std::exchange(scriptRunner, new ScriptRunner);
    write("a.lv");
    const QByteArray body = text(QJsonObject{{"name", "a"}, {"suffix", "lv"}});
    const auto becomes = [](const char* action) {
        const QDeadlineTimer deadline(20000);
        while (!programList().contains(action) && !deadline.hasExpired()) {
            QCoreApplication::processEvents(QEventLoop::AllEvents, 20);
        }
        return programList().contains(action);
    };
    EXPECT_TRUE(startStopProgram(body));
    EXPECT_TRUE(becomes("\"running\""));
    EXPECT_TRUE(startStopProgram(body));
    EXPECT_TRUE(becomes("\"stopped\""));
    // Until the start has come to pass, another request is one more start.
    EXPECT_TRUE(startStopProgram(body));
    EXPECT_TRUE(startStopProgram(body));
    EXPECT_TRUE(programList().contains("\"stopped\""));
    EXPECT_TRUE(becomes("\"running\""));
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(programList().contains("\"running\""));
    EXPECT_FALSE(startStopProgram("{"));
}

} // namespace
} // namespace kor::veltrano::daemons

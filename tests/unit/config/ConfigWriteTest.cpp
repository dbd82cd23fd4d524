#include "config/ConfigWrite.h"

#include "config/ConfigFile.h"
#include "config/ConfigTree.h"
#include "config/DaemonRestart.h"

#include "support/LogFixture.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QUuid>

#include <random>

namespace kor::veltrano::daemons {
namespace {

class ConfigWriteTest : public LogFixture
{
protected:
    ConfigWriteTest() { QDir(folder.path()).mkdir(QStringLiteral("conf")); }
    ~ConfigWriteTest() override
    {
        for (const QString& name : {prefix + "a", prefix + "b", prefix + "c"}) {
            QFile::remove("/tmp/" + name);
        }
    }

    QString directory() const { return folder.filePath(QStringLiteral("conf")); }
    QString pathOf(const QString& letter) const
    {
        return directory() + QLatin1Char('/') + prefix + letter + QStringLiteral(".conf");
    }

    void write(const QString& letter, const QByteArray& text) const
    {
        QFile file(pathOf(letter));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QByteArray read(const QString& letter) const
    {
        QFile file(pathOf(letter));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no file)");
    }

    QJsonObject leaf(const QString& letter, const QString& group, const QString& name,
                     const QJsonValue& value) const
    {
        return {{"file", pathOf(letter)}, {"group", group}, {"name", name}, {"value", value}};
    }

    // Writes the tree; the reply, or a text that says what the function returned instead.
    static QByteArray apply(const QJsonArray& tree)
    {
        QByteArray result = "untouched";
        EXPECT_TRUE(writeConfigData(QJsonDocument(tree).toJson(), result));
        return result;
    }

    // Other tests of this program run at the same time and share the temporary directory.
    const QString prefix = QUuid::createUuid().toString(QUuid::Id128);
};

TEST_F(ConfigWriteTest, LeavesAtAnyDepthAreWrittenAndTheirDaemonsNamed)
{
    write("a", "#@restart command begin\n#@name one\n\n[G]\nx=1\ny=2\n");
    write("b", "#@restart command begin\n#@name two\n\nz=1\n");
    const QJsonObject group{{"_children", QJsonArray{leaf("a", "G", "x", "9")}}};
    const QJsonObject file{{"_children", QJsonArray{group}}};
    EXPECT_EQ(apply({file, leaf("b", "", "z", "8")}),
              "{\n    \"daemons\": [\n        \"one\",\n        \"two\"\n    ]\n}\n");
    EXPECT_EQ(read("a"), "#@restart command begin\n#@name one\n\n[G]\nx=9\ny=2");
    EXPECT_EQ(read("b"), "#@restart command begin\n#@name two\n\nz=8\n");
}

TEST_F(ConfigWriteTest, TheTreeAsItWasReadChangesNothing)
{
    openLog(2);
    const QByteArray text =
        "#@restart command begin\n#@name one\n\n#@web\nx = 1\n[G]\n#@web\ny=2\n";
    write("a", text);
    QByteArray result = "untouched";
    EXPECT_TRUE(writeConfigData(createConfigTree(directory()), result));
    EXPECT_EQ(result, "untouched");
    EXPECT_EQ(read("a"), text);
    EXPECT_FALSE(QFile::exists(pathOf("a") + ".bak"));
    EXPECT_TRUE(QFile::exists("/tmp/" + prefix + "a"));
    EXPECT_FALSE(logLines().join('\n').contains("changed from"));
}

TEST_F(ConfigWriteTest, AFileWithoutANameChangesWithoutAReply)
{
    write("a", "x=1\n");
    EXPECT_EQ(apply({leaf("a", "", "x", "2")}), "untouched");
    EXPECT_EQ(read("a"), "x=2\n");
}

TEST_F(ConfigWriteTest, TheLaterOfTwoLeavesWinsAndOtherTypesAreEmpty)
{
    write("a", "x=1\ny=1\n");
    apply({leaf("a", "", "x", "2"), leaf("a", "", "x", "3"), leaf("a", "", "y", 7)});
    EXPECT_EQ(read("a"), "x=3\ny=\n");
}

TEST_F(ConfigWriteTest, ChildrenBesideAValueAreIgnored)
{
    write("a", "x=1\ny=1\n");
    QJsonObject both = leaf("a", "", "x", "2");
    both["_children"] = QJsonArray{leaf("a", "", "y", "2")};
    apply({both});
    EXPECT_EQ(read("a"), "x=2\ny=1");
}

TEST_F(ConfigWriteTest, AFileThatFailsDoesNotStopTheOthers)
{
    write("b", "x=1\n");
    EXPECT_EQ(apply({leaf("a", "", "x", "2"), leaf("b", "", "x", "2")}), "untouched");
    EXPECT_EQ(read("b"), "x=2\n");
}

TEST_F(ConfigWriteTest, ABodyThatIsNoJsonIsRefusedWithAWord)
{
    QByteArray result = "untouched";
    EXPECT_FALSE(writeConfigData("[{%1", result));
    EXPECT_EQ(result, "untouched");
    EXPECT_EQ(logLines().last(), "Error writeConfigData: [{%1");
}

TEST_F(ConfigWriteTest, ADocumentThatIsNoArrayChangesNothing)
{
    write("a", "x=1\n");
    QByteArray result = "untouched";
    EXPECT_TRUE(writeConfigData(QJsonDocument(leaf("a", "", "x", "2")).toJson(), result));
    EXPECT_EQ(result, "untouched");
    EXPECT_EQ(read("a"), "x=1\n");
}

TEST_F(ConfigWriteTest, TheBodyIsToldRawAtLevelThreeAndIndentedAtLevelTwo)
{
    QByteArray result;
    openLog(2);
    writeConfigData("[ ]", result);
    EXPECT_EQ(logLines().filter("writeConfigData: "), QStringList("writeConfigData: ["));
    openLog(3);
    writeConfigData("[ ]", result);
    EXPECT_EQ(logLines().filter("writeConfigData: "),
              QStringList({"writeConfigData: [ ]", "writeConfigData: ["}));
}

// Any sequence of writes keeps all lines but the changed ones, and all keys.
TEST_F(ConfigWriteTest, NoSequenceOfWritesLosesACommentADirectiveOrAKey)
{
    std::mt19937 random(7);
    const QByteArray text = "; head\n#@restart command begin\n#@name one\n#@cmd a\n\nfirst=1\n"
                            "#@web selection a b\nkey = a\n  indented=1\nno separator here?\n\n"
                            "[ G ]\n#@web\nport=port\nab=cabd\n\t# comment\nempty=\n [H]\nx y z\n";
    write("a", text);
    ConfigFile before;
    ASSERT_TRUE(parseConfigFile(before, pathOf("a")));
    const auto isKept = [](const QByteArray& line) {
        const QByteArray trimmed = line.trimmed();
        return trimmed.isEmpty() || trimmed.startsWith('#') || trimmed.startsWith(';')
            || trimmed.startsWith('[');
    };
    const auto keptLines = [&](const QByteArray& content) {
        QList<QByteArray> lines;
        for (const QByteArray& line : content.trimmed().split('\n')) {
            if (isKept(line)) {
                lines.append(line);
            }
        }
        return lines;
    };
    const QStringList keys = before.values.keys();
    const QStringList values{"", "1", "= x", "#", "a b", "[x]", "=", "\u00e4 %1", "port", "; c"};
    for (int turn = 0; turn < 300; ++turn) {
        const QString key = keys.at(int(random() % unsigned(keys.size())));
        const int slash = key.lastIndexOf('/');
        apply({leaf("a", key.left(slash), key.mid(slash + 1),
                    values.at(int(random() % unsigned(values.size()))))});
        ConfigFile after;
        ASSERT_TRUE(parseConfigFile(after, pathOf("a")));
        ASSERT_EQ(after.values.keys(), keys) << read("a").constData();
        ASSERT_EQ(after.restartName, "one");
        ASSERT_EQ(keptLines(read("a")), keptLines(text)) << read("a").constData();
    }
}

TEST(DaemonRestartTest, EveryRequestIsRefusedAndLeavesTheReplyAlone)
{
    for (const QByteArray& body : {QByteArray("{\"daemons\":[\"one\",2]}"), QByteArray("{}"),
                                   QByteArray("{\"daemons\":[]}"), QByteArray("{"), QByteArray()}) {
        QByteArray result = "untouched";
        EXPECT_FALSE(restartDaemons(body, result));
        EXPECT_EQ(result, "untouched");
    }
}

} // namespace
} // namespace kor::veltrano::daemons

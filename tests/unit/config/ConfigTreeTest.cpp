#include "config/ConfigTree.h"

#include "support/LogFixture.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <sys/stat.h>
#include <unistd.h>

namespace kor::veltrano::daemons {
namespace {

class ConfigTreeTest : public LogFixture
{
protected:
    ConfigTreeTest() { QDir(folder.path()).mkdir(QStringLiteral("conf")); }

    QString directory() const { return folder.filePath(QStringLiteral("conf")); }
    QString pathOf(const QString& name) const { return directory() + QLatin1Char('/') + name; }

    void write(const QString& name, const QByteArray& text) const
    {
        QFile file(pathOf(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
    }

    QJsonArray tree() const
    {
        return QJsonDocument::fromJson(createConfigTree(directory())).array();
    }

    // The file nodes' names, without their directory.
    QStringList fileNames() const
    {
        QStringList names;
        const QJsonArray nodes = tree();
        for (const QJsonValue& node : nodes) {
            names.append(node["name"].toString().mid(directory().size() + 1));
        }
        return names;
    }
};

QJsonArray childrenOf(const QJsonValue& node)
{
    return node["_children"].toArray();
}

TEST_F(ConfigTreeTest, ALeafTellsWhereItsKeyStandsAndHowItIsEdited)
{
    write("a.conf", "#@web\nfree=1\n[G]\n#@web selection x y\nchoice = y\n");
    const QString expected = QStringLiteral(R"([
    {
        "_children": [
            {
                "file": "%1",
                "group": "",
                "id": 1,
                "name": "free",
                "type": "input",
                "value": "1"
            },
            {
                "_children": [
                    {
                        "file": "%1",
                        "group": "G",
                        "id": 2,
                        "name": "choice",
                        "params": [
                            "x",
                            "y"
                        ],
                        "type": "select",
                        "value": "= y"
                    }
                ],
                "name": "G"
            }
        ],
        "name": "%1"
    }
]
)")
                                 .arg(pathOf("a.conf"));
    EXPECT_EQ(createConfigTree(directory()), expected.toUtf8());
}

TEST_F(ConfigTreeTest, FilesWithoutAKeyForTheBrowserAreLeftOut)
{
    write("a.conf", "key=1\n");
    write("b.conf", "");
    EXPECT_EQ(createConfigTree(directory()), "[\n]\n");
    EXPECT_EQ(createConfigTree(directory() + "/missing"), "[\n]\n");
}

TEST_F(ConfigTreeTest, FilesComeInTheOrderOfTheirNamesWhateverTheirCase)
{
    for (const char* name : {"b.conf", "A.conf", "c.CONF", "d.conf.bak", "e.txt", ".hidden.conf"}) {
        write(QString::fromLatin1(name), "#@web\nkey=1\n");
    }
    QDir(directory()).mkdir("folder.conf");
    ASSERT_EQ(mkfifo(qPrintable(pathOf("pipe.conf")), 0600), 0);
    EXPECT_EQ(fileNames(), QStringList({"A.conf", "b.conf", "c.CONF"}));
}

TEST_F(ConfigTreeTest, LeavesAreNumberedAcrossFiles)
{
    write("a.conf", "#@web\nx=1\n#@web\ny=1\n");
    write("b.conf", "[G]\n#@web\nz=1\n");
    const QJsonValue last = childrenOf(childrenOf(tree().at(1)).at(0)).at(0);
    EXPECT_EQ(last["id"].toInt(), 3);
    EXPECT_EQ(last["name"].toString(), "z");
}

TEST_F(ConfigTreeTest, GroupsAreSortedByTheirBytesAndEachComesOnce)
{
    write("a.conf", "[b]\n#@web\nx=1\n[A]\n#@web\ny=1\n[b]\n#@web\nz=\n");
    const QJsonArray groups = childrenOf(tree().at(0));
    ASSERT_EQ(groups.size(), 2);
    EXPECT_EQ(groups.at(0)["name"].toString(), "A");
    EXPECT_EQ(groups.at(1)["name"].toString(), "b");
    const QJsonArray leaves = childrenOf(groups.at(1));
    ASSERT_EQ(leaves.size(), 2);
    EXPECT_EQ(leaves.at(1)["name"].toString(), "z");
    EXPECT_EQ(leaves.at(1)["value"], QJsonValue(QString("")));
}

TEST_F(ConfigTreeTest, ASelectionWithoutChoicesIsStillOne)
{
    write("a.conf", "#@web selection\nkey=1\n");
    const QJsonValue leaf = childrenOf(tree().at(0)).at(0);
    EXPECT_EQ(leaf["type"].toString(), "select");
    EXPECT_EQ(leaf["params"], QJsonValue(QJsonArray()));
}

TEST_F(ConfigTreeTest, AFileSelectionOffersTheFilesOfItsDirectory)
{
    write("b.py", "");
    write("A.py", "");
    write("c.lv", "");
    QDir(directory()).mkdir("folder.py");
    const QByteArray directive = "#@web fileselection " + directory().toUtf8();
    write("x.conf",
          directive + "\nall=\n" + directive + " *.py\nsome=\n" + directive + " *.py *.lv\nmore=\n"
              + directive + "/missing\nnone=\n#@web fileselection\nempty=\n");
    QStringList choices;
    const QJsonArray leaves = childrenOf(tree().at(0));
    for (const QJsonValue& leaf : leaves) {
        EXPECT_EQ(leaf["type"].toString(), "select");
        choices.append(leaf["params"].toVariant().toStringList().join(' '));
    }
    EXPECT_EQ(choices,
              QStringList({"A.py b.py c.lv x.conf", "A.py b.py", "A.py b.py c.lv", "", ""}));
}

TEST_F(ConfigTreeTest, EachFileIsToldAtLevelOne)
{
    openLog(1);
    write("a.conf", "");
    createConfigTree(directory());
    EXPECT_EQ(logLines().last(), "createConfigData for " + pathOf("a.conf"));
}

} // namespace
} // namespace kor::veltrano::daemons

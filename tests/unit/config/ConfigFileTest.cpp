#include "config/ConfigFile.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

class ConfigFileTest : public testing::Test
{
protected:
    ConfigFile parse(const QByteArray& text)
    {
        QFile file(path());
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text);
        file.close();
        ConfigFile result;
        EXPECT_TRUE(parseConfigFile(result, path()));
        return result;
    }

    QString path() const { return folder.filePath(QStringLiteral("daemon.conf")); }

    QTemporaryDir folder;
};

QString valueOf(const ConfigFile& config, const char* key)
{
    return config.value(QString::fromLatin1(key), QStringLiteral("absent"));
}

TEST_F(ConfigFileTest, AnEmptyFileGivesFourEmptyFields)
{
    const ConfigFile config = parse("");
    EXPECT_TRUE(config.values.isEmpty());
    EXPECT_TRUE(config.entries.isEmpty());
    EXPECT_EQ(config.restartCommands, QString());
    EXPECT_EQ(config.restartName, QString());
}

TEST_F(ConfigFileTest, AMissingFileEmptiesTheResultAndFails)
{
    ConfigFile config = parse("#@restart command begin\n#@name a\n#@cmd b\n\n#@web\nkey=value\n");
    ASSERT_FALSE(config.entries.isEmpty());
    EXPECT_FALSE(parseConfigFile(config, folder.filePath(QStringLiteral("missing.conf"))));
    EXPECT_TRUE(config.values.isEmpty());
    EXPECT_TRUE(config.entries.isEmpty());
    EXPECT_EQ(config.restartCommands, QString());
    EXPECT_EQ(config.restartName, QString());
}

TEST_F(ConfigFileTest, AFolderCannotBeRead)
{
    ConfigFile config;
    EXPECT_FALSE(parseConfigFile(config, folder.path()));
}

TEST_F(ConfigFileTest, AKeyBeforeAnySectionStandsBehindASlash)
{
    EXPECT_EQ(valueOf(parse("key=value\n"), "/key"), "value");
}

struct KeyLine {
    const char* line;
    const char* key;
    const char* value;
};

class ConfigFileKeyTest : public ConfigFileTest, public testing::WithParamInterface<KeyLine>
{
};

TEST_P(ConfigFileKeyTest, SplitsAtTheFirstBlankOrEqualsSign)
{
    const ConfigFile config = parse(QByteArray("[G]\n") + GetParam().line + "\n");
    ASSERT_EQ(config.values.size(), 1);
    EXPECT_EQ(config.values.firstKey(), QStringLiteral("G/") + QLatin1String(GetParam().key));
    EXPECT_EQ(config.values.first(), QLatin1String(GetParam().value));
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ConfigFileKeyTest,
    testing::Values(KeyLine{"key=value", "key", "value"}, KeyLine{"key value", "key", "value"},
                    KeyLine{"key\tvalue", "key", "value"}, KeyLine{"key = value", "key", "= value"},
                    KeyLine{"key=  value", "key", "  value"},
                    KeyLine{"key=value # note", "key", "value # note"},
                    KeyLine{"  key=value \t ", "key", "value"}, KeyLine{"=value", "", "value"},
                    KeyLine{"key=", "key", ""}, KeyLine{"key=a=b", "key", "a=b"},
                    KeyLine{"[open=value", "[open", "value"},
                    KeyLine{"key=value\r", "key", "value"},
                    KeyLine{"key=\xC3\xBC", "key", "\xFC"}));

TEST_F(ConfigFileTest, ALineWithoutASeparatorIsIgnored)
{
    EXPECT_TRUE(parse("[G]\nlonely\n").values.isEmpty());
}

TEST_F(ConfigFileTest, CommentsOfBothSortsAreIgnored)
{
    EXPECT_TRUE(parse("#a=b\n;c=d\n   # e=f\n").values.isEmpty());
}

TEST_F(ConfigFileTest, ASectionsNameIsTakenAsItStands)
{
    const ConfigFile config = parse("[ A b ]\nk=1\n[]\nk=2\n[[x]]\nk=3\n");
    EXPECT_EQ(valueOf(config, " A b /k"), "1");
    EXPECT_EQ(valueOf(config, "/k"), "2");
    EXPECT_EQ(valueOf(config, "[x]/k"), "3");
}

TEST_F(ConfigFileTest, ALastLineWithoutALineFeedCounts)
{
    EXPECT_EQ(valueOf(parse("[G]\nkey=value"), "G/key"), "value");
}

TEST_F(ConfigFileTest, BlankLinesDoNotEndTheFile)
{
    EXPECT_EQ(valueOf(parse("[G]\n\n   \n\t\nkey=value\n"), "G/key"), "value");
}

TEST_F(ConfigFileTest, AKeyThatOccursTwiceKeepsTheLastValueAndBothEntries)
{
    const ConfigFile config = parse("[G]\n#@web\nkey=1\n#@web\nkey=2\n");
    EXPECT_EQ(config.values.size(), 1);
    EXPECT_EQ(valueOf(config, "G/key"), "2");
    ASSERT_EQ(config.entries.size(), 2);
    EXPECT_EQ(config.entries[0].value, "1");
    EXPECT_EQ(config.entries[1].value, "2");
}

TEST_F(ConfigFileTest, AnEntryTellsWhereItsKeyStands)
{
    const ConfigFile config = parse("[G]\n#@web\nkey=value\n");
    ASSERT_EQ(config.entries.size(), 1);
    const ConfigEntry& entry = config.entries.first();
    EXPECT_EQ(entry.type, 0);
    EXPECT_EQ(entry.file, QFileInfo(path()).absoluteFilePath());
    EXPECT_EQ(entry.group, "G");
    EXPECT_EQ(entry.name, "key");
    EXPECT_EQ(entry.value, "value");
    EXPECT_TRUE(entry.params.isEmpty());
}

struct Directive {
    const char* line;
    int type;
    QStringList params;
};

class ConfigFileDirectiveTest : public ConfigFileTest, public testing::WithParamInterface<Directive>
{
};

TEST_P(ConfigFileDirectiveTest, ChoosesTheTypeByItsSecondWord)
{
    const ConfigFile config = parse(QByteArray(GetParam().line) + "\nkey=value\n");
    ASSERT_EQ(config.entries.size(), 1);
    EXPECT_EQ(config.entries.first().type, GetParam().type);
    EXPECT_EQ(config.entries.first().params, GetParam().params);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ConfigFileDirectiveTest,
    testing::Values(Directive{"#@web", 0, {}}, Directive{"#@webfoo", 0, {}},
                    Directive{"#@web selection", 1, {}},
                    Directive{"#@web selection a  b\tc", 1, {"a", "b", "c"}},
                    Directive{";@web selection a b", 1, {"a", "b"}},
                    Directive{"#@web SELECTION a b", 0, {}}, Directive{"#@web other a b", 0, {}},
                    Directive{"#@web fileselection /opt *.txt *.md", 2, {"/opt", "*.txt", "*.md"}},
                    Directive{"  #@webfoo   selection a", 1, {"a"}},
                    Directive{"#@web selection a\n#@web", 0, {}},
                    Directive{"#@web selection a\n# a comment\n\n;another", 1, {"a"}}));

TEST_F(ConfigFileTest, ADirectiveNeedsItsWordRightBehindTheCommentSign)
{
    EXPECT_TRUE(parse("# @web\nkey=value\n#@we\nkey=value\n#@WEB\nkey=value\n").entries.isEmpty());
}

TEST_F(ConfigFileTest, ASectionDropsThePendingDirective)
{
    EXPECT_TRUE(parse("#@web\n[G]\nkey=value\n").entries.isEmpty());
}

TEST_F(ConfigFileTest, ALineWithoutASeparatorDropsThePendingDirective)
{
    EXPECT_TRUE(parse("#@web\nlonely\nkey=value\n").entries.isEmpty());
}

TEST_F(ConfigFileTest, ADirectiveServesOneKeyOnly)
{
    EXPECT_EQ(parse("#@web\na=1\nb=2\n").entries.size(), 1);
}

TEST_F(ConfigFileTest, ARestartBlockGivesNameAndCommands)
{
    const ConfigFile config = parse("#@restart command begin\n#@name  robot daemon \n# note\n"
                                    "#@cmd systemctl restart a\n  #@cmd systemctl restart b\n"
                                    "key=value\n");
    EXPECT_EQ(config.restartName, "robot daemon");
    EXPECT_EQ(config.restartCommands, "systemctl restart a\nsystemctl restart b\n");
    EXPECT_EQ(valueOf(config, "/key"), "value");
}

TEST_F(ConfigFileTest, SeveralBlocksAddTheirCommandsAndTheLastNameWins)
{
    const ConfigFile config = parse("#@restart command begin\n#@name a\n#@cmd 1\n\n"
                                    ";@restart command begin\n#@name b\n#@cmd 2\n");
    EXPECT_EQ(config.restartName, "b");
    EXPECT_EQ(config.restartCommands, "1\n2\n");
}

TEST_F(ConfigFileTest, DirectivesOutsideABlockArePlainComments)
{
    const ConfigFile config = parse("#@name a\n#@cmd b\n#@restart command begin x\n#@name c\n"
                                    "# @restart command begin\n#@name d\n");
    EXPECT_EQ(config.restartName, QString());
    EXPECT_EQ(config.restartCommands, QString());
}

TEST_F(ConfigFileTest, ASemicolonEndsABlockAtOnce)
{
    const ConfigFile config = parse(";@restart command begin\n;@name x\n#@cmd y\n");
    EXPECT_EQ(config.restartName, QString());
    EXPECT_EQ(config.restartCommands, QString());
}

TEST_F(ConfigFileTest, ABlankLineEndsABlock)
{
    EXPECT_EQ(parse("#@restart command begin\n#@cmd 1\n\n#@cmd 2\n").restartCommands, "1\n");
}

TEST_F(ConfigFileTest, ABlockEndsCleanlyWithTheFile)
{
    EXPECT_EQ(parse("#@restart command begin\n#@cmd last").restartCommands, "last\n");
}

TEST_F(ConfigFileTest, AWebDirectiveInsideABlockIsLost)
{
    EXPECT_TRUE(parse("#@restart command begin\n#@web\nkey=value\n").entries.isEmpty());
}

TEST_F(ConfigFileTest, AWebDirectiveThatEndsABlockCounts)
{
    EXPECT_EQ(parse("#@restart command begin\n;@web\nkey=value\n").entries.size(), 1);
}

TEST_F(ConfigFileTest, ABlockStartThatEndsABlockIsAPlainComment)
{
    EXPECT_EQ(parse("#@restart command begin\n;@restart command begin\n#@name x\n").restartName,
              QString());
}

TEST_F(ConfigFileTest, EveryOccurrenceOfABlocksDirectiveIsRemoved)
{
    const ConfigFile config =
        parse("#@restart command begin\n#@name a ;@name b\n#@cmd c;#@cmd@cmd d\n");
    EXPECT_EQ(config.restartName, "a  b");
    EXPECT_EQ(config.restartCommands, "c;@cmd d\n");
}

TEST_F(ConfigFileTest, OnlyAnAbsentKeyGivesTheReadersDefault)
{
    const ConfigFile config = parse("[G]\nempty=\n");
    EXPECT_EQ(config.value(QStringLiteral("G/empty"), QStringLiteral("default")), "");
    EXPECT_EQ(config.value(QStringLiteral("G/EMPTY"), QStringLiteral("default")), "default");
}

TEST_F(ConfigFileTest, ALineOfAMegabyteIsOneValue)
{
    const QByteArray longText(1024 * 1024, 'x');
    EXPECT_EQ(valueOf(parse("[G]\nkey=" + longText + "\n"), "G/key").size(), longText.size());
}

TEST_F(ConfigFileTest, BinaryTextIsReadWithoutComplaint)
{
    QByteArray bytes("[G]\nkey=value\n");
    for (int i = 0; i < 4096; ++i) {
        bytes.append(char(i * 7919 % 256));
    }
    EXPECT_EQ(valueOf(parse(bytes + "\n[G]\nafter=1\n"), "G/after"), "1");
}

} // namespace
} // namespace kor::veltrano::daemons

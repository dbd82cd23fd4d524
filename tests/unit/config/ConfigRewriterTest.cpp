#include "config/ConfigRewriter.h"

#include "support/LogFixture.h"

namespace kor::veltrano::daemons {
namespace {

class ConfigRewriterTest : public LogFixture
{
protected:
    // The text with one new value; key is "Group/key" or "/key".
    static QByteArray rewrite(const QByteArray& text, const char* key, const char* value)
    {
        return rewrite(text, {{QString::fromUtf8(key), QString::fromUtf8(value)}});
    }

    static QByteArray rewrite(const QByteArray& text, const QMap<QString, QString>& changes)
    {
        ConfigRewriter rewriter(changes, QStringLiteral("a.conf"));
        const QByteArray result = rewriter.rewrite(text);
        // Bytes alone can't tell: a lost line feed is no change.
        EXPECT_EQ(rewriter.hasChanged(),
                  result != text && result + '\n' != text && result != withUnixLineEnds(text));
        return result;
    }

    static QByteArray withUnixLineEnds(QByteArray text) { return text.replace("\r\n", "\n"); }
};

TEST_F(ConfigRewriterTest, OnlyTheNamedKeysLineChanges)
{
    EXPECT_EQ(rewrite("# a\n\n[G]\n#@web\nkey=old\nother=old\n", "G/key", "new"),
              "# a\n\n[G]\n#@web\nkey=new\nother=old");
}

TEST_F(ConfigRewriterTest, TheLastLineFeedGoesUnlessTheLastLineHasChanged)
{
    EXPECT_EQ(rewrite("a=1\nb=2\n", "/a", "3"), "a=3\nb=2");
    EXPECT_EQ(rewrite("a=1\nb=2\n\n", "/a", "3"), "a=3\nb=2\n");
    EXPECT_EQ(rewrite("a=1\nb=2\n", "/b", "3"), "a=1\nb=3\n");
    EXPECT_EQ(rewrite("a=1\nb=2", "/b", "3"), "a=1\nb=3\n");
}

TEST_F(ConfigRewriterTest, AKeyBeforeAnySectionStandsUnderASlash)
{
    EXPECT_EQ(rewrite("a=1\n[G]\na=2\n[]\na=4\n", "/a", "3"), "a=3\n[G]\na=2\n[]\na=3\n");
}

TEST_F(ConfigRewriterTest, AnEqualsSignBehindABlankBelongsToTheValue)
{
    const QByteArray text = "key = value\n";
    EXPECT_EQ(rewrite(text, "/key", "= value"), "key = value");
    EXPECT_EQ(rewrite(text, "/key", "= other"), "key = other\n");
    EXPECT_EQ(rewrite(text, "/key", "other"), "key other\n");
}

TEST_F(ConfigRewriterTest, AllOccurrencesOfTheKeyAreTakenOutOfTheSeparator)
{
    EXPECT_EQ(rewrite("port=port\n", "/port", "80"), "port=80\n");
    EXPECT_EQ(rewrite("ab=cabd\n", "/ab", "x"), "ab=cdx\n");
}

TEST_F(ConfigRewriterTest, AnEmptyValueCanBeFilledAndAFullOneEmptied)
{
    EXPECT_EQ(rewrite("key=\n", "/key", "1"), "key=1\n");
    EXPECT_EQ(rewrite("key=1\n", "/key", ""), "key=\n");
    EXPECT_EQ(rewrite("=1\n", "/", "2"), "=2\n");
}

TEST_F(ConfigRewriterTest, TrailingBlanksMakeAValueDifferentAndGo)
{
    EXPECT_EQ(rewrite("key=1  \n", "/key", "1"), "key=1\n");
}

TEST_F(ConfigRewriterTest, AnIndentedKeyIsNeverChanged)
{
    EXPECT_EQ(rewrite("  key=1\n\tkey=2\n", "/key", "3"), "  key=1\n\tkey=2");
}

TEST_F(ConfigRewriterTest, ASectionWithBlanksAroundItKeepsItsBracket)
{
    const QByteArray text = " [G]\nkey=1\n";
    EXPECT_EQ(rewrite(text, "G/key", "2"), " [G]\nkey=1");
    EXPECT_EQ(rewrite(text, "G]/key", "2"), " [G]\nkey=2\n");
    EXPECT_EQ(rewrite("[G]  \nkey=1\n", "G]/key", "2"), "[G]  \nkey=2\n");
}

TEST_F(ConfigRewriterTest, CommentsDirectivesAndLinesWithoutASeparatorStay)
{
    const QByteArray text = "#key=1\n;key=2\n # key=3\nkey\n#@web selection key=1\nkey=4\n";
    EXPECT_EQ(rewrite(text, "/key", "5"),
              "#key=1\n;key=2\n # key=3\nkey\n#@web selection key=1\nkey=5\n");
}

TEST_F(ConfigRewriterTest, EveryOccurrenceOfAKeyChanges)
{
    EXPECT_EQ(rewrite("key=1\nkey=2\n", "/key", "3"), "key=3\nkey=3\n");
}

TEST_F(ConfigRewriterTest, AKeyThatTheFileDoesNotHoldChangesNothing)
{
    EXPECT_EQ(rewrite("key=1\n", "/other", "2"), "key=1");
    EXPECT_EQ(rewrite("key=1\n", "G/key", "2"), "key=1");
    EXPECT_EQ(rewrite("", "/key", "2"), "");
}

TEST_F(ConfigRewriterTest, LinesThatStayKeepTheirBytes)
{
    const QByteArray latin1 = "# gr\xFC\xDF"
                              "e\n";
    EXPECT_EQ(rewrite(latin1 + "key=1\n", "/key", "2"), latin1 + "key=2\n");
    const QByteArray zero("a\0b\n", 4);
    EXPECT_EQ(rewrite(zero + "key=1\n", "/key", "2"), zero + "key=2\n");
}

TEST_F(ConfigRewriterTest, ValuesAreWrittenAsUtf8)
{
    EXPECT_EQ(rewrite("gr\u00fc\u00dfe=\u00e4\n", "/gr\u00fc\u00dfe", "\u20ac"),
              "gr\u00fc\u00dfe=\u20ac\n");
}

TEST_F(ConfigRewriterTest, LineEndsBecomeLineFeeds)
{
    EXPECT_EQ(rewrite("a=1\r\nb=2\r\n", "/b", "3"), "a=1\nb=3\n");
}

TEST_F(ConfigRewriterTest, AChangeIsToldAtLevelTwo)
{
    openLog(2);
    rewrite("[G]\nkey=%1 old\n", "G/key", "%2 new");
    EXPECT_EQ(logLines().last(), "a.conf : G/key changed from %1 old -> %2 new");
    openLog(1);
    rewrite("[G]\nkey=old\n", "G/key", "new");
    EXPECT_EQ(logLines().size(), 1);
}

} // namespace
} // namespace kor::veltrano::daemons

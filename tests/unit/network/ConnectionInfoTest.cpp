#include "network/ConnectionInfo.h"

#include "SettingsFixture.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

namespace kor::veltrano::daemons {
namespace {

// A PATH in which nmcli is a script of the test's own.
class ConnectionInfoTest : public SettingsFixture
{
protected:
    ConnectionInfoTest() { qputenv("PATH", folder.path().toUtf8() + ':' + oldPath); }
    ~ConnectionInfoTest() override { qputenv("PATH", oldPath); }

    void setNmcli(const QByteArray& commands) const
    {
        writeScript(pathOf(QStringLiteral("nmcli")), commands);
    }

    // The texts of the lines; each entry must be an object of one text.
    static QStringList lines(const QByteArray& reply)
    {
        QStringList texts;
        const QJsonArray message = QJsonDocument::fromJson(reply)["message"].toArray();
        for (const QJsonValue& line : message) {
            EXPECT_EQ(line.toObject().keys(), QStringList("text"));
            texts.append(line["text"].toString());
        }
        return texts;
    }

    static QStringList askedLines() { return lines(createConnectionInfo(QStringLiteral("eth0"))); }

    const QByteArray oldPath = qgetenv("PATH");
};

TEST_F(ConnectionInfoTest, TheReplyHoldsTheConnectionAndALineEach)
{
    setNmcli(R"(printf 'connection.id:   eth0\n\n  indented \n'; echo no >&2)");
    EXPECT_EQ(createConnectionInfo(QStringLiteral("eth0")), R"({
    "connection": "eth0",
    "message": [
        {
            "text": "connection.id:   eth0"
        },
        {
            "text": "  indented "
        }
    ]
}
)");
}

TEST_F(ConnectionInfoTest, TheConnectionIsAskedForByItsName)
{
    setNmcli(R"(for argument; do echo "<$argument>"; done)");
    EXPECT_EQ(lines(createConnectionInfo(QStringLiteral("wlan"))),
              QStringList({"<connection>", "<show>", "<wlan>"}));
}

TEST_F(ConnectionInfoTest, NoOutputGivesAnEmptyMessage)
{
    setNmcli("exit 0");
    EXPECT_EQ(createConnectionInfo(QStringLiteral("eth0")),
              "{\n    \"connection\": \"eth0\",\n    \"message\": [\n    ]\n}\n");
}

TEST_F(ConnectionInfoTest, AMissingCommandGivesAnEmptyMessage)
{
    qputenv("PATH", folder.path().toUtf8());
    EXPECT_EQ(createConnectionInfo(QStringLiteral("eth0")),
              "{\n    \"connection\": \"eth0\",\n    \"message\": [\n    ]\n}\n");
}

TEST_F(ConnectionInfoTest, AFailedCommandsStandardOutputCounts)
{
    setNmcli("echo out; echo err >&2; exit 10");
    EXPECT_EQ(askedLines(), QStringList("out"));
    setNmcli("echo out; echo err >&2; kill -9 $$");
    EXPECT_EQ(askedLines(), QStringList("out"));
}

TEST_F(ConnectionInfoTest, ACommandThatTakesTooLongIsEndedAndItsErrorsAreShown)
{
    setNmcli("echo out; echo err >&2; echo $$ > \"${0%/*}/pid\"; exec sleep 100");
    QElapsedTimer timer;
    timer.start();
    EXPECT_EQ(askedLines(), QStringList("err"));
    EXPECT_GE(timer.elapsed(), 500);
    const QString process = "/proc/" + read(pathOf(QStringLiteral("pid"))).trimmed();
    EXPECT_GT(process.size(), 6);
    EXPECT_FALSE(QFile::exists(process));
}

TEST_F(ConnectionInfoTest, ManyLinesAndAnyBytesAreShown)
{
    QByteArray text;
    for (int number = 0; number < 9000; ++number) {
        text += "line " + QByteArray::number(number) + '\n';
    }
    write(pathOf(QStringLiteral("text")),
          text
              + "Gr\xc3\xb6\xc3\x9f"
                "e");
    setNmcli("exec cat \"${0%/*}/text\"");
    const QStringList texts = askedLines();
    ASSERT_EQ(texts.size(), 9001);
    EXPECT_EQ(texts[8999], "line 8999");
    EXPECT_EQ(texts[9000], QString::fromUtf8("Gr\u00f6\u00dfe"));
    write(pathOf(QStringLiteral("text")), QByteArray("a\r\nb\0c\xff\n", 8));
    EXPECT_EQ(askedLines(), QStringList({"a", QString("b%1c%2").arg(QChar(0)).arg(QChar(0xfffd))}));
}

} // namespace
} // namespace kor::veltrano::daemons

#include "network/NetworkScript.h"

#include "SettingsFixture.h"
#include "support/waiting.h"

#include <QCoreApplication>
#include <QDir>
#include <QJsonDocument>

#include <algorithm>
#include <memory>
#include <thread>

namespace kor::veltrano::daemons {
namespace {

const QString scriptKey = QStringLiteral("Scripts/network");

class NetworkScriptTest : public SettingsFixture
{
protected:
    QString result() const
    {
        return QJsonDocument::fromJson(script->resultData())["message"].toString("(no text)");
    }

    bool waitForResult(const QString& text) const
    {
        return waitUntil([this, &text] { return result() == text; });
    }

    // Runs a script to its end, so that the result has a text which the next run replaces.
    void keepOldResult()
    {
        setScript(scriptKey, "echo old");
        script->start({});
        ASSERT_TRUE(waitForResult("old\n"));
    }

    // Commands that tell the process which runs them, and stay until it is ended.
    static QByteArray stay(const QByteArray& before = "")
    {
        return before + "echo > \"${0%/*}/$$.pid\"; exec sleep 100";
    }

    // The processes of all runs of stay().
    QStringList processes() const
    {
        QStringList found = QDir(folder.path()).entryList({QStringLiteral("*.pid")});
        for (QString& name : found) {
            name = "/proc/" + name.section('.', 0, 0);
        }
        return found;
    }

    bool waitForRun() const
    {
        return waitUntil([this] { return !processes().isEmpty(); });
    }

    bool allProcessesAreGone() const
    {
        for (const QString& process : processes()) {
            if (QFile::exists(process)) {
                return false;
            }
        }
        return true;
    }

    // Whether the ends of all runs have been told, which a later run would be taken to have come
    // to.
    bool allEndsAreTold() const
    {
        const auto children = script->findChildren<QProcess*>();
        return std::all_of(children.cbegin(), children.cend(), [](const QProcess* child) {
            return child->state() == QProcess::NotRunning;
        });
    }

    std::unique_ptr<NetworkScript> script = std::make_unique<NetworkScript>(scriptKey);
};

TEST_F(NetworkScriptTest, BeforeTheFirstRunTheResultIsEmpty)
{
    EXPECT_EQ(script->resultData(), "{\n    \"message\": \"\"\n}\n");
}

TEST_F(NetworkScriptTest, WhatTheScriptPrintsIsKept)
{
    setScript(scriptKey, R"(echo "first line"; echo hidden >&2; printf 'Gr\303\266\303\237e')");
    script->start({});
    EXPECT_TRUE(waitForResult(QString::fromUtf8("first line\nGr\u00f6\u00dfe")));
}

TEST_F(NetworkScriptTest, ArgumentsArriveAsTheyAre)
{
    setScript(scriptKey, R"(for argument; do printf '<%s>' "$argument"; done)");
    script->start({"", "a b", "$(x) `y` \"'*\n", QString::fromUtf8("\u00e4"), "-n", ""});
    EXPECT_TRUE(waitForResult(QString::fromUtf8("<><a b><$(x) `y` \"'*\n><\u00e4><-n><>")));
}

TEST_F(NetworkScriptTest, TheOutputOfAFailedOrCrashedScriptIsKept)
{
    for (const char* end : {"exit 1", "kill -9 $$", "kill -SEGV $$", "kill -TERM $$"}) {
        setScript(scriptKey, QByteArray("echo 'before ") + end + "'; " + end + "; echo after");
        script->start({});
        EXPECT_TRUE(waitForResult(QStringLiteral("before %1\n").arg(end))) << end;
    }
}

TEST_F(NetworkScriptTest, AScriptThatCannotBeStartedEmptiesTheResult)
{
    const QString notExecutable = pathOf(QStringLiteral("text"));
    write(notExecutable, "#!/bin/sh\necho no\n");
    for (const QString& path :
         {QString(), pathOf(QStringLiteral("missing")), folder.path(), notExecutable}) {
        keepOldResult();
        set(scriptKey, path);
        script->start({});
        EXPECT_TRUE(waitForResult({})) << qPrintable(path);
    }
    keepOldResult();
    settings.values.remove(scriptKey);
    script->start({});
    EXPECT_TRUE(waitForResult({}));
    keepOldResult();
}

TEST_F(NetworkScriptTest, TheOldResultStaysUntilTheRunHasEnded)
{
    keepOldResult();
    setScript(scriptKey,
              "echo new; touch \"${0%/*}/printed\"; "
              "until [ -e \"${0%/*}/go\" ]; do sleep 0.01; done; echo end");
    script->start({});
    ASSERT_TRUE(waitUntil([this] { return QFile::exists(pathOf(QStringLiteral("printed"))); }));
    EXPECT_EQ(result(), "old\n");
    write(pathOf(QStringLiteral("go")), "");
    EXPECT_TRUE(waitForResult("new\nend\n"));
}

TEST_F(NetworkScriptTest, ASecondStartDuringARunEndsBothAndLeavesNoResult)
{
    keepOldResult();
    setScript(scriptKey, stay("echo first; "));
    script->start({});
    ASSERT_TRUE(waitForRun());
    setScript(scriptKey, stay());
    script->start({});
    EXPECT_TRUE(waitForResult({}));
    EXPECT_TRUE(waitUntil([this] { return allProcessesAreGone() && allEndsAreTold(); }));
    keepOldResult();
}

TEST_F(NetworkScriptTest, ManyStartsAtOnceLeaveNoProcessAndNoResult)
{
    keepOldResult();
    setScript(scriptKey, stay());
    for (int turn = 0; turn < 10; ++turn) {
        script->start({});
    }
    EXPECT_TRUE(waitForResult({}));
    EXPECT_TRUE(waitUntil([this] { return allProcessesAreGone() && allEndsAreTold(); }));
    keepOldResult();
}

TEST_F(NetworkScriptTest, AScriptThatRunsEndsWithItsObject)
{
    setScript(scriptKey, stay());
    script->start({});
    ASSERT_TRUE(waitForRun());
    script.reset();
    EXPECT_TRUE(allProcessesAreGone());
}

TEST_F(NetworkScriptTest, AStartThatWasAskedForDiesWithItsObject)
{
    setScript(scriptKey, stay());
    script->start({});
    script.reset();
    QCoreApplication::processEvents();
    EXPECT_EQ(processes(), QStringList());
}

TEST_F(NetworkScriptTest, AChildThatStaysBehindIsNotWaitedFor)
{
    setScript(scriptKey, "sleep 3 & echo started");
    script->start({});
    EXPECT_TRUE(waitForResult("started\n"));
}

TEST_F(NetworkScriptTest, AScriptHasNoInput)
{
    setScript(scriptKey, "cat; echo end");
    script->start({});
    EXPECT_TRUE(waitForResult("end\n"));
}

TEST_F(NetworkScriptTest, MuchOutputIsKeptWhole)
{
    setScript(scriptKey, "head -c 5000000 /dev/zero | tr '\\0' x");
    script->start({});
    EXPECT_TRUE(waitUntil([this] { return !result().isEmpty(); }));
    EXPECT_EQ(result(), QString(5'000'000, 'x'));
}

TEST_F(NetworkScriptTest, OtherEventsStartNothing)
{
    setScript(scriptKey, stay());
    for (const int type : {999, 1001, 1002}) {
        QCoreApplication::postEvent(script.get(), new QEvent(QEvent::Type(type)));
    }
    QCoreApplication::sendPostedEvents();
    EXPECT_TRUE(script->findChildren<QProcess*>().isEmpty());
    keepOldResult();
    EXPECT_EQ(processes(), QStringList());
}

TEST_F(NetworkScriptTest, OtherThreadsStartAndReadWhileTheScriptRuns)
{
    setScript(scriptKey, "echo \"run $1\"");
    for (int turn = 0; turn < 10; ++turn) {
        const QString expected = QStringLiteral("run %1\n").arg(turn);
        std::thread starter([this, turn] { script->start({QString::number(turn)}); });
        starter.join();
        bool isOver = false;
        std::thread reader([this, &expected, &isOver] {
            for (int read = 0; read < 100'000 && !isOver; ++read) {
                isOver = result() == expected;
            }
        });
        EXPECT_TRUE(waitForResult(expected));
        reader.join();
    }
}

} // namespace
} // namespace kor::veltrano::daemons

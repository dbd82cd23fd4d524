#include "daemon/Log.h"

#include "support/LogFixture.h"

#include <QRegularExpression>

#include <sstream>
#include <thread>

namespace kor::veltrano::daemons {
namespace {

// What the code under test writes to the two standard streams.
class ConsoleCapture
{
public:
    ConsoleCapture()
    {
        testing::internal::CaptureStdout();
        testing::internal::CaptureStderr();
    }

    void end()
    {
        output = testing::internal::GetCapturedStdout();
        error = testing::internal::GetCapturedStderr();
    }

    std::string output;
    std::string error;
};

class LogTest : public LogFixture
{
protected:
    // The whole file, with every time stamp replaced by "T".
    QString logText() const
    {
        return QString::fromLatin1(logBytes())
            .replace(QRegularExpression(QStringLiteral("\\d\\d:\\d\\d:\\d\\d\\.\\d\\d\\d")),
                     QStringLiteral("T"));
    }
};

TEST_F(LogTest, TheLineBreakStandsInFrontOfAMessage)
{
    logObject->log(QStringLiteral("first"), 0);
    logObject->log(QStringLiteral("second"), 0);
    EXPECT_EQ(logText(), "T | first\nT | second");
}

TEST_F(LogTest, StartAndStopAreWrittenAtLevelOne)
{
    openLog(1);
    logObject.reset();
    EXPECT_EQ(logText(), "T | tessarad started\nT | tessarad stopped\n");
}

TEST_F(LogTest, AtVerbosityZeroALevelOneMessageLeavesNoTrace)
{
    logObject->log(QStringLiteral("detail"), 1);
    logObject.reset();
    EXPECT_FALSE(QFile::exists(logFile()));
}

TEST_F(LogTest, EachStartDeletesTheOldFile)
{
    logObject->log(QStringLiteral("old"), 0);
    openLog(0);
    EXPECT_FALSE(QFile::exists(logFile()));
}

TEST_F(LogTest, ADotIsDoubledInTheFileAndTheNextMessageStartsALine)
{
    logObject->log(QStringLiteral("text"), 0);
    logObject->log(QStringLiteral("."), 0);
    logObject->log(QStringLiteral("next"), 0);
    EXPECT_EQ(logText(), "T | text..\nT | next");
}

TEST_F(LogTest, ADotAsTheFirstMessageStillMakesTheNextOneStartALine)
{
    logObject->log(QStringLiteral("."), 0);
    logObject->log(QStringLiteral("next"), 0);
    EXPECT_EQ(logText(), "..\nT | next");
}

TEST_F(LogTest, TheInfoTextStandsBehindTheTime)
{
    logObject->logWithInfo(QStringLiteral("info:"), QStringLiteral("message"), 0);
    EXPECT_EQ(logText(), "T | info:message");
}

TEST_F(LogTest, AListIsJoined)
{
    logObject->log(QStringList{QStringLiteral("a"), QStringLiteral("%1"), QStringLiteral("c")}, 0);
    EXPECT_EQ(logText(), "T | ( a , %1 , c )");
}

TEST_F(LogTest, TextBeyondLatin1IsReplaced)
{
    logObject->log(QStringLiteral("\u00fc\u20ac"), 0);
    EXPECT_TRUE(logBytes().endsWith("\xFC?"));
}

TEST_F(LogTest, SetVerbosityChangesTheLevelWithoutAConfirmation)
{
    logObject->setVerbosity(3);
    logObject->log(QStringLiteral("detail"), 3);
    EXPECT_EQ(logText(), "T | detail");
}

TEST_F(LogTest, SetVerbosityConfirmsAtLevelHundred)
{
    logObject->setVerbosity(100);
    EXPECT_EQ(logText(), "T | new log level is 100");
}

TEST_F(LogTest, AMessageFromAnotherThreadWaitsForTheOwnThreadAndLosesItsInfo)
{
    std::thread([this] {
        logObject->logWithInfo(QStringLiteral("info"), QStringLiteral("posted"), 0);
    }).join();
    logObject->log(QStringLiteral("own"), 0);
    EXPECT_EQ(logText(), "T | own");
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(logText(), "T | own\nT | posted");
}

TEST_F(LogTest, APostedMessageIsTestedAgainstTheLevelOnceMore)
{
    openLog(2);
    logObject->log(QStringLiteral("own"), 2);
    std::thread([this] { logObject->log(QStringLiteral("posted"), 2); }).join();
    logObject->verbosity = 1;
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(logText(), "T | tessarad started\nT | own");
}

TEST_F(LogTest, AnUnwritableFileIsNoConcern)
{
    MyLogHandler log(folder.filePath(QStringLiteral("missing/log.txt")), 0, true);
    log.log(QStringLiteral("lost"), 0);
    EXPECT_FALSE(QFile::exists(folder.filePath(QStringLiteral("missing"))));
}

TEST_F(LogTest, TheConsoleGetsTheTimeOnErrorAndTheMessageOnOutput)
{
    ConsoleCapture console;
    MyLogHandler log(logFile(), 0, false);
    log.log(QStringLiteral("a"), 0);
    log.log(QStringLiteral("."), 0);
    log.logError(QStringLiteral("b"), 0);
    console.end();
    EXPECT_EQ(console.output, "a");
    const QRegularExpression error(QStringLiteral(
        "^\\d\\d:\\d\\d:\\d\\d\\.\\d{3} \\| \\.\n\\d\\d:\\d\\d:\\d\\d\\.\\d{3} \\| b$"));
    EXPECT_TRUE(error.match(QString::fromStdString(console.error)).hasMatch()) << console.error;
}

TEST_F(LogTest, AnErrorFromAnotherThreadEndsOnStandardOutput)
{
    ConsoleCapture console;
    MyLogHandler log(logFile(), 0, false);
    std::thread([&log] { log.logError(QStringLiteral("posted"), 0); }).join();
    QCoreApplication::sendPostedEvents();
    console.end();
    EXPECT_EQ(console.output, "posted");
}

TEST_F(LogTest, ADaemonsConsoleStaysSilentWhileTheFileGetsEverything)
{
    ConsoleCapture console;
    logObject->log(QStringLiteral("quiet"), 0);
    console.end();
    EXPECT_EQ(console.output + console.error, "");
    EXPECT_EQ(logText(), "T | quiet");
}

TEST_F(LogTest, TheInstanceIsKnownForAsLongAsItLives)
{
    EXPECT_EQ(Log::instance, logObject.get());
    logObject.reset();
    EXPECT_EQ(Log::instance, nullptr);
}

TEST_F(LogTest, WithoutALogMessagesAreDropped)
{
    logObject.reset();
    logMessage(QStringLiteral("nobody"), 0);
    EXPECT_FALSE(isLogged(0));
    EXPECT_FALSE(QFile::exists(logFile()));
}

} // namespace
} // namespace kor::veltrano::daemons

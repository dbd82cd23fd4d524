#include "daemon/SignalHandler.h"

#include <QCoreApplication>
#include <QStringList>

#include <gtest/gtest.h>

namespace kor::veltrano::daemons {
namespace {

// A running handler as main sets it up, and what it has told so far, in order.
class SignalHandlerTest : public testing::Test
{
protected:
    SignalHandlerTest()
    {
        SignalHandler::instance = &handler;
        handler.start(QThread::InheritPriority);
        QObject::connect(&handler, &SignalHandler::log, &handler, [this](QString name, int level) {
            told.append(QStringLiteral("%1 at %2").arg(name).arg(level));
        });
        for (const auto& [signal, name] : {std::pair(&SignalHandler::sigTerm, "sigTerm"),
                                           std::pair(&SignalHandler::sigInt, "sigInt"),
                                           std::pair(&SignalHandler::sigHup, "sigHup")}) {
            QObject::connect(&handler, signal, &handler,
                             [this, text = QString::fromLatin1(name)] { told.append(text); });
        }
    }

    QStringList toldAfterEnd()
    {
        EXPECT_TRUE(handler.wait(10000));
        QCoreApplication::sendPostedEvents();
        return told;
    }

    QStringList told;
    SignalHandler handler;
};

struct ControlEvent {
    unsigned long number;
    const char* name;
};

class ControlEventTest : public SignalHandlerTest, public testing::WithParamInterface<ControlEvent>
{
};

TEST_P(ControlEventTest, LogsItsNameAndThenAsksForTheEnd)
{
    EXPECT_TRUE(SignalHandler::consoleCtrlHandler(GetParam().number));
    EXPECT_EQ(toldAfterEnd(),
              (QStringList{QStringLiteral("%1 at 1").arg(QLatin1String(GetParam().name)),
                           QStringLiteral("sigTerm")}));
}

INSTANTIATE_TEST_SUITE_P(Events, ControlEventTest,
                         testing::Values(ControlEvent{0, "CTRL_C_EVENT"},
                                         ControlEvent{1, "CTRL_BREAK_EVENT"},
                                         ControlEvent{2, "CTRL_CLOSE_EVENT"},
                                         ControlEvent{5, "CTRL_LOGOFF_EVENT"},
                                         ControlEvent{6, "CTRL_SHUTDOWN_EVENT"}));

TEST_F(SignalHandlerTest, AnEventOutsideTheTableIsSwallowed)
{
    for (const unsigned long number : {3UL, 4UL, 7UL, 4294967296UL, ~0UL}) {
        EXPECT_TRUE(SignalHandler::consoleCtrlHandler(number));
    }
    EXPECT_TRUE(handler.isRunning());
    SignalHandler::consoleCtrlHandler(6);
    EXPECT_EQ(toldAfterEnd().size(), 2);
}

TEST_F(SignalHandlerTest, OnlyTheFirstEventCounts)
{
    SignalHandler::consoleCtrlHandler(1);
    ASSERT_TRUE(handler.wait(10000));
    EXPECT_TRUE(SignalHandler::consoleCtrlHandler(6));
    EXPECT_EQ(toldAfterEnd(), (QStringList{"CTRL_BREAK_EVENT at 1", "sigTerm"}));
}

TEST_F(SignalHandlerTest, ACodeThatIsNoEventEndsTheThreadInSilence)
{
    handler.exit(3);
    EXPECT_EQ(toldAfterEnd(), QStringList());
}

TEST(SignalHandlerLifeTest, ARequestWithoutAHandlerIsSwallowed)
{
    {
        SignalHandler handler;
        SignalHandler::instance = &handler;
        handler.start();
    }
    EXPECT_EQ(SignalHandler::instance, nullptr);
    EXPECT_TRUE(SignalHandler::consoleCtrlHandler(0));
}

} // namespace
} // namespace kor::veltrano::daemons

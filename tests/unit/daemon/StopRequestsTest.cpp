#include "daemon/StopRequests.h"

#include "daemon/SignalHandler.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>

#include <gtest/gtest.h>

#include <csignal>

namespace kor::veltrano::daemons {
namespace {

struct Signal {
    int number;
    const char* eventName;
};

class StopRequestsTest : public testing::TestWithParam<Signal>
{
};

// As in main, the request comes before anyone listens.
TEST_P(StopRequestsTest, ARequestBeforeTheDeliveryStartsIsKept)
{
    SignalHandler handler;
    SignalHandler::instance = &handler;
    StopRequests stopRequests;
    stopRequests.registerRoutine();
    handler.start();
    std::raise(GetParam().number);

    QString name;
    QEventLoop loop;
    QObject::connect(&handler, &SignalHandler::log, &loop, [&name](QString text) { name = text; });
    QObject::connect(&handler, &SignalHandler::sigTerm, &loop, &QEventLoop::quit);
    QTimer::singleShot(10000, &loop, &QEventLoop::quit);
    stopRequests.startDelivery();
    loop.exec();
    EXPECT_EQ(name, QLatin1String(GetParam().eventName));
}

INSTANTIATE_TEST_SUITE_P(Signals, StopRequestsTest,
                         testing::Values(Signal{SIGINT, "CTRL_C_EVENT"},
                                         Signal{SIGQUIT, "CTRL_BREAK_EVENT"},
                                         Signal{SIGHUP, "CTRL_CLOSE_EVENT"},
                                         Signal{SIGTERM, "CTRL_SHUTDOWN_EVENT"}));

} // namespace
} // namespace kor::veltrano::daemons

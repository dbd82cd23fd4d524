#include "daemon/SignalHandler.h"

namespace kor::veltrano::daemons {

namespace {

// Empty for a number that stands for no event.
QString eventName(int type)
{
    switch (type) {
    case 0:
        return QStringLiteral("CTRL_C_EVENT");
    case 1:
        return QStringLiteral("CTRL_BREAK_EVENT");
    case 2:
        return QStringLiteral("CTRL_CLOSE_EVENT");
    case 5:
        return QStringLiteral("CTRL_LOGOFF_EVENT");
    case 6:
        return QStringLiteral("CTRL_SHUTDOWN_EVENT");
    default:
        return {};
    }
}

} // namespace

SignalHandler* SignalHandler::instance = nullptr;

SignalHandler::SignalHandler() = default;

SignalHandler::~SignalHandler()
{
    exit(0);
    wait();
    instance = nullptr;
}

bool SignalHandler::consoleCtrlHandler(unsigned long type)
{
    const bool isKnown = type <= 6 && !eventName(int(type)).isEmpty();
    if (isKnown && instance) {
        instance->exit(int(type));
    }
    return true;
}

void SignalHandler::run()
{
    const QString name = eventName(exec());
    if (!name.isEmpty()) {
        Q_EMIT log(name, 1);
        Q_EMIT sigTerm();
    }
}

void SignalHandler::handleSigHup() { }

void SignalHandler::handleSigTerm() { }

void SignalHandler::handleSigInt() { }

} // namespace kor::veltrano::daemons

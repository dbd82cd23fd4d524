#include "robot/MyOmniDrive.h"

#include "config/ConfigFile.h"
#include "daemon/Log.h"

#include <QJsonDocument>

namespace kor::veltrano::daemons {

MyOmniDrive* omniDrive = nullptr;

namespace {

constexpr std::chrono::milliseconds tickInterval(100);
constexpr int ticksUntilStop = 5;

VelocityLimits limitsFromSettings()
{
    return {settings.value(QStringLiteral("Omnidrive/vxmax"), QStringLiteral("2")).toFloat(),
            settings.value(QStringLiteral("Omnidrive/vymax"), QStringLiteral("2")).toFloat(),
            settings.value(QStringLiteral("Omnidrive/omegamax"), QStringLiteral("3")).toFloat()};
}

} // namespace

MyOmniDrive::MyOmniDrive() : limits(limitsFromSettings())
{
    // The default timer may be off by a twentieth, which the watchdog's bounds don't allow.
    idleTimer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&idleTimer, &QTimer::timeout, &idleTimer, [this] { onTimeout(); });
    nextTick = Clock::now() + tickInterval;
    idleTimer.start(tickInterval);
}

bool MyOmniDrive::armAndSetData(const QByteArray& data)
{
    armedAt = Clock::now();
    idleCountdown.restart(ticksUntilStop);
    return setData(data);
}

bool MyOmniDrive::setData(const QByteArray& data)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(data, &error);
    if (error.error != QJsonParseError::NoError) {
        logMessage(QStringLiteral("Error: MyOmniDrive::setData - Invalid JSON: %1")
                       .arg(error.errorString()),
                   0);
        return false;
    }
    const Velocity velocity = velocityFromJson(document.array());
    const QString violation = limitViolation(velocity, limits);
    if (!violation.isEmpty()) {
        logMessage(violation, 0);
        setVelocity(0, 0, 0);
        return false;
    }
    setVelocity(velocity.vx, velocity.vy, velocity.omega);
    return true;
}

// On a busy machine the timer fires late. A request that came after the tick was due must not lose
// that tick, or it would be left with less than 400 ms.
void MyOmniDrive::onTimeout()
{
    const auto due = nextTick;
    const auto now = Clock::now();
    // As the timer does it: ticks that were missed as a whole are not made up for.
    nextTick = due + tickInterval < now ? now + tickInterval : due + tickInterval;
    if (armedAt.load() <= due) {
        tick();
    }
}

void MyOmniDrive::tick()
{
    if (idleCountdown.tick()) {
        setVelocity(0, 0, 0);
    }
}

} // namespace kor::veltrano::daemons

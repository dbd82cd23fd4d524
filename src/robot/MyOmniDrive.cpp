#include "robot/MyOmniDrive.h"

#include "config/ConfigFile.h"
#include "daemon/Log.h"

#include <QJsonDocument>

namespace kor::veltrano::daemons {

MyOmniDrive* omniDrive = nullptr;

namespace {

constexpr int tickIntervalMs = 100;
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
    QObject::connect(&idleTimer, &QTimer::timeout, &idleTimer, [this] { tick(); });
    idleTimer.start(tickIntervalMs);
}

bool MyOmniDrive::armAndSetData(const QByteArray& data)
{
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

void MyOmniDrive::tick()
{
    if (idleCountdown.tick()) {
        setVelocity(0, 0, 0);
    }
}

} // namespace kor::veltrano::daemons

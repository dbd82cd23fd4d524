#include "Camera.h"

#include "Lens.h"
#include "Robot.h"

namespace kor::veltrano::sim {

namespace {

constexpr double imageS = 1.0 / 15;
constexpr int quality = 85;
const QLatin1String base64Key("base64");

// All but the image itself.
QJsonObject description()
{
    return {{QStringLiteral("format"), QStringLiteral("jpeg")},
            {QStringLiteral("width"), Lens::width},
            {QStringLiteral("height"), Lens::height},
            {QStringLiteral("step"), Lens::width * static_cast<int>(sizeof(Color))}};
}

} // namespace

Camera::Camera(const World& surroundings, const Robot& carrier)
    : HeldReadings(QStringLiteral("camera"), imageS, {},
                   {QStringLiteral("width"), QStringLiteral("height"), QStringLiteral("step")}),
      robot(carrier),
      view(surroundings)
{
}

std::vector<Event> Camera::state() const
{
    QJsonObject params = readings();
    params.insert(QStringLiteral("data"), params.take(base64Key));
    return {{QStringLiteral("camera.imageReceived"), params}};
}

QJsonObject Camera::show() const
{
    return {{keys().first(), isHeld() ? readings() : description()}};
}

Change Camera::prepare(const QString& key, const QJsonValue& value)
{
    const QJsonValue base64 = value.toObject().value(base64Key);
    const auto bytes = QByteArray::fromBase64Encoding(base64.toString().toUtf8(),
                                                      QByteArray::AbortOnBase64DecodingErrors);
    if (base64.isString() && !bytes) {
        return Change::refused(QStringLiteral("%1.base64 must be Base64").arg(key));
    }
    return HeldReadings::prepare(key, value);
}

QJsonObject Camera::simulated() const
{
    const QByteArray image = encoder.encode(view.draw(robot.pose()), quality);
    QJsonObject readings = description();
    readings.insert(base64Key, QString::fromLatin1(image.toBase64()));
    return readings;
}

} // namespace kor::veltrano::sim

// Camera: the robot's camera, with an image fifteen times a second.
//
// An image is drawn and encoded only when somebody wants it, once for all of them.
#pragma once

#include "CameraView.h"
#include "HeldReadings.h"
#include "JpegEncoder.h"

namespace kor::veltrano::sim {

class Robot;

class Camera : public HeldReadings
{
public:
    // The world and the robot must outlive the camera.
    Camera(const World& surroundings, const Robot& carrier);

    QString subscription() const override { return QStringLiteral("camera"); }
    std::vector<Event> state() const override;
    // Has the image itself only while one is held, as drawing one takes milliseconds.
    QJsonObject show() const override;
    Change prepare(const QString& key, const QJsonValue& value) override;

protected:
    QJsonObject simulated() const override;

private:
    const Robot& robot;
    // Drawing leaves no trace but the memory that is used again.
    mutable CameraView view;
    mutable JpegEncoder encoder;
};

} // namespace kor::veltrano::sim

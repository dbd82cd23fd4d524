// Record: a device that sends bytes of a format of its own every two seconds.
//
// The bytes are made anew by a function when somebody wants them, unless the record is held.
#pragma once

#include "Device.h"

#include <QByteArray>

#include <functional>
#include <optional>

namespace kor::veltrano::sim {

class Record : public Device
{
public:
    using Writer = std::function<QByteArray()>;

    // key is the member of the state, eventMethod the event that carries the bytes.
    Record(const QString& key, const QString& eventMethod, Writer writer);

    QByteArray bytes() const { return held ? *held : write(); }

    std::vector<Event> state() const override;
    // The bytes as base64, and as text where they are UTF-8.
    QJsonObject show() const override;
    // Takes an object with either text or base64.
    Change prepare(const QString& key, const QJsonValue& value) override;
    bool isHeld() const override { return held.has_value(); }

protected:
    void unhold() override { held.reset(); }

private:
    const QString method;
    const Writer write;
    std::optional<QByteArray> held;
};

} // namespace kor::veltrano::sim

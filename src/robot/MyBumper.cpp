#include "robot/MyBumper.h"

#include "support/Json.h"

#include <array>

namespace kor::veltrano::daemons {

MyBumper* bumper = nullptr;

// The robot's most polled reading has but two texts: rendered anew for each request, they would
// take more time than all else that the daemon itself does for it.
QByteArray createBumperData()
{
    const auto text = [](bool value) {
        return renderJson(QJsonObject{{QStringLiteral("value"), value}});
    };
    static const std::array<QByteArray, 2> texts = {text(false), text(true)};
    return texts[bumper->value() ? 1 : 0];
}

} // namespace kor::veltrano::daemons

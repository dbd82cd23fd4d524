#include "Color.h"

#include <QRegularExpression>

#include <algorithm>

namespace kor::veltrano::sim {

namespace {

quint8 part(double value)
{
    return static_cast<quint8>(std::clamp(value + 0.5, 0.0, 255.0));
}

} // namespace

std::optional<Color> toColor(const QString& text)
{
    static const QRegularExpression form(QStringLiteral("\\A#[0-9a-fA-F]{6}\\z"));
    if (!form.match(text).hasMatch()) {
        return std::nullopt;
    }
    const uint bits = text.mid(1).toUInt(nullptr, 16);
    return Color{static_cast<quint8>(bits >> 16), static_cast<quint8>(bits >> 8 & 255),
                 static_cast<quint8>(bits & 255)};
}

Color scaled(Color color, double factor)
{
    return {part(color.red * factor), part(color.green * factor), part(color.blue * factor)};
}

Color mixed(Color color, Color other, double share)
{
    const double rest = 1 - share;
    return {part(color.red * rest + other.red * share),
            part(color.green * rest + other.green * share),
            part(color.blue * rest + other.blue * share)};
}

} // namespace kor::veltrano::sim

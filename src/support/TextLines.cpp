#include "support/TextLines.h"

#include <QJsonObject>
#include <QTextStream>

namespace kor::veltrano::daemons {

QJsonArray textLines(const QByteArray& text)
{
    QJsonArray lines;
    QTextStream stream(text);
    QString line;
    while (stream.readLineInto(&line)) {
        if (!line.isEmpty()) {
            lines.append(QJsonObject{{QStringLiteral("text"), line}});
        }
    }
    return lines;
}

} // namespace kor::veltrano::daemons

#include "config/ConfigRewriter.h"

#include "config/ConfigLine.h"
#include "daemon/Log.h"

namespace kor::veltrano::daemons {

ConfigRewriter::ConfigRewriter(const QMap<QString, QString>& newValues, const QString& filePath)
    : changes(newValues), path(filePath)
{
}

QByteArray ConfigRewriter::rewrite(const QByteArray& text)
{
    QByteArray result;
    section.clear();
    isChanged = false;
    for (int begin = 0; begin < text.size();) {
        const int lineFeed = text.indexOf('\n', begin);
        const int end = lineFeed < 0 ? text.size() : lineFeed;
        QByteArray raw = text.mid(begin, end - begin);
        if (lineFeed >= 0 && raw.endsWith('\r')) {
            raw.chop(1);
        }
        begin = end + 1;
        const QByteArray changed = changedLine(QString::fromUtf8(raw.constData(), raw.size()));
        if (!changed.isNull()) {
            result += changed + '\n';
            isChanged = true;
        } else {
            result += raw;
            if (begin < text.size()) {
                result += '\n';
            }
        }
    }
    return result;
}

QByteArray ConfigRewriter::changedLine(const QString& rawLine)
{
    const QString trimmed = rawLine.trimmed();
    if (trimmed.isEmpty() || isComment(trimmed)) {
        return {};
    }
    if (trimmed.startsWith(QLatin1Char('[')) && trimmed.endsWith(QLatin1Char(']'))) {
        // The length is that of the raw line: a section with blanks around it keeps its bracket,
        // so that none of its keys is found.
        section = trimmed.mid(1, rawLine.size() - 2);
        return {};
    }
    const int separatorAt = separatorPosition(trimmed);
    return separatorAt < 0 ? QByteArray() : changedKeyLine(rawLine, separatorAt);
}

// The position comes from the trimmed line: an indented key comes out wrong and is never found.
QByteArray ConfigRewriter::changedKeyLine(const QString& rawLine, int separatorAt)
{
    const QString key = rawLine.left(separatorAt);
    const QString oldValue = rawLine.mid(separatorAt + 1);
    const QString fullKey = section + QLatin1Char('/') + key;
    const auto change = changes.constFind(fullKey);
    if (change == changes.constEnd() || *change == oldValue) {
        return {};
    }
    if (isLogged(2)) {
        logMessage(
            QStringLiteral("%1 : %2 changed from %3 -> %4").arg(path, fullKey, oldValue, *change),
            2);
    }
    const QString separator = QString(rawLine).remove(key).remove(oldValue);
    return (key + separator + *change).toUtf8();
}

} // namespace kor::veltrano::daemons

// ConfigRewriter: one walk over the lines of a configuration file that puts new values in.
//
// Made by replaceConfigFile for one file. Comments, directives, blank lines, the order and the
// spacing around a separator are kept; lines that stay are copied byte for byte, also where they
// aren't UTF-8.
#pragma once

#include <QByteArray>
#include <QMap>
#include <QString>

namespace kor::veltrano::daemons {

class ConfigRewriter
{
public:
    // newValues are by "Group/key", or "/key" before the first section; filePath is for the log.
    ConfigRewriter(const QMap<QString, QString>& newValues, const QString& filePath);

    // The whole new text. A changed line ends in a line feed, a copied one only where another one
    // follows it: a file's last line feed is lost unless its last line has changed.
    QByteArray rewrite(const QByteArray& text);

    // Whether the last rewrite() has changed anything.
    bool hasChanged() const { return isChanged; }

private:
    // The line with its new value; null where it stays as it is. rawLine has no line end.
    QByteArray changedLine(const QString& rawLine);
    QByteArray changedKeyLine(const QString& rawLine, int separatorAt);

    const QMap<QString, QString>& changes;
    const QString path;
    QString section;
    bool isChanged = false;
};

} // namespace kor::veltrano::daemons

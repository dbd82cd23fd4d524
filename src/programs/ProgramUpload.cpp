#include "programs/ProgramUpload.h"

#include "config/ConfigFile.h"
#include "daemon/Log.h"
#include "support/Json.h"

#include <QFile>
#include <QJsonDocument>
#include <QSaveFile>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace kor::veltrano::daemons {

namespace {

struct Outcome {
    bool success;
    QString message;
};

// The text without a data URL's head. The comma stays: decoding skips what is no Base64.
QByteArray decode(QString text)
{
    const int comma = text.indexOf(QLatin1Char(','));
    if (comma >= 1) {
        text.remove(0, comma);
    }
    return QByteArray::fromBase64(text.toLatin1());
}

QString sizeText(int size)
{
    return size < 1024 ? QStringLiteral("%1 bytes").arg(size)
                       : QStringLiteral("%1kB").arg(size / 1024);
}

// True where a new file may take the old one's place without anyone losing it: not a device or a
// pipe, not somebody else's file, and not one that goes by other names too.
bool isReplaceable(const QString& path)
{
#ifdef Q_OS_UNIX
    struct stat status = {};
    return stat(QFile::encodeName(path).constData(), &status) != 0
        || (S_ISREG(status.st_mode) && status.st_uid == geteuid() && status.st_nlink == 1);
#else
    return true;
#endif
}

bool replaceFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    file.write(content);
    return file.commit();
}

// What becomes of the bytes behind the open file isn't reported.
bool overwriteFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
#ifdef Q_OS_UNIX
    // A pipe that nobody reads must not hold the request for ever: it can't be opened then.
    const int descriptor = ::open(QFile::encodeName(path).constData(),
                                  O_WRONLY | O_CREAT | O_TRUNC | O_NONBLOCK | O_CLOEXEC, 0666);
    const bool isOpen = descriptor >= 0
        && file.open(descriptor, QIODevice::WriteOnly, QFileDevice::AutoCloseHandle);
#else
    const bool isOpen = file.open(QIODevice::WriteOnly);
#endif
    if (isOpen) {
        file.write(content);
    }
    return isOpen;
}

// Replaces the file as a whole where it can, so that a download meanwhile gets the old bytes or the
// new ones.
bool writeFile(const QString& path, const QByteArray& content)
{
    return (isReplaceable(path) && replaceFile(path, content)) || overwriteFile(path, content);
}

Outcome storeProgram(const QJsonObject& program)
{
    const int size = program.value(QLatin1String("size")).toInt();
    const QByteArray content = decode(program.value(QLatin1String("data")).toString());
    const QString path = settings.value(QStringLiteral("Lumview/programpath")) + QLatin1Char('/')
        + program.value(QLatin1String("name")).toString();
    if (content.size() != size) {
        return {false,
                QStringLiteral("decoded file size %1 != expected file size %2")
                    .arg(content.size())
                    .arg(size)};
    }
    if (!writeFile(path, content)) {
        return {
            false,
            QStringLiteral("Error writing file %1 with size %2").arg(path, QString::number(size))};
    }
    return {true, QStringLiteral("Wrote %1 to file %2").arg(sizeText(size), path)};
}

Outcome upload(const QByteArray& body)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError) {
        return {false,
                QStringLiteral("Error: /data/uploadProgram/ - Invalid JSON: %1")
                    .arg(error.errorString())};
    }
    return storeProgram(document.object());
}

} // namespace

bool uploadProgram(const QByteArray& body, QByteArray& result)
{
    const Outcome outcome = upload(body);
    logMessage(outcome.message, outcome.success ? 1 : 0);
    result = renderJson(QJsonObject{{QStringLiteral("message"), outcome.message},
                                    {QStringLiteral("success"), outcome.success}});
    return true;
}

} // namespace kor::veltrano::daemons

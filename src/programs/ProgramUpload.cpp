#include "programs/ProgramUpload.h"

#include "config/ConfigFile.h"
#include "daemon/Log.h"
#include "support/Json.h"

#include <QJsonDocument>
#include <QSaveFile>

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

// Replaces the file as a whole, so that a download meanwhile gets the old bytes or the new ones.
// Where the directory permits no second file, the old one is overwritten. What becomes of the bytes
// on the disk isn't reported.
bool writeFile(const QString& path, const QByteArray& content)
{
    QSaveFile file(path);
    file.setDirectWriteFallback(true);
    if (!file.open(QIODevice::WriteOnly)) {
        return false;
    }
    file.write(content);
    file.commit();
    return true;
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

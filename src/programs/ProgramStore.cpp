#include "programs/ProgramStore.h"

#include "config/ConfigFile.h"
#include "programs/ScriptRunner.h"
#include "support/Json.h"

#include <QDir>
#include <QJsonDocument>

#include <optional>

namespace kor::veltrano::daemons {

namespace {

QString programDirectory()
{
    return settings.value(QStringLiteral("Lumview/programpath"),
                          QStringLiteral("/home/veltrano/programs"));
}

// Always with the dot, so that a file without one is never reached.
QString programFilePath(const QString& name, const QString& suffix)
{
    return programDirectory() + QLatin1Char('/') + name + QLatin1Char('.') + suffix;
}

QString textOf(const QJsonObject& object, const char* key)
{
    return object[QLatin1String(key)].toString();
}

QString programFilePath(const QJsonObject& program)
{
    return programFilePath(textOf(program, "name"), textOf(program, "suffix"));
}

std::optional<QJsonDocument> parse(const QByteArray& body)
{
    QJsonParseError error;
    QJsonDocument document = QJsonDocument::fromJson(body, &error);
    if (error.error != QJsonParseError::NoError) {
        return std::nullopt;
    }
    return document;
}

QJsonObject programElement(const QFileInfo& file, int id)
{
    const bool isRunning = scriptRunner->isRunning(file.absoluteFilePath());
    return {
        {QStringLiteral("id"), id},
        {QStringLiteral("name"), file.baseName()},
        {QStringLiteral("old"), file.baseName()},
        {QStringLiteral("suffix"), file.completeSuffix()},
        {QStringLiteral("action"),
         isRunning ? QStringLiteral("running") : QStringLiteral("stopped")},
    };
}

void renameProgram(const QJsonObject& program)
{
    const QString name = textOf(program, "name").trimmed();
    const QString old = textOf(program, "old");
    const QString suffix = textOf(program, "suffix");
    if (name != old && !name.isEmpty()) {
        QFile::rename(programFilePath(old, suffix), programFilePath(name, suffix));
    }
}

} // namespace

QByteArray programList()
{
    QJsonArray list;
    const auto files =
        QDir(programDirectory()).entryInfoList(QDir::Files, QDir::Name | QDir::IgnoreCase);
    for (const QFileInfo& file : files) {
        list.append(programElement(file, list.size() + 1));
    }
    return renderJson(list);
}

QByteArray globalVarList()
{
    QJsonArray list;
    const QMap<QString, QString> variables = scriptRunner->globalVariables();
    for (auto variable = variables.cbegin(); variable != variables.cend(); ++variable) {
        list.append(QJsonObject{{QStringLiteral("id"), list.size() + 1},
                                {QStringLiteral("name"), variable.key()},
                                {QStringLiteral("value"), variable.value()}});
    }
    return renderJson(list);
}

QByteArray programOutputList()
{
    QJsonArray list;
    const QStringList lines = scriptRunner->output();
    for (const QString& line : lines) {
        list.append(
            QJsonObject{{QStringLiteral("id"), list.size() + 1}, {QStringLiteral("value"), line}});
    }
    return renderJson(list);
}

bool renamePrograms(const QByteArray& body)
{
    const auto document = parse(body);
    if (!document) {
        return false;
    }
    const QJsonArray programs = document->array();
    for (const QJsonValue& program : programs) {
        renameProgram(program.toObject());
    }
    return true;
}

bool startStopProgram(const QByteArray& body)
{
    const auto document = parse(body);
    if (!document) {
        return false;
    }
    const QString file = programFilePath(document->object());
    if (scriptRunner->isRunning(file)) {
        scriptRunner->killProgram();
    } else {
        scriptRunner->startProgram(file);
    }
    return true;
}

bool removeProgram(const QByteArray& body)
{
    const auto document = parse(body);
    return document && QFile::remove(programFilePath(document->object()));
}

} // namespace kor::veltrano::daemons

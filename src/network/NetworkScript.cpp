#include "network/NetworkScript.h"

#include "config/ConfigFile.h"
#include "support/Json.h"

#include <QCoreApplication>
#include <QDebug>
#include <QMutexLocker>

namespace kor::veltrano::daemons {

NetworkScript::StartEvent::StartEvent(const QStringList& scriptParameters)
    : QEvent(Type(eventType)), parameters(scriptParameters)
{
}

NetworkScript::StartEvent::~StartEvent() = default;

NetworkScript::NetworkScript(const QString& settingsKey) : scriptKey(settingsKey) { }

NetworkScript::~NetworkScript()
{
    // A running script dies with its object, and tells so while the object is half gone.
    const auto processes = findChildren<QProcess*>();
    for (QProcess* child : processes) {
        child->disconnect(this);
        child->kill();
        child->waitForFinished();
    }
}

void NetworkScript::start(const QStringList& parameters)
{
    QCoreApplication::postEvent(this, new StartEvent(parameters));
}

QByteArray NetworkScript::resultData()
{
    QMutexLocker locker(&mutex);
    const QByteArray copy = result;
    locker.unlock();
    return renderJson(
        QJsonObject{{QStringLiteral("message"), QString::fromUtf8(copy.constData(), copy.size())}});
}

void NetworkScript::customEvent(QEvent* event)
{
    if (int(event->type()) == StartEvent::eventType) {
        startProcess(static_cast<StartEvent*>(event)->parameters);
    }
}

void NetworkScript::startProcess(const QStringList& parameters)
{
    if (process != nullptr) {
        process->kill();
        process = nullptr;
    }
    process = new ChildProcess(this);
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &NetworkScript::on_process_finished);
    connect(process, &QProcess::errorOccurred, this, &NetworkScript::on_process_error);
    const QString program = settings.value(scriptKey);
    qDebug() << program;
    qDebug() << parameters;
    process->start(program, parameters, QIODevice::ReadOnly);
}

void NetworkScript::on_process_finished(int /*exitCode*/, QProcess::ExitStatus /*exitStatus*/)
{
    keepResult();
}

void NetworkScript::on_process_error(QProcess::ProcessError /*error*/)
{
    keepResult();
}

void NetworkScript::keepResult()
{
    const QMutexLocker locker(&mutex);
    if (process == nullptr) {
        return;
    }
    // A script that could not be started has nothing to read from.
    result = process->isOpen() ? process->readAllStandardOutput() : QByteArray();
    process->deleteLater();
    process = nullptr;
}

} // namespace kor::veltrano::daemons

#include "programs/ScriptRunner.h"

#include "config/ConfigFile.h"
#include "daemon/Log.h"
#include "support/ChildProcess.h"

#include <QCoreApplication>
#include <QMutexLocker>
#include <QTextStream>

namespace kor::veltrano::daemons {

ScriptRunner* scriptRunner = nullptr;

namespace {

const char* const variableMark = "##";

QStringList commandLineFor(const QString& programFile)
{
    const int intervalMs =
        settings.value(QStringLiteral("Lumview/globalVariableOutputInterval")).toInt();
    QStringList arguments;
    if (intervalMs > 0) {
        arguments << QStringLiteral("--global-variable-output-interval")
                  << QString::number(intervalMs);
    }
    return arguments << QStringLiteral("-f") << programFile;
}

} // namespace

ScriptRunner::RunScriptNoWaitEvent::RunScriptNoWaitEvent(const QString& executable,
                                                         const QStringList& commandLine)
    : QEvent(Type(eventType)), program(executable), arguments(commandLine)
{
}

ScriptRunner::RunScriptNoWaitEvent::~RunScriptNoWaitEvent() = default;

ScriptRunner::KillInterpretersEvent::KillInterpretersEvent(const QString& executable)
    : QEvent(Type(eventType)), key(executable)
{
}

ScriptRunner::KillInterpretersEvent::~KillInterpretersEvent() = default;

ScriptRunner::ScriptRunner()
    : interpreterPath(settings.value(QStringLiteral("Lumview/path"),
                                     QStringLiteral("/usr/bin/lumview_interpreter"))),
      outputMaxSize(
          settings.value(QStringLiteral("Lumview/outputMaxSize"), QStringLiteral("20")).toInt())
{
}

ScriptRunner::~ScriptRunner()
{
    const QList<QProcess*> all = processes.values();
    for (QProcess* process : all) {
        endProcess(process);
    }
}

void ScriptRunner::startProgram(const QString& programFile)
{
    QMutexLocker locker(&dataMutex);
    globalVars.clear();
    outputLines.clear();
    locker.unlock();
    QCoreApplication::postEvent(
        this, new RunScriptNoWaitEvent(interpreterPath, commandLineFor(programFile)));
}

bool ScriptRunner::killProgram()
{
    const QMutexLocker locker(&processesMutex);
    QProcess* process = processes.value(interpreterPath);
    if (process == nullptr) {
        return false;
    }
    process->kill();
    return true;
}

bool ScriptRunner::isRunning(const QString& programFile) const
{
    const QMutexLocker locker(&processesMutex);
    const QProcess* process = processes.value(interpreterPath);
    return process != nullptr && process->arguments().contains(programFile);
}

QMap<QString, QString> ScriptRunner::globalVariables() const
{
    const QMutexLocker locker(&dataMutex);
    return globalVars;
}

QStringList ScriptRunner::output() const
{
    const QMutexLocker locker(&dataMutex);
    return outputLines;
}

void ScriptRunner::customEvent(QEvent* event)
{
    if (int(event->type()) == RunScriptNoWaitEvent::eventType) {
        runScript(*static_cast<RunScriptNoWaitEvent*>(event));
    } else if (int(event->type()) == KillInterpretersEvent::eventType) {
        killInterpreters(static_cast<KillInterpretersEvent*>(event)->key);
    }
}

void ScriptRunner::runScript(const RunScriptNoWaitEvent& event)
{
    QMutexLocker locker(&processesMutex);
    QProcess* old = processes.take(event.program);
    locker.unlock();
    if (old != nullptr) {
        endProcess(old);
    }
    auto* process = new ChildProcess(this);
    locker.relock();
    processes.insert(event.program, process);
    locker.unlock();
    startProcess(process, event.program, event.arguments);
}

void ScriptRunner::killInterpreters(const QString& key) const
{
    QMutexLocker locker(&processesMutex);
    const bool isOurs = processes.value(key) != nullptr;
    locker.unlock();
    if (!isOurs) {
        ChildProcess command;
        command.start(QStringLiteral("sudo"),
                      {QStringLiteral("killall"), QStringLiteral("lumview_interpreter")});
        command.waitForFinished(-1);
    }
}

void ScriptRunner::startProcess(QProcess* process, const QString& program,
                                const QStringList& arguments)
{
    logMessage(QStringLiteral(" ScriptRunner::startProcess %1 %2")
                   .arg(program, arguments.join(QLatin1Char(' '))),
               2);
    process->setProcessChannelMode(QProcess::MergedChannels);
    // An interpreter that reads its input waits, rather than finding its end.
    process->setStandardInputFile(QString());
    connect(process, &QProcess::readyReadStandardError, this, &ScriptRunner::on_process_readyRead);
    connect(process, &QProcess::readyReadStandardOutput, this, &ScriptRunner::on_process_readyRead);
    connect(process, &QProcess::started, this, &ScriptRunner::on_process_started);
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &ScriptRunner::on_process_finished);
    connect(process, &QProcess::errorOccurred, this, &ScriptRunner::on_process_error);
    // isRunning() may be reading the arguments on another thread.
    QMutexLocker locker(&processesMutex);
    process->setProgram(program);
    process->setArguments(arguments);
    locker.unlock();
    process->start(QIODevice::ReadWrite);
}

// A process that is replaced is not heard of again; its destructor would still tell of its end.
void ScriptRunner::endProcess(QProcess* process)
{
    process->disconnect(this);
    process->kill();
    process->waitForFinished();
    delete process;
}

void ScriptRunner::on_process_readyRead()
{
    const QMutexLocker locker(&readMutex);
    QProcess* process = sendingProcess();
    const QByteArray chunk = process->readAll();
    if (process->program() == interpreterPath) {
        parseOutput(chunk);
    }
    if (isLogged(2)) {
        logMessage(QString::fromUtf8(chunk), 2);
    }
}

void ScriptRunner::parseOutput(const QByteArray& chunk)
{
    const QMutexLocker locker(&dataMutex);
    QTextStream text(chunk);
    QString line;
    while (text.readLineInto(&line)) {
        parseLine(line);
    }
}

void ScriptRunner::parseLine(const QString& line)
{
    const QLatin1String mark(variableMark);
    if (line.startsWith(mark) && line.endsWith(mark)) {
        parseVariable(line);
    } else if (!line.isEmpty()) {
        outputLines.append(line);
        if (outputLines.size() > outputMaxSize) {
            outputLines.removeFirst();
        }
    }
}

void ScriptRunner::parseVariable(const QString& line)
{
    // The mark and the blank beside it, whatever stands there.
    constexpr int edge = 3;
    const int length = line.size() - 2 * edge;
    const QStringList parts =
        line.mid(edge, qMax(length, 0)).split(QStringLiteral(";;"), Qt::KeepEmptyParts);
    if (parts.size() == 2) {
        globalVars.insert(parts.first(), parts.last());
    }
}

void ScriptRunner::on_process_started()
{
    logMessage(keysOf(sendingProcess()).value(0) + QStringLiteral(": started"), 2);
}

void ScriptRunner::on_process_finished(int exitCode, QProcess::ExitStatus /*exitStatus*/)
{
    QProcess* process = sendingProcess();
    const QString key = keysOf(process).value(0);
    logMessage(QStringLiteral("ScriptRunner::on_process_finished %1 : exitcode = %2")
                   .arg(key, QString::number(exitCode)),
               2);
    QMutexLocker locker(&processesMutex);
    processes.remove(key);
    locker.unlock();
    process->deleteLater();
}

void ScriptRunner::on_process_error(QProcess::ProcessError error)
{
    logMessage(
        QStringLiteral("ScriptRunner::on_process_error %1 : error = %2")
            .arg(keysOf(sendingProcess()).join(QLatin1Char(' ')), QString::number(int(error))),
        0);
}

QStringList ScriptRunner::keysOf(QProcess* process) const
{
    const QMutexLocker locker(&processesMutex);
    return processes.keys(process);
}

QProcess* ScriptRunner::sendingProcess() const
{
    return static_cast<QProcess*>(sender());
}

} // namespace kor::veltrano::daemons

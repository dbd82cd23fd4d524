#include "daemon/Log.h"

#include <QCoreApplication>
#include <QFile>
#include <QMutexLocker>
#include <QThread>
#include <QTime>

#include <iostream>

namespace kor::veltrano::daemons {

namespace {

const QLatin1String dot(".");

void write(std::ostream& stream, const QString& text)
{
    const QByteArray bytes = text.toLatin1();
    stream.write(bytes.constData(), bytes.size());
    stream.flush();
}

void writeToConsole(std::ostream& stream, const QString& prefix, const QString& message)
{
    write(std::cerr, prefix);
    if (message != dot) {
        write(stream, message);
    }
}

// A message of "." leaves two dots in the file, its prefix and itself: that is the log's format.
void appendToFile(const QString& logFile, const QString& prefix, const QString& message)
{
    QFile file(logFile);
    if (file.open(QIODevice::Append)) {
        file.write(prefix.toLatin1());
        file.write(message.toLatin1());
    }
}

} // namespace

Log* Log::instance = nullptr;

Log::LogEvent::LogEvent(const QString& text, int textLevel)
    : QEvent(QEvent::Type(eventType)), message(text), level(textLevel)
{
}

Log::LogEvent::~LogEvent() = default;

Log::Log(const QString& fileName, int initialVerbosity, bool isSilent)
    : verbosity(initialVerbosity), logFile(fileName), isDaemon(isSilent)
{
    instance = this;
    QFile::remove(logFile);
    output(std::cout, QString(), QCoreApplication::applicationName() + QStringLiteral(" started"),
           1);
}

Log::~Log()
{
    output(std::cout, QString(), QCoreApplication::applicationName() + QStringLiteral(" stopped\n"),
           1);
    instance = nullptr;
}

void Log::output(std::ostream& stream, const QString& info, const QString& message, int level)
{
    if (level > verbosity) {
        return;
    }
    if (QThread::currentThread() != thread()) {
        QCoreApplication::postEvent(this, new LogEvent(message, level));
        return;
    }
    const QMutexLocker lock(&mutex);
    lastPrefix = nextPrefix(info, message);
    if (!isDaemon) {
        writeToConsole(stream, lastPrefix, message);
    }
    appendToFile(logFile, lastPrefix, message);
}

QString Log::nextPrefix(const QString& info, const QString& message) const
{
    if (message == dot) {
        return dot;
    }
    const QString prefix = QTime::currentTime().toString(QStringLiteral("hh:mm:ss.zzz"))
        + QStringLiteral(" | ") + info;
    return lastPrefix.isEmpty() ? prefix : QLatin1Char('\n') + prefix;
}

void Log::log(QString message, int level)
{
    output(std::cout, QString(), message, level);
}

void Log::logError(QString message, int level)
{
    output(std::cerr, QString(), message, level);
}

void Log::logWithInfo(QString info, QString message, int level)
{
    output(std::cout, info, message, level);
}

void Log::log(QStringList message, int level)
{
    const QString list = message.join(QStringLiteral(" , "));
    output(std::cout, QString(), QStringLiteral("( %1 )").arg(list), level);
}

void Log::setVerbosity(int level)
{
    verbosity = level;
    output(std::cout, QString(), QStringLiteral("new log level is %1").arg(level), 100);
}

void Log::customEvent(QEvent* event)
{
    if (event->type() == QEvent::Type(LogEvent::eventType)) {
        const auto* message = static_cast<LogEvent*>(event);
        output(std::cout, QString(), message->message, message->level);
    }
}

void logMessage(const QString& message, int level)
{
    if (Log::instance) {
        Log::instance->output(std::cout, QString(), message, level);
    }
}

bool isLogged(int level)
{
    return Log::instance && level <= Log::instance->verbosity;
}

} // namespace kor::veltrano::daemons

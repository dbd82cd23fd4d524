// Log: the daemon's log, which filters by level, writes to the console and appends to a file.
//
// main creates the one object on the main thread and deletes it there. Any thread may call the
// slots and output(): a message from another thread is posted to the main thread and written when
// its event loop gets to it, always to standard output and without its info text.
//
// A line is the local time as "hh:mm:ss.zzz", " | ", the info text and the message. The line break
// stands in front of a message, so that messages of "." make a row of dots behind the text before.
// On the console the time goes to standard error and the message to the chosen stream. All text is
// written as Latin-1.
//
// Levels: 0 is always written; 1 start, stop and control events; 2 request paths and the like;
// 3 whole requests and replies; 100 the confirmation of setVerbosity().
#pragma once

#include <QEvent>
#include <QMutex>
#include <QObject>
#include <QString>
#include <QStringList>

#include <ostream>

namespace kor::veltrano::daemons {

class Log : public QObject
{
    Q_OBJECT

public:
    // Carries a message from another thread to the object's own.
    class LogEvent : public QEvent
    {
    public:
        static constexpr int eventType = 1000;

        LogEvent(const QString& text, int textLevel);
        ~LogEvent() override;

        const QString message;
        const qint32 level;
    };

    // Deletes the old log file and reports the start. The file name is relative to the current
    // directory; isSilent keeps the console silent.
    Log(const QString& fileName, int initialVerbosity, bool isSilent);
    // Reports the stop.
    ~Log() override;
    Log(const Log&) = delete;
    Log& operator=(const Log&) = delete;

    // The one object; null before main has created it and after main has deleted it.
    static Log* instance;

    // Writes message with info behind the time stamp, to stream and to the file, when level is at
    // most verbosity. A file that cannot be opened costs nothing but its copy of the message.
    void output(std::ostream& stream, const QString& info, const QString& message, int level);

    // The highest level that is written. A caller that would have to build an expensive text tests
    // it first. Any thread.
    qint32 verbosity;

public Q_SLOTS:
    void log(QString message, int level);
    // The message goes to standard error instead.
    void logError(QString message, int level);
    void logWithInfo(QString info, QString message, int level);
    // The list as one message, "( a , b )".
    void log(QStringList message, int level);
    // The confirmation needs level 100, so it is only seen by who asked for that much.
    void setVerbosity(int level);

Q_SIGNALS:
    // For whoever wants to follow the log; nothing emits it yet.
    void logChanged(QString message, int level);

protected:
    void customEvent(QEvent* event) override;

private:
    QString nextPrefix(const QString& info, const QString& message) const;

    const QString logFile;
    const bool isDaemon;
    // What stood in front of the previous message; empty until the first one.
    QString lastPrefix;
    // Held while a message is written.
    QMutex mutex;
};

// Writes message to the log's standard output, when level is at most its verbosity. Does nothing
// while there is no log. Any thread.
void logMessage(const QString& message, int level);

// True when a message of this level would be written: for texts that are expensive to build.
bool isLogged(int level);

} // namespace kor::veltrano::daemons

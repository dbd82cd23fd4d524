// ScriptRunner: runs the user's program through the interpreter, one at a time, and keeps what it
// prints.
//
// DataHandler creates and deletes the one object on the main thread, which owns the process: its
// start comes as an event, its news as signals. Requests ask on HTTP threads.
//
// A line of the form "## name;;value ##" in the output tells the value of a variable; every other
// line that isn't empty is kept, the oldest going first. A line that arrives in two pieces counts
// as two.
//
// Locks: readMutex before dataMutex. processesMutex guards the map alone, whose changes on the main
// thread would crash the requests that look into it; it is never held while another lock is taken.
//
//   stopped --event--> running --end of the process--> stopped
//                      running --event--> running, the old process being killed unheard
//   stopped --event, no start--> failed, which looks like running --event--> running
#pragma once

#include <QByteArray>
#include <QEvent>
#include <QMap>
#include <QMutex>
#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

namespace kor::veltrano::daemons {

class ScriptRunner : public QObject
{
    Q_OBJECT

public:
    // Carries a start to the main thread.
    class RunScriptNoWaitEvent : public QEvent
    {
    public:
        static constexpr int eventType = 1000;

        RunScriptNoWaitEvent(const QString& executable, const QStringList& commandLine);
        ~RunScriptNoWaitEvent() override;

        const QString program;
        const QStringList arguments;
    };

    // Asks for the end of all interpreters, unless one of ours runs under the key. Nobody posts it.
    class KillInterpretersEvent : public QEvent
    {
    public:
        static constexpr int eventType = 1001;

        explicit KillInterpretersEvent(const QString& executable);
        ~KillInterpretersEvent() override;

        const QString key;
    };

    // Reads Lumview/path and Lumview/outputMaxSize.
    ScriptRunner();
    // Kills a program that still runs.
    ~ScriptRunner() override;
    ScriptRunner(const ScriptRunner&) = delete;
    ScriptRunner& operator=(const ScriptRunner&) = delete;

    // Forgets the old output at once and has the program file run, in the place of whatever runs.
    // Any thread.
    void startProgram(const QString& programFile);

    // Kills the process that there is. False where there is none. Any thread.
    bool killProgram();

    // Whether the process that there is was started with this program file. Any thread.
    bool isRunning(const QString& programFile) const;

    // The last value of each variable, by name. Any thread.
    QMap<QString, QString> globalVariables() const;

    // The last lines of output, the oldest first. Any thread.
    QStringList output() const;

    // Takes variables and lines out of a chunk of output.
    void parseOutput(const QByteArray& chunk);

protected:
    void customEvent(QEvent* event) override;

private Q_SLOTS:
    void on_process_readyRead();
    void on_process_finished(int exitCode, QProcess::ExitStatus exitStatus);
    void on_process_error(QProcess::ProcessError error);
    void on_process_started();

private:
    void runScript(const RunScriptNoWaitEvent& event);
    void killInterpreters(const QString& key) const;
    void startProcess(QProcess* process, const QString& program, const QStringList& arguments);
    void endProcess(QProcess* process);
    void parseLine(const QString& line);
    void parseVariable(const QString& line);
    // Under which keys the process stands; a started one has exactly one.
    QStringList keysOf(QProcess* process) const;
    QProcess* sendingProcess() const;

    const QString interpreterPath;
    // By the path of the executable; the processes are children of this object.
    QMap<QString, QProcess*> processes;
    mutable QMutex processesMutex;
    mutable QMutex dataMutex;
    QMap<QString, QString> globalVars;
    QStringList outputLines;
    const qint32 outputMaxSize;
    QMutex readMutex;
};

extern ScriptRunner* scriptRunner;

} // namespace kor::veltrano::daemons

// NetworkScript: runs the site's script for one network and keeps what it has printed.
//
// The base of EthConfigure and WlanConfigure. main creates and deletes the objects on the main
// thread; the script runs there. Any thread may post a StartEvent and read the output.
//
// A script that is still running when the next one is to start is killed and forgotten, but not
// disconnected: the news of its end are taken for the end of the new one, whose output is empty
// then.
#pragma once

#include "support/ChildProcess.h"

#include <QByteArray>
#include <QEvent>
#include <QMutex>
#include <QObject>
#include <QStringList>

namespace kor::veltrano::daemons {

class NetworkScript : public QObject
{
    Q_OBJECT

public:
    // Asks for a run with these arguments.
    class StartEvent : public QEvent
    {
    public:
        static constexpr int eventType = 1000;

        explicit StartEvent(const QStringList& scriptParameters);
        ~StartEvent() override;

        const QStringList parameters;
    };

    // The settings key whose value is the script's path, read at each start.
    explicit NetworkScript(const QString& settingsKey);
    ~NetworkScript() override;
    NetworkScript(const NetworkScript&) = delete;
    NetworkScript& operator=(const NetworkScript&) = delete;

    // Posts a StartEvent and returns at once. Any thread.
    void start(const QStringList& parameters);

    // The standard output of the last run that has ended, empty before the first; as an object with
    // the text "message". Any thread.
    QByteArray resultData();

protected:
    void customEvent(QEvent* event) override;

private Q_SLOTS:
    void on_process_finished(int exitCode, QProcess::ExitStatus exitStatus);
    void on_process_error(QProcess::ProcessError error);

private:
    void startProcess(const QStringList& parameters);
    void keepResult();

    const QString scriptKey;
    // The run in progress, a child of this object; null when there is none. Main thread.
    QProcess* process = nullptr;
    // Held while result is read or written.
    QMutex mutex;
    QByteArray result;
};

} // namespace kor::veltrano::daemons

// StopSignals: turns SIGINT and SIGTERM into a Qt signal.
//
// One object a process, created by main. The handler writes one byte into a pipe; the event loop
// reads it on the main thread. The signals are left to the handler when the object goes: the
// process is ending then.
#pragma once

#include <QObject>

#include <memory>

class QSocketNotifier;

namespace kor::veltrano::sim {

class StopSignals : public QObject
{
    Q_OBJECT

public:
    explicit StopSignals(QObject* parent = nullptr);
    ~StopSignals() override;

Q_SIGNALS:
    void stopRequested();

private:
    void readPipe();

    std::unique_ptr<QSocketNotifier> notifier;
};

} // namespace kor::veltrano::sim

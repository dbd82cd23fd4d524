// ChildProcess: a QProcess whose child gets none of the daemon's files and sockets.
//
// The HTTP library's sockets would else live on in every child: a program that outlives the daemon
// would keep its port, and connections would never be seen to end.
#pragma once

#include <QProcess>

namespace kor::veltrano::daemons {

class ChildProcess : public QProcess
{
public:
    using QProcess::QProcess;

protected:
    void setupChildProcess() override;
};

} // namespace kor::veltrano::daemons

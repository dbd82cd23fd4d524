// ChildProcess: a QProcess whose child gets none of the daemon's files and sockets, and no input.
//
// The HTTP library's sockets would else live on in every child: a program that outlives the daemon
// would keep its port, and connections would never be seen to end. A program that asks for input
// would wait for ever, as nobody writes any: it finds the input's end instead, unless its owner
// sets another input.
#pragma once

#include <QProcess>

namespace kor::veltrano::daemons {

class ChildProcess : public QProcess
{
public:
    explicit ChildProcess(QObject* parent = nullptr);

protected:
    void setupChildProcess() override;
};

} // namespace kor::veltrano::daemons

#include "RpcSession.h"

#include "Faults.h"
#include "JsonShape.h"

#include <QTcpSocket>

#include <limits>

namespace kor::veltrano::sim {

namespace {

constexpr int mostAnswers = 100;
// Longer answers are not worth keeping: they would be the client's own text.
constexpr int longestAnswerBytes = 64 * 1024;

} // namespace

QStringList RpcSession::subscribable()
{
    return {QStringLiteral("camera"), QStringLiteral("laserRangeFinder")};
}

RpcSession::RpcSession(QTcpSocket* socket, int number, Faults& shared, QObject* parent)
    : QObject(parent), clientNumber(number), faults(shared), line(socket)
{
    age.start();
    silence.setSingleShot(true);
    // A coarse timer would end a connection up to a quarter of a second early.
    silence.setTimerType(Qt::PreciseTimer);
    silence.setInterval(silenceMs);
    silence.start();
    connect(&silence, &QTimer::timeout, this, &RpcSession::close);
    connect(&line, &LineSocket::bytesReceived, &silence, qOverload<>(&QTimer::start));
    connect(&line, &LineSocket::messageReceived, this, &RpcSession::handle);
    connect(&line, &LineSocket::closed, this, [this] {
        up = false;
        silence.stop();
        outgoing.clear();
        incoming.clear();
        Q_EMIT closed();
    });
}

bool RpcSession::changeSubscription(const QString& method)
{
    const QString device = method.section(QLatin1Char('.'), 0, 0);
    const QString verb = method.section(QLatin1Char('.'), 1);
    const bool isOn = verb == QLatin1String("subscribe");
    if (!subscribable().contains(device) || !(isOn || verb == QLatin1String("unsubscribe"))) {
        return false;
    }
    subscriptions.removeAll(device);
    if (isOn) {
        subscriptions.append(device);
    }
    return true;
}

void RpcSession::send(const QByteArray& bytes)
{
    if (!line.isOpen()) {
        return;
    }
    outgoing.push(faults.delayMs, bytes.size(), [this, bytes] {
        if (!faults.isMuted) {
            line.write(bytes);
        }
    });
    limitMemory();
}

void RpcSession::sendEvent(const QByteArray& eventLine)
{
    if (!faults.losesEvent()) {
        send(eventLine);
    }
}

QJsonObject RpcSession::show() const
{
    return {{QStringLiteral("client"), clientNumber},
            {QStringLiteral("address"), line.peer()},
            {QStringLiteral("up"), up},
            {QStringLiteral("connectedMs"), static_cast<double>(age.elapsed())},
            {QStringLiteral("unsentBytes"),
             static_cast<double>(line.unsentBytes() + outgoing.waitingBytes())},
            {QStringLiteral("subscriptions"), QJsonArray::fromStringList(subscriptions)},
            {QStringLiteral("answers"), answers}};
}

void RpcSession::handle(const rpc::Message& message, int lineBytes)
{
    if (message.isRequest()) {
        answer(message);
    } else if (message.isAnswer()) {
        keepAnswer(message, lineBytes);
    } else if (message.isNotification()) {
        incoming.push(faults.delayMs, lineBytes,
                      [this, message, lineBytes] { obey(message, lineBytes); });
        limitMemory();
    }
}

void RpcSession::answer(const rpc::Message& request)
{
    if (request.method == QLatin1String("hello")) {
        answerHello(request);
    } else if (request.method == QLatin1String("ping")) {
        send(rpc::resultLine(request.id, QJsonObject()));
    } else {
        send(rpc::errorLine(request.id, rpc::methodNotFound,
                            QStringLiteral("Unknown request %1").arg(request.method)));
    }
}

void RpcSession::answerHello(const rpc::Message& request)
{
    const qint64 most = std::numeric_limits<qint32>::max();
    const auto wanted = toInteger(request.params.value(QStringLiteral("protocol")), 0, most);
    if (!wanted) {
        send(rpc::errorLine(request.id, rpc::invalidParams,
                            QStringLiteral("hello needs the member protocol, a whole number")));
        return;
    }
    send(rpc::resultLine(request.id,
                         QJsonObject{{QStringLiteral("protocol"), faults.protocol},
                                     {QStringLiteral("robot"), QStringLiteral("veltrano-sim")}}));
    if (!up && line.isOpen() && *wanted == protocol && faults.protocol == protocol) {
        up = true;
        Q_EMIT opened();
    }
}

void RpcSession::obey(const rpc::Message& command, int lineBytes)
{
    if (!up) {
        return;
    }
    Q_EMIT commandReceived(command.method, command.params, lineBytes);
}

void RpcSession::keepAnswer(const rpc::Message& received, int lineBytes)
{
    if (lineBytes > longestAnswerBytes) {
        return;
    }
    QJsonObject kept{{QStringLiteral("id"), received.id}};
    if (received.error.isUndefined()) {
        kept.insert(QStringLiteral("result"), received.result);
    } else {
        kept.insert(QStringLiteral("error"), received.error);
    }
    answers.append(kept);
    if (answers.size() > mostAnswers) {
        answers.removeFirst();
    }
}

void RpcSession::limitMemory()
{
    if (outgoing.waitingBytes() > LineSocket::mostUnsentBytes
        || incoming.waitingBytes() > LineSocket::mostUnsentBytes) {
        close();
    }
}

} // namespace kor::veltrano::sim

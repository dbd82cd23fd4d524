#include "Session.h"

#include "EventParser.h"

#include <algorithm>

#include <poll.h>

namespace kor::veltrano::api2::detail {

namespace {

constexpr int protocol = 1;
constexpr int helloId = 1;
constexpr std::chrono::seconds helloLimit(5);
constexpr std::chrono::seconds silenceLimit(5);
constexpr std::chrono::seconds pingInterval(2);
// More than this is unsent only if the server does not read.
constexpr int maxUnsentBytes = 1024 * 1024;

} // namespace

Session::Session(Socket& connectedSocket, Link& jobs, Hub& receiver, const Wakeup& interruptions,
                 const Job& ownJob)
    : socket(connectedSocket),
      link(jobs),
      hub(receiver),
      wakeup(interruptions),
      job(ownJob),
      unsent(rpc::requestLine(helloId, QStringLiteral("hello"),
                              {{QStringLiteral("protocol"), protocol}})),
      lastPing(helloId),
      helloDeadline(Clock::now() + helloLimit),
      silenceDeadline(Clock::now() + silenceLimit)
{
}

void Session::run()
{
    while (link.isCurrent(job.request) && send() && step()) { }
    if (link.isCurrent(job.request)) {
        socket.discardUnsent();
    } else {
        // The end is wanted: the commands given before it still go out.
        send();
    }
    hub.connectionEnded(job.request);
}

bool Session::step()
{
    const short wanted = unsent.isEmpty() ? POLLIN : POLLIN | POLLOUT;
    const short ready = wakeup.wait(socket.descriptor(), wanted, nextDeadline());
    const bool hasInput = (ready & ~POLLOUT) != 0;
    // Before the input, so that commands keep their place ahead of the answers to it.
    collectCommands();
    return (!hasInput || receive()) && keepsTime() && (!isUp || hub.isUp(job.request));
}

bool Session::receive()
{
    const std::optional<QByteArray> bytes = socket.read();
    if (!bytes) {
        return false;
    }
    if (!bytes->isEmpty()) {
        silenceDeadline = Clock::now() + silenceLimit;
    }
    reader.append(*bytes);
    while (const auto line = reader.takeLine()) {
        if (!handleLine(*line)) {
            return false;
        }
    }
    return !reader.isOverlong();
}

bool Session::handleLine(const QByteArray& line)
{
    const std::optional<rpc::Message> message = rpc::parseMessage(line);
    if (!message) {
        return false;
    }
    if (message->isRequest()) {
        unsent +=
            rpc::errorLine(message->id, rpc::methodNotFound, QStringLiteral("Method not found"));
        return true;
    }
    if (message->isAnswer()) {
        return handleAnswer(*message);
    }
    if (isUp) {
        if (auto event = parseEvent(message->method, message->params)) {
            hub.receive(job.request, std::move(*event));
        }
    }
    return true;
}

bool Session::handleAnswer(const rpc::Message& answer)
{
    if (isUp || answer.id != QJsonValue(helloId)) {
        return true;
    }
    const QJsonValue answered = answer.result.toObject().value(QStringLiteral("protocol"));
    if (answered != QJsonValue(protocol) || !hub.connectionUp(job.request, job.com)) {
        return false;
    }
    isUp = true;
    nextPing = Clock::now() + pingInterval;
    // The subscriptions in force go out before the answer to anything behind this message.
    collectCommands();
    link.attemptDecided(job.request);
    return true;
}

void Session::collectCommands()
{
    if (isUp) {
        unsent.append(hub.takeCommands().c_str());
    }
}

bool Session::send()
{
    collectCommands();
    return socket.write(&unsent) && unsent.size() <= maxUnsentBytes;
}

bool Session::keepsTime()
{
    const Clock::time_point now = Clock::now();
    if (now >= silenceDeadline || (!isUp && now >= helloDeadline)) {
        return false;
    }
    if (isUp && now >= nextPing) {
        unsent += rpc::requestLine(++lastPing, QStringLiteral("ping"), {});
        nextPing = now + pingInterval;
    }
    return true;
}

Clock::time_point Session::nextDeadline() const
{
    return std::min(silenceDeadline, isUp ? nextPing : helloDeadline);
}

} // namespace kor::veltrano::api2::detail

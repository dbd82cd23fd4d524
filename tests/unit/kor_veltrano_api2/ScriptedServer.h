// ScriptedServer: a server on a port of its own, whose connections a test speaks through.
#pragma once

#include "ScriptedPeer.h"

#include <QByteArray>

#include <chrono>
#include <optional>

class ScriptedServer
{
public:
    // Listens on a free port of the loopback address.
    ScriptedServer();
    ~ScriptedServer();
    ScriptedServer(const ScriptedServer&) = delete;
    ScriptedServer& operator=(const ScriptedServer&) = delete;

    // "host:port".
    QByteArray address() const;
    int port() const { return listeningPort; }
    // The next connection; throws where none comes.
    ScriptedPeer accept();
    std::optional<ScriptedPeer> acceptWithin(std::chrono::milliseconds time);
    // The next connection, with its opening request answered.
    ScriptedPeer acceptAndGreet();

    // Connections are refused until the server listens again, on the same port.
    void stopListening();
    void listenAgain();

private:
    void listen();

    int descriptor = -1;
    int listeningPort = 0;
};

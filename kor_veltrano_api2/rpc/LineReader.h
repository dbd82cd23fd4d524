// LineReader: takes the bytes of a connection apart into messages, one an LF-terminated line.
//
// Both sides of the protocol use it, each on the thread that owns the socket. It never holds more
// than one unfinished line of maxLineBytes and the bytes just appended.
#pragma once

#include <QByteArray>

#include <optional>

namespace kor::veltrano::rpc {

class LineReader
{
public:
    // The protocol's limit of one line in bytes, its LF not counted.
    static constexpr int maxLineBytes = 8 * 1024 * 1024;

    void append(const QByteArray& bytes);
    // The next whole line without its LF; empty lines are skipped.
    std::optional<QByteArray> takeLine();
    // True when a line, whole or unfinished, was longer than the limit: the connection must end.
    // Nothing more is taken from then on.
    bool isOverlong() const { return overlong; }
    // Forgets everything, for a new connection.
    void clear();

private:
    QByteArray buffer;
    int taken = 0;
    int scanned = 0;
    bool overlong = false;
};

} // namespace kor::veltrano::rpc

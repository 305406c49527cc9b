#pragma once

#include <QByteArray>
#include <QObject>
#include <QPointer>
#include <QTcpSocket>

/// What ended a connection, or kept it from coming up.
enum class LinkFault {
    Refused, ///< nobody listens there (10061 in the numbers of Windows sockets)
    Aborted, ///< a standing connection that the own side gave up: network gone, time-out (10053)
    Other,   ///< anything else, a reset or an orderly close by the server among them
};

/// The one TCP connection to the device server: opens, closes, hands out what has arrived, sends records
/// whole.
///
/// Nothing is reported from inside a call: a failure is held back until what arrived before it has been read,
/// and then told once by Failed. Bytes wait in the socket, at most ReadBuffer of them, so a server that sends
/// faster than the client reads is slowed down by TCP itself.
class Connection : public QObject {
    Q_OBJECT

public:
    enum class Sent {
        Yes,
        NoLink, ///< no connection stands
        Lost,   ///< the connection has failed, which Failed is still to tell
        Stuck,  ///< the server has not taken the last SendBacklog bytes
    };

    static constexpr int ReadBuffer = 128 * 1024;  ///< bytes
    static constexpr int SendBacklog = 256 * 1024; ///< bytes

    explicit Connection(QObject* parent = nullptr);

    /// Drops what stands and connects anew; returns at once. Connected or Failed follows.
    void Open(const QString& host, quint16 port);

    /// Drops the connection without a word.
    void Close();

    bool IsUp() const { return up; }
    /// Half of what may wait waits already.
    bool IsBehind() const { return up && socket->bytesToWrite() > SendBacklog / 2; }

    /// Hands `bytes` to the system in one piece.
    Sent Send(QByteArrayView bytes);

    /// The next bytes that have arrived; empty when there are none. They stay valid until the next call. Once
    /// all have been read, a failure that was held back is told.
    QByteArrayView Read();

signals:
    void Connected();
    /// There is something to read, a failure perhaps.
    void Arrived();
    void Failed(LinkFault fault, const QString& description);

private:
    void TakeError(QAbstractSocket::SocketError error);

    QPointer<QTcpSocket> socket; ///< a new one for each connection, so that nothing of the last one lives on
    bool up = false;
    bool failed = false; ///< `fault` waits to be told
    LinkFault fault = LinkFault::Other;
    QByteArray chunk;
};

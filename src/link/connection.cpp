#include "link/connection.h"

#include <QNetworkProxy>
#include <QTimer>

namespace {

constexpr qsizetype ChunkSize = 0x10000; ///< bytes that are read at once

} // namespace

Connection::Connection(QObject* parent)
    : QObject(parent)
    , chunk(ChunkSize, Qt::Uninitialized) {}

void Connection::Open(const QString& host, quint16 port) {
    Close();
    auto* opened = new QTcpSocket(this);
    socket = opened;
    socket->setProxy(QNetworkProxy::NoProxy);
    socket->setReadBufferSize(ReadBuffer);
    connect(socket, &QTcpSocket::connected, this, [this] {
        up = true;
        socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        socket->setSocketOption(QAbstractSocket::KeepAliveOption, 1);
        emit Connected();
    });
    connect(socket, &QTcpSocket::readyRead, this, &Connection::Arrived);
    connect(socket, &QTcpSocket::errorOccurred, this, &Connection::TakeError);
    QTimer::singleShot(0, opened, [this, opened, host, port] {
        if (opened == socket)
            opened->connectToHost(host, port);
    });
}

void Connection::Close() {
    up = false;
    failed = false;
    if (socket.isNull())
        return;
    socket->disconnect(this);
    socket->abort();
    // Not at once: this may be inside one of its own signals.
    socket->deleteLater();
    socket.clear();
}

Connection::Sent Connection::Send(QByteArrayView bytes) {
    if (up && socket->bytesToWrite() + bytes.size() > SendBacklog)
        return Sent::Stuck;
    if (!up || socket->write(bytes.data(), bytes.size()) != bytes.size())
        return failed ? Sent::Lost : Sent::NoLink;
    // Without this the record would wait for the next turn of the event loop.
    socket->flush();
    return Sent::Yes;
}

QByteArrayView Connection::Read() {
    const bool isOpen = !socket.isNull() && socket->isOpen();
    const qint64 length = isOpen ? socket->read(chunk.data(), chunk.size()) : 0;
    if (length > 0)
        return {chunk.constData(), qsizetype(length)};
    if (failed) {
        failed = false;
        emit Failed(fault, socket->errorString());
    }
    return {};
}

void Connection::TakeError(QAbstractSocket::SocketError error) {
    const bool lost = error == QAbstractSocket::NetworkError || error == QAbstractSocket::SocketTimeoutError;
    if (error == QAbstractSocket::ConnectionRefusedError)
        fault = LinkFault::Refused;
    else
        fault = up && lost ? LinkFault::Aborted : LinkFault::Other;
    up = false;
    failed = true;
    emit Arrived();
}

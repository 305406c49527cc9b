#pragma once

#include <QPointer>
#include <QTcpServer>
#include <QTcpSocket>

/// A server that takes connections and all that comes over them, and says nothing by itself.
class SilentServer {
public:
    SilentServer() {
        QObject::connect(&server, &QTcpServer::newConnection, &server, [this] {
            client = server.nextPendingConnection();
            QObject::connect(client, &QTcpSocket::readyRead, client,
                             [socket = client] { socket->readAll(); });
            QObject::connect(client, &QTcpSocket::disconnected, client, &QObject::deleteLater);
        });
        server.listen(QHostAddress::LocalHost);
    }

    static QString Host() { return QStringLiteral("127.0.0.1"); }
    quint16 Port() const { return server.serverPort(); }

    /// The last connection; null when it has ended.
    QTcpSocket* Client() const { return client; }

private:
    QTcpServer server;
    QPointer<QTcpSocket> client;
};

#pragma once

#include "practice/client_link.h"

#include <QHostAddress>
#include <QTcpServer>

/// The practice device server: a device server of its own for trying and testing the client. It serves any
/// number of clients, each with a stream of its own, from one world.
class PracticeServer : public QObject {
    Q_OBJECT

public:
    static constexpr quint16 DefaultPort = 21000;

    explicit PracticeServer(QObject* parent = nullptr);

    /// False if the port can't be had; ErrorText() says why. Port 0 takes any free port.
    bool Listen(const QHostAddress& address = QHostAddress::LocalHost, quint16 port = 0);
    quint16 Port() const { return server.serverPort(); }
    QString ErrorText() const { return server.errorString(); }

    World& GetWorld() { return practice.world; }
    Faults& GetFaults() { return practice.faults; }
    Outcomes& GetOutcomes() { return practice.outcomes; }

    int Clients() const { return int(links.size()); }
    int Records() const { return practice.records; }
    int MalformedRecords() const { return practice.malformed; }

    /// Sends bytes as they are, unasked, to all clients.
    void Push(const QByteArray& bytes);
    /// Ends all connections in order.
    void CloseClients();
    /// Drops all connections.
    void ResetClients();

signals:
    /// One line for each request, reply and fault.
    void Said(const QString& words);
    /// A whole record, good or not.
    void RecordReceived(const QByteArray& raw);
    /// A client has gone and no other is left.
    void LastClientLeft();

private:
    void TakeClients();
    void Drop(ClientLink* link);

    Practice practice;
    QTcpServer server;
    QList<ClientLink*> links; ///< children of the server
};

#include "practice/practice_server.h"

#include <QNetworkProxy>
#include <QTcpSocket>

using namespace Qt::StringLiterals;

PracticeServer::PracticeServer(QObject* parent)
    : QObject(parent) {
    practice.world = World::LivingRoom();
    server.setProxy(QNetworkProxy::NoProxy);
    connect(&server, &QTcpServer::newConnection, this, &PracticeServer::TakeClients);
}

bool PracticeServer::Listen(const QHostAddress& address, quint16 port) {
    return server.listen(address, port);
}

void PracticeServer::Push(const QByteArray& bytes) {
    for (ClientLink* link : QList(links))
        link->Push(bytes);
}

void PracticeServer::CloseClients() {
    for (ClientLink* link : QList(links))
        link->Close();
}

void PracticeServer::ResetClients() {
    for (ClientLink* link : QList(links))
        link->Reset();
}

void PracticeServer::TakeClients() {
    while (QTcpSocket* socket = server.nextPendingConnection()) {
        auto* link = new ClientLink(socket, practice, this);
        links.append(link);
        connect(link, &ClientLink::Said, this, &PracticeServer::Said);
        connect(link, &ClientLink::RecordReceived, this, &PracticeServer::RecordReceived);
        connect(link, &ClientLink::Ended, this, [this, link] { Drop(link); });
        emit Said(u"connected, clients: %1"_s.arg(links.size()));
    }
}

void PracticeServer::Drop(ClientLink* link) {
    if (!links.removeOne(link))
        return;
    link->deleteLater();
    emit Said(u"disconnected, clients left: %1"_s.arg(links.size()));
    if (links.isEmpty())
        emit LastClientLeft();
}

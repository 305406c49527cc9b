#pragma once

#include <QHash>
#include <QNetworkProxy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QtEndian>

#include <algorithm>
#include <functional>
#include <memory>
#include <sys/socket.h>
#include <vector>

/// A frame of a server, and how many bytes it had got before over that connection.
struct RecordedFrame {
    qsizetype after;
    QByteArray bytes;
};
using Recording = std::vector<RecordedFrame>;

enum class Ending { Holds, Close, Reset };

/// What is said to a client, and how its connection ends.
struct Script {
    const Recording* played = nullptr; ///< null: the server itself speaks, and is recorded
    Ending ending = Ending::Holds;
    qsizetype cut = 0;  ///< bytes before the end
    bool atOnce = true; ///< it ends behind the last byte; else when the next one would have to follow
};

/// Stands between a client and a server and writes down what the server says; or says it again, each frame
/// when what preceded it has come, and dies at a given byte.
class RecordedSession {
public:
    explicit RecordedSession(quint16 serverPort)
        : serverPort(serverPort) {
        QObject::connect(&listener, &QTcpServer::newConnection, &listener, [this] { Accept(); });
        listener.listen(QHostAddress(QHostAddress::LocalHost));
    }

    quint16 Port() const { return listener.serverPort(); }

    Script next; ///< of the next connection
    Recording recorded;

private:
    struct Link {
        Script script;
        std::unique_ptr<QTcpSocket, void (*)(QTcpSocket*)> client{nullptr, Drop};
        std::unique_ptr<QTcpSocket, void (*)(QTcpSocket*)> server{nullptr, Drop};
        qsizetype received = 0;
        qsizetype sent = 0;
        size_t frame = 0;
        QByteArray held; ///< of the server's next frame
    };

    static void Drop(QTcpSocket* socket) {
        socket->disconnect();
        socket->abort();
        socket->deleteLater();
    }

    void Accept() {
        QTcpSocket* client = listener.nextPendingConnection();
        if (client == nullptr)
            return;
        link = std::make_unique<Link>();
        link->script = next;
        link->client.reset(client);
        client->setSocketOption(QAbstractSocket::LowDelayOption, 1);
        if (next.played == nullptr) {
            recorded.clear();
            link->server.reset(new QTcpSocket);
            link->server->setProxy(QNetworkProxy::NoProxy);
            link->server->connectToHost(QHostAddress(QHostAddress::LocalHost), serverPort);
            QObject::connect(link->server.get(), &QTcpSocket::readyRead, [this] { Take(); });
        }
        QObject::connect(client, &QTcpSocket::readyRead, [this] {
            const QByteArray bytes = link->client->readAll();
            link->received += bytes.size();
            link->server ? void(link->server->write(bytes)) : Play();
        });
    }

    /// Without the NULs that fill up the last text of a reply, and without the empty places behind the last
    /// device of a status: a short reply is a reply too, and behind each of thirty thousand zeros a cut is
    /// the same.
    static QByteArray Shortened(QByteArray frame) {
        static const QHash<int, int> fills = {{1, 256}, {4, 200}, {5, 176},   {6, 80},
                                              {16, 80}, {17, 80}, {24, 31744}};
        if (frame.startsWith("**"))
            return frame;
        const auto least = frame.size() - fills.value(frame[6]) + 1;
        while (frame.size() > least && frame.endsWith(QByteArrayView("\0\0", 2)))
            frame.chop(1);
        qToLittleEndian(qint16(frame.size()), frame.data() + 4);
        return frame;
    }

    void Take() {
        QByteArray& held = link->held += link->server->readAll();
        while (held.size() >= 8) {
            const auto length = held.startsWith("**") ? held.sliced(2, 5).toInt()
                                                      : qFromLittleEndian<qint16>(held.constData() + 4);
            if (held.size() < length)
                return;
            recorded.push_back({link->received, Shortened(held.first(length))});
            held.remove(0, length);
            link->client->write(recorded.back().bytes);
        }
    }

    void Play() {
        const Script& script = link->script;
        const bool cuts = script.ending != Ending::Holds;
        const auto isDue = [&] {
            return link->frame < script.played->size() &&
                   link->received >= (*script.played)[link->frame].after;
        };
        while (isDue() && !(cuts && link->sent == script.cut)) {
            const QByteArray& bytes = (*script.played)[link->frame].bytes;
            const auto count = cuts ? std::min(bytes.size(), script.cut - link->sent) : bytes.size();
            link->client->write(bytes.constData(), count);
            link->sent += count;
            if (count < bytes.size())
                return Cut();
            ++link->frame;
        }
        if (cuts && link->sent == script.cut && (script.atOnce || isDue()))
            Cut();
    }

    void Cut() {
        QTcpSocket* client = link->client.get();
        client->disconnect();
        client->flush();
        if (link->script.ending == Ending::Close)
            return client->disconnectFromHost();
        const linger none{1, 0}; // closed like this, a socket sends a reset
        setsockopt(int(client->socketDescriptor()), SOL_SOCKET, SO_LINGER, &none, sizeof none);
        client->abort();
    }

    QTcpServer listener;
    quint16 serverPort;
    std::unique_ptr<Link> link;
};

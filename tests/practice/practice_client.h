#pragma once

#include "practice/practice_server.h"

#include "link/session_recorder.h"
#include "support/golden.h"

#include <QCommandLineParser>
#include <QNetworkProxy>
#include <QTcpSocket>

/// A server on a free port and one connection to it that knows only bytes.
struct PracticeClient {
    explicit PracticeClient(PracticeServer& server) {
        socket.setProxy(QNetworkProxy::NoProxy);
        QObject::connect(&socket, &QTcpSocket::readyRead, [this] {
            received += socket.readAll();
            ++arrivals;
        });
        socket.connectToHost(QHostAddress(QHostAddress::LocalHost), server.Port());
    }

    /// Sends the hello, then `requests`.
    void Greet(const QByteArray& requests = {}) {
        QVERIFY(QTest::qWaitFor([this] { return socket.state() == QTcpSocket::ConnectedState; }));
        socket.write(Golden::Hello() + requests);
    }

    /// Takes the next whole frame off what was received; empty if none comes.
    QByteArray Frame() {
        int length = 8;
        const auto complete = [&] {
            if (received.size() >= 8)
                length = received.startsWith("**") ? received.sliced(2, 5).toInt()
                                                   : qFromLittleEndian<qint16>(received.constData() + 4);
            return received.size() >= length;
        };
        if (!QTest::qWaitFor(complete, 3000))
            return {};
        QByteArray frame = received.first(length);
        received.remove(0, length);
        return frame;
    }

    /// Takes whole frames, and tells of them as a session's trace does.
    QString Told(int frames) {
        for (int i = 0; i < frames; ++i) {
            const QByteArray frame = Frame();
            for (QByteArrayView input = frame; !input.isEmpty();)
                reader.Read(input);
        }
        return trace.Said().remove(QStringLiteral("; hold refused"));
    }

    QTcpSocket socket;
    QByteArray received;
    int arrivals = 0;
    Session session; ///< has no connection
    SessionTrace trace{session};
    ReplyReader reader{session};
};

/// A server with these faults and a client that has sent it the hello and `requests`.
struct GreetedServer {
    explicit GreetedServer(const QByteArray& requests = {}, const Faults& faults = {}) {
        server.GetFaults() = faults;
        QObject::connect(&server, &PracticeServer::Said, &server,
                         [this](const QString& line) { lines.append(line); });
        client.Greet(requests);
    }

    QStringList lines; ///< what the server has said
    PracticeServer server;
    const bool listens = server.Listen();
    PracticeClient client{server};
};

/// Bytes of a number, the lowest first.
inline QByteArray Bytes(quint32 number, int count) {
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += char(number >> (8 * i));
    return bytes;
}

/// A CommandRequest of 113 bytes.
inline QByteArray Request(int netcommand, const QByteArray& remote = {}, const QByteArray& command = {},
                          quint32 param = 0, int timeout = 0, int carrier = 0) {
    using namespace Golden;
    return Join({
        Bytes(netcommand, 2),
        Bytes(timeout, 2),
        Bytes(param, 4),
        Hex("D2 00 00 00"),
        Blanks(remote, 80),
        Blanks(command, 20),
        Bytes(carrier, 1),
    });
}

/// What `read` makes of command-line options that `add` declares.
template <auto add, auto read, class... More> auto ReadOptions(const QStringList& options, More&... more) {
    QCommandLineParser parser;
    add(parser);
    parser.parse(QStringList(QStringLiteral("program")) + options);
    return read(parser, more...);
}

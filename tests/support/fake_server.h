#pragma once

#include <QByteArray>
#include <QElapsedTimer>
#include <QPointer>
#include <QString>
#include <QTcpServer>
#include <QTcpSocket>

#include <functional>
#include <vector>

/// A device server that knows nothing but bytes: it keeps what it gets and plays what it is told. One client
/// at a time; a new connection takes the place of the last one.
class FakeServer {
public:
    /// Listens on a free port of the loopback.
    FakeServer();

    quint16 Port() const { return port; }
    static QString Host() { return QStringLiteral("127.0.0.1"); }

    /// Refuses connections, or takes them again on the same port.
    void Shut() { listener.close(); }
    bool Open() { return listener.listen(QHostAddress(QHostAddress::LocalHost), port); }

    /// From the next connection on nothing is read.
    bool deaf = false;

    void Play(const QByteArray& bytes) {
        client->write(bytes);
        client->flush();
    }
    /// Plays `bytes` `times` times, each when the system has taken the last, so that no more than one waits
    /// here.
    void Stream(const QByteArray& bytes, int times) {
        streamed = bytes;
        streamsLeft = times - 1;
        Play(bytes);
    }
    bool IsStreaming() const { return client && (streamsLeft > 0 || client->bytesToWrite() > 0); }

    /// Called for each record that has come, with its words in Log.
    std::function<void(const QString& record)> answer;

    /// Ends the connection in an orderly way.
    void Close() { client->disconnectFromHost(); }
    /// Ends it with a reset, if the client has sent something that a deaf server hasn't read.
    void Reset() { client->abort(); }

    int Connections() const { return connections; }
    bool HasClient() const { return client && client->state() == QAbstractSocket::ConnectedState; }

    /// What has come over all connections, cut into records: "hello", "61 text param", "46 global",
    /// "46 kind K number N remote/command", "netcommand remote/command param", or a line of the text
    /// protocol; joined with "; ".
    QString Log() const { return log.join(QStringLiteral("; ")); }
    QString TakeLog();
    int Records() const { return int(log.size()); }
    /// The bytes of a record, and when it came, in milliseconds since the server was made.
    const QByteArray& Record(int index) const { return records[size_t(index)]; }
    qint64 ArrivalOf(int index) const { return arrivals[size_t(index)]; }
    qint64 Now() const { return clock.elapsed(); }

private:
    void CutRecords();

    QTcpServer listener;
    QPointer<QTcpSocket> client;
    quint16 port = 0;
    int connections = 0;
    QByteArray pending;
    QByteArray streamed;
    int streamsLeft = 0;
    QStringList log;
    std::vector<QByteArray> records;
    std::vector<qint64> arrivals;
    QElapsedTimer clock;
};

/// Replies, put together without the tables of the program.
namespace Raw {

inline QByteArray I16(int value) {
    return QByteArray(1, char(value)) + char(value >> 8);
}
/// Filled up with NULs.
inline QByteArray Field(const QByteArray& text, int width) {
    return text.leftJustified(width, '\0', true);
}
inline QByteArray Header(int length, int type) {
    return "\xAA\xBB\xCC\xDD" + I16(length) + I16(type);
}
inline QByteArray Reply(int type, const QByteArray& payload = {}) {
    return Header(int(payload.size()) + 8, type) + payload;
}
inline QByteArray Ack() {
    return Reply(4);
}
inline QByteArray Result(int code, int detail, const QByteArray& text = {}) {
    return Reply(1, I16(0) + I16(code) + I16(detail) + I16(0) + Field(text, 256));
}
inline QByteArray Received(const QByteArray& data, const QByteArray& remote = {},
                           const QByteArray& command = {}) {
    return Reply(4, Field({}, 4) + Field(remote, 80) + Field(command, 20) + Field(data, 200));
}
inline QByteArray Log(const QByteArray& text) {
    return Reply(23, Field({}, 4) + text + Field({}, 7));
}
inline QByteArray DatabaseStatus(const QByteArray& usage, const QByteArray& size) {
    return Reply(20, Field(usage, 32) + Field(size, 8) + Field("3", 8) + Field("14", 8) + Field("15", 8));
}
/// A page of a list, `count` as stated.
inline QByteArray Page(int type, int offset, int count, int total, int more,
                       const QByteArray& elements = {}) {
    return Reply(type, I16(offset) + I16(count) + I16(total) + I16(more) + elements);
}
/// Elements of types 6, 16 and 17, of 18, and of 7.
inline QByteArray Name(const QByteArray& name) {
    return QByteArray(8, '?') + Field(name, 80);
}
inline QByteArray Bus(const QByteArray& name) {
    return Field({}, 8) + Field(name, 60) + Field("1.0", 8) + Field({}, 12);
}
inline QByteArray Command(const QByteArray& name) {
    return Field(name, 20);
}
/// One device of a status: its bus within the page, its address, and its bytes from the first one on.
struct Device {
    int bus;
    int address;
    QByteArray entry;
};
inline QByteArray Entry(const QByteArray& version, quint32 capabilities = 0) {
    return Field({}, 12) + I16(int(capabilities)) + I16(int(capabilities >> 16)) + Field({}, 20) + version;
}
inline QByteArray StatusPage(int firstBus, int total, const std::vector<Device>& devices = {}) {
    QByteArray page = Field({}, 2) + char(firstBus) + char(total);
    for (int bus = 0; bus < 8; ++bus)
        page += char(firstBus + bus); // the local address
    page.resize(31756, '\0');
    for (const auto& [bus, address, entry] : devices)
        page.replace(12 + (bus * 16 + address) * 248, entry.size(), entry);
    return Reply(24, page);
}
inline QByteArray TextFrame(const QByteArray& text) {
    return "**" + QByteArray::number(text.size() + 8).rightJustified(5, '0') + '!' + text;
}

} // namespace Raw

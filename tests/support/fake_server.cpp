#include "support/fake_server.h"

#include <QtEndian>

namespace {

constexpr int ElementKindAt = 17; // in both records of netcommand 46
constexpr char LineStart = 'A';   // of the lines of the text protocol; no netcommand has its number

/// Of the record that begins `pending`, as far as that shows yet.
qsizetype SizeOfRecord(const QByteArray& pending) {
    switch (quint8(pending[0])) {
    case LineStart: return pending.contains("\r\n") ? pending.indexOf("\r\n") + 2 : pending.size() + 1;
    case 0: return 4;
    case 20: return 136;
    case 29: return 214;
    case 46: return pending.size() > ElementKindAt && pending[ElementKindAt] == 9 ? 1264 : 392;
    case 61: return 272;
    case 68:
    case 71: return 5512;
    case 70: return 232;
    default: return 113;
    }
}

QString TextAt(const QByteArray& record, int offset, int width) {
    const QByteArray field = record.sliced(offset, width);
    const auto end = field.indexOf('\0');
    return QString::fromLatin1(end < 0 ? field : field.first(end));
}

QString Describe(const QByteArray& record) {
    if (record[0] == LineStart)
        return QString::fromLatin1(record.chopped(2));
    const int netcommand = quint8(record[0]);
    if (netcommand == 0)
        return QStringLiteral("hello");
    if (netcommand == 46) {
        const int kind = quint8(record[ElementKindAt]);
        return kind == 9 ? QStringLiteral("46 global")
                         : QStringLiteral("46 kind %1 number %2 %3/%4")
                               .arg(kind)
                               .arg(qFromLittleEndian<qint32>(record.constData() + 12))
                               .arg(TextAt(record, 36, 80), TextAt(record, 116, 20));
    }
    const auto param = qFromLittleEndian<qint32>(record.constData() + 4);
    const QString what = netcommand == 61 ? QString::fromLatin1(record.sliced(16, quint8(record[12])))
                                          : TextAt(record, 12, 80) + u'/' + TextAt(record, 92, 20);
    return QStringLiteral("%1 %2 %3").arg(netcommand).arg(what).arg(param);
}

} // namespace

FakeServer::FakeServer() {
    clock.start();
    QObject::connect(&listener, &QTcpServer::newConnection, &listener, [this] {
        while (QTcpSocket* next = listener.nextPendingConnection()) {
            if (client) {
                client->disconnect();
                client->abort();
                client->deleteLater();
            }
            client = next;
            ++connections;
            pending.clear();
            streamsLeft = 0;
            QObject::connect(client, &QTcpSocket::bytesWritten, &listener, [this] {
                if (client->bytesToWrite() > 0 || streamsLeft == 0)
                    return;
                --streamsLeft;
                client->write(streamed);
            });
            if (deaf)
                client->setReadBufferSize(1);
            else
                QObject::connect(client, &QTcpSocket::readyRead, &listener, [this] { CutRecords(); });
        }
    });
    listener.listen(QHostAddress(QHostAddress::LocalHost));
    port = listener.serverPort();
}

void FakeServer::CutRecords() {
    pending += client->readAll();
    while (!pending.isEmpty() && pending.size() >= SizeOfRecord(pending)) {
        records.push_back(pending.first(SizeOfRecord(pending)));
        pending.remove(0, records.back().size());
        log += Describe(records.back());
        arrivals.push_back(clock.elapsed());
        if (answer)
            answer(log.last());
    }
}

QString FakeServer::TakeLog() {
    QString taken = Log();
    log.clear();
    records.clear();
    arrivals.clear();
    return taken;
}

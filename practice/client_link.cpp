#include "practice/client_link.h"

#include "base/code_page.h"
#include "practice/describe.h"
#include "practice/request_table.h"

#include <QTcpSocket>

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype ReadAtOnce = 0x10000;
/// With more than this still to be sent, requests wait: a client that doesn't read can't fill the memory.
constexpr qsizetype HeldMost = 4'000'000;

} // namespace

ClientLink::ClientLink(QTcpSocket* socket, Practice& practice, QObject* parent)
    : QObject(parent)
    , socket(socket)
    , practice(practice)
    , sender(*socket, practice.faults)
    , learner(*this) {
    socket->setParent(this);
    socket->setSocketOption(QAbstractSocket::LowDelayOption, 1);
    // Unread bytes must stay with the system, so that the client feels them.
    socket->setReadBufferSize(practice.faults.neverRead ? 1 : ReadAtOnce);
    connect(&sender, &ReplySender::Said, this, &ClientLink::Said);
    connect(socket, &QTcpSocket::readyRead, this, &ClientLink::Read);
    connect(socket, &QTcpSocket::bytesWritten, this, &ClientLink::Read, Qt::QueuedConnection);
    connect(socket, &QTcpSocket::disconnected, this, &ClientLink::Ended);
}

void ClientLink::Acknowledge() {
    Answer(EncodeReply(ReplyType::Result), u"acknowledgement"_s);
}

void ClientLink::Result(ResultCode code, qint16 detail, const QString& text) {
    Reply(ReplyType::Result, Encode(ResultReply{code, detail, text}),
          u"result %1, detail %2, %3"_s.arg(int(code)).arg(detail).arg(Quoted(text)));
}

void ClientLink::Reply(ReplyType type, QByteArrayView payload, const QString& words) {
    Answer(EncodeReply(type, payload), words);
}

void ClientLink::Frame(const QString& text) {
    const QByteArray bytes = ToCodePage(text.left(LongestFrame));
    const QByteArray digits = QByteArray::number(bytes.size() + Wire::ReplyHeaderSize).rightJustified(5, '0');
    Answer("**" + digits + ' ' + bytes, u"text frame "_s + Quoted(text));
}

void ClientLink::Log(const QString& text) {
    Answer(EncodeLog(text), u"log "_s + Quoted(text));
}

void ClientLink::Malformed(const QStringList& faults) {
    ++practice.malformed;
    for (const QString& fault : faults)
        emit Said(u"malformed: "_s + fault);
    if (row && row->answer == RequestRow::Answer::NextHeader) {
        Log(faults.first() + u'\n');
        Acknowledge();
    } else {
        Result(PracticeResult::Malformed, 0, faults.first());
    }
}

bool ClientLink::CanAnswer() const {
    return !sender.Ended() && sender.Held() < HeldMost;
}

void ClientLink::Read() {
    TakeRequests();
    while (!practice.faults.neverRead && CanAnswer() && socket->bytesAvailable() > 0) {
        reader.Add(socket->read(socket->bytesAvailable()));
        TakeRequests();
    }
}

void ClientLink::TakeRequests() {
    while (CanAnswer()) {
        switch (reader.Next()) {
        case RequestReader::State::NeedsMore: return;
        case RequestReader::State::Hello: emit Said(u"received: hello"_s); break;
        case RequestReader::State::Record: TakeRecord(); break;
        case RequestReader::State::Line: TakeLine(); break;
        case RequestReader::State::Broken: Break(); return;
        }
    }
}

void ClientLink::TakeRecord() {
    row = reader.Row();
    answered = quint8(row->netcommand);
    const QByteArray bytes = reader.Bytes();
    ++practice.records;
    emit RecordReceived(bytes);
    const QStringList faults = row->check(*row, bytes);
    if (!faults.isEmpty())
        return Malformed(faults);
    emit Said(u"asked: "_s + row->describe(*row, bytes));
    row->handle(*this, bytes);
}

void ClientLink::TakeLine() {
    row = nullptr;
    answered = quint8(TextLineMark);
    AnswerTextLine(*this, reader.Bytes());
}

void ClientLink::Break() {
    ++practice.malformed;
    emit Said(u"malformed: %1; the connection is closed"_s.arg(reader.Fault()));
    Close();
}

void ClientLink::Answer(const QByteArray& frame, const QString& words) {
    if (practice.faults.silent || practice.faults.silentFor.contains(answered)) {
        emit Said(u"kept silent: "_s + words);
        return;
    }
    emit Said(u"answered: "_s + words);
    sender.Answer(frame);
}

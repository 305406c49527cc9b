#pragma once

#include "practice/handlers.h"
#include "practice/learner.h"
#include "practice/outcomes.h"
#include "practice/reply_sender.h"
#include "practice/request_reader.h"
#include "practice/set_transfer.h"
#include "practice/world.h"

/// What all connections of a server share.
struct Practice {
    World world;
    Faults faults;
    Outcomes outcomes;
    int records = 0;   ///< whole records that arrived
    int malformed = 0; ///< records, lines and hellos with a fault
};

/// One connection of a client: cuts what arrives into requests, has each checked and answered, and tells it
/// in words. The stream, list paging, learning and the sets on their way are its own.
class ClientLink : public QObject {
    Q_OBJECT

public:
    static constexpr int LongestFrame = Wire::TextFrameMax - Wire::ReplyHeaderSize; ///< characters

    /// Takes ownership of the socket. `practice` must outlive the link.
    ClientLink(QTcpSocket* socket, Practice& practice, QObject* parent);

    World& GetWorld() { return practice.world; }
    const Faults& GetFaults() const { return practice.faults; }
    const Outcomes& GetOutcomes() const { return practice.outcomes; }
    Learner& GetLearner() { return learner; }

    /// The answers, for the handlers. Each is one frame on the wire and one line in words.
    void Acknowledge();
    void Result(ResultCode code, qint16 detail, const QString& text);
    void Reply(ReplyType type, QByteArrayView payload, const QString& words);
    void Frame(const QString& text); ///< a text frame; what is longer than LongestFrame is cut
    void Log(const QString& text);

    /// Answers from now on belong to this netcommand, until the next request. For a handler that answers
    /// later.
    void AnswerFor(Netcommand netcommand) { answered = quint8(netcommand); }

    /// Reports a fault of the request at hand and answers it.
    void Malformed(const QStringList& faults);

    /// Tells something else in words.
    void Say(const QString& words) { emit Said(words); }

    /// Sends bytes as they are, unasked.
    void Push(const QByteArray& bytes) { sender.Push(bytes); }
    void Close() { sender.Close(); }
    void Reset() { sender.Reset(); }

    /// The remote whose commands were listed last. Requests for further pages don't name it.
    QString listedRemote;
    /// The sets that are on their way.
    SetTransfer translator;
    SetTransfer database;

signals:
    void Said(const QString& words);
    /// A whole record, good or not.
    void RecordReceived(const QByteArray& raw);
    /// The connection is gone; the link has no more to do.
    void Ended();

private:
    bool CanAnswer() const;
    void Read();
    void TakeRequests();
    void TakeRecord();
    void TakeLine();
    void Break();
    void Answer(const QByteArray& frame, const QString& words);

    QTcpSocket* socket;
    Practice& practice;
    ReplySender sender;
    RequestReader reader;
    const RequestRow* row = nullptr; ///< of the request at hand; null for a text line
    quint8 answered = 0;             ///< netcommand to which answers belong
    Learner learner;
};

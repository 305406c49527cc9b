#pragma once

#include "practice/faults.h"

#include <QObject>
#include <QTimer>

#include <deque>

class QTcpSocket;

/// Sends the answers of one connection, one behind the other, with all faults that the server is to make on
/// the way. Never waits inside a call: what isn't sent at once follows from the event loop.
class ReplySender : public QObject {
    Q_OBJECT

public:
    /// Both must outlive the sender.
    ReplySender(QTcpSocket& socket, const Faults& faults);

    /// Sends a reply or a text frame, with the faults in force now.
    void Answer(QByteArray frame);

    /// Sends bytes as they are, behind what is still to be sent.
    void Push(const QByteArray& bytes);

    /// Ends the connection in order; what is still to be sent is dropped.
    void Close();

    /// Drops the connection at once.
    void Reset();

    /// Nothing goes out any more.
    bool Ended() const { return ended; }

    /// Bytes that haven't left yet.
    qsizetype Held() const;

signals:
    /// What happened, in words.
    void Said(const QString& words);

private:
    struct Item {
        QByteArray bytes;
        int delay = 0;
        Faults::Cut cut = Faults::Cut::None;
        qsizetype done = 0;
    };

    void Queue(const Item& item);
    void Go();
    void CutOff(Faults::Cut cut);

    QTcpSocket& socket;
    const Faults& faults;
    std::deque<Item> queue;
    qsizetype queued = 0; ///< bytes in `queue`
    QTimer timer;         ///< runs while the queue waits
    int answers = 0;
    bool ended = false;
};

/// A log reply with `text`, at most 32,000 characters of it.
QByteArray EncodeLog(QStringView text);

#pragma once

#include <QByteArray>
#include <QString>

struct RequestRow;

/// Cuts the stream of a client into requests: the hello, then records and text lines. Bytes go in as they
/// come, cut anywhere and merged; at most one request and what was added last is held.
class RequestReader {
public:
    enum class State {
        NeedsMore, ///< no whole request is left
        Hello,     ///< the hello has arrived
        Record,    ///< Row() and Bytes() are valid
        Line,      ///< Bytes() is a text line with its end
        Broken,    ///< the stream can't be cut any further; Fault() says why
    };

    void Add(QByteArrayView bytes) { held += bytes; }

    State Next();

    const RequestRow* Row() const { return row; }
    const QByteArray& Bytes() const { return current; }
    const QString& Fault() const { return fault; }

private:
    State NextHello();
    State NextLine();
    State NextRecord();
    State Take(qsizetype size, State state);
    State Break(const QString& words);

    QByteArray held;
    bool greeted = false;
    const RequestRow* row = nullptr;
    QByteArray current;
    QString fault;
};

#pragma once

#include "base/keyed_tree.h"

#include "link/session_recorder.h"

#include <QSignalSpy>

/// A tree, and a session on a real socket. Every step of a chain between the two is written down: what the
/// client sends, an element of a translator set by its index, and what the chain says, in "<>".
class TransferRig : public Recorder {
public:
    TransferRig() {
        server.answer = [this](const QString& words) {
            if (words == u"hello")
                return;
            const QByteArray& record = server.Record(server.Records() - 1);
            const int index = quint8(record[12]) + 256 * quint8(record[13]);
            sent += record[0] == 20 ? u'#' + QString::number(index) : words;
        };
    }

    /// What was sent and said up to now.
    QString Steps() {
        Sent();
        sent.removeLast(); // the question that made sure of it
        QString steps = std::exchange(sent, {}).join(u"; ");
        if (!told.isEmpty())
            steps += QStringLiteral(" <") + std::exchange(told, {}).join(u"; ") + u'>';
        return steps.trimmed();
    }
    /// What follows a reply.
    QString After(const QByteArray& reply) {
        Play(reply);
        return Steps();
    }

    /// Loses the connection, does that, and makes a new one.
    template <class Act> void Reconnect(Act meanwhile) {
        QSignalSpy lost(&session, &Session::LinkFailed);
        server.Close();
        QVERIFY(lost.wait());
        meanwhile();
        session.Connect();
        QVERIFY(QTest::qWaitFor([this] { return session.IsUp() && server.HasClient(); }));
    }

    KeyedTree tree;

protected:
    void Tell(const QString& words) { told += words; }
    template <class Chain, class Outcome> void TellEnds(const Chain& chain, void (Chain::*ended)(Outcome)) {
        QObject::connect(&chain, ended, &tree,
                         [this](Outcome outcome) { Tell(QVariant::fromValue(outcome).toString()); });
    }

private:
    QStringList sent;
    QStringList told;
};

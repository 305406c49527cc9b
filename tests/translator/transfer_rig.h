#pragma once

#include "base/keyed_tree.h"

#include "link/session_recorder.h"

#include <QSignalSpy>

/// A tree, and a session on a real socket. Every step of a chain between the two is written down: what the
/// client sends, an element of a translator set by its index, and what the chain says, in "<>".
class TransferRig : public Recorder {
public:
    virtual ~TransferRig() = default;
    TransferRig() {
        server.answer = [this](const QString& words) {
            if (words == u"hello")
                return;
            const QByteArray& record = server.Record(server.Records() - 1);
            const int index = quint8(record[12]) + 256 * quint8(record[13]);
            sent += record[0] == 20 ? u'#' + QString::number(index) : words;
        };
    }

    /// Plays a script: a line has words for what happens, and behind a stroke the steps that follow. A word
    /// is a reply of the server or one of `Do`, with arguments behind a colon, or with how often it happens
    /// behind a star; "_" stands for a blank. Lines that begin with "//" say why.
    void Run(const QString& script) {
        for (const QString& line : script.split(u'\n', Qt::SkipEmptyParts)) {
            if (line.startsWith(QStringLiteral("//")))
                continue;
            QByteArray replies;
            for (const QString& word : line.section(u'|', 0, 0).split(u' ', Qt::SkipEmptyParts)) {
                const QString what = word.section(u'*', 0, 0).replace(u'_', u' ');
                const QByteArray reply = Reply(what.section(u':', 0, 0), what.section(u':', 1).split(u','));
                replies += reply.repeated(qMax(1, word.section(u'*', 1).toInt()));
                if (reply.isEmpty()) {
                    Play(std::exchange(replies, {}));
                    Do(what.section(u':', 0, 0), what.section(u':', 1));
                }
            }
            Play(replies);
            QCOMPARE((line.section(u'|', 0, 0) + QStringLiteral("| ") + Steps()).trimmed(), line);
        }
    }

    /// Scripts as rows of a test: each begins with a line of "# " and its name, an empty line between two.
    static void AddScripts(const QString& scripts) {
        QTest::addColumn<QString>("script");
        for (const QString& each : scripts.split(QStringLiteral("\n\n")))
            QTest::newRow(qPrintable(each.section(u'\n', 0, 0).sliced(2))) << each.section(u'\n', 1);
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
    /// A reply by its name; empty if the word is none.
    virtual QByteArray Reply(const QString& word, const QStringList& arguments) const {
        static const QHash<QString, QByteArray> replies = {
            {QStringLiteral("ack"), Raw::Ack()},
            {QStringLiteral("log"), Raw::Log("busy")},
            {QStringLiteral("error"), Raw::Result(9, 0, "refused")},
            {QStringLiteral("exists"), Raw::Result(35, 0)},
        };
        return word == u"code" ? Raw::Received(arguments[0].toLatin1()) : replies.value(word);
    }
    /// Anything else that happens: "yes" and "no" answer the question whether a file may be replaced, "state"
    /// tells the session's SaveState, or sets it, "confirm" confirms the save of somebody.
    virtual void Do(const QString& word, const QString& argument) {
        if (word == u"yes" || word == u"no")
            session.AnswerOverwrite(asked, word == u"yes");
        else if (word == u"confirm")
            emit session.SaveConfirmed(SaveOwnerKind(argument.toInt()));
        else if (word == u"state" && !argument.isEmpty())
            session.SaveState = SaveStateKind(argument.toInt());
        else if (word == u"state")
            Tell(QStringLiteral("state %1").arg(int(session.SaveState)));
        else
            QFAIL(qPrintable(word));
    }

    void Tell(const QString& words) { told += words; }
    template <class Chain, class Outcome> void TellEnds(const Chain& chain, void (Chain::*ended)(Outcome)) {
        QObject::connect(&chain, ended, &tree,
                         [this](Outcome outcome) { Tell(QVariant::fromValue(outcome).toString()); });
    }

private:
    QStringList sent;
    QStringList told;
};

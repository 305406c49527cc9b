#pragma once

#include "link/session.h"

#include "support/fake_server.h"
#include "support/suite.h"

#include <utility>

/// What the session has sent since it was last asked.
inline QString SentTo(FakeServer& server, Session& session) {
    session.SendRemoteCommand(Netcommand::ReadAnalog, {}, {}, 0);
    if (!QTest::qWaitFor([&] { return server.Log().endsWith(u"60 / 0"); }))
        return QStringLiteral("the server got nothing");
    QString log = server.TakeLog();
    log.chop(log.contains(u';') ? 8 : 6);
    return log;
}

/// A session that knows its server, over a real socket.
struct ServedSession {
    ServedSession() {
        session.RemoteHost = FakeServer::Host();
        session.RemotePort = server.Port();
    }

    FakeServer server;
    Session session;
};

/// A session that is connected.
struct LinkedSession : ServedSession {
    LinkedSession() {
        session.Connect();
        if (!QTest::qWaitFor([this] { return session.IsUp() && server.HasClient(); }))
            qFatal("no connection on the loopback");
    }
};

/// Writes down a session's signals, one line each.
class SessionTrace {
public:
    explicit SessionTrace(Session& traced)
        : session(traced) {
        using namespace Qt::StringLiterals;
        using S = Session;
        On(&S::Acknowledged, [] { return u"ack"_s; });
        On(&S::HoldRefused, [] { return u"hold refused"_s; });
        On(&S::CommandChecked, [](int slot, bool known) { return u"check %1 %2"_s.arg(slot).arg(known); });
        On(&S::ErrorReported, [](const ResultReply& r) {
            return u"error %1/%2 %3"_s.arg(int(r.Code)).arg(r.Detail).arg(r.Text);
        });
        On(&S::OverwriteAsked, [this](const ResultReply& r) {
            asked = r;
            return u"overwrite?"_s;
        });
        On(&S::SaveConfirmed, [](SaveOwnerKind owner) { return u"save %1"_s.arg(int(owner)); });
        On(&S::CodeReceived,
           [](const ReceivedReply& r) { return u"code %1|%2|%3"_s.arg(r.Remote, r.Command, r.Data); });
        On(&S::LogReceived, [](const QString& text) { return u"log <%1>"_s.arg(text); });
        On(&S::TranslatorFlashEnded, [](bool ok) { return u"translator flash %1"_s.arg(ok); });
        On(&S::DatabaseFlashEnded, [](bool ok) { return u"database flash %1"_s.arg(ok); });
        On(&S::DatabaseStatusReceived, [](const IRDBStatusRecord& r, bool fits) {
            return u"memory %1 %2 %3"_s.arg(r.usage, r.size).arg(fits);
        });
        On(&S::LearnWaitEnded, [] { return u"wait ended"_s; });
        On(&S::LearnStateReceived, [](const LearnStateReply& r) {
            return u"learn %1 %2 %3 kHz %4/%5 %6"_s.arg(r.Remote)
                .arg(r.Flags)
                .arg(r.Carrier)
                .arg(r.TimingCount)
                .arg(r.CommandCount)
                .arg(r.Code);
        });
        On(&S::ServerVersionReceived, [](const QString& version) { return u"version "_s + version; });
        On(&S::NamesReady, [this](ReplyType type) {
            return u"names %1: %2 = %3"_s.arg(int(type))
                .arg(session.ListCount)
                .arg(session.NameList.join(u','));
        });
        On(&S::BusesReady, [this] {
            QStringList names;
            for (const BusElement& bus : session.BusList)
                names += bus.name;
            return u"buses: %1 = %2"_s.arg(session.ListCount).arg(names.join(u','));
        });
        On(&S::CommandsReady, [this](int target) {
            return u"commands %1: %2/%3/%4"_s.arg(target).arg(session.CommandList1.join(u','),
                                                              session.CommandList2.join(u','),
                                                              session.CommandList3.join(u','));
        });
        On(&S::TranslatorElementTaken, [](qint32 next) { return u"translator next %1"_s.arg(next); });
        On(&S::DatabaseElementTaken, [](qint32 next) { return u"database next %1"_s.arg(next); });
        On(&S::TranslatorPageReceived, [](const ListPage<TranslatorRequest>& page) {
            return u"translator page %1+%2"_s.arg(page.head.Offset).arg(page.elements.size());
        });
        On(&S::DatabaseGlobalReceived, [](const PageHead& head, const IRDBGlobalRecord& global) {
            return u"global %1 %2"_s.arg(head.Total).arg(global.okFormat);
        });
        On(&S::DatabasePageReceived, [](const ListPage<IRDBElementRecord>& page) {
            return u"database page %1+%2"_s.arg(page.head.Offset).arg(page.elements.size());
        });
        On(&S::StatusReceived,
           [](QByteArrayView page) { return u"status %1 %2"_s.arg(page.size()).arg(quint8(page[2])); });
        On(&S::AnalogReceived, [](const AnalogValues& values, const AnalogTemperatures& temperatures) {
            return u"analog %1 %2"_s.arg(values.Value[1]).arg(temperatures.Temperature[0]);
        });
        On(&S::TextReceived, [](const QString& text) { return u"text "_s + text; });
    }

    /// What it has said since it was last asked.
    QString Said() { return std::exchange(lines, {}).join(QStringLiteral("; ")); }

    ResultReply asked;

protected:
    QStringList lines;

    template <class... Arguments, class Line> void On(void (Session::*signal)(Arguments...), Line line) {
        QObject::connect(&session, signal, &session,
                         [this, line](Arguments... arguments) { lines += line(arguments...); });
    }

private:
    Session& session;
};

/// A session that is connected, with its trace.
class Recorder : public LinkedSession, public SessionTrace {
public:
    Recorder()
        : SessionTrace(LinkedSession::session) {}

    using LinkedSession::session;

    /// What the session has said up to the end of `bytes`, joined with "; ".
    QString Play(const QByteArray& bytes) {
        server.Play(bytes + Raw::Log("end"));
        if (!QTest::qWaitFor([this] { return lines.endsWith(QStringLiteral("log <end>")); }))
            lines += QStringLiteral("the end was not read");
        else
            lines.removeLast();
        return Said();
    }

    QString Sent() { return SentTo(server, session); }
};

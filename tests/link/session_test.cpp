#include "link/session_recorder.h"
#include "support/golden.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// A session whose news of the link is written down.
class Link : public ServedSession, public SessionTrace {
public:
    Link()
        : SessionTrace(ServedSession::session) {
        On(&Session::LinkUp, [this] { return u"up"_s + Where(); });
        On(&Session::LinkFailed, [this](LinkFault fault, const QString& why) {
            return (fault == LinkFault::Refused ? u"refused"_s : u"other"_s) +
                   (why.isEmpty() ? u" without a word"_s : QString()) + Where();
        });
        On(&Session::SendFailed, [](Session::SendFault fault) {
            return fault == Session::SendFault::NoLink ? u"no link"_s : u"stuck"_s;
        });
    }

    using ServedSession::session;

    void Connect() {
        calling = true;
        session.Connect();
        calling = false;
    }
    bool ComeUp() {
        Connect();
        const bool isUp = QTest::qWaitFor([this] { return session.IsUp() && server.HasClient(); });
        lines.clear();
        return isUp;
    }
    QString Lines() const { return lines.join(u' '); }

private:
    QString Where() const { return calling ? u" from inside the call"_s : QString(); }

    bool calling = false;
};

} // namespace

class SessionTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void Refused() {
        Link link;
        link.server.Shut();
        link.Connect();
        QTRY_COMPARE(link.Lines(), u"refused"_s);
        QVERIFY(link.server.Open());
        link.Connect();
        QVERIFY(!link.session.IsUp());
        QTRY_COMPARE(link.Lines(), u"refused up"_s);
        QVERIFY(link.session.IsUp());
    }

    void NoHost() {
        for (const QString& host : {u""_s, u"no host at all"_s}) {
            Link link;
            link.session.RemoteHost = host;
            link.Connect();
            QTRY_COMPARE_WITH_TIMEOUT(link.Lines(), u"other"_s, 20'000);
            QVERIFY(!link.session.IsUp());
        }
    }

    void TheLastOfSeveralConnectsCounts() {
        Link link;
        for (int i = 0; i < 5; ++i)
            link.Connect();
        QTRY_COMPARE(link.Lines(), u"up"_s);
        link.server.Play(Raw::Log("a"));
        QTRY_COMPARE(link.Lines(), u"up log <a>"_s);
    }

    /// The end of a connection is told once, behind all that came before it.
    void Ends() {
        // Twenty replies are more than the buffer holds.
        for (const auto& [reset, replies] : {std::pair(false, 0), std::pair(false, 1), std::pair(false, 20),
                                             std::pair(true, 0), std::pair(true, 1)}) {
            Link link;
            link.server.deaf = reset; // what it hasn't read makes a reset of the close
            QVERIFY(link.ComeUp());
            link.session.SendRemoteCommand(Netcommand::Start, {}, {}, 0);
            if (!reset)
                QTRY_COMPARE(link.server.Records(), 1);
            const QString text(30'000, u'x');
            QStringList expected;
            for (int i = 0; i < replies; ++i) {
                link.server.Play(Raw::Log(text.toLatin1()));
                expected += u"log <%1>"_s.arg(text);
            }
            if (reset)
                link.server.Reset();
            else
                link.server.Close();
            expected += u"other"_s;
            QTRY_COMPARE(link.Lines(), expected.join(u' '));
            QVERIFY(!link.session.IsUp());
            QVERIFY(!link.session.SendRemoteCommand(Netcommand::Start, {}, {}, 0));
            QCOMPARE(link.Lines(), (expected + QStringList(u"no link"_s)).join(u' '));
            QVERIFY(link.ComeUp());
        }
    }

    /// A server that takes nothing: what waits for it has a limit, and the user is told.
    void AServerThatNeverReads() {
        Link link;
        link.server.deaf = true;
        QVERIFY(link.ComeUp());
        qint64 sent = 0;
        while (sent < 0x4000000 && link.session.SendCode({}))
            sent += CodeRequest::Size;
        QCOMPARE(link.Lines(), u"stuck"_s);
        QVERIFY(sent >= Connection::SendBacklog - CodeRequest::Size);
        // It is no dead end.
        link.server.deaf = false;
        QVERIFY(link.ComeUp());
        QVERIFY(link.session.SendRemoteCommand(Netcommand::Start, {}, {}, 0));
        QTRY_COMPARE(link.server.Log(), u"36 / 0"_s);
    }

    /// Whole records, byte for byte, in the order of the calls.
    void RecordsArriveWhole() {
        LinkedSession link;
        Session& session = link.session;
        QVERIFY(session.SendHello());
        QVERIFY(session.SendRemoteCommand(Netcommand::SendCommand, u"tv"_s, u"power"_s, 0x103));
        QVERIFY(session.SocketSendLCDInit(u"x"_s));
        QVERIFY(session.SendModeCommand({}));
        QVERIFY(session.SendCode({}));
        QVERIFY(session.SendTranslatorElement({}));
        QVERIFY(session.SocketSendRS232(u"on"_s, 5));
        QTRY_COMPARE(link.server.Records(), 7);
        const int sizes[] = {4, 113, 214, 232, 5512, 136, 272};
        for (int i = 0; i < 7; ++i)
            QCOMPARE(link.server.Record(i).size(), sizes[i]);
        QCOMPARE(link.server.Record(0), QByteArray(4, '\0'));
        QCOMPARE(link.server.Record(1), Golden::PressTvPower());
    }

    void SerialTextsUpTo255Characters() {
        LinkedSession link;
        QSignalSpy failed(&link.session, &Session::SendFailed);
        QVERIFY(link.session.SocketSendRS232(QString(255, u'ü'), 1));
        QVERIFY(!link.session.SocketSendRS232(QString(256, u'x'), 2));
        QCOMPARE(failed, (QList<QVariantList>{{QVariant::fromValue(Session::SendFault::TextTooLong)}}));
        QVERIFY(link.session.SocketSendRS232({}, 3));
        QTRY_COMPARE(link.server.Records(), 2);
        QCOMPARE(link.server.Record(0)[12], char(255));
        QCOMPARE(link.server.Record(0).sliced(16), QByteArray(255, '\xFC') + ' ');
        QCOMPARE(link.server.Record(1)[12], char(0));
        QCOMPARE(link.server.Record(1)[4], char(3));
    }

    void SendingWithoutALink() {
        Session session;
        QSignalSpy failed(&session, &Session::SendFailed);
        const auto sendAll = [&session] {
            return session.SendHello() || session.SendRemoteCommand(Netcommand::Start, {}, {}, 0) ||
                   session.SendModeCommand({}) || session.SocketSendRS232({}, 0) ||
                   session.SocketSendLCDInit({}) || session.SendCode({}) ||
                   session.SendTranslatorElement({}) || session.SendIRDBGlobal({}) ||
                   session.SendIRDBElementRecord({}) || session.SendTextLine({});
        };
        QVERIFY(!sendAll());
        session.RemoteHost = FakeServer::Host();
        session.Connect(); // not yet
        QVERIFY(!sendAll());
        QCOMPARE(failed.size(), 20);
        for (const QVariantList& arguments : failed)
            QCOMPARE(arguments[0].value<Session::SendFault>(), Session::SendFault::NoLink);
    }

    /// A new connection starts between replies, whatever the last one left behind.
    void ReconnectingInAReply() {
        // Half a header, a payload and a text frame, and a whole reply that nobody reads.
        for (const QByteArray& left : {Raw::Ack().first(5), Raw::Result(9, 0, "x").first(100),
                                       Raw::TextFrame("abcdef").first(10), Raw::Result(9, 0, "x")}) {
            Recorder link;
            QSignalSpy up(&link.session, &Session::LinkUp);
            QSignalSpy down(&link.session, &Session::LinkFailed);
            link.session.PendingOp = Pending::DatabaseElement;
            link.server.Play(Raw::Log("before") + left);
            if (left.size() < 200)
                QVERIFY(QTest::qWaitFor([&] { return link.Said().startsWith(u"log <before>"); }));
            link.session.Connect();
            QCOMPARE(link.session.PendingOp, Pending::None);
            QVERIFY(!link.session.IsUp());
            QTRY_COMPARE(link.server.Connections(), 2);
            QCOMPARE(link.Play(Raw::Ack()), u"ack"_s);
            QCOMPARE(up.size(), 1);
            QCOMPARE(down.size(), 0);
        }
    }

    void ReconnectingFromInsideAReply() {
        Recorder link;
        QSignalSpy down(&link.session, &Session::LinkFailed);
        const auto once = Qt::ConnectionType(Qt::AutoConnection | Qt::SingleShotConnection);
        connect(&link.session, &Session::LogReceived, &link.session, &Session::Connect, once);
        link.server.Play(Raw::Log("1") + Raw::Log("2") + Raw::Result(9, 0).first(20));
        QTRY_COMPARE(link.server.Connections(), 2);
        QCOMPARE(link.Play(Raw::Log("3")), u"log <1>; log <3>"_s);
        QCOMPARE(down.size(), 0);
    }

    /// A handler may run the event loop, as a drag does; the replies behind it are read meanwhile.
    void RepliesAreReadBehindABusyHandler() {
        Recorder link;
        const auto once = Qt::ConnectionType(Qt::AutoConnection | Qt::SingleShotConnection);
        QString said;
        connect(
            &link.session, &Session::LogReceived, &link.session, [&] { said = link.Play(Raw::Log("2")); },
            once);
        link.server.Play(Raw::Log("0") + Raw::Log("1"));
        QTRY_COMPARE(said, u"log <0>; log <1>; log <2>"_s);
    }
};

SUITE(SessionTest);

#include "session_test.moc"

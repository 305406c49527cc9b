#include "link/session.h"

#include "support/fake_server.h"
#include "support/suite.h"

using namespace Qt::StringLiterals;

namespace {

/// A session whose news of the link is written down.
class Link {
public:
    Link() {
        QObject::connect(&session, &Session::LinkUp, &session, [this] { Say(u"up"_s); });
        QObject::connect(&session, &Session::LinkFailed, &session,
                         [this](LinkFault fault, const QString& why) {
                             Say((fault == LinkFault::Refused ? u"refused"_s : u"other"_s) +
                                 (why.isEmpty() ? u" without a word"_s : QString()));
                         });
        QObject::connect(&session, &Session::LogReceived, &session,
                         [this](const QString& text) { Say(text); });
        QObject::connect(&session, &Session::SendFailed, &session, [this](Session::SendFault fault) {
            said += fault == Session::SendFault::NoLink ? u"no link"_s : u"stuck"_s;
        });
        session.RemoteHost = FakeServer::Host();
        session.RemotePort = server.Port();
    }

    void Connect() {
        calling = true;
        session.Connect();
        calling = false;
    }

    bool ComeUp() {
        Connect();
        const bool isUp = QTest::qWaitFor([this] { return session.IsUp() && server.HasClient(); });
        said.clear();
        return isUp;
    }

    QString Said() const { return said.join(u' '); }

    FakeServer server;
    Session session;

private:
    void Say(const QString& what) { said += calling ? what + u" from inside the call"_s : what; }

    QStringList said;
    bool calling = false;
};

} // namespace

class ConnectionTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void Refused() {
        Link link;
        link.server.Shut();
        link.Connect();
        QTRY_COMPARE(link.Said(), u"refused"_s);
        QVERIFY(link.server.Open());
        link.Connect();
        QVERIFY(!link.session.IsUp());
        QTRY_COMPARE(link.Said(), u"refused up"_s);
        QVERIFY(link.session.IsUp());
    }

    void NoHost() {
        for (const QString& host : {u""_s, u"no host at all"_s}) {
            Link link;
            link.session.RemoteHost = host;
            link.Connect();
            QTRY_COMPARE_WITH_TIMEOUT(link.Said(), u"other"_s, 20'000);
            QVERIFY(!link.session.IsUp());
        }
    }

    void TheLastOfSeveralConnectsCounts() {
        Link link;
        for (int i = 0; i < 5; ++i)
            link.Connect();
        QTRY_COMPARE(link.Said(), u"up"_s);
        link.server.Play(Raw::Log("a"));
        QTRY_COMPARE(link.Said(), u"up a"_s);
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
            const QByteArray text(30'000, 'x');
            QStringList expected;
            for (int i = 0; i < replies; ++i) {
                link.server.Play(Raw::Log(text));
                expected += QString::fromLatin1(text);
            }
            if (reset)
                link.server.Reset();
            else
                link.server.Close();
            expected += u"other"_s;
            QTRY_COMPARE(link.Said(), expected.join(u' '));
            QVERIFY(!link.session.IsUp());
            QVERIFY(!link.session.SendRemoteCommand(Netcommand::Start, {}, {}, 0));
            QCOMPARE(link.Said(), (expected + QStringList(u"no link"_s)).join(u' '));
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
        QCOMPARE(link.Said(), u"stuck"_s);
        QVERIFY(sent >= Connection::SendBacklog - CodeRequest::Size);
        // It is no dead end.
        link.server.deaf = false;
        QVERIFY(link.ComeUp());
        QVERIFY(link.session.SendRemoteCommand(Netcommand::Start, {}, {}, 0));
        QTRY_COMPARE(link.server.Log(), u"36 / 0"_s);
    }
};

SUITE(ConnectionTest);

#include "connection_test.moc"

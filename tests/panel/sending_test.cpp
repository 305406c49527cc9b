#include "panel/sending.h"

#include "app/program_rig.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// A panel, linked to a server.
struct Bench {
    /// Buttons as "remote command", or "remote command param" with a send mask of their own.
    explicit Bench(const QStringList& buttons) {
        Show(buttons);
        session.RemoteHost = FakeServer::Host();
        session.RemotePort = server.Port();
        sending = std::make_unique<PanelSending>(session, panel, nullptr);
        session.Connect();
        if (!QTest::qWaitFor([this] { return session.IsUp() && server.HasClient(); }))
            qFatal("no connection on the loopback");
    }

    void Show(const QStringList& buttons) {
        UnloadPanel(panel);
        for (const QString& button : buttons) {
            const QString own = button.section(u' ', 2);
            ParseLayoutLine(panel,
                            u"[POS]0,0[SIZE]9,9[TEXT]x[REMOTE]"_s + button.section(u' ', 0, 0) +
                                u"[COMMAND]"_s + button.section(u' ', 1, 1) +
                                (own.isEmpty() ? QString() : u"[CSENDMASK]"_s + own),
                            false);
        }
    }

    void Play(const QByteArray& bytes) { PlayTo(server, session, bytes); }
    QString Sent() { return SentTo(server, session); }

    bool TimerRuns(const char* name) const {
        return sending->findChild<QTimer*>(QLatin1StringView(name))->isActive();
    }

    FakeServer server;
    Session session;
    PanelModel panel;
    std::unique_ptr<PanelSending> sending;
};

} // namespace

class SendingTest : public QObject {
    Q_OBJECT

private slots:
    void TapSendsOneRecord() {
        Bench bench({u"tv power"_s, u"tv mute 5"_s});
        bench.sending->Press(1);
        QCOMPARE(bench.session.PendingOp, Pending::Panel);
        bench.sending->Release();
        QVERIFY(!bench.TimerRuns("Timer"));
        bench.panel.PanelSendParam = 77; // counts at the press, not when the button was made
        bench.sending->Press(1);
        bench.sending->Release();
        bench.sending->Press(2);
        bench.sending->Release();
        QCOMPARE(bench.Sent(), u"1 tv/power 1073741824; 1 tv/power 77; 1 tv/mute 65541"_s);
    }

    void HoldRepeatsOnAcknowledgements() {
        Bench bench({u"tv vol+"_s});
        const qint64 pressed = bench.server.Now();
        bench.sending->Press(1);
        QTRY_COMPARE(bench.server.Records(), 2);
        QVERIFY(bench.server.ArrivalOf(1) - pressed >= PanelSending::HoldDelay - 1);
        // No clock drives it from here on.
        QVERIFY(!bench.TimerRuns("Timer") && !bench.TimerRuns("timIntercommand"));
        QCOMPARE(bench.Sent(), u"1 tv/vol+ 1073741824; 1 tv/vol+ 1073741824"_s);

        bench.Play(Raw::Ack() + Raw::Ack());
        QCOMPARE(bench.Sent(), u"7 tv/vol+ 1073741824; 7 tv/vol+ 1073741824"_s);
        bench.sending->Release();
        QCOMPARE(bench.sending->HeldButton(), -1);
        bench.Play(Raw::Ack());
        QCOMPARE(bench.Sent(), QString());
        QVERIFY(bench.TimerRuns("timIntercommand"));
    }

    void AcknowledgementBeforeTheHoldDelay() {
        Bench bench({u"tv vol+"_s});
        bench.sending->Press(1);
        bench.Play(Raw::Ack());
        QCOMPARE(bench.Sent(), u"1 tv/vol+ 1073741824"_s);
        QTRY_COMPARE(bench.server.Log(), u"1 tv/vol+ 1073741824"_s); // after the delay
        bench.Play(Raw::Ack());
        QTRY_COMPARE(bench.server.Log(), u"1 tv/vol+ 1073741824; 7 tv/vol+ 1073741824"_s);
        QTRY_VERIFY(!bench.TimerRuns("timIntercommand"));
        QCOMPARE(bench.server.Records(), 2);
        // Answers to a check don't end the repeat, an error does.
        bench.Play(Raw::Result(38, 9) + Raw::Result(28, 9) + Raw::Ack());
        QVERIFY(bench.Sent().endsWith(u"7 tv/vol+ 1073741824; 7 tv/vol+ 1073741824"_s));
        bench.Play(Raw::Result(12, 0, "bus gone"));
        QCOMPARE(bench.sending->HeldButton(), -1);
        bench.Play(Raw::Ack());
        QCOMPARE(bench.Sent(), QString());
    }

    void ALostConnectionEndsTheHold() {
        Bench bench({u"tv vol+"_s});
        bench.sending->Press(1);
        QSignalSpy failed(&bench.session, &Session::LinkFailed);
        QSignalSpy refused(&bench.session, &Session::SendFailed);
        bench.server.Close();
        QVERIFY(failed.wait());
        QVERIFY(!bench.TimerRuns("Timer"));
        QCOMPARE(bench.sending->HeldButton(), -1);
        bench.sending->CheckPage();
        QCOMPARE(refused.size(), 0); // nobody pressed anything since
    }

    void AnotherButtonTakesTheHold() {
        Bench bench({u"tv vol+"_s, u"tv vol-"_s, u"tv a;b"_s});
        bench.sending->Press(1);
        bench.sending->Press(2);
        QTRY_COMPARE(bench.server.Records(), 3);
        bench.Play(Raw::Ack());
        QCOMPARE(bench.Sent(), u"1 tv/vol+ 1073741824; 1 tv/vol- 1073741824; "
                               u"1 tv/vol- 1073741824; 7 tv/vol- 1073741824"_s);
        bench.sending->Press(3);
        QVERIFY(!bench.TimerRuns("Timer"));
        bench.Play(Raw::Ack());
        QCOMPARE(bench.Sent(), u"1 tv/a 1073741824"_s);
    }

    void CommandsInARow() {
        // Nothing is sent behind the last semicolon, but nothing else is left out.
        for (const QString& command : {u"a;;b"_s, u";b;"_s}) {
            Bench bench({u"tv "_s + command + u" 3"_s});
            bench.sending->Press(1);
            bench.sending->Release();
            QStringList expected;
            qint64 acknowledged = 0;
            for (const QString& piece : command.split(u';').first(command == u"a;;b" ? 3 : 2)) {
                expected += u"1 tv/%1 65539"_s.arg(piece);
                QTRY_COMPARE(bench.server.Log(), expected.join(u"; "_s));
                const int last = int(expected.size()) - 1;
                QVERIFY(last == 0 ||
                        bench.server.ArrivalOf(last) - acknowledged >= PanelSending::CommandGap - 1);
                acknowledged = bench.server.Now();
                bench.Play(Raw::Ack());
            }
            QTRY_VERIFY(!bench.TimerRuns("timIntercommand"));
            QCOMPARE(bench.Sent(), expected.join(u"; "_s));
        }
    }

    void TheRestOfARow() {
        Bench bench({u"tv a;b;c"_s, u"tv power"_s, u"**rs232 x;y"_s});
        bench.sending->Press(1);
        bench.Play(Raw::Result(12, 0, "refused"));
        QVERIFY(!bench.TimerRuns("timIntercommand"));
        // It waits, and any acknowledgement resumes it, also one that a serial text got.
        bench.sending->Press(3);
        bench.Play(Raw::Ack());
        QTRY_COMPARE(bench.server.Log(), u"1 tv/a 1073741824; 61 x;y 1073741824; 1 tv/b 1073741824"_s);
        // A plain press drops it.
        bench.sending->Press(2);
        bench.sending->Release();
        bench.server.TakeLog();
        bench.Play(Raw::Ack());
        QTRY_VERIFY(!bench.TimerRuns("timIntercommand"));
        QVERIFY(!bench.Sent().contains(u"tv/c"));
    }

    void SerialTexts() {
        Bench bench({u"**rs232 ON;1 4"_s, u"**RS232 b"_s, u"**Rs232 c"_s, u"**rS232 d"_s});
        for (int i = 1; i <= 4; ++i) {
            bench.sending->Press(i);
            QCOMPARE(bench.TimerRuns("Timer"), i == 4);
        }
        QCOMPARE(bench.Sent(), u"61 ON;1 65540; 61 b 1073741824; 61 c 1073741824; 1 **rS232/d 1073741824"_s);
    }

    /// Steps: "check" asks about the page, "+1" and "-1" answer that a button is known or not, "error" is one
    /// of a button that was pressed, all else shows another page. Behind each step: the buttons that turned
    /// out unknown, and what went out.
    void Checks() {
        const QStringList two{u"tv power"_s, u"tv mute"_s};
        const QHash<QString, QStringList> pages{
            {u"amp"_s, {u"amp on"_s, u"amp off"_s}}, {u"tv"_s, {u"tv power"_s}}, {u"none"_s, {}}};
        const std::tuple<const char*, QStringList, QString, QString> rows[] = {
            {"rows and serial texts count as known",
             {u"tv power"_s, u"tv a;b"_s, u"**rs232 x"_s, u"tv mute"_s, u"tv up"_s},
             u"check -1 -2 -3 +4 -5"_s,
             u"tv/power 1|!1 tv/a;b 2|**rs232/x 3|tv/mute 4|tv/up 5|!5"_s},
            {"answers to no question", two, u"-1 check -0 -2 -3 -256 +1 -1"_s,
             u"|tv/power 1|||||tv/mute 2|"_s},
            {"answers of the last page", two, u"check amp check -1 +1 -2"_s,
             u"tv/power 1||amp/on 1||amp/off 2|!2"_s},
            {"errors beside an answer and in its place", two, u"check error -1 +2 check error check +1"_s,
             u"tv/power 1||!1 tv/mute 2||tv/power 1||tv/power 1|tv/mute 2"_s},
            {"the oldest of many questions are forgotten", two,
             u"check "_s.repeated(70) + u"+1 "_s.repeated(63) + u"+1"_s,
             u"tv/power 1|"_s.repeated(70) + u"|"_s.repeated(63) + u"tv/mute 2"_s},
            {"without buttons a slot keeps what it held",
             {},
             u"check -1 tv none check -1"_s,
             u"/ 1||||tv/power 1|"_s},
        };
        for (const auto& [name, buttons, steps, trace] : rows) {
            Bench bench(buttons);
            QStringList unknown;
            connect(bench.sending.get(), &PanelSending::ButtonUnknown, this,
                    [&](int slot) { unknown += u"!%1"_s.arg(slot); });
            QStringList seen;
            for (const QString& step : steps.split(u' ')) {
                if (step == u"check")
                    bench.sending->CheckPage();
                else if (step == u"error")
                    bench.Play(Raw::Result(3, 0));
                else if (pages.contains(step))
                    bench.Show(pages[step]);
                else
                    bench.Play(Raw::Result(step.startsWith(u'+') ? 38 : 28, step.sliced(1).toInt()));
                const QString sent = bench.Sent();
                QVERIFY(sent.isEmpty() || sent.startsWith(u"56 "));
                seen += (std::exchange(unknown, {}) + QStringList(sent.mid(3))).join(u' ').trimmed();
            }
            QVERIFY2(seen.join(u'|') == trace,
                     qPrintable(QLatin1StringView(name) + u": "_s + seen.join(u'|')));
        }
    }
};

SUITE(SendingTest);

#include "sending_test.moc"

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

    void AnswerCheck(int slot, bool known) { Play(Raw::Result(known ? 38 : 28, slot)); }

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
    void TheTimerOfTheStartFindsNoHeldButton() {
        Session session;
        const PanelModel panel;
        QSignalSpy tries(&session, &Session::SendFailed);
        const PanelSending sending(session, panel, nullptr);
        const auto* timer = sending.findChild<QTimer*>(u"Timer"_s);
        QVERIFY(timer->isActive());
        QTRY_VERIFY(!timer->isActive());
        QVERIFY(tries.isEmpty());
    }

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

    void CheckOfAPage() {
        Bench bench({u"tv power"_s, u"tv a;b"_s, u"**rs232 x"_s, u"tv mute"_s, u"tv up"_s});
        QSignalSpy unknown(bench.sending.get(), &PanelSending::ButtonUnknown);
        bench.sending->CheckPage();
        for (int slot = 1; slot <= 5; ++slot) {
            const QString asked = u"56 "_s + bench.panel.RemoteList[size_t(slot)] + u'/' +
                                  bench.panel.CommandList[size_t(slot)] + u" %1"_s.arg(slot);
            QCOMPARE(bench.Sent(), asked);
            bench.AnswerCheck(slot, slot == 4);
        }
        QCOMPARE(bench.Sent(), QString());
        QCOMPARE(unknown, (QList<QVariantList>{{1}, {5}}));
    }

    void AnswersToNoQuestion() {
        Bench bench({u"tv power"_s, u"tv mute"_s, u"tv up"_s});
        QSignalSpy unknown(bench.sending.get(), &PanelSending::ButtonUnknown);
        bench.AnswerCheck(1, false);
        bench.sending->CheckPage();
        for (const int slot : {0, 2, 3, 256})
            bench.AnswerCheck(slot, false);
        QCOMPARE(bench.Sent(), u"56 tv/power 1"_s);
        bench.AnswerCheck(1, true);
        bench.AnswerCheck(1, false); // once too often
        QCOMPARE(bench.Sent(), u"56 tv/mute 2"_s);
        QCOMPARE(unknown.size(), 0);
    }

    void AnswersOfTheLastPage() {
        Bench bench({u"tv power"_s, u"tv mute"_s});
        QSignalSpy unknown(bench.sending.get(), &PanelSending::ButtonUnknown);
        bench.sending->CheckPage();
        bench.Show({u"amp on"_s, u"amp off"_s});
        bench.sending->CheckPage();
        QCOMPARE(bench.Sent(), u"56 tv/power 1; 56 amp/on 1"_s);
        bench.AnswerCheck(1, false);
        QCOMPARE(bench.Sent(), QString());
        QCOMPARE(unknown.size(), 0);
        bench.AnswerCheck(1, true);
        QCOMPARE(bench.Sent(), u"56 amp/off 2"_s);
        bench.AnswerCheck(2, false);
        QCOMPARE(unknown, (QList<QVariantList>{{2}}));
    }

    void ErrorsAmongTheAnswers() {
        Bench bench({u"tv power"_s, u"tv mute"_s});
        QSignalSpy unknown(bench.sending.get(), &PanelSending::ButtonUnknown);
        bench.sending->CheckPage();
        bench.Play(Raw::Result(3, 0)); // of a button that was pressed
        bench.AnswerCheck(1, false);
        QCOMPARE(bench.Sent(), u"56 tv/power 1; 56 tv/mute 2"_s);
        QCOMPARE(unknown, (QList<QVariantList>{{1}}));
        bench.AnswerCheck(2, true);
        bench.sending->CheckPage();
        bench.Play(Raw::Result(3, 0)); // instead of the answer
        bench.sending->CheckPage();
        bench.AnswerCheck(1, true);
        QCOMPARE(bench.Sent(), u"56 tv/power 1; 56 tv/power 1; 56 tv/mute 2"_s);
    }

    /// A server that answers none of many questions: the oldest are forgotten.
    void QuestionsThatNobodyAnswers() {
        Bench bench({u"tv power"_s, u"tv mute"_s});
        for (int i = 0; i < 70; ++i)
            bench.sending->CheckPage();
        bench.Sent();
        for (int i = 1; i < 64; ++i)
            bench.AnswerCheck(1, true);
        QCOMPARE(bench.Sent(), QString());
        bench.AnswerCheck(1, true);
        QCOMPARE(bench.Sent(), u"56 tv/mute 2"_s);
    }

    void CheckWithoutButtons() {
        Bench bench({});
        QSignalSpy unknown(bench.sending.get(), &PanelSending::ButtonUnknown);
        bench.sending->CheckPage();
        QCOMPARE(bench.Sent(), u"56 / 1"_s);
        bench.AnswerCheck(1, false);
        bench.Show({u"tv power"_s});
        bench.Show({});
        bench.sending->CheckPage();
        QCOMPARE(bench.Sent(), u"56 tv/power 1"_s); // the slot keeps what it held
        bench.AnswerCheck(1, false);
        QCOMPARE(bench.Sent(), QString());
        QCOMPARE(unknown.size(), 0);
    }
};

SUITE(SendingTest);

#include "sending_test.moc"

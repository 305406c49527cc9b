#include "panel/sending.h"

#include "app/program_rig.h"

#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// A panel, linked to a server.
struct Bench {
    /// Buttons as "remote command", or "remote command mask" with a send mask of their own.
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

    /// Waits until no timer runs.
    void Rest() {
        const auto timers = sending->findChildren<QTimer*>();
        const auto runs = [](const QTimer* timer) { return timer->isActive(); };
        QVERIFY(QTest::qWaitFor([&] { return std::none_of(timers.begin(), timers.end(), runs); }));
    }

    void Do(const QString& step) {
        static const QHash<QString, QStringList> pages{
            {u"amp"_s, {u"amp on"_s, u"amp off"_s}}, {u"tv"_s, {u"tv power"_s}}, {u"none"_s, {}}};
        if (step == u"up")
            sending->Release();
        else if (step == u"rest")
            Rest();
        else if (step == u"ack")
            Play(Raw::Ack());
        else if (step == u"error")
            Play(Raw::Result(12, 0, "bus gone"));
        else if (step == u"param")
            panel.PanelSendParam = 77;
        else if (step == u"check")
            sending->CheckPage();
        else if (pages.contains(step))
            Show(pages[step]);
        else if (step[0] == u'+' || step[0] == u'-')
            Play(Raw::Result(step[0] == u'+' ? 38 : 28, step.sliced(1).toInt()));
        else
            sending->Press(step.toInt());
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
    void Steps_data() {
        QTest::addColumn<QStringList>("buttons");
        QTest::addColumn<QString>("steps");
        QTest::addColumn<QString>("trace");
        const auto row = [](const char* name, const QStringList& buttons, const QString& steps,
                            const QString& trace) { QTest::newRow(name) << buttons << steps << trace; };
        row("a tap; the mask of the panel counts at the press", {u"tv power"_s, u"tv mute 5"_s},
            u"1 up rest param 1 up 2 up"_s, u"1 tv/power||||1 tv/power 77||1 tv/mute 65541|"_s);
        const QStringList volume{u"tv vol+"_s, u"tv vol-"_s, u"tv a;b"_s};
        row("a hold repeats on acknowledgements", volume, u"1 rest ack ack up ack rest"_s,
            u"1 tv/vol+|1 tv/vol+|7 tv/vol+|7 tv/vol+|||"_s);
        row("an acknowledgement before the delay of the hold", volume, u"1 ack rest ack"_s,
            u"1 tv/vol+||1 tv/vol+|7 tv/vol+"_s);
        row("an error ends a hold, answers to a check don't", volume, u"1 rest +9 -9 ack error ack"_s,
            u"1 tv/vol+|1 tv/vol+|||7 tv/vol+||"_s);
        row("another button takes the hold", volume, u"1 2 rest ack 3 ack"_s,
            u"1 tv/vol+|1 tv/vol-|1 tv/vol-|7 tv/vol-|1 tv/a|"_s);
        row("a row, one of it empty", {u"tv a;;b 3"_s}, u"1 up ack rest ack rest ack rest"_s,
            u"1 tv/a 65539|||1 tv/ 65539||1 tv/b 65539||"_s);
        row("nothing is sent behind the last semicolon", {u"tv ;b; 3"_s}, u"1 up ack rest ack rest"_s,
            u"1 tv/ 65539|||1 tv/b 65539||"_s);
        // It waits, and any acknowledgement resumes it, also one that a serial text got.
        row("the rest of a row, until a plain press drops it",
            {u"tv a;b;c"_s, u"tv power"_s, u"**rs232 x;y"_s}, u"1 error rest 3 ack rest 2 up ack rest"_s,
            u"1 tv/a|||61 x;y||1 tv/b|1 tv/power|||"_s);
        row("serial texts aren't held", {u"**rs232 ON;1 4"_s, u"**RS232 b"_s, u"**Rs232 c"_s, u"**rS232 d"_s},
            u"1 rest 2 rest 3 rest 4 rest"_s, u"61 ON;1 65540||61 b||61 c||1 **rS232/d|1 **rS232/d"_s);

        // A number that turns out unknown bears an exclamation mark.
        const QStringList two{u"tv power"_s, u"tv mute"_s};
        row("a check; rows and serial texts count as known",
            {u"tv power"_s, u"tv a;b"_s, u"**rs232 x"_s, u"tv mute"_s, u"tv up"_s}, u"check -1 -2 -3 +4 -5"_s,
            u"56 tv/power 1|!1 56 tv/a;b 2|56 **rs232/x 3|56 tv/mute 4|56 tv/up 5|!5"_s);
        row("answers to no question", two, u"-1 check -0 -2 -3 -256 +1 -1"_s,
            u"|56 tv/power 1|||||56 tv/mute 2|"_s);
        row("answers of the last page", two, u"check amp check -1 +1 -2"_s,
            u"56 tv/power 1||56 amp/on 1||56 amp/off 2|!2"_s);
        row("an error beside an answer", two, u"check error -1 +2"_s, u"56 tv/power 1||!1 56 tv/mute 2|"_s);
        row("an error in the place of an answer", two, u"check error check +1"_s,
            u"56 tv/power 1||56 tv/power 1|56 tv/mute 2"_s);
        row("the oldest of many questions are forgotten", two,
            u"check "_s.repeated(70) + u"+1 "_s.repeated(63) + u"+1"_s,
            u"56 tv/power 1|"_s.repeated(70) + u"|"_s.repeated(63) + u"56 tv/mute 2"_s);
        row("without buttons a slot keeps what it held", {}, u"check -1 tv none check -1"_s,
            u"56 / 1||||56 tv/power 1|"_s);
    }

    /// Behind each step stands what went out, in a trace that leaves the usual parameter away.
    void Steps() {
        QFETCH(const QStringList, buttons);
        QFETCH(const QString, steps);
        QFETCH(const QString, trace);
        Bench bench(buttons);
        QStringList seen;
        QString unknown;
        connect(bench.sending.get(), &PanelSending::ButtonUnknown, this,
                [&](int slot) { unknown += u"!%1 "_s.arg(slot); });
        for (const QString& step : steps.split(u' ')) {
            bench.Do(step);
            const QString sent = SentTo(bench.server, bench.session).remove(u" 1073741824"_s);
            seen += (std::exchange(unknown, {}) + sent).trimmed();
        }
        QCOMPARE(seen.join(u'|'), trace);
    }

    void TheTimerOfTheStartFindsNoHeldButton() {
        Session session;
        const PanelModel panel;
        const QSignalSpy tries(&session, &Session::SendFailed);
        const PanelSending sending(session, panel, nullptr);
        QTRY_VERIFY(!sending.findChild<QTimer*>(u"Timer"_s)->isActive());
        QVERIFY(tries.isEmpty());
    }

    void Delays() {
        Bench bench({u"tv vol+"_s, u"tv a;b"_s});
        const qint64 pressed = bench.server.Now();
        bench.sending->Press(1);
        QCOMPARE(bench.session.PendingOp, Pending::Panel);
        QTRY_COMPARE(bench.server.Records(), 2);
        QVERIFY(bench.server.ArrivalOf(1) - pressed >= PanelSending::HoldDelay - 1);
        bench.sending->Press(2);
        QTRY_COMPARE(bench.server.Records(), 3);
        const qint64 acknowledged = bench.server.Now();
        bench.Play(Raw::Ack());
        QTRY_COMPARE(bench.server.Records(), 4);
        QVERIFY(bench.server.ArrivalOf(3) - acknowledged >= PanelSending::CommandGap - 1);
    }

    void ALostConnectionEndsTheHold() {
        Bench bench({u"tv vol+"_s});
        bench.sending->Press(1);
        QSignalSpy failed(&bench.session, &Session::LinkFailed);
        QSignalSpy refused(&bench.session, &Session::SendFailed);
        bench.server.Close();
        QVERIFY(failed.wait());
        QCOMPARE(bench.sending->HeldButton(), -1);
        bench.Rest();
        bench.sending->CheckPage();
        QCOMPARE(refused.size(), 0); // nobody pressed anything since
    }
};

SUITE(SendingTest);

#include "sending_test.moc"

#include "hostile/flood_rig.h"

#include "database/elements.h"
#include "practice/practice_server.h"

#include <QComboBox>
#include <QPlainTextEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 MostGrowth = qint64(16) * 1024 * 1024;
/// Milliseconds of this process's own work, so that a busy machine doesn't count; sanitizers slow it down.
constexpr double LongestTurn = FloodWatch::IsSanitized ? 800 : 100;
/// With sanitizers a fifth of it, to save time.
constexpr int LogBytes = FloodWatch::IsSanitized ? 20'000'000 : 100'000'000;

/// Servers that lie about the pages of their lists: their names, and how many requests to them are sound.
enum Liar { NoEnd, RoundAndRound, BackAndForth, Overlaps, Gaps, NothingMore, Negative, Shrinks };
const std::pair<const char*, int> Liars[] = {
    {"no end", 32767}, {"round and round", 20}, {"back and forth", 20}, {"overlaps", 3000},
    {"gaps", 1200},    {"nothing more", 20},    {"negative", 20},       {"shrinks", 3000}};

/// Offset, count, total and more of the page that answers a request for the one at `at`.
std::array<int, 4> HeadOf(Liar liar, int at, int count) {
    switch (liar) {
    case NoEnd: break;
    case RoundAndRound: return {0, count, 32767, 1};
    case BackAndForth: return {qMin(at, 40), count, 32767, 1};
    case Overlaps: return {at - 1, count, 32767, 1};
    case Gaps: return {at + 3 * count, count, 32767, 1};
    case NothingMore: return {at, 0, 32767, 1};
    case Negative: return {at, -5, -5, 1};
    case Shrinks: return {at, count, at > 0 ? 1 : 90, 1};
    }
    return {at, count, 32767, 1};
}

/// What the server with this lie answers to a request, as FakeServer describes it; empty for other requests.
QByteArray Lie(Liar liar, const QString& record) {
    struct Kind {
        int request, type, perPage;
    };
    for (const Kind& kind : {Kind{18, 6, 40}, Kind{51, 16, 40}, Kind{52, 17, 40}, Kind{53, 18, 40},
                             Kind{21, 8, 30}, Kind{49, 15, 12}}) {
        if (!record.startsWith(QString::number(kind.request) + u' '))
            continue;
        const int index = record.section(u' ', -1).toInt();
        const auto [offset, count, total, more] = HeadOf(liar, index, kind.perPage);
        QByteArray elements;
        for (int i = 0; i < count; ++i) {
            const QString name = u"n%1"_s.arg(offset + i);
            switch (kind.type) {
            case 8: elements += Encode(TranslatorRequest()); break;
            case 15: elements += Encode(DatabaseElement::OfRemote(name, {})); break;
            case 18: elements += Raw::Bus(name.toLatin1()); break;
            default: elements += Raw::Name(name.toLatin1());
            }
        }
        return Raw::Page(kind.type, offset, count, total, more, elements);
    }
    return record.startsWith(u"19 ") ? Raw::Page(7, 0, 0, 0, 0) : QByteArray();
}

const FloodedDialog& DialogOf(const char* form) {
    return *std::find_if(std::begin(FloodedDialogs), std::end(FloodedDialogs),
                         [form](const FloodedDialog& each) { return qstrcmp(each.form, form) == 0; });
}

} // namespace

/// The whole program under what a server can pour out.
class FloodTest : public QObject {
    Q_OBJECT

private:
    /// The flood hasn't kept the window waiting or filled the heap, and one box is up at a time.
    /// `kept`: bytes that it rightly holds for what has come.
    static void Check(const FloodRig& rig, FloodWatch& watch, const char* flood, qint64 kept = 0) {
        watch.Look();
        const auto figures = QByteArray(flood) + ": " + QByteArray::number(watch.BusiestTurn()) + " ms, " +
                             QByteArray::number(watch.Growth()) + " bytes";
        QVERIFY2(watch.BusiestTurn() <= LongestTurn, figures);
        QVERIFY2(watch.Growth() <= MostGrowth + kept, figures);
        QVERIFY2(rig.VisibleBoxes() <= 1, flood);
        // The answer to a question may bring an error.
        QVERIFY2(rig.AnswerAll() <= 2 * (Boxes::WaitingMax + 2), flood);
    }

    /// Buttons send, and lists load, in a dialog that opens and closes.
    static void StillWorks(FloodRig& rig) {
        rig.AnswerAll();
        rig.CloseAll();
        QTRY_VERIFY(!rig.Window().findChild<Form*>(u"frmSendFree"_s));
        rig.server.answer = {};
        rig.Play({}); // what was under way has asked for more, in vain
        rig.Sent();
        rig.Window().activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&rig.Window()));
        rig.Button("cmdRem(1)")->setEnabled(true); // a check may have found it unknown
        QTest::mouseClick(rig.Button("cmdRem(1)"), Qt::LeftButton);
        QCOMPARE(rig.Sent(), u"1 tv/power 1073741824"_s);
        QVERIFY(rig.Open(DialogOf("frmSendFree")));
        QCOMPARE(rig.Sent(), u"18 / 0"_s);
        rig.Play(Raw::Page(6, 0, 2, 3, 1, Raw::Name("a") + Raw::Name("b")));
        QCOMPARE(rig.Sent(), u"18 / 2"_s);
        rig.Play(Raw::Page(6, 2, 1, 3, 0, Raw::Name("c")));
        const auto* list = rig.Find<QComboBox>("txtRemote");
        QCOMPARE(list->count(), 3);
        QCOMPARE(list->itemText(0) + list->itemText(2) + list->currentText(), u"actyped"_s);
        QVERIFY(!rig.CurrentBox());
        rig.CloseAll();
    }

private slots:
    void init() { FailOnWarnings(); }

    void Pour_data() {
        QTest::addColumn<int>("dialog");
        for (int i = 0; i < int(std::size(FloodedDialogs)); ++i)
            QTest::newRow(FloodedDialogs[i].form) << i;
    }
    /// Everything that can come unasked, in great numbers, at each open dialog.
    void Pour() {
        QFETCH(int, dialog);
        const FloodedDialog& open = FloodedDialogs[dialog];
        FloodRig rig;
        rig.BringUp();
        QVERIFY(rig.Open(open));
        rig.Sent();
        for (const Flood& flood : Floods()) {
            FloodWatch watch;
            QVERIFY2(rig.Run(flood), flood.name);
            Check(rig, watch, flood.name);
            QCOMPARE(rig.Typed(open), u"typed"_s);
            // One request for the next page of each list, and no chain beside it.
            const QString sent = rig.Sent();
            QVERIFY2(sent.count(u';') < 30, qPrintable(QString::fromLatin1(flood.name) + u": "_s + sent));
        }
        StillWorks(rig);
    }

    void AHundredMegabytesOfLog() {
        FloodRig rig;
        rig.BringUp();
        const QByteArray log = Raw::Log((QByteArray(79, 'x') + '\n').repeated(400));
        FloodWatch watch;
        QVERIFY(rig.Run({"log", log, LogBytes / int(log.size())}));
        Check(rig, watch, "log");
        QVERIFY(rig.Find<QPlainTextEdit>("txtLog")->document()->characterCount() > 100'000);
        StillWorks(rig);
    }

    void Acknowledgements_data() {
        QTest::addColumn<QByteArray>("form");
        QTest::addColumn<QByteArray>("button");
        QTest::newRow("a held button") << QByteArray("frmRemote") << QByteArray("cmdRem(1)");
        QTest::newRow("a row of commands") << QByteArray("frmRemote") << QByteArray("cmdRem(2)");
        for (const char* form : {"frmTranslator", "frmDeviceDB"})
            for (const char* button : {"cmdSave", "cmdLoad", "cmdFlash"})
                QTest::addRow("%s of %s", button, form) << QByteArray(form) << QByteArray(button);
        QTest::newRow("sending") << QByteArray("frmSendFree") << QByteArray("cmdSend");
        QTest::newRow("opening") << QByteArray("frmProgramm") << QByteArray("cmdRemote");
    }
    void Acknowledgements() {
        QFETCH(QByteArray, form);
        QFETCH(QByteArray, button);
        FloodRig rig;
        rig.BringUp();
        QVERIFY(rig.Open(DialogOf(form)));
        auto* pressed = rig.Find<QPushButton>(button);
        pressed->setEnabled(true);
        pressed->setDown(true);
        emit pressed->pressed();
        if (pressed->objectName().startsWith(u"cmdRem("))
            QTRY_COMPARE(rig.server.Log().count(u"1 tv/"), button.contains('1') ? 2 : 1);
        else
            emit pressed->clicked();
        rig.Sent();
        QElapsedTimer clock;
        clock.start();
        FloodWatch watch;
        QVERIFY(rig.Run({"acknowledgements", Raw::Ack().repeated(1000), 10}));
        emit pressed->released();
        Check(rig, watch, button);
        const auto sent = rig.Sent().count(u';');
        QVERIFY2(sent <= 30 + 2 * clock.elapsed() / 10, qPrintable(QString::number(sent)));
        StillWorks(rig);
    }

    void AServerThatDoesntRead() {
        FloodRig rig;
        rig.BringUp();
        rig.server.deaf = true;
        rig.Link().Connect();
        QTRY_VERIFY(rig.Link().IsUp() && rig.server.Connections() == 2);
        QVERIFY(rig.Open(DialogOf("frmAnalogIO")));
        QVERIFY(rig.Open(DialogOf("frmTranslator")));
        FloodWatch watch;
        rig.Button("cmdSave")->click();
        while (rig.Link().SendModeCommand({}))
            QCoreApplication::processEvents();
        for (int i = 0; i < 300; ++i) {
            emit rig.Button("cmdRem(1)")->pressed();
            emit rig.Button("cmdRem(1)")->released();
            rig.Button(i % 2 == 0 ? "cmdSave" : "cmdLoad")->click();
            QCOMPARE(rig.program->MessageBoxes().Waiting(), 0);
            QCoreApplication::processEvents();
            if (i % 10 == 9)
                QCOMPARE(rig.AnswerAll(), 1);
        }
        // Nobody pressed anything: no box.
        auto* poll = rig.Find<Form>("frmAnalogIO")->findChild<QTimer*>(u"Timer1"_s);
        emit poll->timeout({});
        emit poll->timeout({});
        QVERIFY(!rig.CurrentBox());
        Check(rig, watch, "deaf");
        QCOMPARE(rig.Typed(DialogOf("frmTranslator")), u"typed"_s);
        rig.server.deaf = false;
        rig.Link().Connect();
        QTRY_VERIFY(rig.Link().IsUp() && rig.server.HasClient());
        StillWorks(rig);
    }

    void Lies_data() {
        QTest::addColumn<QByteArray>("form");
        QTest::addColumn<int>("liar");
        for (const char* form : {"frmSendFree", "frmProgramm", "frmTranslator", "frmDeviceDB"})
            for (int i = 0; i < int(std::size(Liars)); ++i)
                QTest::addRow("%s %s", form, Liars[i].first) << QByteArray(form) << i;
    }
    /// A server that answers all requests for pages, with lies.
    void Lies() {
        QFETCH(QByteArray, form);
        QFETCH(int, liar);
        FloodRig rig;
        rig.BringUp();
        qint64 answered = 0;
        int requests = 0;
        int nameless = 0; // for the commands of no remote
        rig.server.answer = [&](const QString& record) {
            const QByteArray lie = Lie(Liar(liar), record);
            answered += lie.size();
            ++requests;
            nameless += record == u"19 / 0" ? 1 : 0;
            rig.server.TakeLog(); // it would fill the heap
            rig.server.Play(lie);
        };
        FloodWatch watch;
        QVERIFY(rig.Open(DialogOf(form)));
        if (auto* load = rig.Button("cmdLoad"))
            load->click();
        int seen = -1;
        for (int looks = 0; looks < 15 && std::exchange(seen, requests) != requests; ++looks)
            QTest::qWait(100);
        QCOMPARE(nameless, 0);
        QVERIFY2(requests <= Liars[liar].second, qPrintable(QString::number(requests)));
        // The names of a list stand in trees and lists, at several times their bytes.
        Check(rig, watch, Liars[liar].first, 4 * answered);
        QCOMPARE(rig.Typed(DialogOf(form)), u"typed"_s);
        StillWorks(rig);
    }

    /// The lists of four dialogs, at a server that says all twice.
    void Twice() {
        PracticeServer practice;
        QVERIFY(practice.Listen());
        World& world = practice.GetWorld();
        for (int i = 0; i < 400; ++i)
            world.remotes.push_back({u"remote %1"_s.arg(i), {{u"on"_s}}});
        practice.GetFaults().twice = true;
        FloodRig rig;
        rig.options.port = practice.Port();
        rig.Start();
        QTRY_VERIFY(rig.Button("cmdRem(1)"));
        FloodWatch watch;
        const int before = practice.Records();
        for (const char* form : {"frmSendFree", "frmProgramm", "frmTranslator", "frmDeviceDB"}) {
            QVERIFY(rig.Action(DialogOf(form).entry));
            rig.Action(DialogOf(form).entry)->trigger();
            QTRY_VERIFY(rig.Find<Form>(form));
            QTest::qWait(300);
            QVERIFY2(!rig.Find<Form>("frmDeviceMode"), form); // over the dialog that was asked for
            rig.CloseAll();
            QTRY_VERIFY(!rig.Find<Form>(form));
        }
        // Of eleven pages each is asked for once, the commands of a remote too.
        const int sent = practice.Records() - before;
        QVERIFY2(sent < 4 * 40 + int(world.remotes.size()), qPrintable(QString::number(sent)));
        Check(rig, watch, "twice");
    }
};

SUITE(FloodTest);

#include "flood_test.moc"

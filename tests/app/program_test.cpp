#include "app/program_rig.h"

#include <QPlainTextEdit>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

const QString Layout = u"[MAIN]\n[MOD]0,0[SIZE]900,300[PANEL]TV\n[END]\n"
                       u"[TV]\n[POS]0,900[SIZE]900,300[TEXT]x[REMOTE]tv[COMMAND]power\n"
                       u"[POS]0,1800[SIZE]900,300[TEXT]y[REMOTE]**rs232[COMMAND]"_s +
                       QString(256, u'y') + u"\n[END]\n"_s;

QString Describe(const QMessageBox* box) {
    if (box == nullptr)
        return u"no box"_s;
    return u"%1 | %2 | %3"_s.arg(int(box->icon())).arg(box->windowTitle(), box->text());
}

} // namespace

/// What the program shows for what the server says and for what becomes of the link.
class ProgramTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void BoxesOfReplies() {
        const auto icon = [](QMessageBox::Icon i) { return QString::number(int(i)); };
        const QString error = icon(QMessageBox::Warning) + u" | IR Error | Result: "_s;
        const QString flash = u" | Vantrel Translator | Translator Flash "_s;
        const std::pair<QByteArray, QString> rows[] = {
            {Raw::Result(6, 0, "Bus <b>3</b>\xFC"), error + u"[6 - 0] Bus <b>3</b>ü"_s},
            {Raw::Result(-1, -2, "%1 %2"), error + u"[-1 - -2] %1 %2"_s},
            {Raw::Result(4, 2, "t"), error + u"[4 - 2] t"_s},
            {Raw::Result(4, 3, "t"), u"no box"_s}, // learning timed out
            {Raw::Received("F1"), icon(QMessageBox::Information) + flash + u"OK"_s},
            {Raw::Received("F0"), icon(QMessageBox::Warning) + flash + u"failed."_s},
            {Raw::Result(35, 0, "t"),
             icon(QMessageBox::Question) +
                 u" | Datei überschreiben ... | Datei existiert bereits. Überschreiben?"_s},
            {Raw::Received("x"), u"no box"_s},
        };
        ProgramRig rig(Layout);
        rig.BringUp();
        int count = 100;
        for (const auto& [reply, box] : rows) {
            rig.Play(reply);
            QCOMPARE(Describe(rig.CurrentBox()), box);
            QCOMPARE(rig.Link().ErrorBoxOpen, box.contains(u"IR Error"));
            // Replies are read while it is up.
            rig.Play(Raw::Received(QByteArray::number(++count), "tv"));
            QCOMPARE(rig.Text("sb1(3)"), QString::number(count));
            while (rig.CurrentBox()) // behind the question comes the error, as nobody asked to save
                rig.AnswerBox();
            QVERIFY(!rig.Link().ErrorBoxOpen);
        }
    }

    /// One box at a time, and the last one tells how many were too many.
    void AThousandErrors() {
        ProgramRig rig(Layout);
        rig.BringUp();
        rig.Play(Raw::Result(9, 9, "x").repeated(1000));
        for (int i = 0; i <= Boxes::WaitingMax; ++i) {
            QVERIFY(rig.Link().ErrorBoxOpen);
            rig.AnswerBox();
        }
        QVERIFY(!rig.Link().ErrorBoxOpen);
        QCOMPARE(rig.CurrentBox()->text(), u"Weitere Meldungen, die nicht gezeigt wurden: 979"_s);
        rig.AnswerBox();
        QVERIFY(!rig.CurrentBox());
    }

    void DatabaseFlash() {
        ProgramRig rig(Layout);
        rig.BringUp();
        rig.Play(Raw::DatabaseStatus("100 ", "64K"));
        const QPointer<QDialog> form = rig.Find<QDialog>("frmIRDBStatus");
        QVERIFY(form && !form->isVisible());
        rig.Play(Raw::Received("F2"));
        QVERIFY(form->isVisible() && form->isModal());
        QCOMPARE(rig.Find<QLineEdit>("txtActions")->text(), u"15"_s);
        QCOMPARE(rig.Text("lblStat"), u"IRDB Flash OK"_s);
        rig.Play(Raw::DatabaseStatus("32768", "64K")); // while it is up, only its words change
        QCOMPARE(rig.Text("lblStat"), u"IRDB Flash failed - Not enough memory"_s);
        rig.Button("cmdOK")->click();
        QTRY_VERIFY(!form);
        rig.Play(Raw::DatabaseStatus("1", "64K") + Raw::Received("F0"));
        QCOMPARE(rig.Text("lblStat"), u"IRDB Flash failed"_s);
        QVERIFY(!rig.CurrentBox());
    }

    void LogIsKeptUnseen() {
        ProgramRig rig(Layout);
        rig.BringUp();
        rig.Play(Raw::Log("<b>two</b>\n"));
        const auto* log = rig.Find<QPlainTextEdit>("txtLog");
        QVERIFY(log && !log->window()->isVisible());
        QVERIFY(log->toPlainText().contains(u"<b>two</b>"_s));
        rig.Play((Raw::Log(QByteArray(30'000, 'x')) + Raw::Log("\n").repeated(300)).repeated(20));
        QVERIFY(log->document()->characterCount() < 450'000);
    }

    void OtherFaultsLeaveThePanel() {
        ProgramRig rig(Layout);
        rig.BringUp();
        rig.server.Close();
        QTRY_VERIFY(rig.CurrentBox());
        QVERIFY(rig.CurrentBox()->text().startsWith(u"Error: "));
        QVERIFY(!rig.CurrentBox()->text().contains(u"Brenmard"));
        rig.AnswerBox();
        QVERIFY(!rig.CurrentBox() && !rig.Find<QDialog>("frmIP"));
        QVERIFY(rig.Button("cmdRem(1)") && rig.Action("mnuModus(10)")->isEnabled());
        // A send that has no link says so, once at a time.
        QTest::mouseClick(rig.Button("cmdRem(1)"), Qt::LeftButton);
        rig.Action("mnuModus(10)")->trigger();
        QCOMPARE(rig.CurrentBox()->text(), u"Keine Verbindung zum Geräteserver. Neu verbinden?"_s);
        QCOMPARE(rig.program->MessageBoxes().Waiting(), 0);
        QTest::keyClick(rig.CurrentBox(), Qt::Key_Escape);
        QTest::qWait(20);
        QVERIFY(!rig.Link().IsUp());
        rig.Action("mnuModus(10)")->trigger();
        rig.AnswerBox();
        QTRY_VERIFY(rig.Link().IsUp());
        QTest::mouseClick(rig.Button("cmdRem(2)"), Qt::LeftButton);
        QVERIFY(rig.CurrentBox()->text().contains(u"255"));
        rig.AnswerBox();
        // All but an abort.
        QSignalSpy ended(rig.program.get(), &Program::Ended);
        emit rig.Link().LinkFailed(LinkFault::Aborted, u"gone"_s);
        QCOMPARE(rig.CurrentBox()->text(), u"Error: gone"_s);
        QCOMPARE(ended.size(), 0);
        rig.AnswerBox();
        QCOMPARE(ended.size(), 1);
    }

    void StartOptions() {
        const std::tuple<QStringList, QString, bool> rows[] = {{{}, u"localhost"_s, false},
                                                               {{u"en"_s}, u"localhost"_s, true},
                                                               {{u"EN"_s}, u"localhost"_s, true},
                                                               {{u"En"_s}, u"En"_s, false}, // a host
                                                               {{u"-h"_s, u"--help"_s}, u"-h"_s, false},
                                                               {{u" a b "_s, u"en"_s}, u" a b "_s, false}};
        for (const auto& [arguments, host, english] : rows) {
            QCOMPARE(ReadStartOptions(arguments).host, host);
            QCOMPARE(ReadStartOptions(arguments).english, english);
            QCOMPARE(AnswerOnTerminal(arguments.value(0)), QString());
        }
        QVERIFY(AnswerOnTerminal(u"--help"_s).startsWith(u"Usage: calvoris "));
        QVERIFY(AnswerOnTerminal(u"--version"_s).startsWith(u"calvoris "));
        QCOMPARE(AnswerOnTerminal(u"--Version"_s), QString());
    }

    void ShippedFiles() {
        // What stands beside the program, whether a folder of an installation does, and which one is taken.
        const std::tuple<QString, bool, QString> rows[] = {{u"Remote.lyt"_s, true, u"bin"_s},
                                                           {u"French.tra"_s, true, u"bin"_s},
                                                           {u"Remote.txt"_s, true, u"share/calvoris"_s},
                                                           {u"Remote.txt"_s, false, u"bin"_s}};
        for (const auto& [beside, isInstalled, taken] : rows) {
            ProgramRig rig{QString()};
            const QDir root(rig.folder.path());
            QVERIFY(root.mkdir(u"bin"_s) && (!isInstalled || root.mkpath(u"share/calvoris"_s)));
            rig.WriteFile(u"bin/"_s + beside, {});
            QCOMPARE(FindShippedFiles(root.filePath(u"bin"_s), u"../share/calvoris"_s), root.filePath(taken));
        }
    }

    void LanguageOfTheStart() {
        const QString noSystem = u"Can not read System language.\nUsing English"_s;
        const QString noFile = u"Can not open the language File for ENGLISH\nUsing German instead"_s;
        const QString files = u"German French english"_s;
        // Files, language of the system, en; word and text, warnings.
        const std::tuple<QString, QString, bool, QString, QString> rows[] = {
            {files, u"German"_s, false, u"German: built in"_s, {}},
            {files, u"German"_s, true, u"ENGLISH: english"_s, {}},
            {files, u"GERMAN"_s, false, u"GERMAN: German"_s, {}},
            {files, u"French"_s, false, u"French: French"_s, {}},
            {files, u"Dutch"_s, false, u"ENGLISH: english"_s, {}},
            {{}, u"Dutch"_s, false, u"ENGLISH: built in"_s, noFile},
            {files, {}, false, u"ENGLISH: english"_s, noSystem},
            {{}, {}, true, u"ENGLISH: built in"_s, noSystem + u'|' + noFile},
        };
        for (const auto& [present, system, english, wordAndText, expected] : rows) {
            ProgramRig rig{QString()};
            for (const QString& file : present.split(u' ', Qt::SkipEmptyParts))
                rig.WriteFile(file + u".tra"_s, u"\"key\",\"%1\"\n"_s.arg(file));
            Language language;
            const QStringList warnings = ChooseLanguage(language, rig.folder.path(), system, english);
            QCOMPARE(warnings.join(u'|'), expected);
            const QString text = language.GetLanguageText(u"key"_s, u"built in"_s);
            QCOMPARE(language.word + u": "_s + text, wordAndText);
        }
    }

    void WarningsOfTheStart() {
        ProgramRig rig(Layout, QString());
        rig.options.start.host.clear(); // a fault of the link as any other
        rig.Start();
        for (const QString& text : {u"Can not read System language.\nUsing English"_s,
                                    u"Can not open the language File for ENGLISH"_s, u"Error: "_s}) {
            QTRY_VERIFY(rig.CurrentBox());
            QVERIFY2(rig.CurrentBox()->text().startsWith(text), qPrintable(text));
            rig.AnswerBox();
        }
    }
};

SUITE(ProgramTest);

#include "program_test.moc"

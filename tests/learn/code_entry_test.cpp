#include "learn/code_entry_rules.h"
#include "learn/frmCCF.h"

#include "app/program_rig.h"
#include "support/golden.h"

using namespace Golden;
using namespace Qt::StringLiterals;

class CodeEntryTest : public QObject, LinkedSession {
    Q_OBJECT

private slots:
    void init() {
        FailOnWarnings();
        session.Connect(); // a slot may have left none
        QVERIFY(QTest::qWaitFor([this] { return session.IsUp() && server.HasClient(); }));
        server.TakeLog();
    }

    void LineEnds() {
        const std::pair<QString, QString> rows[] = {
            {u"a\nb\r\nc\u2029d\u2028"_s, u"a\r\nb\r\nc\r\nd\r\n"_s},
            {u"\r"_s, u"\r"_s},
            {u"\u00A0\t "_s, u"\u00A0\t "_s},
            {{}, {}},
        };
        for (const auto& [typed, sent] : rows)
            QCOMPARE(CodeEntry::ToWireText(typed), sent);
        QCOMPARE(CodeEntry::LengthOf(u"a\nü\U0001F600"_s), 5);
    }

    void SerialTextAsTyped() {
        Open(frmCCF::Face::Rs232, u" Büro"_s, QString(20, u'c') + u'!');
        QCOMPARE(form->windowTitle(), u"RS232 Code"_s);
        QVERIFY(Button("cmdRS232OK")->isVisible() && !Button("cmdCCFOK")->isVisible());
        QTest::keyClicks(edit, u" on"_s);
        QTest::keyClick(edit, Qt::Key_Return);
        QTest::keyClicks(edit, u"\u00A0ß<b> "_s);
        QTest::mouseClick(Button("cmdRS232OK"), Qt::LeftButton);
        QTRY_VERIFY(form.isNull());
        QTRY_COMPARE(server.Records(), 1);
        // Netcommand and version; the remote, its blank kept; the command, cut; the code.
        const QByteArray record = server.Record(0);
        QCOMPARE(record.first(12), Hex("47 00 00 00 00 00 00 00 D2 00 00 00"));
        QCOMPARE(record.sliced(12, 100),
                 Ascii(" B") + Hex("FC") + Ascii("ro") + Hex("00") + Fill(74, ' ') + Fill(20, 'c'));
        QCOMPARE(record.sliced(112),
                 Ascii(" on\r\n") + Hex("A0 DF") + Ascii("<b> ") + Hex("00") + Fill(5388, ' '));
    }

    void TooLongIsShownAndCut() {
        const auto* length =
            Open(frmCCF::Face::Ccf, QString(81, u'r'), u"λ"_s)->findChild<QLabel*>(u"lblLength"_s);
        edit->setPlainText(QString(5400, u'0'));
        QCOMPARE(length->text(), u"5400 / 5400"_s);
        QTest::keyClicks(edit, u"1"_s);
        QCOMPARE(length->text(), u"5401 / 5400 – der Rest wird nicht gesendet"_s);
        edit->setPlainText(QString(10'000, u'A'));
        QTest::mouseClick(Button("cmdCCFOK"), Qt::LeftButton);
        QTRY_COMPARE(server.Records(), 1);
        const QByteArray record = server.Record(0);
        QCOMPARE(record.size(), 5512);
        QCOMPARE(record.first(12), Hex("44 00 00 00 00 00 00 00 D2 00 00 00"));
        QCOMPARE(record.sliced(12), Fill(80, 'r') + '?' + Fill(1, 0) + Fill(18, ' ') + Fill(5400, 'A'));
    }

    void ClosedWithoutSending() {
        Open(frmCCF::Face::Ccf, u"tv"_s, u"x"_s);
        edit->setPlainText(u"0000"_s);
        QTest::keyClick(edit, Qt::Key_Escape);
        QTRY_VERIFY(form.isNull());
        QCOMPARE(SentTo(server, session), QString());
        // Without a link nothing is lost.
        server.Close();
        QTRY_VERIFY(!session.IsUp());
        Open(frmCCF::Face::Ccf, u"tv"_s, u"x"_s);
        edit->setPlainText(u"0000"_s);
        QTest::mouseClick(Button("cmdCCFOK"), Qt::LeftButton);
        QVERIFY(form && form->isVisible());
        form->Unload();
    }

private:
    frmCCF* Open(frmCCF::Face face, const QString& remote, const QString& command) {
        form = new frmCCF(services, face, remote, command, nullptr);
        form->ShowModal();
        edit = form->findChild<QPlainTextEdit*>(u"txtCCF"_s);
        return form;
    }
    QPushButton* Button(const char* name) const {
        return form->findChild<QPushButton*>(QLatin1StringView(name));
    }

    Language language;
    Boxes boxes{language};
    FormServices services{session, language, boxes};
    QPointer<frmCCF> form;
    QPlainTextEdit* edit = nullptr;
};

SUITE(CodeEntryTest);

#include "code_entry_test.moc"

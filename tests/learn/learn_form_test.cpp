#include "app/program_rig.h"
#include "learn/frmProgramm.h"

using namespace Qt::StringLiterals;

namespace {

QByteArray I32(quint32 value) {
    return Raw::I16(int(value & 0xFFFF)) + Raw::I16(int(value >> 16));
}

QByteArray Bus(const char* name, const char* version, quint32 a, quint32 b, quint8 receivers) {
    return I32(a) + I32(b) + Raw::Field(name, 60) + Raw::Field(version, 8) + I32(0) + Raw::Field({}, 5) +
           '\x02' + char(receivers) + '\x0F';
}

QByteArray State(int flags, int carrier, const QByteArray& remote, int timings, int commands,
                 const QByteArray& code = {}) {
    return Raw::Reply(5, Raw::I16(0) + char(flags) + char(carrier) + Raw::Field(remote, 80) +
                             Raw::I16(timings) + Raw::I16(commands) + Raw::Field(code, 176));
}

/// The program with the learn dialog up and the lists of the server in it.
struct LearnRig : ProgramRig {
    LearnRig()
        : ProgramRig({}) {}

    void Open() {
        BringUp(false);
        Action("mnuModus(11)")->trigger();
        QVERIFY(QTest::qWaitForWindowActive(Form()));
        const QByteArray buses =
            Bus("Cellar ", "V6.04.44", 0x2, 0x80, 0x02) + Bus("Loft", "V5.10.00", 0, 0, 0);
        Play(State(0, 0, {}, 0, 0) + Raw::Page(18, 0, 2, 2, 0, buses));
        QTRY_COMPARE(server.Log().count(u';'), 2);
        QVERIFY(server.TakeLog().startsWith(u"16 / 0; 53 / 0; "));
        Play(Raw::Page(6, 0, 2, 2, 0, Raw::Name("tv ") + Raw::Name("radio")));
        Sent();
    }

    void OpenTv(const QByteArray& state) {
        Type("tv");
        Press(Qt::Key_Return);
        QCOMPARE(Sent(), u"2 tv/ 0; 16 / 0"_s);
        Play(state);
    }

    frmProgramm* Form() const { return Window().findChild<frmProgramm*>(); }
    /// Without a window manager no window comes to the front when a box goes.
    void AnswerAndReturn() const {
        AnswerBox();
        Form()->activateWindow();
    }
    ComboBox* Combo(const char* name) const { return Find<ComboBox>(name); }
    QLineEdit* Edit(const char* name) const { return Find<QLineEdit>(name); }
    /// Where the keys go; a window that has just come to the front needs a moment.
    QWidget* Target() const {
        return QTest::qWaitFor([] { return QApplication::focusWidget() != nullptr; })
                   ? QApplication::focusWidget()
                   : &Window();
    }
    void Type(const char* text) const { QTest::keyClicks(Target(), QLatin1StringView(text)); }
    void Press(Qt::Key key) const { QTest::keyClick(Target(), key); }
    QString Focus() const {
        const QWidget* focus = QApplication::focusWidget();
        return focus != nullptr ? focus->objectName() : QString();
    }
};

} // namespace

class LearnFormTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        FailOnWarnings();
        rig.emplace();
        rig->Open();
    }
    void cleanup() { rig.reset(); }

    void TwoCommandsWithoutAMouse() {
        QCOMPARE(rig->Combo("cmbBus")->itemText(0), u"Cellar  V6.04.44"_s);
        QCOMPARE(rig->Combo("txtRemote")->itemText(0), u"tv"_s);
        QCOMPARE(rig->Focus(), u"txtRemote"_s);
        rig->OpenTv(State(0, 0, "tv", 1, 7, "0011"));
        QVERIFY(!rig->Combo("txtRemote")->isEnabled());
        QCOMPARE(rig->Edit("txtCommands")->text() + rig->Edit("txtTimings")->text() +
                     rig->Edit("txtCode")->text(),
                 u"710011"_s);

        for (const char* name : {"on", "off"}) {
            QCOMPARE(rig->Focus(), u"txtCommand"_s);
            rig->Type(name);
            rig->Press(Qt::Key_Return);
            // With timing, flags 1 and 4; receiver 2, tolerance 2, local, new form.
            QCOMPARE(rig->Sent(), u"12 \x05/%1 %2; 16 / 0"_s.arg(QLatin1StringView(name)).arg(0x508000CC));
            QCOMPARE(rig->Link().PendingOp, Pending::Learn);
            QCOMPARE(rig->Text("StatusBar(1)"), u"Zu lernenden Befehl senden ..."_s);
            auto* progress = rig->Find<QProgressBar>("pgbStat");
            QCOMPARE(progress->maximum(), 120);
            QTRY_VERIFY(progress->value() < 119);
            rig->Play(Raw::Ack() + State(1, 0, "tv", 1, 8));
            QCOMPARE(progress->value(), 0);
            QVERIFY(rig->Text("StatusBar(1)").isEmpty());
        }
        rig->Press(Qt::Key_Escape);
        QCOMPARE(rig->Sent(), u"5 / 0"_s);
    }

    void OldFirmwareNeedsATiming() {
        rig->Combo("cmbBus")->setCurrentIndex(1);
        QVERIFY(rig->Button("cmdTiming")->isVisible());
        rig->OpenTv(State(0, 0, "tv", 0, 0));
        rig->Type("1");
        for (const int mode : {0, 2, 0}) {
            rig->Combo("cmbMode")->setCurrentIndex(mode);
            QCOMPARE(rig->Button("cmdLearn")->isDefault(), mode != 0);
        }
        QVERIFY(!rig->Edit("txtCommand")->isEnabled() && rig->Button("cmdTiming")->isDefault());
        rig->Button("cmdTiming")->click();
        QCOMPARE(rig->Sent(), u"3 / %1; 16 / 0"_s.arg(0x014C));
        QVERIFY(!rig->Edit("txtFrequenz")->isEnabled());

        // The measured carrier goes out with the next learn.
        rig->Play(State(3, 38, "tv", 1, 0));
        QCOMPARE(rig->Edit("txtFrequenz")->text(), u" 38  [MEAS]"_s);
        QCOMPARE(rig->Edit("txtFrequenz")->palette().color(QPalette::Text), QColor(255, 0, 0));
        QCOMPARE(rig->Focus(), u"txtCommand"_s);
        rig->Type("1");
        rig->Press(Qt::Key_Return);
        QCOMPARE(rig->Sent(), u"4 /1 %1; 16 / 0"_s.arg(0x014C));
        QCOMPARE(rig->Link().carrier, 38);
        rig->Edit("txtFrequenz")->setFocus();
        QTRY_COMPARE(rig->Edit("txtFrequenz")->selectedText(), u" 38  [MEAS]"_s);
        rig->Type("4a0");
        QCOMPARE(rig->Edit("txtFrequenz")->text(), u"40"_s);

        rig->Play(State(4, 0, "tv", 1, 1));
        QCOMPARE(rig->CurrentBox()->text(), u"Carrier Measurement failed (Timeout ?)"_s);
        rig->AnswerBox();
    }

    void WhatIsTypedStaysWithinItsField() {
        rig->Combo("txtRemote")->lineEdit()->insert(QString(81, u'ü'));
        rig->Press(Qt::Key_Return);
        QVERIFY(rig->Sent().startsWith(u"2 "_s + QString(80, u'ü') + u"/ 0;"_s));
        rig->Play(State(1, 0, QByteArray(80, '\xFC'), 0, 0));
        QCOMPARE(rig->Combo("txtRemote")->currentText(), QString(80, u'ü'));
        rig->Edit("txtCommand")->insert(u"\u03A9"_s + QString(20, u'x'));
        rig->Edit("txtTimeout")->setText(u"31"_s);
        rig->Combo("cmbAdrMode")->setCurrentIndex(1);
        QTest::keyClicks(rig->Edit("txtAdresse"), u"99"_s);
        rig->Edit("txtFrequenz")->setText(u"999"_s);
        rig->Sent();
        rig->Button("cmdLearn")->click();
        QVERIFY(rig->CurrentBox());
        QVERIFY(rig->Sent().isEmpty());
        rig->AnswerAndReturn();
        QTRY_COMPARE(rig->Focus(), u"txtFrequenz"_s);
        rig->Edit("txtFrequenz")->setText(u"56"_s);
        const int before = rig->server.Records();
        rig->Button("cmdLearn")->click();
        QTRY_VERIFY(rig->server.Records() > before);
        const QByteArray record = rig->server.Record(int(rig->server.Records()) - 2);
        // Bus 0, address 0, new form; tolerance 2 and receiver 2.
        QCOMPARE(record.first(12), QByteArray::fromHex("0C003075800080 50D2000000"));
        QCOMPARE(record.sliced(92, 21), QByteArray("?") + QByteArray(19, 'x') + '\x38');
    }

    void ALateErrorShowsWithTheNextTick() {
        rig->OpenTv(State(1, 0, "tv", 0, 0));
        rig->Type("on");
        rig->Press(Qt::Key_Return);
        rig->Play(Raw::Result(4, 3, "no <b>key</b>") + State(1, 0, "tv", 0, 0));
        QTRY_VERIFY(rig->CurrentBox());
        QCOMPARE(rig->CurrentBox()->windowTitle() + rig->CurrentBox()->text(),
                 u"IR ErrorResult: [4 - 3] no <b>key</b>"_s);
        rig->AnswerAndReturn();

        // After a code that was typed the state is asked for, too.
        QTRY_COMPARE(rig->Focus(), u"txtCommand"_s);
        rig->Type("x");
        rig->Sent();
        rig->Button("cmdCCF")->click();
        QVERIFY(rig->Find<frmCCF>("frmCCF"));
        rig->Find<frmCCF>("frmCCF")->close();
        QCOMPARE(rig->Sent(), u"16 / 0"_s);
        rig->Form()->close();
        rig->Play(State(0, 0, "tv", 0, 0));
    }

    void TheListsAreTheLastWholeOnes() {
        rig->Play(Raw::Page(18, 0, 1, 2, 1, Bus("Attic", "V6.04.44", 0, 0, 0)));
        rig->Combo("cmbBus")->setCurrentIndex(1);
        QVERIFY(rig->Combo("cmbCalibrate")->isEnabled()); // as firmware 5.10.00 can
        rig->Type("new");
        rig->Play(Raw::Page(6, 0, 1, 1, 0, Raw::Name("video")));
        QCOMPARE(rig->Combo("txtRemote")->currentText(), u"new"_s);
        QVERIFY(rig->Button("cmdRemote")->isEnabled());
        rig->Play(State(0, 0, {}, 0, 0));
        QVERIFY(rig->Combo("txtRemote")->currentText().isEmpty() && !rig->Button("cmdRemote")->isEnabled());
        rig->Sent();
        // A version that the server tells stands for that of the device until the next choice.
        rig->OpenTv(Raw::Reply(13, Raw::Field({}, 8) + Raw::Field("V6.04.44", 8)) + State(0, 0, "tv", 1, 0));
        QVERIFY(rig->Find<QCheckBox>("chkXL")->isEnabled());
        rig->Combo("cmbBus")->setCurrentIndex(0);
        rig->Combo("cmbBus")->setCurrentIndex(1);
        QVERIFY(!rig->Find<QCheckBox>("chkXL")->isEnabled());
    }

    /// The form's first request fails before the form is on the screen.
    void ABoxStandsBeforeItsForm() {
        rig->Form()->close();
        rig->server.Close();
        QTRY_VERIFY(rig->CurrentBox());
        rig->AnswerBox();
        rig->Action("mnuModus(11)")->trigger();
        QVERIFY(rig->CurrentBox());
        QCOMPARE(QGuiApplication::modalWindow(), rig->CurrentBox()->windowHandle());
        rig->AnswerBox();
        QVERIFY(rig->Form()->isVisible());
        QCOMPARE(QGuiApplication::modalWindow(), rig->Form()->windowHandle());
    }

private:
    std::optional<LearnRig> rig;
};

SUITE(LearnFormTest);

#include "learn_form_test.moc"

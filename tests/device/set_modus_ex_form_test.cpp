#include "device/frmSetModusEx.h"
#include "device/set_modus_ex_oracle.h"
#include "device/set_modus_ex_rules.h"

#include "link/session_recorder.h"

#include <QSignalSpy>
#include <QTabBar>

using namespace Qt::StringLiterals;
using namespace ModusEx;

/// The dialog with the extended settings, in front of a server.
class SetModusExFormTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        QTest::failOnWarning(QRegularExpression(u"^(?!This plugin does not support propagateSizeHints)"_s));
    }

    /// Untouched, the dialog sends what the device reported. Touched, it sends what the state sends to which
    /// the same was done, and its controls show that state.
    void FillAndPack() {
        std::mt19937 random(3);
        for (int round = 0; round < 300; ++round) {
            const DeviceEntry entry = Oracle::RandomEntry(random);
            State state = FillSetModusEx(entry);
            Open(entry);
            if (round % 3 == 0)
                for (int action = 0; action < 12; ++action)
                    Touch(state, quint32(random()));
            Compare(state);
            if (QTest::currentTestFailed())
                return;
            if (!AreReceiversSet(state)) {
                Press("cmdSet");
                QVERIFY(form && boxes.Current());
                boxes.Clear();
                delete form;
                continue;
            }
            const ModeRequest expected =
                round % 3 == 0 ? PackSetModusEx(state, 0x0A03) : Oracle::Expected(entry, 0x0A03);
            QCOMPARE(Sent().toHex(' '), Encode(expected).toHex(' '));
        }
    }

    void ReceiversThatTheListsLack() {
        DeviceEntry entry = Device();
        entry.Receivers = 3;
        Open(entry);
        QSignalSpy sent(form, &frmSetModusEx::SettingsSent);
        Press("cmdSet");
        QVERIFY(boxes.Current());
        QCOMPARE(boxes.Current()->icon(), QMessageBox::Critical);
        QCOMPARE(boxes.Current()->windowTitle(), u"IR Settings"_s);
        QCOMPARE(boxes.Current()->text(), u"IR Receiver not set correctly. Please correct settings."_s);
        QVERIFY(Control<QWidget>("cmbReceiver1")->isVisibleTo(form));
        QTest::mouseClick(boxes.Current()->button(QMessageBox::Ok), Qt::LeftButton);
        QCOMPARE(sent.count(), 0);
        Control<QComboBox>("cmbReceiver1")->setCurrentIndex(4);
        QCOMPARE(quint8(Sent()[224]), quint8(6));
        QCOMPARE(sent.count(), 1);
    }

    void TextsOfBoxes() {
        Open(Device());
        Control<QLineEdit>("txtTimeout")->setText(u"300"_s);
        Control<QLineEdit>("txtToggle")->setText(u"0"_s);
        QCOMPARE(Sent().sliced(225, 4).toHex(' '), QByteArray("fa 00 00 01"));
        DeviceEntry network = Device();
        network.Version = u"E5.20.01"_s;
        Open(network);
        Control<QLineEdit>("txtMAC")->setText(u" 0a:1b.2Cx3d-4e5f"_s);
        QCOMPARE(Sent().sliced(218, 6).toHex(' '), QByteArray("0a 1b 2c 3d 4e 5f"));
    }

    void PagesAndCaptions() {
        link.server.TakeLog();
        Open(Device(), u"Set Device Parameter - Vantrel Address: 10.3"_s);
        QCOMPARE(form->windowTitle(), u"Set Device Parameter - Vantrel Address: 10.3"_s);
        QVERIFY(QTest::qWaitForWindowActive(form));
        const auto* tabs = Control<QTabBar>("tabMode");
        QStringList shown;
        for (int i = 0; i < tabs->count(); ++i) {
            for (const char* page :
                 {"frmGeneral", "frmReceive", "frmCodes", "frmBus", "frmPower", "frmRS232", "frmDisplay"})
                if (Control<QWidget>(page)->isVisible())
                    shown += tabs->tabText(i) + u'=' + QLatin1StringView(page);
            QTest::keyClick(form, Qt::Key_Tab, Qt::ControlModifier);
        }
        QCOMPARE(shown.join(u' '),
                 u"Allgemein=frmGeneral IR Empfang=frmReceive IR Codes=frmCodes IR Bus=frmBus "
                 "Power On=frmPower RS232=frmRS232 Display=frmDisplay"_s);
        QCOMPARE(tabs->currentIndex(), 0);
        QVERIFY(form->width() <= 1366 && form->height() <= 700);
        QSignalSpy sent(form, &frmSetModusEx::SettingsSent);
        Press("cmdEnde");
        QTRY_VERIFY(!form);
        QCOMPARE(sent.count(), 0);
        link.session.SendRemoteCommand(Netcommand::ReadAnalog, {}, {}, 0);
        QTRY_VERIFY(link.server.Log().endsWith(u"60 / 0"));
        QCOMPARE(link.server.Records(), 1);
    }

    void StartupText() {
        DeviceEntry entry = Device();
        Open(entry);
        QVERIFY(!Control<QWidget>("cmdStartup")->isEnabled());
        delete form;
        entry.Version = u"D5.20.01"_s;
        Open(entry);
        Press("cmdStartup");
        const auto* text = form->findChild<Form*>(u"frmStartupText"_s);
        QVERIFY(text && text->isVisible() && text->isModal() && form->isVisible());
        delete form;
    }

private:
    static DeviceEntry Device() {
        DeviceEntry entry;
        entry.Version = u"U5.20.01"_s;
        entry.Receivers = 2;
        return entry;
    }

    void Open(const DeviceEntry& entry, const QString& caption = {}) {
        form = new frmSetModusEx({link.session, language, boxes}, entry, 0x0A03, caption, nullptr);
        form->ShowModal();
    }

    template <class T> T* Control(const QString& name) const { return form->findChild<T*>(name); }
    template <class T> T* Control(const char* name) const { return Control<T>(QString::fromLatin1(name)); }
    void Press(const char* button) { Control<QPushButton>(button)->click(); }

    /// What `cmdSet` makes the server get.
    QByteArray Sent() {
        link.server.TakeLog();
        Press("cmdSet");
        if (!QTest::qWaitFor([this] { return link.server.Records() == 1 && !form; }))
            return "nothing";
        return link.server.Record(0);
    }

    /// A change of a control, and the same of the state.
    void Touch(State& state, quint32 random) {
        const quint32 what = random >> 8;
        if (random % 2 == 0) {
            const auto box = ModusEx::Box(what % quint32(ModusEx::Box::Count));
            state.SetOn(box, !state.IsOn(box));
            Control<QCheckBox>(SetModusExControls::NameOf(box))->toggle();
        } else {
            const auto list = List(what % quint32(List::Count));
            if (state.Codes(list).empty())
                return;
            const int index = int(random >> 16 & 255) % int(state.Codes(list).size());
            state.Select(list, index);
            Control<QComboBox>(SetModusExControls::NameOf(list))->setCurrentIndex(index);
        }
    }

    void Compare(const State& state) {
        for (int i = 0; i < int(ModusEx::Box::Count); ++i) {
            const QString name = SetModusExControls::NameOf(ModusEx::Box(i));
            const auto* box = Control<QCheckBox>(name);
            QVERIFY2(box->isChecked() == state.IsOn(ModusEx::Box(i)), qPrintable(name));
            QVERIFY2(box->isEnabled() == state.IsEnabled(ModusEx::Box(i)), qPrintable(name));
        }
        for (int i = 0; i < int(List::Count); ++i) {
            const QString name = SetModusExControls::NameOf(List(i));
            const auto* list = Control<QComboBox>(name);
            QVERIFY2(list->count() == int(state.Codes(List(i)).size()), qPrintable(name));
            QVERIFY2(list->currentIndex() == state.Index(List(i)), qPrintable(name));
            QVERIFY2(list->isEnabled() == state.IsEnabled(List(i)), qPrintable(name));
        }
        QCOMPARE(Control<QCheckBox>("chkMask(0)")->isEnabled(), state.IsMaskEnabled());
        QCOMPARE(Control<QLabel>("lblSendmask2")->isEnabled(), state.IsMaskEnabled());
    }

    LinkedSession link;
    Language language;
    Boxes boxes{language};
    QPointer<frmSetModusEx> form;
};

SUITE(SetModusExFormTest);

#include "set_modus_ex_form_test.moc"

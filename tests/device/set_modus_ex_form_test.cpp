#include "device/device_names.h"
#include "device/frmSetModusEx.h"
#include "device/set_modus_ex_rules.h"

#include "device/device_rig.h"
#include "practice/world.h"

#include <QSignalSpy>
#include <QTabBar>

#include <random>

using namespace Qt::StringLiterals;
using namespace ModusEx;

/// The dialog with the extended settings, in front of a server.
class SetModusExFormTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    /// Touched or not, the dialog sends what the state sends to which the same was done, and its controls
    /// show that state.
    void FillAndPack() {
        std::mt19937 random(3);
        for (int round = 0; round < 300; ++round) {
            const DeviceEntry entry = RandomEntry(random);
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
                QVERIFY(form && rig.boxes.Current());
                rig.boxes.Clear();
                delete form;
                continue;
            }
            QCOMPARE(Sent().toHex(' '), Encode(PackSetModusEx(state, 0x0A03)).toHex(' '));
        }
    }

    /// Whoever tries the dialog on the practice server isn't sent away with what it reported.
    void ThePracticeDevicesCanBeSet() {
        int devices = 0;
        for (const World::Bus& bus : World::LivingRoom().buses)
            for (const auto& [address, entry] : bus.devices)
                if (IsFrom(entry, ExtendedSettingsFrom)) {
                    QVERIFY2(AreReceiversSet(FillSetModusEx(entry)), qPrintable(entry.Version));
                    ++devices;
                }
        QVERIFY(devices > 3);
    }

    void ReceiversThatTheListsLack() {
        DeviceEntry entry = Device();
        entry.Receivers = 3;
        Open(entry);
        QSignalSpy sent(form, &frmSetModusEx::SettingsSent);
        Press("cmdSet");
        QVERIFY(rig.boxes.Current());
        QCOMPARE(rig.boxes.Current()->icon(), QMessageBox::Critical);
        QCOMPARE(rig.boxes.Current()->windowTitle(), u"IR Settings"_s);
        QCOMPARE(rig.boxes.Current()->text(), u"IR Receiver not set correctly. Please correct settings."_s);
        QVERIFY(Control<QWidget>("cmbReceiver1")->isVisibleTo(form));
        QTest::mouseClick(rig.boxes.Current()->button(QMessageBox::Ok), Qt::LeftButton);
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
        Open(Device());
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
        QVERIFY(!Control<QWidget>("cmdStartup")->isEnabled());
        rig.server.TakeLog();
        Press("cmdEnde");
        QTRY_VERIFY(!form);
        QCOMPARE(SentTo(rig.server, rig.session), QString());
    }

private:
    static DeviceEntry Device() {
        DeviceEntry entry;
        entry.Version = u"U5.20.01"_s;
        entry.Receivers = 2;
        return entry;
    }

    /// Random bits, of capabilities as well. Mostly receivers that it can have.
    static DeviceEntry RandomEntry(std::mt19937& random) {
        QByteArray bytes(DeviceEntry::Size, '\0');
        for (char& byte : bytes)
            byte = char(random());
        auto entry = Decode<DeviceEntry>(bytes);
        const auto receiver = [&random] { return std::array{2, 2, 4, 6, 10, 0}[random() % 6]; };
        entry.Receivers = quint8(receiver() | receiver() << 4);
        entry.Version = u"USDEGFW"_s[int(random() % 7)] + u"6.04.43"_s;
        SetPower(entry, random() % 2 == 0 ? LanMark : u"hifi"_s);
        return entry;
    }

    void Open(const DeviceEntry& entry) {
        form = new frmSetModusEx(rig.services, entry, 0x0A03, {}, nullptr);
        form->ShowModal();
    }

    template <class T> T* Control(const QString& name) const { return form->findChild<T*>(name); }
    template <class T> T* Control(const char* name) const { return ChildOf<T>(*form, name); }
    void Press(const char* button) { Control<QPushButton>(button)->click(); }

    /// What `cmdSet` makes the server get.
    QByteArray Sent() {
        rig.server.TakeLog();
        Press("cmdSet");
        const QByteArray record = rig.TakeRecord();
        return QTest::qWaitFor([this] { return form.isNull(); }) ? record : "the form is still there";
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
            const auto box = ModusEx::Box(i);
            const auto* control = Control<QCheckBox>(SetModusExControls::NameOf(box));
            QVERIFY2(control->isChecked() == state.IsOn(box) && control->isEnabled() == state.IsEnabled(box),
                     qPrintable(control->objectName()));
        }
        for (int i = 0; i < int(List::Count); ++i) {
            const auto list = List(i);
            const auto* control = Control<QComboBox>(SetModusExControls::NameOf(list));
            QVERIFY2(control->count() == int(state.Codes(list).size()) &&
                         control->currentIndex() == state.Index(list) &&
                         control->isEnabled() == state.IsEnabled(list),
                     qPrintable(control->objectName()));
        }
        QCOMPARE(Control<QCheckBox>("chkMask(0)")->isEnabled(), state.IsMaskEnabled());
        QCOMPARE(Control<QLabel>("lblSendmask2")->isEnabled(), state.IsMaskEnabled());
    }

    DeviceRig rig;
    QPointer<frmSetModusEx> form;
};

SUITE(SetModusExFormTest);

#include "set_modus_ex_form_test.moc"

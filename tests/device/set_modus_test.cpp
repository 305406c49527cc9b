#include "device/frmSetModus.h"
#include "device/hf_receiver_rules.h"
#include "device/set_modus_cases.h"

#include "device/device_rig.h"

#include <QPushButton>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

/// The three boxes of the HF receiver: "h", "c" and "p" for those that are on, in brackets what is greyed.
QString HfWords(const SetModusState& state) {
    const auto word = [](const CheckState& box, QChar letter) {
        const QString text = box.isOn ? QString(letter) : u"-"_s;
        return box.isEnabled ? text : u'(' + text + u')';
    };
    return word(state.chkExt[3], u'h') + word(state.chkExt[4], u'c') + word(state.chkPlasma, u'p');
}

} // namespace

/// The basic settings of a device.
class SetModusTest : public QObject {
    Q_OBJECT

private slots:
    void FillThenPackGivesBackWhatTheDialogHolds() {
        std::map<QString, int> used;
        int count = 0;
        ForEachModusCase(2, [&](const ModusCase& device) {
            const ModeRequest got = PackSetModus(FillSetModus(device.entry, device.origin), 0);
            if (Encode(got) != Encode(UnchangedRequest(device, used)))
                QFAIL(qPrintable(device.Words()));
            ++count;
        });
        QVERIFY2(count >= 50'000, qPrintable(QString::number(count)));
        for (const auto& [reason, times] : used)
            QVERIFY2(times > 0, qPrintable(reason));
        QCOMPARE(int(used.size()), ModusExceptions());
    }

    void TheDialogGivesBackWhatItHolds() {
        DeviceRig rig;
        std::map<QString, int> used;
        int number = 0;
        int count = 0;
        ForEachModusCase(1, [&](const ModusCase& device) {
            // A prime, so that all kinds, versions and capabilities have their turn.
            if (number++ % 127 != 0 || QTest::currentTestFailed())
                return;
            auto* form = new frmSetModus(rig.services, device.entry, device.origin, 0, {}, nullptr);
            form->ShowModal();
            ChildOf<QPushButton>(*form, "cmdSet")->click();
            if (rig.TakeRecord() != Encode(UnchangedRequest(device, used)))
                QFAIL(qPrintable(device.Words()));
            ++count;
        });
        QVERIFY2(count >= 250, qPrintable(QString::number(count)));
    }

    void ChangesByHandGoOut() {
        DeviceRig rig;
        DeviceEntry entry = MakeEntry("D4.04.24", 0x12);
        entry.SendMask = 0x0191;
        QPointer<frmSetModus> form =
            new frmSetModus(rig.services, entry, DeviceOrigin::Tree, 0x0A03, {}, nullptr);
        QSignalSpy sent(form, &frmSetModus::SettingsSent);
        form->ShowModal();
        ChildOf<ComboBox>(*form, "cmbDate")->setCurrentIndex(5);
        ChildOf<ComboBox>(*form, "cmbInaktiv")->setCurrentIndex(2);
        ChildOf<QPushButton>(*form, "cmdSet")->click();
        const auto request = Decode<ModeRequest>(rig.TakeRecord());
        QCOMPARE(request.DeviceTag, 0x0A03);
        QCOMPARE(request.SendMask, 0x01D6); // date 6, 12 hours, 2 while inactive, 3 while active
        QCOMPARE(sent.size(), 1);
        QTRY_VERIFY(!form);
    }

    void ATypedMacAddress() {
        const DeviceEntry entry = MakeEntry("G5.03.50", 0x200000);
        SetModusState state = FillSetModus(entry, DeviceOrigin::Single);
        QVERIFY(state.txtHotremote2.text.isEmpty() && state.lblWakeOnLANMac.isVisible);
        QVERIFY(!state.txtHotcommand2.isVisible);
        state.txtHotremote2.text = u"00-1a:2B.3C4d-fF"_s;
        const ModeRequest request = PackSetModus(state, 0);
        QCOMPARE(request.HotRemote2, u"_"_s);
        QCOMPARE(request.mac, (std::array<quint8, 6>{0x00, 0x1A, 0x2B, 0x3C, 0x4D, 0xFF}));
    }

    void HfReceiver() {
        // Version, capabilities and ExtMode as they come; the boxes; then the boxes after each click, and
        // what is sent. Small letters click a box.
        struct Row {
            const char* version;
            quint32 capabilities;
            int extMode;
            QString clicksAndWords;
            int sent;
        };
        const Row rows[] = {
            // Two receivers: no bit at all is plasma, codes alone is off.
            {"U5.08.12", 0x800, 0x00, u"h(c)(p)"_s, 0x00},
            {"U5.08.12", 0x800, 0x00, u"h(c)(p) h -(c)(-)"_s, 0x10},
            {"U5.08.12", 0x800, 0x10, u"-(c)(-) h hc(-)"_s, 0x18},
            {"U5.08.12", 0x800, 0x08, u"h--"_s, 0x08},
            {"U5.08.12", 0x800, 0x08, u"h-- p h(c)p"_s, 0x00},
            {"U5.08.12", 0x800, 0x18, u"hc- p h(c)p p hc-"_s, 0x18},
            {"U5.08.12", 0x800, 0x08, u"h-- p h(c)p h -(c)(-) h hc-"_s, 0x18},
            // One receiver.
            {"U5.08.12", 0x2, 0x00, u"-(-)(-) h h-(-)"_s, 0x08},
            {"U5.08.12", 0x2, 0x04, u"h(c)p"_s, 0x14},
            {"U5.08.12", 0x2, 0x04, u"h(c)p p hc-"_s, 0x18},
            {"U5.08.12", 0x2, 0x18, u"hc- h -(c)(-)"_s, 0x00},
            {"U5.08.12", 0x2, 0x08, u"h-- p h(c)p"_s, 0x14},
            // Firmware that knows no plasma.
            {"U5.08.11", 0x800, 0x00, u"--(-) h h-(-) c hc(-)"_s, 0x18},
            {"U5.08.11", 0x800, 0x18, u"hc(-) h -(c)(-)"_s, 0x00},
            {"U5.08.11", 0x20, 0x18, u"(-)c(-)"_s, 0x10},
        };
        for (const Row& row : rows) {
            DeviceEntry entry = MakeEntry(row.version, row.capabilities);
            entry.ExtMode = quint8(row.extMode);
            SetModusState state = FillSetModus(entry, DeviceOrigin::Tree);
            QStringList words = {HfWords(state)};
            for (const QString& click : row.clicksAndWords.split(u' ').mid(1)) {
                if (click.size() > 1)
                    continue;
                if (click == u"p")
                    SetPlasma(state, !state.chkPlasma.isOn);
                else
                    SetExt(state, click == u"h" ? 3 : 4, !state.chkExt[click == u"h" ? 3 : 4].isOn);
                words += click;
                words += HfWords(state);
            }
            QCOMPARE(words.join(u' '), row.clicksAndWords);
            QCOMPARE(PackSetModus(state, 0).ExtMode & 0x1C, row.sent);
        }
    }

    void RulesRunForChangesByCodeAndByHand() {
        DeviceRig rig;
        DeviceEntry entry = MakeEntry("U5.10.00", 0x800);
        entry.ExtMode = 0x08;
        frmSetModus form(rig.services, entry, DeviceOrigin::Tree, 0, {}, nullptr);
        form.ShowModal();
        auto* hf = ChildOf<QCheckBox>(form, "chkExt(3)");
        auto* codes = ChildOf<QCheckBox>(form, "chkExt(4)");
        auto* plasma = ChildOf<QCheckBox>(form, "chkPlasma");
        plasma->setChecked(true);
        QVERIFY(codes->isChecked() && !codes->isEnabled());
        QTest::keyClick(hf, Qt::Key_Space);
        QVERIFY(!hf->isChecked() && !plasma->isChecked() && !plasma->isEnabled() && !codes->isEnabled());
        QTest::keyClick(hf, Qt::Key_Space);
        QVERIFY(plasma->isEnabled() && codes->isEnabled());
    }

    void Defaults() {
        DeviceRig rig;
        DeviceEntry entry = MakeEntry("U5.05.00", 0x5002);
        entry.ExtMode2 = 0x01;
        auto* form = new frmSetModus(rig.services, entry, DeviceOrigin::Tree, 0, {}, nullptr);
        QCOMPARE(ChildOf<QCheckBox>(*form, "chkMode(3)")->text(), u"Fernsteuerung IR"_s);
        ChildOf<QPushButton>(*form, "cmdReset")->click();
        ChildOf<QPushButton>(*form, "cmdSet")->click();
        const auto request = Decode<ModeRequest>(rig.TakeRecord());
        QCOMPARE(request.SendMask, 0xFFFF);
        QCOMPARE(request.Mode, 0x97);     // bit 3 isn't a toggle bit on this firmware
        QCOMPARE(request.ExtMode, 0x83);  // the standard receiver isn't there
        QCOMPARE(request.ExtMode2, 0x1C); // 38400, 90 ms

        const auto reset = [](const char* version, quint32 mask, DeviceOrigin origin) {
            DeviceEntry device = MakeEntry(version, 0x2);
            device.SendMask = mask;
            SetModusState state = FillSetModus(device, origin);
            ResetSetModus(state);
            return PackSetModus(state, 0);
        };
        QCOMPARE(reset("F5.05.01", 0x60A, DeviceOrigin::Single).SendMask, 0x180);
        QCOMPARE(reset("F5.05.01", 0, DeviceOrigin::Single).Mode, 0x9F);
        QCOMPARE(reset("L2.01.00", 0, DeviceOrigin::Tree).SendMask, 0x100); // three levels
    }

    void WhatIsGreyedAndWhatIsGone() {
        DeviceRig rig;
        const auto visible = [](const QWidget& form, const char* name) {
            return ChildOf<QWidget>(form, name)->isVisibleTo(&form);
        };
        const auto entries = [](const QWidget& form, const char* name) {
            QStringList texts;
            const auto* list = ChildOf<ComboBox>(form, name);
            for (int i = 0; i < list->count(); ++i)
                texts += list->itemText(i);
            return texts.join(u' ');
        };
        frmSetModus brand(rig.services, MakeEntry("Y5.04.00", 0x10), DeviceOrigin::Single, 0, {}, nullptr);
        for (const char* name : {"frmDisplay", "cmbSBUS", "lblSBUS", "lblHot1", "txtHotcommand",
                                 "txtHotremote", "lblHot2", "txtHotcommand2", "txtHotremote2", "chkMode(5)",
                                 "chkMode(6)", "Label1", "Label2", "chkMask(0)", "chkMask(15)", "lblCaption"})
            QVERIFY2(!visible(brand, name), name);
        QVERIFY(visible(brand, "cmbRepeat") && visible(brand, "chkMode(7)"));

        frmSetModus lcd(rig.services, MakeEntry("L2.01.00"), DeviceOrigin::Tree, 0, {}, nullptr);
        QVERIFY(lcd.height() > 0 && lcd.sizeHint().height() > brand.sizeHint().height());
        QVERIFY(lcd.sizeHint().height() < 700 && lcd.sizeHint().width() < 1300);
        for (const char* name : {"Label1", "Label2", "chkMask(7)", "chkMode(0)", "chkExt(5)", "lblHot1",
                                 "txtHotremote", "txtHotremote2", "cmdStartup", "cmbSBUS"})
            QVERIFY2(visible(lcd, name) && !ChildOf<QWidget>(lcd, name)->isEnabled(), name);
        QCOMPARE(entries(lcd, "cmbAktiv"), u"Off SW On"_s);
        QCOMPARE(entries(lcd, "cmbInaktiv"), u"Off On"_s);

        frmSetModus old(rig.services, MakeEntry("D4.04.01"), DeviceOrigin::Single, 0, {}, nullptr);
        QCOMPARE(entries(old, "cmbTimeout"), u"5 15 30 60 90 120 150"_s);
        QCOMPARE(entries(old, "cmbAktiv"), u"0 1 2 3"_s);
        QVERIFY(ChildOf<QWidget>(old, "cmdStartup")->isEnabled());
        frmSetModus clock(rig.services, MakeEntry("F5.00.00"), DeviceOrigin::Single, 0, u"x"_s, nullptr);
        QCOMPARE(entries(clock, "cmbAktiv"), u"0 1 2 3 OFF"_s);
        QCOMPARE(ChildOf<QGroupBox>(clock, "fraSet")->title(), u"x"_s);
    }
};

SUITE(SetModusTest);

#include "set_modus_test.moc"

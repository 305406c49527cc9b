#include "device/frmSetModus.h"
#include "device/hf_receiver_rules.h"
#include "device/set_modus_rules.h"

#include "device/device_rig.h"

#include <QPushButton>
#include <QSignalSpy>

#include <random>

using namespace Qt::StringLiterals;
using enum DeviceOrigin;

namespace {

/// What a device reports of its settings, or is sent.
struct Settings {
    quint32 SendMask;
    quint8 Mode;
    quint8 ExtMode;
    quint8 ExtMode2;
    bool operator==(const Settings&) const = default;
};

struct Row {
    const char* version;
    DeviceOrigin origin;
    quint32 capabilities;
    Settings reported;
    Settings sent; ///< if nothing is changed
};

constexpr Settings All = {~0U, 0xFF, 0xFF, 0xFF};

/// Each firmware that a rule asks for with the one before it, and each capability with a device that lacks
/// it.
const Row rows[] = {
    {"U", Tree, 0, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"U3.02.09", Tree, 0, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"U3.02.10", Tree, 0, All, {0xFFFF, 0xFF, 0x20, 0x04}},
    {"D3.02.10", Tree, 0, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"U10.00.00", Tree, 0, All, {0xFFFF, 0xFF, 0x00, 0x04}}, // versions compare as texts
    // The time-out: 90 ms, without 250 ms, with it.
    {"U4.04.00", Tree, 0, {0, 0, 0, 0xFB}, {0, 0, 0, 0x04}},
    {"U4.04.01", Tree, 0, All, {0xFFFF, 0xFF, 0x20, 0x00}},
    {"U4.04.01", Tree, 0, {0, 0, 0, 0xFE}, {0, 0, 0, 0x06}},
    {"U4.04.34", Tree, 0, All, {0xFFFF, 0xFF, 0x20, 0x00}},
    {"U4.04.35", Tree, 0, All, {0xFFFF, 0xFF, 0x20, 0x07}},
    // Mask or display, which may be off.
    {"U", Single, 0, All, {0, 0xFF, 0x00, 0x04}},
    {"U", Single, 0x2, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"D4.04.23", Tree, 0, All, {0xFFFF, 0xFF, 0x00, 0x00}},
    {"D4.04.24", Tree, 0x2, All, {0x01F0, 0xFF, 0x00, 0x00}},
    {"F5.00.00", Tree, 0, All, {0xFFFF, 0xFF, 0x20, 0x07}},
    {"D", Single, 0x2, All, {0x01F0, 0xFF, 0x00, 0x04}},
    {"F", Single, 0, {0x1FA, 0, 0, 0}, {0x01FA, 0, 0, 0x04}},
    {"F", Single, 0, {0x3FA, 0, 0, 0}, {0x039A, 0, 0, 0x04}},
    {"F", Single, 0, {0x5FA, 0, 0, 0}, {0x047A, 0, 0, 0x04}},
    // LEDs and receivers.
    {"X", Tree, 0, All, {0xFFFF, 0xFF, 0x43, 0x04}},
    {"U", Tree, 0x4000, All, {0xFFFF, 0xFF, 0x43, 0x04}},
    {"U", Tree, 0x800, All, {0xFFFF, 0xFF, 0x1C, 0x04}},
    {"U", Tree, 0x20, All, {0xFFFF, 0xFF, 0x10, 0x04}},
    {"U5.08.11", Tree, 0, All, {0xFFFF, 0xFF, 0x20, 0x07}},
    {"U5.08.11", Tree, 0x820, All, {0xFFFF, 0xFF, 0x3C, 0x07}},
    {"U5.08.12", Tree, 0x820, All, {0xFFFF, 0xFF, 0x3C, 0x07}},
    {"U5.08.12", Tree, 0x20, All, {0xFFFF, 0xFF, 0x34, 0x07}},
    {"U5.08.12", Tree, 0x2, {0, 0, 0x10, 0}, {0, 0, 0, 0}},
    {"U5.08.12", Tree, 0, {0, 0, 0x04, 0}, {0, 0, 0x08, 0}},
    // The speed of the serial bus.
    {"U", Tree, 0x1000, All, {0xFFFF, 0xFF, 0x80, 0x1C}},
    {"U", Tree, 0x1000, {0, 0, 0x80, 0x00}, {0, 0, 0x80, 0x04}},
    {"U", Tree, 0x1000, {0, 0, 0x7F, 0xFF}, {0, 0, 0, 0x04}},
    {"B", Tree, 0x1000, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"C", Tree, 0x1000, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    // LCD modules: off or on while inactive, three levels while active.
    {"L2.00.99", Tree, 0, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"L2.01.00", Tree, 0x4802, All, {0x0130, 0x00, 0x00, 0x00}},
    {"L2.01.00", Tree, 0, {0x8A, 0, 0, 0}, {0x008A, 0, 0, 0}},
    {"L3.01.00", Tree, 0, All, {0x0130, 0x00, 0x00, 0x00}},
    {"L3.01.01", Tree, 0, All, {0x0130, 0x00, 0x80, 0x18}},
    {"L3.01.01", Tree, 0, {0, 0, 0x7F, 0xFF}, {0, 0, 0, 0}},
    {"L3.01.01", Single, 0, All, {0, 0xFF, 0x00, 0x04}},
    // RS232.
    {"S5.02.29", Tree, 0x100000, All, {0xFFFF, 0xFF, 0x20, 0x07}},
    {"S5.02.30", Tree, 0x100000, All, {0xFFFF, 0xFF, 0x20, 0x67}},
    {"T5.02.30", Tree, 0x100000, {0, 0, 0, 0x20}, {0, 0, 0, 0x20}},
    {"U5.02.30", Tree, 0x100000, All, {0xFFFF, 0xFF, 0x20, 0x07}},
    {"S5.02.30", Tree, 0, All, {0xFFFF, 0xFF, 0x20, 0x07}},
    {"U", Tree, 0x4, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"U", Tree, 0x1000000, All, {0xFFFF, 0xFF, 0x00, 0x04}},
    {"U", Tree, 0x1000004, All, {0xFFFF, 0xFF, 0x00, 0xE4}},
    {"U", Tree, 0x1000004, {0, 0, 0, 0}, {0, 0, 0, 0x04}},
    // The private-label model, whose hidden RAW box follows the list of repeat times, if it has one.
    {"Y4.05.01", Tree, 0, {0, 0x40, 0, 0}, {0, 0x40, 0, 0}},
    {"Y4.05.00", Single, 0, {0, 0x00, 0, 0}, {0, 0x20, 0, 0}},
    {"Y4.05.01", Single, 0, {0, 0x20, 0, 0}, {0, 0x00, 0, 0}},
    {"Y4.05.01", Single, 0, {0, 0x40, 0, 0}, {0, 0x60, 0, 0}},
};

DeviceEntry Reporting(const char* version, quint32 capabilities, const Settings& settings) {
    DeviceEntry entry = MakeEntry(version, capabilities);
    entry.SendMask = settings.SendMask;
    entry.Mode = settings.Mode;
    entry.ExtMode = settings.ExtMode;
    entry.ExtMode2 = settings.ExtMode2;
    return entry;
}

ModeRequest Unchanged(const DeviceEntry& entry, DeviceOrigin origin) {
    return PackSetModus(FillSetModus(entry, origin), 0);
}

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
    void WhatIsReportedIsSent() {
        for (const Row& row : rows) {
            const ModeRequest r =
                Unchanged(Reporting(row.version, row.capabilities, row.reported), row.origin);
            if (Settings{quint32(r.SendMask), r.Mode, r.ExtMode, r.ExtMode2} != row.sent)
                QFAIL(qPrintable(u"%1, row %2: %3"_s.arg(QLatin1StringView(row.version))
                                     .arg(&row - rows)
                                     .arg(QString::fromLatin1(Encode(r).toHex(' ')))));
        }
        for (quint32 date = 0; date < 16; ++date) {
            const bool isListed = date <= 10 && date != 3 && date != 7;
            const DeviceEntry entry = Reporting("D", 0, {date, 0, 0, 0});
            QCOMPARE(Unchanged(entry, Single).SendMask, isListed ? qint32(date) : 0);
        }
    }

    void PowerCommands() {
        const std::tuple<DeviceOrigin, const char*, quint32, QString, QString> devices[] = {
            {Tree, "L2.01.00", 0x200000, u"hifi"_s, u"||_||000000000000"_s},
            {Tree, "U", 0, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {Tree, "U", 0x200000, u"hifi"_s, u"tv|on|||000000000000"_s},
            {Tree, "E5.03.50", 0x200000, LanMark, u"tv|on|||000000000000"_s},
            {Single, "U", 0, u"hifi"_s, u"tv|on|_||000000000000"_s},
            {Single, "U", 0x200000, u"hifi"_s, u"tv|on|hifi|off|000000000000"_s},
            {Single, "Y", 0x200000, u"hifi"_s, u"tv|on|_||000000000000"_s},
            // Before 5.03.50 a network device shows its MAC address in place of the power-off command.
            {Single, "E5.03.49", 0x200000, u"hifi"_s, u"tv|on|||000000000000"_s},
            {Single, "E5.03.49", 0x200000, LanMark, u"tv|on|6F-66-66-00-9A-FF||000000000000"_s},
            {Single, "E5.03.50", 0, LanMark, u"tv|on|_||6f6666009aff"_s},
            {Single, "G5.03.50", 0x200000, LanMark + u" x"_s, u"tv|on|_||6f6666009aff"_s},
        };
        for (const auto& [origin, version, capabilities, powerOff, sent] : devices) {
            DeviceEntry entry = MakeEntry(version, capabilities);
            SetPower(entry, powerOff);
            QCOMPARE(PowerOf(Unchanged(entry, origin)), sent);
        }
    }

    void TheDialogSendsWhatTheRulesSay() {
        DeviceRig rig;
        std::mt19937 random(1);
        for (int round = 0; round < 4; ++round)
            for (const Row& row : rows) {
                const Settings some = {quint32(random()), quint8(random()), quint8(random()),
                                       quint8(random())};
                const DeviceEntry entry = Reporting(row.version, row.capabilities, some);
                auto* form = new frmSetModus(rig.services, entry, row.origin, 0, {}, nullptr);
                form->ShowModal();
                ChildOf<QPushButton>(*form, "cmdSet")->click();
                QCOMPARE(rig.TakeRecord().toHex(' '), Encode(Unchanged(entry, row.origin)).toHex(' '));
            }
    }

    void ChangesByHandGoOut() {
        DeviceRig rig;
        DeviceEntry entry = MakeEntry("D4.04.24", 0x12);
        entry.SendMask = 0x0191;
        QPointer<frmSetModus> form = new frmSetModus(rig.services, entry, Tree, 0x0A03, {}, nullptr);
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
        SetModusState state = FillSetModus(entry, Single);
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
        const std::tuple<const char*, quint32, int, QString, int> receivers[] = {
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
        for (const auto& [version, capabilities, extMode, clicksAndWords, sent] : receivers) {
            const DeviceEntry entry = Reporting(version, capabilities, {0, 0, quint8(extMode), 0});
            SetModusState state = FillSetModus(entry, Tree);
            QStringList words = {HfWords(state)};
            for (const QString& click : clicksAndWords.split(u' ').mid(1)) {
                if (click.size() > 1)
                    continue;
                if (click == u"p")
                    SetPlasma(state, !state.chkPlasma.isOn);
                else
                    SetExt(state, click == u"h" ? 3 : 4, !state.chkExt[click == u"h" ? 3 : 4].isOn);
                words += click;
                words += HfWords(state);
            }
            QCOMPARE(words.join(u' '), clicksAndWords);
            QCOMPARE(PackSetModus(state, 0).ExtMode & 0x1C, sent);
        }
    }

    void RulesRunForChangesByCodeAndByHand() {
        DeviceRig rig;
        DeviceEntry entry = MakeEntry("U5.10.00", 0x800);
        entry.ExtMode = 0x08;
        frmSetModus form(rig.services, entry, Tree, 0, {}, nullptr);
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
        auto* form = new frmSetModus(rig.services, entry, Tree, 0, {}, nullptr);
        QCOMPARE(ChildOf<QCheckBox>(*form, "chkMode(3)")->text(), u"Fernsteuerung IR"_s);
        ChildOf<QPushButton>(*form, "cmdReset")->click();
        ChildOf<QPushButton>(*form, "cmdSet")->click();
        const auto request = Decode<ModeRequest>(rig.TakeRecord());
        QCOMPARE(request.SendMask, 0xFFFF);
        QCOMPARE(request.Mode, 0x97);     // bit 3 isn't a toggle bit on this firmware
        QCOMPARE(request.ExtMode, 0x83);  // the standard receiver isn't there
        QCOMPARE(request.ExtMode2, 0x1C); // 38400, 90 ms

        const auto reset = [](const char* version, quint32 mask, DeviceOrigin origin) {
            SetModusState state = FillSetModus(Reporting(version, 0x2, {mask, 0, 0, 0}), origin);
            ResetSetModus(state);
            return PackSetModus(state, 0);
        };
        QCOMPARE(reset("F5.05.01", 0x60A, Single).SendMask, 0x180);
        QCOMPARE(reset("F5.05.01", 0, Single).Mode, 0x9F);
        QCOMPARE(reset("L2.01.00", 0, Tree).SendMask, 0x100); // three levels
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
        frmSetModus brand(rig.services, MakeEntry("Y5.04.00", 0x10), Single, 0, {}, nullptr);
        for (const char* name : {"frmDisplay", "cmbSBUS", "lblSBUS", "lblHot1", "txtHotcommand",
                                 "txtHotremote", "lblHot2", "txtHotcommand2", "txtHotremote2", "chkMode(5)",
                                 "chkMode(6)", "Label1", "Label2", "chkMask(0)", "chkMask(15)", "lblCaption"})
            QVERIFY2(!visible(brand, name), name);
        QVERIFY(visible(brand, "cmbRepeat") && visible(brand, "chkMode(7)"));

        frmSetModus lcd(rig.services, MakeEntry("L2.01.00"), Tree, 0, {}, nullptr);
        QVERIFY(lcd.height() > 0 && lcd.sizeHint().height() > brand.sizeHint().height());
        QVERIFY(lcd.sizeHint().height() < 700 && lcd.sizeHint().width() < 1300);
        for (const char* name : {"Label1", "Label2", "chkMask(7)", "chkMode(0)", "chkExt(5)", "lblHot1",
                                 "txtHotremote", "txtHotremote2", "cmdStartup", "cmbSBUS"})
            QVERIFY2(visible(lcd, name) && !ChildOf<QWidget>(lcd, name)->isEnabled(), name);
        QCOMPARE(entries(lcd, "cmbAktiv"), u"Off SW On"_s);
        QCOMPARE(entries(lcd, "cmbInaktiv"), u"Off On"_s);

        frmSetModus old(rig.services, MakeEntry("D4.04.01"), Single, 0, {}, nullptr);
        QCOMPARE(entries(old, "cmbTimeout"), u"5 15 30 60 90 120 150"_s);
        QCOMPARE(entries(old, "cmbAktiv"), u"0 1 2 3"_s);
        QVERIFY(ChildOf<QWidget>(old, "cmdStartup")->isEnabled());
        frmSetModus clock(rig.services, MakeEntry("F5.00.00"), Single, 0, u"x"_s, nullptr);
        QCOMPARE(entries(clock, "cmbAktiv"), u"0 1 2 3 OFF"_s);
        QCOMPARE(ChildOf<QGroupBox>(clock, "fraSet")->title(), u"x"_s);
    }
};

SUITE(SetModusTest);

#include "set_modus_test.moc"

#include "app/menu_forms.h"
#include "device/frmSetModus.h"
#include "device/frmStartupText.h"

#include "device/device_rig.h"

#include <QGroupBox>
#include <QPushButton>

using namespace Qt::StringLiterals;

namespace {

DeviceBus::Device Device(int address, const char* version, quint32 capabilities = 0, quint8 mode = 0,
                         quint32 sendMask = 0) {
    DeviceEntry entry = MakeEntry(version, capabilities);
    entry.Mode = mode;
    entry.SendMask = sendMask;
    return {address, entry};
}

/// A page of status with these devices on bus 0.
QByteArray StatusPage(const std::vector<DeviceBus::Device>& devices) {
    QByteArray page(StatusHead::PageSize, '\0');
    page.replace(0, StatusHead::Size, Encode(StatusHead{0, 1, {}}));
    for (const auto& [address, entry] : devices)
        page.replace(StatusHead::EntryOffset(0, address), DeviceEntry::Size, Encode(entry));
    return page;
}

/// All nodes in the order of adding: key, key of the parent, text.
QStringList NodesOf(const KeyedTree& tree) {
    QStringList nodes;
    for (int i = 0; i < tree.Count(); ++i) {
        const KeyedNode& node = tree.At(i);
        const QString parent = node.Parent() != nullptr ? node.Parent()->Key() : QString();
        nodes += u"%1<%2: %3"_s.arg(node.Key(), parent, node.Text());
    }
    return nodes;
}

template <class F> F* FindForm(const QWidget& parent) {
    return parent.findChild<F*>(QString(), Qt::FindDirectChildrenOnly);
}

} // namespace

/// The tree of all devices, and how their settings open.
class DeviceTreeTest : public QObject {
    Q_OBJECT

private slots:
    void Nodes() {
        KeyedTree tree;
        const std::vector<DeviceBus> buses = {
            {0, 3, {Device(3, "T5.10.02", 0, 0x81, 0x12345A01), Device(15, "L2.01.00", 0, 0xFF)}},
            {10, 0, {Device(3, "E5.19.07", 0x800, 0x7E)}},
        };
        FillDeviceTree(tree, buses, Language());
        const QStringList expected = {
            u"ROOT<: IR Devices"_s,
            u"B0<ROOT: Bus: 0"_s,
            u"D0.3<B0: ** SERIAL Transceiver Addresse: 3"_s,
            u"M0.3<D0.3: Devicemode"_s,
            u"F0.3<M0.3: IR Senden"_s,
            u"N0.3<M0.3: Repeat Modus"_s,
            u"S0.3<D0.3: Sendmask: 0101101000000001"_s,
            u"V0.3<D0.3: Firmware Version: S5.10.02 (B&O)"_s,
            u"D0.15<B0: LCD Module Addresse: 15"_s,
            u"V0.15<D0.15: Firmware Version: L2.01.00"_s,
            u"B10<ROOT: Bus: 10"_s,
            u"D10.3<B10: LAN Controller Addresse: 3"_s,
            u"M10.3<D10.3: Devicemode"_s,
            u"G10.3<M10.3: IR Empfangen"_s,
            u"H10.3<M10.3: SBUS Empfangen"_s,
            u"I10.3<M10.3: Fernsteuerung IR"_s,
            u"J10.3<M10.3: Fernsteuerung SBUS"_s,
            u"K10.3<M10.3: RAW Mode"_s,
            u"L10.3<M10.3: Fast Control"_s,
            u"S10.3<D10.3: Sendmask: 0000000000000000"_s,
            u"V10.3<D10.3: Firmware Version: E5.19.07"_s,
        };
        QCOMPARE(NodesOf(tree), expected);
        QVERIFY(FindDevice(buses, {0, 3}) != nullptr && FindDevice(buses, {0, 4}) == nullptr);
        KeyedTree empty;
        FillDeviceTree(empty, {}, Language());
        QCOMPARE(NodesOf(empty), QStringList(u"ROOT<: IR Devices"_s));
    }

    void Kinds() {
        const std::tuple<const char*, quint32, QString, QString> rows[] = {
            {"U6", 0x800, u"USB Transceiver"_s, u"U6"_s},
            {"V5.20.00XX", 0, u"USB Transceiver"_s, u"U5.20.00 (B&O)"_s},
            {"S4", 0, u"SERIAL Transceiver"_s, u"S4"_s},
            {"B4", 0, u"IR Busmodule"_s, u"B4"_s},
            {"C4", 0, u"IR Busmodule"_s, u"B4 (B&O)"_s},
            {"D4", 0, u"IR / Display Board"_s, u"D4"_s},
            {"G4", 0x7FF, u"Ethernet Transceiver"_s, u"G4"_s},
            {"G4", 0x800, u"LAN Controller"_s, u"G4"_s},
            {"X4", 0, u"IR Translator"_s, u"X4"_s},
            {"Y4", 0, u"Ferolo KT208"_s, u"Y4"_s},
            {"F4", 0, QString(), u"F4"_s},
        };
        for (const auto& [version, capabilities, name, firmware] : rows) {
            QCOMPARE(KindName(MakeEntry(version, capabilities)), name);
            QCOMPARE(FirmwareText(MakeEntry(version)), firmware);
        }
        QVERIFY(IsFrom(MakeEntry("U5.20.01  "), u"5.20.01") && !IsFrom(MakeEntry("U5.20.00"), u"5.20.01"));
        QVERIFY(!IsFrom(MakeEntry("U10.00.00"), u"5.20.01"));
    }

    void SettingsOfThePickedDevice() {
        DeviceRig rig;
        const std::vector<DeviceBus> buses = {
            {0, 0, {Device(0, "U5.20.00"), Device(1, "B5.20.01"), Device(2, "U10.00.00")}},
            {63, 0, {Device(15, "C5.04.01", 0x2, 0x03)}},
        };
        QPointer<frmDeviceMode> form = new frmDeviceMode(rig.services, buses, nullptr);
        form->ShowModal();
        auto* tree = ChildOf<KeyedTreeView>(*form, "tvwStat");
        auto* cmdSet = ChildOf<QPushButton>(*form, "cmdSet");
        QVERIFY(!cmdSet->isEnabled());
        for (const QString& key : {u"V63.15"_s, u"B63"_s, u"F63.15"_s, u"ROOT"_s, u"S0.2"_s, QString()}) {
            tree->Select(key);
            QCOMPARE(cmdSet->isEnabled(), key.contains(u'.')); // a node of a device
        }
        // By the keyboard: Enter shuts a bus, and opens the settings of a device.
        const QModelIndex bus = tree->model()->index(0, 0, tree->model()->index(0, 0));
        tree->Select(u"B0"_s);
        QVERIFY(tree->isExpanded(bus));
        QTest::keyClick(tree, Qt::Key_Return);
        QVERIFY(!tree->isExpanded(bus));
        tree->Select(u"V63.15"_s);
        QTest::keyClick(tree, Qt::Key_Return);
        QPointer<frmSetModus> settings = FindForm<frmSetModus>(*form);
        QVERIFY(settings && settings->isModal());
        QCOMPARE(ChildOf<QGroupBox>(*settings, "fraSet")->title(), u"Vantrel Address: 63.15"_s);
        QCOMPARE(settings->windowTitle(), u"Modus setzen - IR Busmodule B5.04.01 (B&O)"_s);
        // Closed without sending, it leaves the tree; sent, it takes it along.
        ChildOf<QPushButton>(*settings, "cmdEnde")->click();
        QTRY_VERIFY(!settings);
        QVERIFY(form->isVisible());
        QCOMPARE(rig.server.Records(), 0);
        cmdSet->click();
        ChildOf<QPushButton>(*FindForm<frmSetModus>(*form), "cmdSet")->click();
        const auto request = Decode<ModeRequest>(rig.TakeRecord());
        QCOMPARE(request.DeviceTag, 0x3F0F);
        QCOMPARE(request.Mode, 0x03);
        QTRY_VERIFY(!form);

        // Versions compare as texts.
        const QString basic = u"Modus setzen - USB Transceiver "_s;
        for (const auto& [key, title] : {std::pair{u"D0.0"_s, basic + u"U5.20.00"_s},
                                         {u"D0.1"_s, u"Set Device Parameter - Vantrel Address: 0.1"_s},
                                         {u"D0.2"_s, basic + u"U10.00.0"_s}}) {
            frmDeviceMode other(rig.services, buses, nullptr);
            ChildOf<KeyedTreeView>(other, "tvwStat")->Select(key);
            ChildOf<QPushButton>(other, "cmdSet")->click();
            QCOMPARE(FindForm<Form>(other)->windowTitle(), title);
        }
    }

    void WhatAStatusOpens() {
        DeviceRig rig;
        QWidget window;
        MenuForms forms(rig.services, &window);
        const auto arrive = [&](const std::vector<DeviceBus::Device>& devices) {
            emit rig.session.StatusReceived(StatusPage(devices));
        };
        arrive({Device(4, "D4.04.24", 0x2, 0x01, 0x10)});
        QPointer<Form> form = FindForm<Form>(window);
        QCOMPARE(form->objectName(), u"frmSetModus"_s);
        QCOMPARE(ChildOf<QGroupBox>(*form, "fraSet")->title(), u"Local IR Transceiver: 4"_s);
        // A status that comes unasked opens no second one.
        arrive({Device(1, "U4"), Device(2, "U4")});
        QVERIFY(!FindForm<frmDeviceMode>(window));
        ChildOf<QPushButton>(*form, "cmdSet")->click();
        const auto request = Decode<ModeRequest>(rig.TakeRecord());
        QCOMPARE(request.DeviceTag, 4);
        QCOMPARE(request.SendMask, 0x10);
        QTRY_VERIFY(!form);

        for (const auto& devices : {std::vector{Device(1, "U4"), Device(2, "U4")}, {}}) {
            arrive(devices);
            form = FindForm<Form>(window);
            QCOMPARE(form->objectName(), u"frmDeviceMode"_s);
            arrive(devices);
            QCOMPARE(window.findChildren<Form*>().size(), 1);
            QTest::keyClick(form, Qt::Key_Escape);
            QTRY_VERIFY(!form);
        }
    }

    void StartupText() {
        DeviceRig rig;
        frmSetModus settings(rig.services, MakeEntry("D5.00.00"), DeviceOrigin::Single, 0, {}, nullptr);
        settings.ShowModal();
        ChildOf<QPushButton>(settings, "cmdStartup")->click();
        QPointer<frmStartupText> form = FindForm<frmStartupText>(settings);
        ChildOf<QLineEdit>(*form, "txtInit(0)")->setText(u"  Guten Tag  "_s);
        ChildOf<QLineEdit>(*form, "txtInit(1)")->setText(u"0123456789ABCDEFGH"_s);
        ChildOf<QPushButton>(*form, "cmdSet")->click();
        const QByteArray record = rig.TakeRecord();
        QCOMPARE(record.size(), 214);
        QCOMPARE(record.first(14), QByteArray::fromHex("1D 00 02 00 4C000000 D2000000 28 04"));
        QCOMPARE(record.sliced(14),
                 QByteArray("  Guten Tag\n0123456789ABCDEF").append('\0').leftJustified(200, ' '));
        QTRY_VERIFY(!form);
        QVERIFY(settings.isVisible());
    }
};

SUITE(DeviceTreeTest);

#include "device_tree_test.moc"

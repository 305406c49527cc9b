#include "device/set_modus_ex_clicks.h"
#include "device/set_modus_ex_lists.h"
#include "device/set_modus_ex_oracle.h"
#include "device/set_modus_ex_rules.h"

#include "support/suite.h"

using namespace Qt::StringLiterals;
using namespace ModusEx;

namespace {

/// A device in which nothing is special: the receiver is one for 38 kHz.
DeviceEntry Device(quint32 capabilities = 0, quint32 extCapabilities = 0, quint32 extCapabilities2 = 0) {
    DeviceEntry entry;
    entry.Version = u"U6.04.43"_s;
    entry.Capabilities = capabilities;
    entry.ExtCapabilities = extCapabilities;
    entry.ExtCapabilities2 = extCapabilities2;
    entry.Receivers = 0x22;
    entry.ReceiveTimeout = 30;
    return entry;
}

QString Hex(const QByteArray& bytes) {
    return QString::fromLatin1(bytes.toHex(' '));
}

/// The bytes that hold settings: `Mode`, the mask in four, `ExtMode`, `ExtMode2`, and the last eight.
QString SettingsOf(const ModeRequest& request) {
    const QByteArray record = Encode(request);
    return Hex(record.sliced(1, 1) + record.sliced(212, 6) + record.sliced(224));
}

/// Nothing, or what is wrong with what the dialog would send for an untouched device.
QString Fault(const DeviceEntry& entry) {
    const State state = FillSetModusEx(entry);
    if (AreReceiversSet(state) != Oracle::HasKnownReceivers(entry))
        return u"the check of the receivers"_s;
    if (!AreReceiversSet(state))
        return {};
    const ModeRequest sent = PackSetModusEx(state, 0x0103);
    const ModeRequest expected = Oracle::Expected(entry, 0x0103);
    if (Encode(sent) == Encode(expected))
        return {};
    return u"%1, capabilities %2 %3 %4\nreported %5\nsent     %6\nnot      %7"_s.arg(
        entry.Version, QString::number(entry.Capabilities, 16), QString::number(entry.ExtCapabilities, 16),
        QString::number(entry.ExtCapabilities2, 16), Hex(Encode(entry).first(36)), SettingsOf(sent),
        SettingsOf(expected));
}

} // namespace

class SetModusExTest : public QObject {
    Q_OBJECT

private slots:
    /// Every capability alone, and each pair with those that the rules name together.
    void FillAndPackOneByOne() {
        std::mt19937 random(1);
        const quint32 bases[][3] = {{0, 0, 0},
                                    {0x00000002, 0, 0},
                                    {0x00001802, 0x00004000, 0},
                                    {0x01000006, 0, 0},
                                    {0x00000004, 0x00040000, 0x200},
                                    {0x00001006, 0x02000000, 0},
                                    {0x0000100A, 0x00014000, 0},
                                    {0x00000820, 0x04000080, 0x100},
                                    {0x00000000, 0x00420000, 0},
                                    {0x00000002, 0x40020000, 0}};
        for (const auto& base : bases)
            for (int bit = 0; bit < 96; ++bit)
                for (int round = 0; round < 20; ++round) {
                    quint32 words[] = {base[0], base[1], base[2]};
                    words[bit / 32] ^= 1U << bit % 32;
                    const QString fault = Fault(Oracle::RandomEntry(random, words[0], words[1], words[2]));
                    QVERIFY2(fault.isEmpty(), qPrintable(fault));
                }
    }

    void FillAndPackAtRandom() {
        std::mt19937 random(2);
        for (int round = 0; round < 60'000; ++round) {
            const QString fault = Fault(Oracle::RandomEntry(random));
            QVERIFY2(fault.isEmpty(), qPrintable(fault));
        }
        for (const auto& [reason, uses] : Oracle::Uses())
            QVERIFY2(uses > 0, reason);
    }

    void WhatADeviceShows() {
        DeviceEntry bus = Device(0x00205806, 0x00004900);
        bus.Mode = 0x40;
        bus.ReceiveTiming = 0x08;
        bus.ExtMode2 = 0x20;
        bus.ExtFlags = 0x10;
        bus.ToggleConfig = 0x91;
        State state = FillSetModusEx(bus);
        QCOMPARE(state.Index(List::SBUS), 2);
        QCOMPARE(state.Content(Text::Toggle), u"16"_s);
        QCOMPARE(state.Index(List::Baudrate), -1); // 3 - 1 + 4: an entry that isn't there

        DeviceEntry network = Device(0x01200094, 0x80180000);
        network.Version = u"W6.04.42"_s;
        network.HotRemote2 = u"@@@~~~LAN~~~@@@"_s;
        network.HotCommand2 = QByteArray::fromHex("0a0b0c9d8eff").leftJustified(20, '\0');
        state = FillSetModusEx(network);
        QCOMPARE(state.Content(Text::MAC), u"0A-0B-0C-9D-8E-FF"_s);
        for (const Text text : {Text::Hotremote, Text::Hotcommand, Text::Hotremote2, Text::Hotcommand2})
            QVERIFY(!state.IsEnabled(text));
    }

    void Texts_data() {
        QTest::addColumn<QString>("timeout");
        QTest::addColumn<QString>("toggle");
        QTest::addColumn<QString>("corrected");
        QTest::addColumn<int>("timeoutSent");
        QTest::addColumn<int>("toggleSent");
        QTest::newRow("none") << u""_s << u""_s << u"1"_s << 1 << 0;
        QTest::newRow("zero") << u"0"_s << u"0"_s << u"1"_s << 1 << 1;
        QTest::newRow("in range") << u"250"_s << u"62"_s << u"250"_s << 250 << 63;
        QTest::newRow("above") << u"300"_s << u"64"_s << u"250"_s << 250 << 1;
        QTest::newRow("below") << u"-7"_s << u"-1"_s << u"1"_s << 1 << 0;
        QTest::newRow("far away") << u"99999999999999999999"_s << u"99999999999999999999"_s << u"250"_s << 250
                                  << 0;
        QTest::newRow("no number, and a blank") << u"abc"_s << u" 7"_s << u"1"_s << 1 << 0;
    }

    void Texts() {
        QFETCH(QString, timeout);
        QFETCH(QString, toggle);
        State state = FillSetModusEx(Device());
        state.SetContent(Text::Timeout, timeout);
        state.SetContent(Text::Toggle, toggle);
        QCOMPARE(state.IsEnabled(List::ToggleCount), !toggle.isEmpty() && toggle[0] != u' ');
        CorrectTimeout(state);
        QTEST(state.Content(Text::Timeout), "corrected");
        const ModeRequest request = PackSetModusEx(state, 0);
        QTEST(int(request.ExtParam[1]), "timeoutSent");
        QTEST(int(request.ExtParam[4]), "toggleSent");
    }

    void BusPort_data() {
        QTest::addColumn<int>("mode");
        QTest::addColumn<int>("timing");
        QTest::addColumn<int>("extFlags");
        QTest::addColumn<int>("index");
        QTest::addColumn<int>("busSpeed");
        QTest::newRow("bus, classic") << 0 << 0 << 0 << 0 << 0;
        QTest::newRow("bus, 38400") << 0x40 << 0x18 << 0 << 0 << 4;
        QTest::newRow("input with pullup") << 0 << 0x10 << 0 << 2 << 0;
        QTest::newRow("inverted with pullup") << 0 << 0x10 << 4 << 5 << 0;
    }

    void BusPort() {
        QFETCH(int, mode);
        QFETCH(int, timing);
        QFETCH(int, extFlags);
        QFETCH(int, index);
        DeviceEntry entry = Device(0x1006, 0x4800);
        entry.Mode = quint8(mode);
        entry.ReceiveTiming = quint8(timing);
        entry.ExtFlags = quint8(extFlags);
        entry.SendMask = 0x0005;
        State state = FillSetModusEx(entry);
        QCOMPARE(state.Index(List::IO), index);
        QTEST(state.Index(List::SBUS), "busSpeed");
        QCOMPARE(state.Mask(), quint16(5));
        for (int use : {index, 0, 3, 0}) {
            state.Select(List::IO, use);
            QCOMPARE(state.IsMaskEnabled(), use == 0);
            QCOMPARE(state.IsEnabled(List::SBUS), use == 0);
            for (const Box box : {Box::Mode2, Box::Mode4, Box::Mode7, Box::SBUSSend})
                QCOMPARE(state.IsEnabled(box), use == 0);
            QCOMPARE(state.IsEnabled(Box::StateInternal), use != 0);
        }
    }

    /// The first return to the bus takes the defaults, the second doesn't.
    void ReturnToTheBus() {
        DeviceEntry entry = Device(0x2, 0x4000);
        entry.ReceiveTiming = 0x10;
        State state = FillSetModusEx(entry);
        state.Select(List::IO, 0);
        QCOMPARE(SettingsOf(PackSetModusEx(state, 0)), u"40 ff ff 00 00 00 00 02 1e 18 00 00 00 00 00"_s);
        state.SetMask(1);
        state.Select(List::SBUS, 1);
        state.Select(List::IO, 6);
        QCOMPARE(SettingsOf(PackSetModusEx(state, 0)), u"00 00 00 00 00 00 00 02 1e 18 00 00 00 00 04"_s);
        state.Select(List::IO, 0);
        QCOMPARE(SettingsOf(PackSetModusEx(state, 0)), u"40 01 00 00 00 00 00 02 1e 00 00 00 00 00 00"_s);
    }

    void ARelayInPlaceOfTheBus() {
        DeviceEntry entry = Device(0x2, 0x02000000);
        entry.SerialFlags = 1;
        State state = FillSetModusEx(entry);
        QCOMPARE(state.Codes(List::IO), (std::vector{BusPort::SerialBus, BusPort::Relay}));
        QCOMPARE(state.Index(List::IO), 1);
        QVERIFY(!state.IsMaskEnabled());
        QCOMPARE(PackSetModusEx(state, 0).ExtParam[6], quint8(1));
        state.Select(List::IO, 0);
        QCOMPARE(PackSetModusEx(state, 0).ExtParam[6], quint8(0));
    }

    /// What a plain device doesn't have is disabled, though the rule of the connector enables all of the bus.
    void WhatIsMissingIsDisabled() {
        const State none = FillSetModusEx(Device(0, 0x4000));
        QVERIFY(none.IsEnabled(List::IO) && !none.IsMaskEnabled() && !none.IsEnabled(Box::Mode2));
        const State bus = FillSetModusEx(Device(0x1002));
        QVERIFY(bus.IsMaskEnabled() && bus.IsEnabled(Box::Mode2));
        QVERIFY(!bus.IsEnabled(List::IO) && !bus.IsEnabled(List::SBUS) && !bus.IsEnabled(Box::SBUSSend));
    }

    void Receivers_data() {
        QTest::addColumn<int>("extCapabilities");
        QTest::addColumn<int>("first"); ///< what the device reports
        QTest::addColumn<int>("second");
        QTest::addColumn<int>("receiver"); ///< the list in which
        QTest::addColumn<int>("code");     ///< this one is chosen then
        QTest::addColumn<QString>("after");
        const auto row = [](const char* name, int extCapabilities, int first, int second, int receiver,
                            int code, const char* after) {
            QTest::newRow(name) << extCapabilities << first << second << receiver << code
                                << QString::fromLatin1(after);
        };
        // The codes, which receivers are active, and the box for 455 kHz.
        row("38 beside 56", 0, 1, 1, 1, 2, "2 1 active 1 -, off");
        row("38 beside 56, second list", 0, 1, 1, 2, 2, "1 2 active - 2, off");
        row("455 beside 38", 0, 2, 2, 2, 4, "2 4 active 1 2, on");
        row("plasma beside 38", 0, 2, 2, 2, 5, "2 5 active - 2, on");
        row("plasma beside 455", 0, 4, 2, 2, 13, "4 13 active 1 2, on");
        row("universal beside 455", 0, 4, 4, 1, 6, "6 4 active 1 -, on");
        row("universal beside 38", 0, 2, 2, 1, 14, "14 2 active 1 -, offered");
        row("both external", 0x04000000, 2, 10, 1, 9, "9 2 active 1 -, off");
        row("both external, second list", 0x04000000, 10, 2, 2, 12, "2 12 active 1 2, on");
        row("both external may be", 0, 2, 12, 1, 9, "9 12 active 1 2, on");
    }

    void Receivers() {
        QFETCH(int, extCapabilities);
        QFETCH(int, first);
        QFETCH(int, second);
        QFETCH(int, receiver);
        QFETCH(int, code);
        DeviceEntry entry = Device(0x820, quint32(extCapabilities));
        entry.Receivers = quint8(first | second << 4);
        entry.ExtMode = 0x0C;
        State state = FillSetModusEx(entry);
        state.SelectCode(receiver == 1 ? List::Receiver1 : List::Receiver2, code);
        const QString active =
            (state.IsOn(Box::RCV1) ? u"1 "_s : u"- "_s) + (state.IsOn(Box::RCV2) ? u'2' : u'-');
        const QString codes455 = !state.IsEnabled(Box::Ext4) ? u"off"_s
                                 : state.IsOn(Box::Ext4)     ? u"on"_s
                                                             : u"offered"_s;
        QTEST(u"%1 %2 active %3, %4"_s.arg(state.Code(List::Receiver1))
                  .arg(state.Code(List::Receiver2))
                  .arg(active, codes455),
              "after");
    }

    void ReceiverTexts() {
        const State internal = FillSetModusEx(Device(0x820, 0x80, 0x100));
        const auto textsOf = [](const State& state, List list) {
            QStringList texts;
            for (const int code : state.Codes(list))
                texts += AddedText(state, list, code);
            return texts.join(u'|');
        };
        const QString external =
            u"38 kHz Receiver [EXT]|56 kHz Receiver [EXT]|455 kHz Receiver [EXT]|"
            u"455 kHz Plasma shielded Receiver [EXT]|Universal Codelearning Receiver [EXT]"_s;
        QCOMPARE(textsOf(internal, List::Receiver1),
                 u"38 kHz Receiver [INT]|Universal Codelearning Receiver [INT]|"_s + external);
        QCOMPARE(textsOf(internal, List::Receiver2), u"Off|"_s + external);
        QVERIFY(internal.hasExternalSecond && !AreReceiversSet(internal));
        QCOMPARE(textsOf(FillSetModusEx(Device()), List::Receiver1), QString(external).remove(u" [EXT]"_s));
        QCOMPARE(textsOf(FillSetModusEx(Device(0x800, 0x10000080)), List::Receiver2),
                 u"455 kHz Plasma shielded Receiver [INT]"_s);
    }

    /// The IR input as RS232 takes the place of the IR output and blocks reception; the speeds come and go.
    void IrPorts() {
        DeviceEntry entry = Device(0, 0xC0420000);
        entry.Mode = 0x02;
        State state = FillSetModusEx(entry);
        QCOMPARE(state.Codes(List::IRInput).size(), 7U);
        QVERIFY(!state.IsEnabled(List::AuxBaudrate) && !state.IsEnabled(Box::UDP));

        state.SetOn(Box::IROutRS232, true);
        QVERIFY(state.IsEnabled(List::AuxBaudrate) && state.IsEnabled(List::Parity) &&
                state.IsEnabled(Box::UDP));
        QCOMPARE(state.Index(List::AuxBaudrate), 1);
        QCOMPARE(SettingsOf(PackSetModusEx(state, 0)), u"02 00 00 00 00 00 00 02 1e 08 00 00 00 40 00"_s);

        state.SelectCode(List::IRInput, IrInput::Rs232Input);
        QVERIFY(!state.IsOn(Box::IROutRS232) && !state.IsOn(Box::Mode1) && !state.IsEnabled(Box::Mode1));
        state.Select(List::AuxBaudrate, 5);
        state.Select(List::Parity, 2);
        QCOMPARE(SettingsOf(PackSetModusEx(state, 0)), u"00 00 00 00 00 00 00 02 1e 08 00 00 00 b0 00"_s);

        state.SetOn(Box::IROutRS232, true);
        QCOMPARE(state.Index(List::IRInput), 0);
        QVERIFY(state.IsEnabled(Box::Mode1) && state.IsEnabled(List::AuxBaudrate));

        state.SelectCode(List::IRInput, 3);
        state.SetOn(Box::StateExternal, true);
        state.SetOn(Box::IROutRS232, false);
        QVERIFY(!state.IsEnabled(List::AuxBaudrate) && !state.IsEnabled(List::Parity));
        QCOMPARE(state.Index(List::Parity), -1);
        QCOMPARE(SettingsOf(PackSetModusEx(state, 0)), u"00 00 00 00 00 00 00 02 1e 00 00 00 98 00 00"_s);
        state.Select(List::IRInput, 0);
        QVERIFY(!state.IsOn(Box::StateExternal) && !state.IsEnabled(Box::StateExternal));
    }

    void Rcmm() {
        DeviceEntry entry = Device();
        entry.CodeFlags = 0x07;
        State state = FillSetModusEx(entry);
        QVERIFY(state.IsOn(Box::ForceRCMM) && state.IsEnabled(Box::RCMMToggle));
        state.SetOn(Box::RCMM, false);
        QVERIFY(!state.IsOn(Box::ForceRCMM) && !state.IsEnabled(Box::RCMMToggle));
        state.SetOn(Box::RCMM, true);
        QVERIFY(!state.IsOn(Box::ForceRCMM) && state.IsEnabled(Box::RCMMToggle));
    }

    /// The RS232 speeds, in both lists, and where they are written.
    void Speeds_data() {
        QTest::addColumn<quint32>("capabilities");
        QTest::addColumn<quint32>("extCapabilities");
        QTest::addColumn<int>("list");
        QTest::addColumn<QString>(
            "sent"); ///< `ExtMode2`, `ReceiveTiming`, `SerialFlags`, `ExtFlags` for 57600
        const int baud = int(List::Baudrate);
        const int aux = int(List::AuxBaudrate);
        QTest::newRow("port") << 0x4U << 0U << baud << u"60 00 00 10"_s;
        QTest::newRow("port as auxiliary with a bus") << 0x01000006U << 0U << aux << u"60 00 80 00"_s;
        QTest::newRow("auxiliary without a bus") << 0U << 0x40000U << aux << u"00 00 80 00"_s;
    }

    void Speeds() {
        QFETCH(quint32, capabilities);
        QFETCH(quint32, extCapabilities);
        QFETCH(int, list);
        DeviceEntry entry = Device(capabilities, extCapabilities, 0x200);
        State state = FillSetModusEx(entry);
        for (int index = 0; index < 6; ++index) {
            state.Select(List(list), index);
            const ModeRequest request = PackSetModusEx(state, 0);
            entry.ExtMode2 = request.ExtMode2;
            entry.ReceiveTiming = request.ExtParam[2];
            entry.SerialFlags = request.ExtParam[6];
            entry.ExtFlags = request.ExtParam[7];
            QCOMPARE(FillSetModusEx(entry).Index(List(list)), index);
            if (index == 4)
                QTEST(Hex(QByteArray(1, char(entry.ExtMode2)) + char(entry.ReceiveTiming) +
                          char(entry.SerialFlags) + char(entry.ExtFlags)),
                      "sent");
        }
    }

    void DateFormats() {
        DeviceEntry entry = Device();
        entry.Version = u"D5.20.01"_s;
        State state = FillSetModusEx(entry);
        const int numbers[] = {0, 1, 2, 4, 5, 6, 8, 9, 10};
        for (int index = 0; index < 9; ++index) {
            state.Select(List::Date, index);
            entry.SendMask = quint32(PackSetModusEx(state, 0).SendMask);
            QCOMPARE(int(entry.SendMask), numbers[index]);
            QCOMPARE(FillSetModusEx(entry).Index(List::Date), index);
        }
    }
};

SUITE(SetModusExTest);

#include "set_modus_ex_test.moc"

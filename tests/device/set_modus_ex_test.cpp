#include "device/set_modus_ex_clicks.h"
#include "device/set_modus_ex_lists.h"
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

} // namespace

class SetModusExTest : public QObject {
    Q_OBJECT

private slots:
    void Texts() {
        const std::tuple<QString, QString, QString, int, int> rows[] = {
            // time-out, position of the toggle bit; the time-out as corrected, and both as sent
            {u""_s, u""_s, u"1"_s, 1, 0},
            {u"0"_s, u"0"_s, u"1"_s, 1, 1},
            {u"250"_s, u"62"_s, u"250"_s, 250, 63},
            {u"300"_s, u"64"_s, u"250"_s, 250, 1},
            {u"-7"_s, u"-1"_s, u"1"_s, 1, 0},
            {u"99999999999999999999"_s, u"99999999999999999999"_s, u"250"_s, 250, 0},
            {u"abc"_s, u" 7"_s, u"1"_s, 1, 0},
        };
        for (const auto& [timeout, toggle, corrected, timeoutSent, toggleSent] : rows) {
            State state = FillSetModusEx(Device());
            state.SetContent(Text::Timeout, timeout);
            state.SetContent(Text::Toggle, toggle);
            QCOMPARE(state.IsEnabled(List::ToggleCount), !toggle.isEmpty() && toggle[0] != u' ');
            CorrectTimeout(state);
            QCOMPARE(state.Content(Text::Timeout), corrected);
            const ModeRequest request = PackSetModusEx(state, 0);
            QCOMPARE(int(request.ExtParam[1]), timeoutSent);
            QCOMPARE(int(request.ExtParam[4]), toggleSent);
        }
    }

    void BusPort() {
        const std::array<int, 5> rows[] = {
            // Mode, ReceiveTiming and ExtFlags; the use and the speed of the bus that they stand for
            {0, 0, 0, 0, 0},
            {0x40, 0x18, 0, 0, 4},
            {0, 0x10, 0, 2, 0},
            {0, 0x10, 4, 5, 0},
        };
        for (const auto& [mode, timing, extFlags, index, busSpeed] : rows) {
            DeviceEntry entry = Device(0x1006, 0x4800);
            entry.Mode = quint8(mode);
            entry.ReceiveTiming = quint8(timing);
            entry.ExtFlags = quint8(extFlags);
            entry.SendMask = 0x0005;
            State state = FillSetModusEx(entry);
            QCOMPARE(state.Index(List::IO), index);
            QCOMPARE(state.Index(List::SBUS), busSpeed);
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

    /// What the device reports; the list and the code that is chosen in it; the codes then, which receivers
    /// are active, and the box for 455 kHz.
    void Receivers() {
        constexpr quint32 OneExternal = 0x04000000;
        const std::tuple<quint32, int, List, int, QString> rows[] = {
            {0, 0x11, List::Receiver1, 2, u"2 1 active 1 -, off"_s},
            {0, 0x11, List::Receiver2, 2, u"1 2 active - 2, off"_s},
            {0, 0x22, List::Receiver2, 4, u"2 4 active 1 2, on"_s},
            {0, 0x22, List::Receiver2, 5, u"2 5 active - 2, on"_s},
            {0, 0x24, List::Receiver2, 13, u"4 13 active 1 2, on"_s},
            {0, 0x44, List::Receiver1, 6, u"6 4 active 1 -, on"_s},
            {0, 0x22, List::Receiver1, 14, u"14 2 active 1 -, offered"_s},
            {0, 0xC2, List::Receiver1, 9, u"9 12 active 1 2, on"_s},
            {OneExternal, 0xA2, List::Receiver1, 9, u"9 2 active 1 -, off"_s},
            {OneExternal, 0x2A, List::Receiver2, 12, u"2 12 active 1 2, on"_s},
        };
        for (const auto& [extCapabilities, receivers, list, code, after] : rows) {
            DeviceEntry entry = Device(0x820, extCapabilities);
            entry.Receivers = quint8(receivers);
            entry.ExtMode = 0x0C;
            State state = FillSetModusEx(entry);
            state.SelectCode(list, code);
            const QString codes455 = !state.IsEnabled(Box::Ext4) ? u"off"_s
                                     : state.IsOn(Box::Ext4)     ? u"on"_s
                                                                 : u"offered"_s;
            QCOMPARE(u"%1 %2 active %3 %4, %5"_s.arg(state.Code(List::Receiver1))
                         .arg(state.Code(List::Receiver2))
                         .arg(state.IsOn(Box::RCV1) ? u"1"_s : u"-"_s)
                         .arg(state.IsOn(Box::RCV2) ? u"2"_s : u"-"_s)
                         .arg(codes455),
                     after);
        }
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

    /// 38400 and 57600, in both lists: `ExtMode2`, `ReceiveTiming`, `SerialFlags`, `ExtFlags`.
    void Speeds() {
        const std::tuple<quint32, quint32, List, QString> rows[] = {
            {0x4, 0, List::Baudrate, u"00 00 00 00, 60 00 00 10"_s},
            {0x01000006, 0, List::AuxBaudrate, u"00 00 00 00, 60 00 80 00"_s},
            {0, 0x40000, List::AuxBaudrate, u"00 18 00 00, 00 00 80 00"_s},
        };
        for (const auto& [capabilities, extCapabilities, list, sent] : rows) {
            State state = FillSetModusEx(Device(capabilities, extCapabilities, 0x200));
            QStringList records;
            for (const int index : {3, 4}) {
                state.Select(list, index);
                const ModeRequest request = PackSetModusEx(state, 0);
                records += Hex(QByteArray(1, char(request.ExtMode2)) + char(request.ExtParam[2]) +
                               char(request.ExtParam[6]) + char(request.ExtParam[7]));
            }
            QCOMPARE(records.join(u", "), sent);
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

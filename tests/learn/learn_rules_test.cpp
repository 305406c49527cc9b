#include "learn/learn_rules.h"

#include "support/suite.h"

using namespace Qt::StringLiterals;

namespace {

/// Capabilities as the wire has them, so that a wrong name for a bit shows.
BusElement MakeBus(const char* version, quint32 a = 0, quint32 b = 0, quint32 c = 0, quint8 receivers = 0,
                   quint8 defaults = 0) {
    BusElement bus;
    bus.version = u'V' + QLatin1StringView(version);
    bus.capabilitiesA = qint32(a);
    bus.capabilitiesB = qint32(b);
    bus.capabilitiesC = qint32(c);
    bus.receivers = receivers;
    bus.learnDefaults = defaults;
    bus.toleranceIndex = 0xFD;
    bus.timeout = 15;
    return bus;
}

LearnControls FreshControls() {
    LearnControls controls;
    controls.modes = {{u"Normal"_s, Netcommand::LearnNormal}, {u"Timing"_s, Netcommand::LearnWithTiming},
                      {u"RAW"_s, Netcommand::LearnRaw},       {u"Repeat"_s, Netcommand::LearnRepeat},
                      {u"Toggle"_s, Netcommand::LearnToggle}, {u"RAW Repeat"_s, Netcommand::LearnRawRepeat}};
    KnowBuses(controls);
    return controls;
}

/// What is enabled, in words; and what else a version decides.
QString Told(const LearnControls& controls) {
    const LearnControls::Enabled& e = controls.enabled;
    const std::pair<bool, QString> all[] = {
        {e.addressMode, u"address"_s},
        {e.receiver, u"receiver"_s},
        {e.timeoutCode, u"timeout"_s},
        {e.tolerance, u"tolerance"_s},
        {e.calibration, u"calibrate"_s},
        {e.waitTime, u"wait"_s},
        {e.longPresses, u"long"_s},
        {e.toggle, u"toggle"_s},
        {e.noSort, u"sort"_s},
        {e.bo, u"bo"_s},
        {true, u"%1 calibrations at %2"_s.arg(controls.calibrations).arg(controls.calibration)},
        {true, u"%1 modes at %2"_s.arg(controls.modes.size()).arg(controls.mode)},
        {controls.timingVisible, u"timing"_s},
    };
    QStringList words;
    for (const auto& [isTold, word] : all)
        if (isTold)
            words += word;
    return words.join(u' ');
}

} // namespace

class LearnRulesTest : public QObject {
    Q_OBJECT

private slots:
    /// The list, and which of them is chosen.
    void Receivers() {
        const std::tuple<BusElement, QString, int> rows[] = {
            {MakeBus("5.19.99", 0x820, 0x80, 0, 0x22), u"Default=0, 38 kHz=64, 455 kHz=128, Both=192"_s, 0},
            {MakeBus("5.20.00", 0, 0x80, 0, 0x04),
             u"38 kHz [INT]=2, 455 kHz [INT]=4, Codelearning Receiver [INT]=6"_s, 1},
            {MakeBus("5.20.00", 0x800, 0x1000'0080, 0, 0x52),
             u"1: 38 kHz [INT]=2, 1: Codelearning Receiver [INT]=6, 2: 455 kHz Plasma [INT]=21"_s, 0},
            // The last match stands.
            {MakeBus("6.04.44", 0x800, 0x80, 0x100, 0x4C),
             u"1: 38 kHz [INT]=2, 1: Codelearning Receiver [INT]=6, 2: 455 kHz [INT]=20, "
             "2: 56 kHz [EXT]=25, 2: 38 kHz [EXT]=26, 2: 455 kHz [EXT]=28, 2: 455 kHz Plasma [EXT]=29, "
             "2: Codelearning Receiver [EXT]=30"_s,
             5},
            {MakeBus("6.00.00", 0x20, 0, 0, 0x01),
             u"56 kHz=1, 56 kHz [EXT]=9, 38 kHz [EXT]=10, 455 kHz [EXT]=12, 455 kHz Plasma [EXT]=13, "
             "Codelearning Receiver [EXT]=14"_s,
             0},
            // The second channel's own, found by its code.
            {MakeBus("6.00.00", 0x800, 0x80'0000, 0, 0x2B),
             u"1: 56 kHz [EXT]=9, 1: 38 kHz [EXT]=10, 1: 455 kHz [EXT]=12, 1: 455 kHz Plasma [EXT]=13, "
             "1: Codelearning Receiver [EXT]=14, 2: 38 kHz=18"_s,
             5},
            {MakeBus("6.00.00", 0, 0, 0, 0x0A), u""_s, -1}, // external, which it can't have
        };
        for (const auto& [bus, texts, chosen] : rows) {
            LearnControls controls = FreshControls();
            ChooseBus(controls, bus);
            QStringList list;
            for (const Receiver& receiver : controls.receivers)
                list += u"%1=%2"_s.arg(receiver.label).arg(receiver.map);
            QCOMPARE(list.join(u", "), texts);
            QCOMPARE(controls.receiver, chosen);
        }
    }

    /// The buses that are chosen one after the other; what that enables before a remote is open, and then.
    void Versions() {
        const QString old = u" 6 modes at 1 timing"_s;
        const QString none = u"4 calibrations at -1 5 modes at 0"_s;
        const QString newest = u"receiver timeout tolerance calibrate wait %1toggle sort bo "
                               "4 calibrations at 0 5 modes at 0"_s;
        const std::tuple<QList<const char*>, QString, QString> rows[] = {
            {{"4.04.11"}, u"4 calibrations at 0"_s + old, u"4 calibrations at 0"_s + old},
            {{"4.04.12"}, u"4 calibrations at 0"_s + old, u"timeout 4 calibrations at 0"_s + old},
            {{"5.04.01"},
             u"receiver calibrate 4 calibrations at -1"_s + old,
             u"receiver timeout calibrate 2 calibrations at 0"_s + old},
            {{"5.20.00"}, none, newest.arg(u""_s)},
            {{"6.04.43"}, none, newest.arg(u""_s)},
            {{"6.04.44"}, none, newest.arg(u"long "_s)},
            {{"6.04.44", "5.10.00"},
             u"receiver calibrate 4 calibrations at -1"_s + old,
             u"receiver timeout calibrate wait 2 calibrations at 0"_s + old},
            {{"5.10.00", "5.20.00"}, u"receiver calibrate "_s + none, newest.arg(u""_s)},
        };
        for (const auto& [versions, closed, open] : rows)
            for (const bool isOpen : {false, true}) {
                LearnControls controls = FreshControls();
                if (isOpen)
                    OpenedRemote(controls, false);
                for (const char* version : versions) {
                    const BusElement bus = MakeBus(version, 0x800);
                    ChooseBus(controls, bus);
                    EnableLearn(controls, bus);
                }
                QCOMPARE(Told(controls), isOpen ? open : closed);
            }
    }

    void AModeDecidesOnTheNextStep() {
        const BusElement bus = MakeBus("5.10.00");
        LearnControls controls = FreshControls();
        controls.mode = 0;
        ChooseBus(controls, bus);
        QVERIFY(!EnableLearn(controls, bus));
        QVERIFY(!controls.enabled.command);

        OpenedRemote(controls, false);
        QVERIFY(!EnableLearn(controls, bus));
        QVERIFY(controls.enabled.timing && !controls.enabled.command);
        QCOMPARE(controls.arrows, (std::array{false, true, false}));
        QVERIFY(controls.defaultButton == LearnDefault::Timing);

        OpenedRemote(controls, true);
        QVERIFY(EnableLearn(controls, bus));
        QCOMPARE(controls.arrows, (std::array{false, false, true}));

        controls.calibration = 3; // one that only newer firmware has
        controls.mode = 5;
        QVERIFY(EnableLearn(controls, bus));
        QVERIFY(!controls.enabled.timing && controls.enabled.command);
        QVERIFY(!controls.enabled.calibration && controls.calibration == 0);
        controls.mode = 4;
        QVERIFY(EnableLearn(controls, bus));
        QVERIFY(controls.enabled.calibration);
        controls.mode = -1;
        QVERIFY(!EnableLearn(controls, bus));
        QVERIFY(!controls.enabled.command);
        // The mode that newer firmware lacks gives way to its first one.
        controls.mode = 0;
        ChooseBus(controls, MakeBus("5.20.00"));
        QCOMPARE(controls.mode, 0);
    }

    void TheDevicesDefaults() {
        LearnControls controls = FreshControls();
        ChooseBus(controls, MakeBus("5.20.00", 0, 0, 0, 2, 0x90));
        QCOMPARE(controls.deviceTimeout, u"15 ms"_s);
        QCOMPARE(controls.tolerance, 5);
        QVERIFY(controls.bo && controls.noSort);

        ChooseBus(controls, MakeBus("5.10.00", 0, 0, 0, 2, 0x90));
        QCOMPARE(controls.deviceTimeout, u"Default"_s);
        QCOMPARE(controls.tolerance, -1);
        QVERIFY(!controls.bo && !controls.noSort);

        ChooseBus(controls, MakeBus("5.20.00", 2));
        QVERIFY(controls.enabled.addressMode);
        ChooseAddressMode(controls, 1);
        QVERIFY(controls.enabled.address);
        ChooseBus(controls, MakeBus("5.20.00"));
        QVERIFY(!controls.enabled.addressMode && !controls.enabled.address && controls.addressMode == 2);
    }

    void BOByReceiver() {
        // One channel: always as the device has it. Two: not with a code learning receiver beside 455 kHz.
        const std::tuple<quint32, int, int, int, bool> rows[] = {
            {0, 0x44, 0x10, 6, true},        {0, 0x44, 0, 4, false},       {0x800, 0x42, 0x10, 6, false},
            {0x800, 0x25, 0x10, 14, false},  {0x800, 0x22, 0x10, 6, true}, {0x800, 0x24, 0x10, 0x16, false},
            {0x800, 0x42, 0x10, 0x16, true}, {0x800, 0x44, 0x10, 4, true},
        };
        for (const auto& [capabilities, receivers, defaults, map, isBO] : rows)
            QCOMPARE(DefaultsToBO(MakeBus("6.0", capabilities, 0, 0, quint8(receivers), quint8(defaults)),
                                  quint8(map)),
                     isBO);
    }

    void WhatGoesOut() {
        LearnControls controls = FreshControls();
        controls.receivers = {{u"a"_s, 0}, {u"b"_s, 30}, {u"c"_s, 192}};
        controls.calibration = 1;
        controls.timeoutCode = 8; // 250 ms: 15
        controls.receiver = 2;
        controls.toggle = controls.noSort = true;
        // Old: 192 | 32 | 15 = 0xEF, bus 3, "L".
        QCOMPARE(quint32(LearnParam(controls, 3, 'L')), 0x00EF'034CU);
        QCOMPARE(quint32(TimingParam(controls, 3, 'L')), 0x00EF'034CU);
        QCOMPARE(LearnFlags(controls), 0);
        controls.enabled.longPresses = controls.longPresses = true;
        QCOMPARE(LearnFlags(controls), 0x20);

        controls.enabled.bo = true;
        controls.receiver = 1;
        controls.calibration = 3;
        controls.tolerance = 6;
        // New: 3 * 16 | 15 | 30 * 64 | 0x1000 | 2 * 0x2000 = 0x57BF; bit 31 from the tolerance; bit 7.
        QCOMPARE(quint32(LearnParam(controls, 255, '*')), 0xD7BF'FFAAU);
        // 3 * 16 | 15 | 30 * 64 | 6 * 2048 = 0x37BF; bit 31 no sort; bit 7.
        QCOMPARE(quint32(TimingParam(controls, 0, 5)), 0xB7BF'0085U);
        QCOMPARE(LearnFlags(controls), 0x37);
        controls.bo = true;
        controls.noSort = controls.toggle = controls.longPresses = false;
        controls.tolerance = 1;
        QCOMPARE(quint32(TimingParam(controls, 0, 5)), 0x4FBF'0085U);
        QCOMPARE(quint32(LearnParam(controls, 0, 5)), 0x37BF'0085U);
        QCOMPARE(LearnFlags(controls), 0x0D);

        controls.receiver = -1;
        controls.timeoutCode = 0;
        controls.calibration = -1;
        controls.tolerance = -1;
        QCOMPARE(quint32(LearnParam(controls, 0, 0)), 0x1000'0080U);
    }

    void TypedNumbers() {
        QCOMPARE(WaitTime(u"30"_s), 30000);
        for (const QString& seconds : {u""_s, u"0"_s, u"31"_s, u"99999"_s, u"99999999999999999999"_s})
            QCOMPARE(WaitTime(seconds), 30000);
        QCOMPARE(WaitTime(u"1"_s), 1000);

        QCOMPARE(CarrierOf(u" 38  [MEAS]"_s), 38);
        QCOMPARE(CarrierOf(u""_s), 0);
        QCOMPARE(CarrierOf(u"255"_s), 255);
        QCOMPARE(CarrierOf(u"256"_s), std::nullopt);
        QCOMPARE(CarrierOf(u"999999999999"_s), std::nullopt);

        QCOMPARE(LearnAddress(0, u"7"_s), 42);
        QCOMPARE(LearnAddress(2, u"7"_s), 76);
        QCOMPARE(LearnAddress(1, u"15"_s), 15);
        for (const QString& address : {u"abc"_s, u"99"_s, u"-1"_s, u"16"_s, u""_s})
            QCOMPARE(LearnAddress(1, address), 0);
    }
};

SUITE(LearnRulesTest);

#include "learn_rules_test.moc"

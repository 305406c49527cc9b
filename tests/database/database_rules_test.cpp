#include "database/action_rules.h"
#include "database/analog_rules.h"
#include "database/database_tree.h"
#include "link/device_list.h"

#include "support/golden.h"
#include "support/suite.h"

using namespace Qt::StringLiterals;

namespace {

/// The letters whose flag is set.
QString Letters(std::initializer_list<std::pair<char, bool>> flags) {
    QString letters;
    for (const auto& [letter, isSet] : flags)
        if (isSet)
            letters += QLatin1Char(letter);
    return letters;
}

} // namespace

class DatabaseRulesTest : public QObject {
    Q_OBJECT

private slots:
    /// Enabled: (a)ux (r)elay r(e)ceive (l)an (b)inary l(i)ne (t)arget; behind a dash, what is unchecked.
    void Devices_data() {
        QTest::addColumn<bool>("binary");
        QTest::addColumn<QString>("controls");
        QTest::newRow("E5.05.07") << true << u"-"_s;
        QTest::newRow("E5.05.08") << true << u"a-"_s;
        QTest::newRow("E5.08.09") << true << u"a-"_s;
        QTest::newRow("E5.08.10") << true << u"ar-"_s;
        QTest::newRow("E5.08.25") << true << u"arelt-bi"_s;
        QTest::newRow("G6.05.10") << true << u"arelt-bi"_s;
        QTest::newRow("S5.05.08") << true << u"-"_s;
        QTest::newRow("S5.08.25") << true << u"eb-i"_s;
        QTest::newRow("S6.03.09") << true << u"eb-i"_s;
        QTest::newRow("S6.03.10") << true << u"ebi-"_s;
        QTest::newRow("S6.03.11") << false << u"eb-i"_s;
        QTest::newRow("E10.00.0") << true << u"-"_s; // firmware is text
        QTest::newRow("E") << true << u"-"_s;
    }
    void Devices() {
        QFETCH(bool, binary);
        const auto c = DatabaseDevice::ControlsOf(QString::fromLatin1(QTest::currentDataTag()), binary);
        QTEST(Letters({{'a', c.aux},
                       {'r', c.relay},
                       {'e', c.receive},
                       {'l', c.lan},
                       {'b', c.binary},
                       {'i', c.line},
                       {'t', c.target}}) +
                  u'-' + Letters({{'b', c.uncheckBinary}, {'i', c.uncheckLine}}),
              "controls");
    }

    void DeviceNames() {
        DeviceEntry device;
        device.Version = u"E6.04.44 "_s;
        device.HotRemote2 = u"@@@~~~LAN~~~@@@"_s;
        QCOMPARE(TextOfDevice(device, {12, 6}), u"12.6 - E6.04.44"_s);
        device.HotRemote2 += u"x"_s + u"second name       "_s + u" first name     beyond"_s;
        QCOMPARE(TextOfDevice(device, {0, 15}), u"0.15 - E6.04.44 - first name - second name       "_s);
    }

    /// Enabled thresholds (m)in (M)ax (h)ysteresis, names (r)/(R), LEDs (l)/(L), their la(b)el, (k)ind;
    /// cleared names behind a dash.
    void AnalogModes() {
        const char* const expected[] = {"-",      "mhrlbk-R", "MhRLbk-r", "mMhrRlLbk-",
                                        "rlbk-R", "RLbk-r",   "rRlLbk-"};
        for (int mode = 0; mode < 7; ++mode) {
            const AnalogControls c = AnalogControlsOf(mode);
            QCOMPARE(Letters({{'m', c.minimum},
                              {'M', c.maximum},
                              {'h', c.hysteresis},
                              {'r', c.minSend},
                              {'R', c.maxSend},
                              {'l', c.minLed},
                              {'L', c.maxLed},
                              {'b', c.ledLabel},
                              {'k', c.kind}}) +
                         u'-' + Letters({{'r', c.clearMinSend}, {'R', c.clearMaxSend}}),
                     QLatin1StringView(expected[mode]));
        }
    }

    void MarksOfTheTree() {
        KeyedTree tree;
        QVERIFY(DatabaseTree::AddRemote(tree, u"tv"_s));
        QVERIFY(DatabaseTree::AddCommand(tree, u"tv"_s, u"on [+]"_s));
        QVERIFY(!DatabaseTree::AddCommand(tree, u"tv"_s, u"on [+]"_s));
        QVERIFY(!DatabaseTree::AddCommand(tree, u"radio"_s, u"on"_s));
        const KeyedNode& remote = tree.At(0);
        const KeyedNode& command = tree.At(1);
        QCOMPARE(DatabaseTree::MenuOf(remote), (DatabaseTree::MenuEntries{true, false, false}));

        DatabaseTree::TakeActionResult(tree, command.Key(), DatabaseTree::Cancelled.toString());
        QCOMPARE(command.Tag(), QString());
        const QString action = ActionTag().Format();
        for (int i = 0; i < 2; ++i) {
            DatabaseTree::TakeActionResult(tree, command.Key(), action);
            QCOMPARE(command.Text(), u"on [+] [+]"_s);
            QVERIFY(command.IsBold());
            QCOMPARE(remote.Text(), u"tv [*]"_s);
            QCOMPARE(remote.Tag(), u"000000000000000001000"_s);
            QCOMPARE(DatabaseTree::CommandName(command), u"on [+]"_s);
        }
        QCOMPARE(DatabaseTree::MenuOf(remote), (DatabaseTree::MenuEntries{false, true, true}));
        QCOMPARE(DatabaseTree::MenuOf(command), DatabaseTree::MenuEntries());

        DatabaseTree::SetTag(tree, remote.Key(), {});
        QCOMPARE(remote.Text(), u"tv"_s);
        QVERIFY(!remote.IsBold());
        QCOMPARE(command.Tag(), action);
        DatabaseTree::SetTag(tree, remote.Key(), u"000000000000000010000x"_s);
        DatabaseTree::TakeActionResult(tree, command.Key(), u"0"_s + action.sliced(1));
        QCOMPARE(command.Text(), u"on [+]"_s);
        QCOMPARE(remote.Tag(), u"000000000000000010000x"_s);
        DatabaseTree::SetTag(tree, u"Rgone"_s, action);
        DatabaseTree::ClearTags(tree);
        QVERIFY(DatabaseTree::MarkedNodes(tree).empty());
    }

    void EzMessages_data() {
        QTest::addColumn<EzFields>("fields");
        QTest::addColumn<QString>("text");
        const auto shortForm = [](const QString& number, const QString& value) {
            return EzFields{false, number, value, -1, {}, {}, {}, {}, {}, {}};
        };
        const EzFields longForm{true, {}, {}, 1, u"1"_s, u"2"_s, u"3"_s, u"255"_s, u"0"_s, u"1"_s};
        EzFields beyond = longForm;
        beyond.longValue = u"300"_s;
        beyond.repeat = u""_s;
        beyond.argument = u"x"_s;
        EzFields untyped = longForm;
        untyped.type = -1;
        QTest::newRow("first switch") << shortForm(u"1"_s, u"1"_s) << u"02 AB 01 AB 00 00 01 00"_s;
        QTest::newRow("no number") << shortForm(u""_s, u"x"_s) << u"01 AB 01 AB 00 00 00 00"_s;
        QTest::newRow("carry") << shortForm(u"1"_s, u"65535"_s) << u"01 AB 01 AB 00 00 FF FF"_s;
        QTest::newRow("limits") << shortForm(u"99999"_s, u"-1"_s) << u"01 AB 01 AB FF FF 00 00"_s;
        const QString message = u"0A AC 02 AB 02 00 01 00 02 00 03 00 FF 00 00 00 01 00"_s;
        QTest::newRow("long") << longForm << message;
        QTest::newRow("long beyond") << beyond << message;
        QTest::newRow("no type") << untyped << QString();
    }
    void EzMessages() {
        QFETCH(EzFields, fields);
        QFETCH(QString, text);
        QCOMPARE(PackEZCode(fields).value_or(QString()), text);
        if (text.isEmpty())
            return;
        // Whatever the limits made of the fields, the message keeps its meaning, also with a blank at its
        // end.
        const auto unpacked = UnpackEZCode(text);
        QVERIFY(unpacked);
        QCOMPARE(PackEZCode(*unpacked), text);
        QCOMPARE(UnpackEZCode(text + u' '), unpacked);
        QVERIFY(!UnpackEZCode(text + u"  "_s));
        QVERIFY(!UnpackEZCode(text.chopped(1)));
    }

    void EzWords() {
        QCOMPARE(EZSum(0xFFFF, 2), 2);
        QCOMPARE(EZSum(0xFFFF, 0), 0xFFFF);
        QCOMPARE(WordToHexText(0x0AFE), u"FE 0A"_s);
        QCOMPARE(HexTextToWord(u"FE 0A 77"), 0x0AFE);
        QCOMPARE(HexTextToWord(u"FE"), 0xFE);
        QVERIFY(!UnpackEZCode(u"00 00 01 AA 00 00 01 00 "));
        const auto untyped = UnpackEZCode(u"FD AB 02 AB 00 00 01 00 02 00 03 00 FF 00 00 00 01 00");
        QVERIFY(untyped && untyped->isLong && untyped->type == -1);
        QVERIFY(!UnpackEZCode(u"0A AC 02 AB 0D 00 01 00 02 00 03 00 FF 00 00 00 01 00"));
        QVERIFY(!UnpackEZCode({}));
        QCOMPARE(EzTypes().size(), 12);
    }

    void ResultOfTheActionDialog() {
        ActionDialog::Values values;
        QCOMPARE(ActionDialog::ActionResult(values), u'0' + ActionTag().Format().sliced(1));
        values.function = 5;
        values.relay = 3;
        QCOMPARE(ActionDialog::ActionResult(values).first(3), u"A3U"_s);
        values = {};
        values.pages[7].isDefault = false;
        QCOMPARE(ActionDialog::ActionResult(values).front(), u'A');
        values = {};
        values.pages[7].text = u"x"_s;
        QCOMPARE(ActionDialog::ActionResult(values).front(), u'A');
    }
};

SUITE(DatabaseRulesTest);

#include "database_rules_test.moc"

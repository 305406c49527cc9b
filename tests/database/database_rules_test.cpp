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
    void Devices() {
        const std::tuple<QString, QString, bool> rows[] = {
            {u"E5.05.07"_s, u"-"_s, true},
            {u"E5.05.08"_s, u"a-"_s, true},
            {u"E5.08.09"_s, u"a-"_s, true},
            {u"E5.08.10"_s, u"ar-"_s, true},
            {u"E5.08.25"_s, u"arelt-bi"_s, true},
            {u"G6.05.10"_s, u"arelt-bi"_s, true},
            {u"S5.05.08"_s, u"-"_s, true},
            {u"S5.08.25"_s, u"eb-i"_s, true},
            {u"S6.03.09"_s, u"eb-i"_s, true},
            {u"S6.03.10"_s, u"ebi-"_s, true},
            {u"S6.03.11"_s, u"eb-i"_s, false},
            {u"E10.00.0"_s, u"-"_s, true}, // firmware is text
            {u"E"_s, u"-"_s, true},
        };
        for (const auto& [version, controls, binary] : rows) {
            const auto c = DatabaseDevice::ControlsOf(version, binary);
            QCOMPARE(version + u' ' +
                         Letters({{'a', c.aux},
                                  {'r', c.relay},
                                  {'e', c.receive},
                                  {'l', c.lan},
                                  {'b', c.binary},
                                  {'i', c.line},
                                  {'t', c.target}}) +
                         u'-' + Letters({{'b', c.uncheckBinary}, {'i', c.uncheckLine}}),
                     version + u' ' + controls);
        }
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

    void EzMessages() {
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
        QVERIFY(!PackEZCode(untyped));
        const QString message = u"0A AC 02 AB 02 00 01 00 02 00 03 00 FF 00 00 00 01 00"_s;
        for (const auto& [fields, text] : {std::pair(shortForm(u"1"_s, u"1"_s), u"02 AB 01 AB 00 00 01 00"_s),
                                           {shortForm(u""_s, u"x"_s), u"01 AB 01 AB 00 00 00 00"_s},
                                           {shortForm(u"1"_s, u"65535"_s), u"01 AB 01 AB 00 00 FF FF"_s},
                                           {shortForm(u"99999"_s, u"-1"_s), u"01 AB 01 AB FF FF 00 00"_s},
                                           {longForm, message},
                                           {beyond, message}}) {
            QCOMPARE(PackEZCode(fields), text);
            // Whatever the limits made of the fields, the message keeps its meaning, also with a blank at its
            // end.
            const auto unpacked = UnpackEZCode(text);
            QVERIFY(unpacked);
            QCOMPARE(PackEZCode(*unpacked), text);
            QCOMPARE(UnpackEZCode(text + u' '), unpacked);
            QVERIFY(!UnpackEZCode(text + u"  "_s) && !UnpackEZCode(text.chopped(1)));
        }
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
        for (const bool isDefault : {false, true}) {
            values = {};
            values.pages[7].isDefault = isDefault;
            values.pages[7].text = isDefault ? u"x"_s : u""_s;
            QCOMPARE(ActionDialog::ActionResult(values).front(), u'A');
        }
    }
};

SUITE(DatabaseRulesTest);

#include "database_rules_test.moc"

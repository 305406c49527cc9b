#include "database/database_tree.h"
#include "database/elements.h"
#include "database/settings.h"

#include "support/golden.h"
#include "support/suite.h"

using namespace Qt::StringLiterals;

namespace {

/// Address, port, flags, length with the letter.
const QString UnusedGroup = u"000000000000000001000001"_s;
const QString UnusedTag = u"A0 "_s + UnusedGroup.repeated(8) + u"AAAAAAAA"_s;

/// The same record after a trip over the wire.
template <class Record> Record Travelled(const Record& record) {
    return Decode<Record>(Encode(record));
}

DatabaseSettings SettingsOfGolden() {
    DatabaseSettings s;
    s.active = s.lan = s.relay = s.receive = s.line = s.binary = true;
    s.target = {{u"192"_s, u"168"_s, u"7"_s, u"4"_s}, u"50001"_s};
    const int modes[] = {1, 2, 3, 4};
    const int maximum[] = {0x21, 0x22, 0x23, 0xE4};
    const int maximumLed[] = {5, 10, 11, 1};
    const qint32 minimumMask[] = {65535, 32769, 16386, -3};
    const qint32 maximumMask[] = {0xFF0, 0xF00F, 0xCC33, qint32(0x81020304)};
    for (int i = 0; i < 4; ++i) {
        const auto name = [i](const char* text) { return QString::fromLatin1(text) + QString::number(i); };
        s.analog[size_t(i)] = {
            modes[i],
            i == 0 || i == 2,
            QString::number(0x11 + i),
            QString::number(maximum[i]),
            QString::number(0x31 + i),
            {6 + i, QString::number(minimumMask[i]), name("min-remote-"), name("min-command-")},
            {maximumLed[i], QString::number(maximumMask[i]), name("max-remote-"), name("max-command-")}};
    }
    return s;
}

} // namespace

class DatabaseModelTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    void TagsAsWritten() {
        QCOMPARE(RemoteTag().Format(), DatabaseTree::DefaultRemoteTag);
        const RemoteTag remote{{0x010203F0, 8082, false, true, false, true}, u"%r!"_s};
        QCOMPARE(remote.Format(), u"001002003240080820101%r!"_s);
        QCOMPARE(RemoteTag::Parse(remote.Format()), remote);
        QVERIFY(!RemoteTag::Parse(DatabaseTree::DefaultRemoteTag.chopped(1)));

        QCOMPARE(ActionTag().Format(), UnusedTag);
        QCOMPARE(UnusedTag.size(), 203);
        ActionTag action;
        action.relay = 2;
        action.function = u'T';
        action.groups[0] = {{-1, 65535, false, true, true, true}, false, u"A B"_s};
        action.groups[7] = {{1, 1, true, false, false, false}, true, u"0 FF"_s};
        const QString text = u"A2T255255255255655350111004"_s + UnusedGroup.repeated(6) +
                             u"000000000001000011000005AA BAAAAAAB0 FF"_s;
        QCOMPARE(action.Format(), text);
        QCOMPARE(ActionTag::Parse(text), action);
    }

    /// Whatever stands in a tag, nothing is read beyond it.
    void BrokenTags() {
        QVERIFY(!ActionTag::Parse({}));
        QVERIFY(!ActionTag::Parse(u"0"_s + UnusedTag.sliced(1)));
        QVERIFY(!ActionTag::Parse(UnusedTag.first(194)));
        QCOMPARE(ActionTag::Parse(UnusedTag.first(195)), ActionTag());
        QString longer = UnusedTag;
        longer.replace(24, 3, u"999"_s);
        QCOMPARE(ActionTag::Parse(longer)->groups[0].text, u"AAAAAAA"_s);
        QString junk = UnusedTag;
        junk.replace(1, 26, u"x?-1 99x...\tAAAAAAAAAAA-05"_s);
        QCOMPARE(ActionTag::Parse(junk)->groups[0].text, QString());
        ActionTag tooLong;
        tooLong.groups[0].text = QString(2000, u'x');
        QCOMPARE(ActionTag::Parse(tooLong.Format())->groups[0].text, QString(ActionTag::TextMax, u'x'));
    }

    void HexTexts() {
        for (const auto& [text, hex] : {std::pair(u""_s, "00"),
                                        {u" 1"_s, "00 01"},
                                        {u"1  aB   0 "_s, "01 AB 00"},
                                        {u"100 FFFFFFFFFFFFFFFFFFFF 0FF"_s, "FF FF FF"},
                                        {u"x 1x2 ä"_s, "00 01 00"}}) {
            const QByteArray bytes = Golden::Hex(hex);
            QCOMPARE(HexToBinary(text), bytes);
            QCOMPARE(HexToBinary(BinaryToHex(bytes)), bytes);
        }
        QCOMPARE(BinaryToHex(Golden::Hex("00 AF")), u"00 AF "_s);
    }

    void ElementsAsWritten() {
        auto remote = DatabaseElement::OfRemote(u"amp"_s, u"001002003004080820101 %r! "_s);
        remote.number = 1;
        QCOMPARE(Encode(remote), Golden::DatabaseRemote());
        QCOMPARE(DatabaseElement::RemoteTagOf(Travelled(remote)).Format(), u"001002003004080820101%r!"_s);
        ActionTag tag;
        tag.relay = 3;
        tag.function = u'I';
        tag.groups[3] = {{qint32(0xE0000001), 65534, true, false, true, false}, true, u"0 FE 00 20 0"_s};
        auto action = DatabaseElement::OfAction(u"amp"_s, u"mute"_s, tag, 3);
        action.number = 2;
        QCOMPARE(Encode(action), Golden::DatabaseBinaryAction());
        tag.groups[0] = {{1, 2, false, true, false, true}, false, u"ab"_s};
        action = DatabaseElement::OfAction(u"amp"_s, u"mute"_s, tag, 0);
        QCOMPARE(action.ElementFlags, 0x44);
        QCOMPARE(DatabaseElement::ActionGroupOf(Travelled(action)), tag.groups[0]);
    }

    void GlobalRecordAsWritten() {
        QCOMPARE(Encode(ToGlobalRecord(SettingsOfGolden())), Golden::DatabaseGlobal());
        DatabaseSettings taken;
        TakeGlobalRecord(Decode<IRDBGlobalRecord>(Golden::DatabaseGlobal()), taken);
        QCOMPARE(taken, SettingsOfGolden());
    }

    void DataTooLongForItsField() {
        ActionTag tag;
        tag.groups[0].text = QString(300, u'x');
        tag.groups[1] = {{}, true, u"7 "_s.repeated(300)};
        for (int g = 0; g < 2; ++g) {
            const auto element = DatabaseElement::OfAction(u"a"_s, u"b"_s, tag, g);
            QCOMPARE(element.dataLength, 255);
            QCOMPARE(Encode(element).right(3), (g == 0 ? "xx " : "\x07\x07 "));
        }
        const auto remote =
            DatabaseElement::OfRemote(u"a"_s, DatabaseTree::DefaultRemoteTag.toString() + QString(300, u'y'));
        QCOMPARE(DatabaseElement::RemoteTagOf(Travelled(remote)).action, QString(256, u'y'));
    }

    void ElementsThatFitNowhere() {
        KeyedTree tree;
        DatabaseTree::AddRemote(tree, u"a"_s);
        DatabaseTree::AddCommand(tree, u"a"_s, u"b-c"_s);
        using enum DatabaseElement::Applied;
        const auto apply = [&tree](int kind, const QString& remote, const QString& command) {
            IRDBElementRecord element;
            element.ElementKind = quint8(kind);
            element.remote = remote;
            element.command = command;
            element.ElementFlags = 0x10; // port 2, as some servers give it back
            return DatabaseElement::Apply(tree, {&element, 1}).front();
        };
        QCOMPARE(apply(8, u"b"_s, {}), UnknownName);
        QCOMPARE(apply(10, u"a"_s, u"b"_s), UnknownName);
        QCOMPARE(apply(10, u"a-b"_s, u"c"_s), UnknownName); // the key of another node
        for (const int kind : {0, 7, 9, 18, 255})
            QCOMPARE(apply(kind, u"a"_s, u"b-c"_s), UnknownKind);
        QVERIFY(DatabaseTree::MarkedNodes(tree).empty());
        // Blanks around names don't count, and an action may come without the first one.
        QCOMPARE(apply(12, u" a "_s, u" b-c"_s), Yes);
        QVERIFY(ActionTag::Parse(tree.At(1).Tag())->groups[2].target.aux2);
    }

    void NumbersBeyondTheirField() {
        DatabaseSettings s;
        s.target = {{u"256"_s, u"x"_s, u""_s, u"-1"_s}, u"65536"_s};
        AnalogSettings& second = s.analog[1];
        second.minimum = u"256"_s;
        second.maximum = u"-1"_s;
        second.hysteresis = u"7 K"_s;
        second.min.mask = u"99999999999999999999"_s;
        second.max.mask = u"-2147483649"_s;
        second.min.led = -1;
        second.mode = 9;
        s.analog[2].sendsToHost = true;
        s.analog[3].min.remote = u"without a command"_s;
        s.analog[3].max.command = u"without a remote"_s;
        const IRDBGlobalRecord record = ToGlobalRecord(s);
        QCOMPARE(quint32(record.ip), 0xFF000000U);
        QCOMPARE(record.port, qint16(-1));
        QCOMPARE(record.minimum[1], 255);
        QCOMPARE(record.maximum[1], 0);
        QCOMPARE(record.hysteresis[1], 7);
        QCOMPARE(record.minimumMask[1], 2147483647);
        QCOMPARE(record.maximumMask[1], qint32(-2147483648));
        QCOMPARE(record.minimumLed[1], 0);
        QCOMPARE(record.mode, (std::array<quint8, 4>{0, 0, 0, 0}));
        QCOMPARE(record.minimumRemote[3] + record.maximumCommand[3], QString());

        s.Limit();
        QCOMPARE(s.target, (AddressTexts{{u"256"_s, u"x"_s, u""_s, u"-1"_s}, u"65535"_s}));
        QCOMPARE((QStringList{second.minimum, second.maximum, second.hysteresis, second.min.mask,
                              second.max.mask}),
                 (QStringList{u"255"_s, u"0"_s, u"7 K"_s, u"2147483647"_s, u"-2147483648"_s}));
        QCOMPARE(Encode(ToGlobalRecord(s)), Encode(record));

        IRDBGlobalRecord foreign;
        foreign.mode = {0x87, 7, 0x86, 0x7F};
        foreign.minimumLed = {12, 255, 11, 0};
        DatabaseSettings taken;
        const AddressTexts before{{u"1"_s, u"2"_s, u"3"_s, u"4"_s}, u"5"_s};
        taken.target = before;
        TakeGlobalRecord(foreign, taken);
        for (const auto& [input, mode, led] : {std::tuple(0, 0, 0), {1, 0, 0}, {2, 6, 11}, {3, 0, 0}}) {
            QCOMPARE(taken.analog[size_t(input)].mode, mode);
            QCOMPARE(taken.analog[size_t(input)].min.led, led);
        }
        QCOMPARE(taken.target, before);
    }
};

SUITE(DatabaseModelTest);

#include "database_model_test.moc"

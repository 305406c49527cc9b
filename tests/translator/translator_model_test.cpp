#include "base/tag_fields.h"
#include "translator/translator_elements.h"

#include "support/golden.h"
#include "support/suite.h"
#include "translator/random_tree.h"

using namespace Qt::StringLiterals;

namespace {

using Reason = TranslatorRefusal::Reason;

QStringList Lines(const KeyedNode& node, int depth = 0) {
    QStringList lines;
    for (int row = 0; row < node.Children(); ++row) {
        const KeyedNode& child = node.Child(row);
        lines += QString(depth, u' ') +
                 QStringList{child.Key(), child.Text(), child.Image(), child.Tag()}.join(u" | ");
        lines += Lines(child, depth + 1);
    }
    return lines;
}

std::vector<TranslatorRequest> Elements(const KeyedTree& tree, bool includeNames = false) {
    auto flat = FlattenTree(tree, includeNames);
    const auto* elements = std::get_if<std::vector<TranslatorRequest>>(&flat);
    return elements ? *elements : std::vector<TranslatorRequest>();
}

/// What is wrong with a tree or set: reason, count, element, name; or "fine".
QString Fault(const TranslatorRefusal* refusal) {
    return refusal ? u"%1 %2/%3 %4 %5"_s.arg(refusal->reason)
                         .arg(refusal->count)
                         .arg(refusal->limit)
                         .arg(refusal->element)
                         .arg(refusal->name)
                   : u"fine"_s;
}

/// An element of a set, as far as its place in the tree goes.
TranslatorRequest Element(int type, const QString& name, int remote = 0, int group = 0, int multi = 0) {
    TranslatorRequest element;
    element.ElementType = quint8(type);
    element.remote = u" %1 "_s.arg(name);
    element.RemoteIndex = quint8(remote);
    element.GroupIndex = quint8(group);
    element.MultiIndex = quint8(multi);
    return element;
}

/// The bytes of an element. Numbers as they stand on the wire, from `ElementFlags` to `GroupIndex` and from
/// the masks on.
QByteArray Bytes(const char* index, const char* head, const char* remote, const char* command,
                 const char* masks, const char* tail) {
    using namespace Golden;
    return Join({Hex("14"), Fill(7, 0), Hex("D2 00 00 00"), Hex(index), Hex(head),
                 (Ascii(remote) + '\0').leftJustified(80, ' '),
                 (Ascii(command) + '\0').leftJustified(20, ' '), Hex(masks), Hex(tail)});
}

} // namespace

class TranslatorModelTest : public QObject {
    Q_OBJECT

private slots:
    void ContainersOfKeys() {
        const struct {
            QString key;
            QString with;
            QString without;
        } rows[] = {
            {u"CON"_s, u"CON"_s, {}},
            {u"REMtv"_s, u"REMtv"_s, u"REMtv"_s},
            {u"GRPREMtv\\tv@1"_s, u"GRPREMtv\\tv@1"_s, u"REMtv"_s},
            {u"MULCON\\tv@1"_s, u"MULCON\\tv@1"_s, u"CON"_s},
            {u"RCVGRPREMtv\\tv@1\\tv@2"_s, u"GRPREMtv\\tv@1"_s, u"GRPREMtv\\tv@1"_s},
            {u"MACCON\\tv@2"_s, u"CON"_s, u"CON"_s},
            {u"TOGREMtv\\tv@2"_s, u"REMtv"_s, u"REMtv"_s},
            {u"SND12MACCON\\tv@2"_s, u"MACCON\\tv@2"_s, u"MACCON\\tv@2"_s},
            {u"SND@RCVCON\\tv@2"_s, u"RCVCON\\tv@2"_s, u"RCVCON\\tv@2"_s},
        };
        for (const auto& row : rows) {
            QCOMPARE(ContainerKey(row.key, true), row.with);
            QCOMPARE(ContainerKey(row.key, false), row.without);
        }
        QCOMPARE(ContainerKey(u"", true), QString());
    }

    void TagsOfNewNodes() {
        KeyedTree tree;
        ResetTranslatorTree(tree);
        QCOMPARE(Lines(tree.Top()), QStringList{u"CON | Config | Config | CON\\Config\\65535\\65535\\10"_s});
        QCOMPARE(FormatTag(ContainerTag{.name = u"tv"_s}), u"REM\\tv\\65535\\65535\\0"_s);
        QCOMPARE(FormatTag(GroupTag{.remote = u"a"_s, .command = u"b"_s, .type = 7}), u"a\\b\\7\\65535\\0"_s);
        QCOMPARE(FormatTag(CommandTag{.remote = u"a"_s, .command = u"b"_s, .type = 100}),
                 u"a\\b\\100\\65535\\0\\0\\0"_s);
        const QString bare = u"a\\b\\6\\65535"_s;
        QCOMPARE(FormatTag(ParseSendTag(bare)), bare);
        QCOMPARE(TagField(bare, 5), QString());
        for (const QString& whole :
             {u"a\\b\\6\\65535\\100"_s, u"a\\b\\6\\-1\\0\\0"_s, u"a\\b\\6\\1\\\\IO110"_s})
            QCOMPARE(FormatTag(ParseSendTag(whole)), whole);
        // The condition may stand where the pause is missing.
        QCOMPARE(ParseSendTag(u"a\\b\\6\\1\\IO101").condition, u"IO101"_s);
    }

    void WhatGoesOutComesBack() {
        int nodes = 0;
        for (quint32 seed = 1; seed <= 150; ++seed) {
            RandomTree random(seed);
            const auto elements = Elements(random.tree, true);
            QCOMPARE(int(elements.size()), random.tree.Count());
            std::vector<TranslatorRequest> received;
            received.reserve(elements.size());
            for (const TranslatorRequest& element : elements)
                received.push_back(Decode<TranslatorRequest>(Encode(element)));
            KeyedTree tree;
            ResetTranslatorTree(tree);
            const auto built = BuildNodes(received, tree);
            QCOMPARE(Fault(std::get_if<TranslatorRefusal>(&built)), u"fine"_s);
            FillTree(tree, std::get<TranslatorNodes>(built));
            QCOMPARE(Lines(tree.Top()), Lines(random.expected.Top()));
            // From now on nothing changes any more.
            const auto again = BuildNodes(Elements(tree), tree);
            KeyedTree third;
            FillTree(third, std::get<TranslatorNodes>(again));
            QCOMPARE(Lines(third.Top()), Lines(tree.Top()));
            nodes += tree.Count();
        }
        QVERIFY2(nodes > 3000, qPrintable(QString::number(nodes)));
    }

    /// One of each kind, each field with a value of its own.
    void BytesOfASet() {
        KeyedTree tree;
        AddNode(tree, MakeRoot({true, u"Haus"_s, 0xFFFE, 0x7FFF, 0x3A}));
        AddNode(tree, MakeRemote({false, u"tv"_s, 0x0102, 0x0304, 0x05}));
        AddNode(tree, MakeGroup(u"REMtv"_s, {u"tv"_s, u"grün"_s, 0, 0x0506, 0x09}));
        const QString group = u"GRPREMtv\\tv@grün"_s;
        AddNode(tree, MakeReceived(TranslatorKind::Command, group,
                                   {u"tv"_s, u"rot"_s, 1, 0x0708, 0xB6, 0, 128 + 32}));
        AddNode(tree, MakeGroup(group, {u"tv"_s, u"fn"_s, 7, 0x090A, 0x0C}));
        const QString multi = u"MULGRPREMtv\\tv@grün\\tv@fn"_s;
        AddNode(tree,
                MakeReceived(TranslatorKind::Command, multi, {u"tv"_s, u"laut"_s, 2, 0xFFFF, 0, 51, 750}));
        const QString loud = u"RCV"_s + multi + u"\\tv@laut"_s;
        AddNode(tree, MakeSend({}, loud, {u"amp"_s, u"+"_s, 0x0B0C, {}, {}}));
        AddNode(tree, MakeSend(u"@"_s, loud, {u"amp"_s, u"++"_s, 0x0D0E, 0, u"IO110"_s}));
        AddNode(tree, MakeGroup(TranslatorRootKey, {u"x"_s, u"y"_s, 7, -2, 0}));
        AddNode(tree, MakeReceived(TranslatorKind::Macro, TranslatorRootKey,
                                   {u"tv"_s, u"an"_s, 100, 0xFFFF, 0, 0, 112}));
        AddNode(tree, MakeSend(u"0"_s, u"MACCON\\tv@an"_s, {u"amp"_s, u"on"_s, 0xFFFF, 4000, u"IO101"_s}));
        AddNode(tree, MakeReceived(TranslatorKind::Toggle, TranslatorRootKey,
                                   {u"tv"_s, u"um"_s, 70, 0xFFFF, 0, 1, 0}));

        //    index          flags type param repeat pause remote group   names           receive, send mask
        //    multi names IO value
        const QByteArray expected[] = {
            Bytes("00 00 00 00", "3A 04 00 00 00 00 00 00", "Haus", "", "FE FF 00 00 FF 7F 00 00",
                  "00 00 00 00"),
            Bytes("01 00 00 00", "05 05 00 00 00 00 01 00", "tv", "", "02 01 00 00 04 03 00 00",
                  "00 00 00 00"),
            Bytes("02 00 00 00", "09 00 00 00 00 00 01 01", "tv", "gr\xFCn", "06 05 00 00 00 00 00 00",
                  "00 00 00 00"),
            Bytes("03 00 00 00", "B6 01 0A 00 00 00 01 01", "tv", "rot", "08 07 00 00 00 00 00 00",
                  "00 01 00 00"),
            Bytes("04 00 00 00", "0C 07 00 00 00 00 01 01", "tv", "fn", "0A 09 00 00 00 00 00 00",
                  "01 00 00 00"),
            Bytes("05 00 00 00", "00 03 2F 33 00 00 01 01", "tv", "laut", "FF FF 00 00 00 00 00 00",
                  "01 01 00 00"),
            Bytes("06 00 00 00", "00 06 00 00 00 00 01 01", "amp", "+", "00 00 00 00 0C 0B 00 00",
                  "01 00 00 00"),
            Bytes("07 00 00 00", "00 06 00 00 00 00 01 01", "amp", "++", "00 00 00 00 0E 0D 00 00",
                  "01 00 81 00"),
            Bytes("08 00 00 00", "00 07 00 00 00 00 00 00", "x", "y", "FE FF FF FF 00 00 00 00",
                  "02 00 00 00"),
            Bytes("09 00 00 00", "00 65 07 00 00 00 00 00", "tv", "an", "FF FF 00 00 00 00 00 00",
                  "00 01 00 00"),
            Bytes("0A 00 00 00", "00 06 00 00 A0 0F 00 00", "amp", "on", "00 00 00 00 FF FF 00 00",
                  "00 00 80 01"),
            Bytes("0B 00 00 00", "00 46 00 01 00 00 00 00", "tv", "um", "FF FF 00 00 00 00 00 00",
                  "00 01 00 00"),
        };
        const auto elements = Elements(tree, true);
        QCOMPARE(elements.size(), std::size(expected));
        for (size_t i = 0; i < elements.size(); ++i)
            QCOMPARE(Encode(elements[i]).toHex(' '), expected[i].toHex(' '));
    }

    void NumbersOfContainers() {
        KeyedTree tree;
        ResetTranslatorTree(tree);
        for (const QString& remote : {u"a"_s, u"b"_s}) {
            AddNode(tree, MakeRemote({.name = remote}));
            AddNode(tree, MakeGroup(RemoteKey(remote), {remote, u"m"_s, 7}));
            AddNode(tree, MakeGroup(u"MULREM%1\\%1@m"_s.arg(remote), {remote, u"g"_s, 0}));
            AddNode(tree, MakeReceived(TranslatorKind::Command, u"GRPMULREM%1\\%1@m\\%1@g"_s.arg(remote),
                                       {remote, u"c"_s}));
        }
        QStringList numbers;
        for (const TranslatorRequest& element : Elements(tree))
            numbers += u"%1:%2%3%4"_s.arg(element.ElementType)
                           .arg(element.RemoteIndex)
                           .arg(element.GroupIndex)
                           .arg(element.MultiIndex);
        QCOMPARE(numbers.join(u' '), u"4:000 5:100 7:101 0:111 1:110 5:200 7:202 0:222 1:220"_s);
    }

    void LimitsOfATree_data() {
        QTest::addColumn<int>("count");
        QTest::addColumn<int>("kind"); // what there are `count` of
        QTest::addColumn<QString>("fault");
        enum { Commands, Remotes, Groups, Multis, MacroSteps, ToggleSteps, Timeout };
        QTest::newRow("elements") << 1000 << int(Commands) << u"fine"_s; // and the root
        QTest::newRow("elements+") << 1001 << int(Commands) << u"0 1002/1001 0 "_s;
        QTest::newRow("remotes") << 40 << int(Remotes) << u"fine"_s;
        QTest::newRow("remotes+") << 41 << int(Remotes) << u"1 41/40 0 "_s;
        QTest::newRow("groups") << 40 << int(Groups) << u"fine"_s;
        QTest::newRow("groups+") << 41 << int(Groups) << u"2 41/40 0 "_s;
        QTest::newRow("shift keys") << 255 << int(Multis) << u"fine"_s;
        QTest::newRow("shift keys+") << 256 << int(Multis) << u"3 256/255 0 "_s;
        QTest::newRow("macro") << 155 << int(MacroSteps) << u"fine"_s;
        QTest::newRow("macro+") << 156 << int(MacroSteps) << u"4 156/155 0 a.b"_s;
        QTest::newRow("toggle") << 29 << int(ToggleSteps) << u"fine"_s;
        QTest::newRow("toggle+") << 30 << int(ToggleSteps) << u"4 30/29 0 a.b"_s;
        QTest::newRow("time-out") << 4087 << int(Timeout) << u"fine"_s;
        QTest::newRow("time-out+") << 4088 << int(Timeout) << u"5 4088/4087 0 a.b"_s;
    }

    void LimitsOfATree() {
        QFETCH(const int, count);
        QFETCH(const int, kind);
        KeyedTree tree;
        ResetTranslatorTree(tree);
        AddNode(tree, MakeRemote({.name = u"r"_s}));
        tree.Remove(kind == 2 ? QString() : u"REMr"_s);
        const QString macro = u"MACCON\\a@b"_s;
        const QString toggle = u"TOGCON\\a@b"_s;
        if (kind == 4)
            AddNode(tree, MakeReceived(TranslatorKind::Macro, TranslatorRootKey, {u"a"_s, u"b"_s, 100}));
        else if (kind == 5)
            AddNode(tree, MakeReceived(TranslatorKind::Toggle, TranslatorRootKey, {u"a"_s, u"b"_s, 75}));
        else if (kind == 6)
            AddNode(tree, MakeReceived(TranslatorKind::Command, TranslatorRootKey,
                                       {u"a"_s, u"b"_s, 2, 0, 0, 51, count}));
        for (int i = 0; i < count && kind != 6; ++i) {
            const QString name = QString::number(i);
            switch (kind) {
            case 0:
                AddNode(tree, MakeReceived(TranslatorKind::Command, TranslatorRootKey, {name, name}));
                break;
            case 1: AddNode(tree, MakeRemote({.name = name})); break;
            case 2: AddNode(tree, MakeGroup(u"REMr"_s, {name, name})); break;
            case 3: AddNode(tree, MakeGroup(TranslatorRootKey, {name, name, 7})); break;
            case 4: AddNode(tree, MakeSend(name, macro, {})); break;
            case 5: AddNode(tree, MakeSend(name, toggle, {})); break;
            }
        }
        const auto flat = FlattenTree(tree, false);
        QTEST(Fault(std::get_if<TranslatorRefusal>(&flat)), "fault");
    }

    void SetsThatAreNotSound() {
        const auto root = Element(4, u"R"_s);
        const auto remote = Element(5, u"tv"_s, 1);
        const auto macro = Element(102, u"m"_s);
        const struct {
            std::vector<TranslatorRequest> elements;
            QString fault;
        } rows[] = {
            {{}, u"10 0/0 0 "_s},
            {std::vector(1002, root), u"0 1002/1001 0 "_s},
            {{root, Element(5, u"tv"_s, 41)}, u"1 41/40 2 tv"_s},
            {{root, remote, Element(0, u"g"_s, 1, 255)}, u"2 255/40 3 g"_s},
            {{root, Element(8, u"odd"_s)}, u"6 8/0 2 odd"_s},
            {{root, Element(69, u"odd"_s)}, u"6 69/0 2 odd"_s},
            {{root, Element(6, u"step"_s)}, u"7 0/0 2 step"_s},
            {{root, Element(1, u"c"_s, 1)}, u"7 0/0 2 c"_s},
            {{root, remote, Element(1, u"c"_s, 0, 0, 9)}, u"7 0/0 3 c"_s},
            {{root, remote, Element(0, u"g"_s, 2, 1)}, u"7 0/0 3 g"_s},
            {{root, macro, root, Element(6, u"step"_s)}, u"7 0/0 4 step"_s}, // the second root starts anew
            {{root, macro, macro}, u"8 0/0 3 m"_s},
            {{Element(101, u"old"_s)}, u"8 0/0 1 old"_s},
            {{root, Element(1, u"a\\b"_s)}, u"9 0/0 2 a\\b"_s},
            {{root, remote, Element(1, u"c"_s, 1), macro, Element(6, u"s"_s), Element(6, u"s"_s)}, u"fine"_s},
        };
        KeyedTree tree;
        ResetTranslatorTree(tree);
        AddNode(tree, MakeReceived(TranslatorKind::Macro, TranslatorRootKey, {u"old"_s, {}, 100}));
        for (const auto& row : rows) {
            const auto built = BuildNodes(row.elements, tree);
            QCOMPARE(Fault(std::get_if<TranslatorRefusal>(&built)), row.fault);
        }
        const auto flat = FlattenTree(KeyedTree(), false);
        QCOMPARE(Fault(std::get_if<TranslatorRefusal>(&flat)), u"10 0/0 0 "_s);
        // Without a root they join what stands there.
        FillTree(tree, std::get<TranslatorNodes>(BuildNodes({macro}, tree)));
        QCOMPARE(tree.Find(TranslatorRootKey)->Children(), 2);
    }

    /// Whatever a server sends as elements, the tree and the way out of it stay sound.
    void ElementsOfAnyBytes() {
        QRandomGenerator random(7);
        KeyedTree tree;
        ResetTranslatorTree(tree);
        int filled = 0;
        for (int round = 0; round < 3000; ++round) {
            std::vector<TranslatorRequest> elements{Element(4, u"R"_s)};
            for (int i = int(random.bounded(12)); i > 0; --i) {
                QByteArray bytes(TranslatorRequest::Size, '\0');
                for (char& byte : bytes)
                    byte = char(random.generate());
                auto element = Decode<TranslatorRequest>(bytes);
                element.RemoteIndex %= 2;
                element.GroupIndex %= 2;
                element.MultiIndex %= 2;
                elements.push_back(element);
            }
            const auto built = BuildNodes(elements, tree);
            if (const auto* nodes = std::get_if<TranslatorNodes>(&built)) {
                FillTree(tree, *nodes);
                QCOMPARE(tree.Count(), int(elements.size()));
                QCOMPARE(Elements(tree).size(), elements.size());
                ++filled;
            }
        }
        QVERIFY(filled > 100);
    }
};

SUITE(TranslatorModelTest);

#include "translator_model_test.moc"

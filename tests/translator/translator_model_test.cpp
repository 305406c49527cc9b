#include "base/tag_fields.h"
#include "translator/translator_editing_rules.h"
#include "translator/translator_elements.h"

#include "support/suite.h"

#include <QRandomGenerator>

using namespace Qt::StringLiterals;

namespace {

/// A line for each node, in the order of the tree.
QStringList Lines(const KeyedNode& node) {
    QStringList lines;
    for (int row = 0; row < node.Children(); ++row) {
        const KeyedNode& child = node.Child(row);
        lines += QStringList{child.Key(), child.Text(), child.Image(), child.Tag()}.join(u" | ");
        lines += Lines(child);
    }
    return lines;
}

std::vector<TranslatorRequest> Elements(const KeyedTree& tree) {
    return std::get<std::vector<TranslatorRequest>>(FlattenTree(tree, true));
}

/// What is wrong with a tree or set: reason, count, element, name; or "fine".
template <class Result> QString Fault(const Result& result) {
    const auto* refusal = std::get_if<TranslatorRefusal>(&result);
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

/// What of an element goes out: its bytes from `ElementFlags` to `GroupIndex`, the names, and its bytes from
/// the masks on.
QString Written(const TranslatorRequest& element) {
    const QByteArray bytes = Encode(element);
    const auto hex = [&](int from, int count) {
        return QString::fromLatin1(bytes.sliced(from, count).toHex(' '));
    };
    const auto name = [&](int from, int count) {
        return QString::fromLatin1(bytes.sliced(from, count).constData());
    };
    return QStringList{hex(16, 8), name(24, 80), name(104, 20), hex(124, 8), hex(132, 4)}.join(u" | ");
}

/// A tree of all kinds at all places, and beside it what comes back of it.
class RandomTree {
public:
    explicit RandomTree(quint32 seed)
        : random(seed) {
        Add(MakeRoot({true, Name(), Mask(), Mask(), Below(256)}));
        for (int i = 0; i < 60; ++i) {
            const QString at = tree.At(Below(tree.Count())).Key();
            const auto kind = TranslatorKind(Below(int(TranslatorKind::Send)));
            if (kind == TranslatorKind::Remote && at == TranslatorRootKey)
                Add(MakeRemote({false, Name(), Mask(), Mask(), Below(256)}));
            else if (kind == TranslatorKind::Group && ContainerForNew(tree, at, kind) == at)
                Add(MakeGroup(at, {Name(), u"Taste"_s, TranslatorType::Group, Mask(), Below(256)}));
            else if (kind == TranslatorKind::Multi && ContainerForNew(tree, at, kind) == at)
                Add(MakeGroup(at, {Name(), u"Taste"_s, TranslatorType::Multi, Mask(), Below(256)}));
            else if (IsReceived(kind) && KindOf(at) < TranslatorKind::Command)
                AddReceived(at, kind);
        }
    }

    KeyedTree tree;
    KeyedTree expected;

private:
    int Below(int limit) { return int(random.bounded(limit)); }
    qint32 Mask() { return qint32(random.generate()); }
    /// No two are the same.
    QString Name() { return u"Gerät %1 @.ü€"_s.arg(++names); }

    void Add(const TranslatorNode& node) { Add(node, node); }
    void Add(const TranslatorNode& node, const TranslatorNode& loaded) {
        QVERIFY(AddNode(tree, node) && AddNode(expected, loaded));
    }

    /// The type counts the steps of macros and toggles; a param comes back in units of 16, the tie to the
    /// even one; steps are numbered and have a pause and a condition.
    void AddReceived(const QString& at, TranslatorKind kind) {
        const bool isCommand = kind == TranslatorKind::Command;
        const int base = isCommand ? 1 : kind == TranslatorKind::Macro ? 100 : 70;
        const int steps = Below(isCommand ? 3 : 6);
        CommandTag tag{Name(),     u"on"_s,    base + Below(isCommand ? 2 : 20), Mask(),
                       Below(256), Below(256), Below(CommandTag::ParamMax + 1)};
        const auto node = MakeReceived(kind, at, tag);
        if (!isCommand)
            tag.type = base + steps;
        tag.param = 16 * ((tag.param + 7 + tag.param / 16 % 2) / 16);
        Add(node, MakeReceived(kind, at, tag));
        for (int step = 0; step < steps; ++step) {
            SendTag send{Name(), u"off"_s, Mask(), {}, u"IO1%1%2"_s.arg(Below(2)).arg(Below(2))};
            if (Below(2) == 1)
                send.condition = Below(2) == 1 ? u"0"_s : QString();
            if (Below(2) == 1)
                send.pause = Below(4001);
            SendTag loaded = send;
            loaded.pause = send.pause.value_or(0);
            loaded.condition = send.condition.size() > 1 ? send.condition : u"IO000"_s;
            Add(MakeSend(QString::number(7 * step + 3), node.key, send),
                MakeSend(QString::number(step), node.key, loaded));
        }
    }

    QRandomGenerator random;
    int names = 0;
};

} // namespace

class TranslatorModelTest : public QObject {
    Q_OBJECT

private slots:
    void ContainersOfKeys() {
        const std::array<QString, 3> rows[] = {
            {u"CON"_s, u"CON"_s, {}},
            {u"REMtv"_s, u"REMtv"_s, u"REMtv"_s},
            {u"GRPREMtv\\tv@1"_s, u"GRPREMtv\\tv@1"_s, u"REMtv"_s},
            {u"MULCON\\tv@1"_s, u"MULCON\\tv@1"_s, u"CON"_s},
            {u"RCVGRPREMtv\\tv@1\\tv@2"_s, u"GRPREMtv\\tv@1"_s, u"GRPREMtv\\tv@1"_s},
            {u"MACCON\\tv@2"_s, u"CON"_s, u"CON"_s},
            {u"TOGREMtv\\tv@2"_s, u"REMtv"_s, u"REMtv"_s},
            {u"SND12MACCON\\tv@2"_s, u"MACCON\\tv@2"_s, u"MACCON\\tv@2"_s},
            {u"SND@RCVCON\\tv@2"_s, u"RCVCON\\tv@2"_s, u"RCVCON\\tv@2"_s},
            {},
        };
        for (const auto& [key, with, without] : rows) {
            QCOMPARE(ContainerKey(key, true), with);
            QCOMPARE(ContainerKey(key, false), without);
        }
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
            const auto elements = Elements(random.tree);
            QCOMPARE(int(elements.size()), random.tree.Count());
            std::vector<TranslatorRequest> received;
            received.reserve(elements.size());
            for (const TranslatorRequest& element : elements)
                received.push_back(Decode<TranslatorRequest>(Encode(element)));
            KeyedTree tree;
            ResetTranslatorTree(tree);
            const auto built = BuildNodes(received, tree);
            QCOMPARE(Fault(built), u"fine"_s);
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

    /// One of each kind, each field with a value of its own: flags type param repeat pause remote group,
    /// names, receive and send mask, multi names IO value.
    void BytesOfASet() {
        using enum TranslatorKind;
        const QString root = TranslatorRootKey;
        const QString group = u"GRPREMtv\\tv@grün"_s;
        const QString multi = u"MULGRPREMtv\\tv@grün\\tv@fn"_s;
        const QString loud = u"RCV"_s + multi + u"\\tv@laut"_s;
        const std::pair<TranslatorNode, QString> rows[] = {
            {MakeRoot({true, u"Haus"_s, 0xFFFE, 0x7FFF, 0x3A}),
             u"3a 04 00 00 00 00 00 00 | Haus |  | fe ff 00 00 ff 7f 00 00 | 00 00 00 00"_s},
            {MakeRemote({false, u"tv"_s, 0x0102, 0x0304, 0x05}),
             u"05 05 00 00 00 00 01 00 | tv |  | 02 01 00 00 04 03 00 00 | 00 00 00 00"_s},
            {MakeGroup(u"REMtv"_s, {u"tv"_s, u"grün"_s, 0, 0x0506, 0x09}),
             u"09 00 00 00 00 00 01 01 | tv | grün | 06 05 00 00 00 00 00 00 | 00 00 00 00"_s},
            {MakeReceived(Command, group, {u"tv"_s, u"rot"_s, 1, 0x0708, 0xB6, 0, 128 + 32}),
             u"b6 01 0a 00 00 00 01 01 | tv | rot | 08 07 00 00 00 00 00 00 | 00 01 00 00"_s},
            {MakeGroup(group, {u"tv"_s, u"fn"_s, 7, 0x090A, 0x0C}),
             u"0c 07 00 00 00 00 01 01 | tv | fn | 0a 09 00 00 00 00 00 00 | 01 00 00 00"_s},
            {MakeReceived(Command, multi, {u"tv"_s, u"laut"_s, 2, 0xFFFF, 0, 51, 750}),
             u"00 03 2f 33 00 00 01 01 | tv | laut | ff ff 00 00 00 00 00 00 | 01 01 00 00"_s},
            {MakeSend({}, loud, {u"amp"_s, u"+"_s, 0x0B0C, {}, {}}),
             u"00 06 00 00 00 00 01 01 | amp | + | 00 00 00 00 0c 0b 00 00 | 01 00 00 00"_s},
            {MakeSend(u"@"_s, loud, {u"amp"_s, u"++"_s, 0x0D0E, 0, u"IO110"_s}),
             u"00 06 00 00 00 00 01 01 | amp | ++ | 00 00 00 00 0e 0d 00 00 | 01 00 81 00"_s},
            {MakeGroup(root, {u"x"_s, u"y"_s, 7, -2, 0}),
             u"00 07 00 00 00 00 00 00 | x | y | fe ff ff ff 00 00 00 00 | 02 00 00 00"_s},
            {MakeReceived(Macro, root, {u"tv"_s, u"an"_s, 100, 0xFFFF, 0, 0, 112}),
             u"00 65 07 00 00 00 00 00 | tv | an | ff ff 00 00 00 00 00 00 | 00 01 00 00"_s},
            {MakeSend(u"0"_s, u"MACCON\\tv@an"_s, {u"amp"_s, u"on"_s, 0xFFFF, 4000, u"IO101"_s}),
             u"00 06 00 00 a0 0f 00 00 | amp | on | 00 00 00 00 ff ff 00 00 | 00 00 80 01"_s},
            {MakeReceived(Toggle, root, {u"tv"_s, u"um"_s, 70, 0xFFFF, 0, 1, 0}),
             u"00 46 00 01 00 00 00 00 | tv | um | ff ff 00 00 00 00 00 00 | 00 01 00 00"_s},
            // The numbers of containers count all of the set; below a group its shift key doesn't count.
            {MakeRemote({false, u"b"_s, 0, 0, 0}),
             u"00 05 00 00 00 00 02 00 | b |  | 00 00 00 00 00 00 00 00 | 00 00 00 00"_s},
            {MakeGroup(u"REMb"_s, {u"b"_s, u"m"_s, 7, 0}),
             u"00 07 00 00 00 00 02 00 | b | m | 00 00 00 00 00 00 00 00 | 03 00 00 00"_s},
            {MakeGroup(u"MULREMb\\b@m"_s, {u"b"_s, u"g"_s, 0, 0}),
             u"00 00 00 00 00 00 02 02 | b | g | 00 00 00 00 00 00 00 00 | 03 00 00 00"_s},
            {MakeReceived(Command, u"GRPMULREMb\\b@m\\b@g"_s, {u"b"_s, u"c"_s, 1, 0}),
             u"00 01 00 00 00 00 02 02 | b | c | 00 00 00 00 00 00 00 00 | 00 01 00 00"_s},
        };
        KeyedTree tree;
        for (const auto& [node, written] : rows)
            QVERIFY(AddNode(tree, node));
        const auto elements = Elements(tree);
        QCOMPARE(elements.size(), std::size(rows));
        for (size_t i = 0; i < elements.size(); ++i) {
            QCOMPARE(elements[i].ElementIndex, int(i));
            QCOMPARE(Written(elements[i]), rows[i].second);
        }
    }

    void LimitsOfATree() {
        const QString macro = u"MACCON\\a@b"_s;
        const QString toggle = u"TOGCON\\a@b"_s;
        const struct {
            int most;
            int others; ///< nodes of the tree below that count, too
            QString parent;
            QString key;
            QString fault; ///< of one more
        } rows[] = {
            {1001, 4, u"CON"_s, u"RCVCON\\%1@x"_s, u"0 %1/%2 0 "_s},
            {40, 1, u"CON"_s, u"REM%1"_s, u"1 %1/%2 0 "_s},
            {40, 0, u"REMr"_s, u"GRPREMr\\%1@x"_s, u"2 %1/%2 0 "_s},
            {255, 0, u"CON"_s, u"MULCON\\%1@x"_s, u"3 %1/%2 0 "_s},
            {155, 0, macro, u"SND%1"_s + macro, u"4 %1/%2 0 a.b"_s},
            {29, 0, toggle, u"SND%1"_s + toggle, u"4 %1/%2 0 a.b"_s},
        };
        using enum TranslatorKind;
        for (const auto& row : rows) {
            KeyedTree tree;
            ResetTranslatorTree(tree);
            AddNode(tree, MakeRemote({.name = u"r"_s}));
            AddNode(tree, MakeReceived(Macro, TranslatorRootKey, {u"a"_s, u"b"_s, 100}));
            AddNode(tree, MakeReceived(Toggle, TranslatorRootKey, {u"a"_s, u"b"_s, 75}));
            for (int count = row.others; count < row.most; ++count)
                QVERIFY(AddNode(tree, {row.key.arg(count), row.parent, {}, {}, {}}));
            QCOMPARE(Fault(FlattenTree(tree, false)), u"fine"_s);
            AddNode(tree, {row.key.arg(row.most), row.parent, {}, {}, {}});
            QCOMPARE(Fault(FlattenTree(tree, false)), row.fault.arg(row.most + 1).arg(row.most));
        }
        KeyedTree tree;
        QCOMPARE(Fault(FlattenTree(tree, false)), u"10 0/0 0 "_s);
        ResetTranslatorTree(tree);
        for (const auto& [timeout, fault] : {std::pair(4087, u"fine"_s), {4088, u"5 4088/4087 0 a.b"_s}}) {
            AddNode(tree, MakeReceived(Command, TranslatorRootKey, {u"a"_s, u"b"_s, 2, 0, 0, 51, timeout}));
            QCOMPARE(Fault(FlattenTree(tree, false)), fault);
            tree.Remove(u"RCVCON\\a@b"_s);
        }
    }

    void SetsThatAreNotSound() {
        const auto root = Element(4, u"R"_s);
        const auto remote = Element(5, u"tv"_s, 1);
        const auto macro = Element(102, u"m"_s);
        const std::pair<std::vector<TranslatorRequest>, QString> rows[] = {
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
        for (const auto& [elements, fault] : rows)
            QCOMPARE(Fault(BuildNodes(elements, tree)), fault);
        // Without a root they join what stands there.
        FillTree(tree, std::get<TranslatorNodes>(BuildNodes({macro}, tree)));
        QCOMPARE(tree.Find(TranslatorRootKey)->Children(), 2);
    }
};

SUITE(TranslatorModelTest);

#include "translator_model_test.moc"

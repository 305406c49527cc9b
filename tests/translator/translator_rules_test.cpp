#include "translator/translator_device.h"
#include "translator/translator_editing_rules.h"

#include "support/suite.h"

using namespace Qt::StringLiterals;

namespace {

using enum TranslatorKind;

/// A remote with a shift key, a group in that and another beside it; a command with a step in the root, in
/// the group and a macro in the remote.
struct Garden {
    Garden() {
        ResetTranslatorTree(tree);
        const auto add = [this](const QString& at, TranslatorKind kind, const QString& command) {
            return AddFromSource(tree, at, kind, u"tv"_s, command);
        };
        remote = AddRemote(tree, u" TV "_s);
        multi = add(remote, Multi, u"m"_s);
        inner = add(multi, Group, u"g"_s);
        group = add(remote, Group, u"g"_s);
        rootMulti = add(root, Multi, u"m"_s);
        command = add(root, Command, u"1"_s);
        macro = add(remote, Macro, u"2"_s);
        grouped = add(group, Command, u"3"_s);
        step = DropCommand(tree, command, {u"amp"_s, u"+"_s}, 0);
        groupedStep = DropCommand(tree, grouped, {u"amp"_s, u"-"_s}, 0);
    }

    KeyedTree tree;
    QString root = TranslatorRootKey;
    QString remote, multi, inner, group, rootMulti, command, macro, grouped, step, groupedStep;
};

QStringList ChildKeys(const KeyedTree& tree, const QString& key) {
    QStringList keys;
    for (int row = 0; row < tree.Find(key)->Children(); ++row)
        keys += tree.Find(key)->Child(row).Key();
    return keys;
}

} // namespace

class TranslatorRulesTest : public QObject {
    Q_OBJECT

private slots:
    void WhatADeviceCan() {
        for (const auto& [version, can] : {std::pair(u"G5.04.05"_s, u"names shift"_s),
                                           {u"E5.04.04"_s, u" shift"_s},
                                           {u"X6.00.00"_s, u" shift"_s},
                                           {u"X4.04.27  "_s, u" shift"_s},
                                           {u"E4.04.26"_s, u""_s}}) {
            const TranslatorDevice device{version.left(1), version.mid(1), 0, 0};
            QCOMPARE((device.HasNames() ? u"names"_s : u""_s) +
                         (KnowsShiftKeys(u"0.1 - "_s + version) ? u" shift"_s : u""_s),
                     can);
        }
    }

    void WhereNewNodesGo() {
        const Garden g;
        QCOMPARE(g.inner, u"GRPMULREMTV\\tv@m\\tv@g"_s);
        const struct {
            QString selected;
            QString group;
            QString multi;
            QString command;
        } rows[] = {
            {{}, {}, {}, g.root},
            {u"REMgone"_s, {}, {}, g.root},
            {g.root, {}, g.root, g.root},
            {g.remote, g.remote, g.remote, g.remote},
            {g.multi, g.multi, {}, g.multi},
            {g.rootMulti, {}, {}, g.rootMulti},
            {g.group, {}, g.group, g.group},
            {g.inner, {}, g.inner, g.inner},
            {g.command, {}, {}, g.root},
            {g.macro, {}, {}, g.remote},
            {g.grouped, {}, {}, g.group},
            {g.step, {}, g.root, g.root},
            {g.groupedStep, {}, g.group, g.group},
        };
        for (const auto& row : rows) {
            QCOMPARE(ContainerForNew(g.tree, row.selected, Group), row.group);
            QCOMPARE(ContainerForNew(g.tree, row.selected, Multi), row.multi);
            QCOMPARE(ContainerForNew(g.tree, row.selected, Command), row.command);
            QCOMPARE(ContainerForNew(g.tree, row.selected, Macro), row.command);
        }
        Garden again;
        const int count = again.tree.Count();
        QCOMPARE(AddFromSource(again.tree, again.remote, Group, u"tv"_s, u"g"_s), QString());
        QCOMPARE(AddFromSource(again.tree, again.remote, Command, u"tv"_s, u"a\\b"_s), QString());
        QCOMPARE(again.tree.Count(), count);
    }

    void WhichCommandsAreFree() {
        const Garden g;
        const QStringList all = {u"1"_s, u"2"_s, u"3"_s, u"g"_s};
        QCOMPARE(FreeCommands(g.tree, g.root, u"tv"_s, all), QStringList{u"g"_s});
        QCOMPARE(FreeCommands(g.tree, {}, u"tv"_s, all), QStringList{u"g"_s});
        QCOMPARE(FreeCommands(g.tree, g.macro, u"tv"_s, all), QStringList{u"g"_s});
        for (const QString& inGroup : {g.group, g.grouped, g.groupedStep})
            QCOMPARE(FreeCommands(g.tree, inGroup, u"tv"_s, all), (QStringList{u"1"_s, u"2"_s, u"g"_s}));
        QCOMPARE(FreeCommands(g.tree, g.multi, u"tv"_s, all),
                 (QStringList{u"1"_s, u"2"_s, u"3"_s}));           // it holds tv.g
        QVERIFY(!IsCommandFree(g.tree, g.root, u"amp"_s, u"+"_s)); // steps count
        QVERIFY(IsCommandFree(g.tree, g.group, u"amp"_s, u"+"_s));
    }

    void NamesOfRemotes() {
        Garden g;
        for (const QString& name : {QString(), u"  "_s, u"tv"_s, u" Tv"_s, u"a\\b"_s})
            QVERIFY2(!CanAddRemote(g.tree, name), qPrintable(name));
        QCOMPARE(AddRemote(g.tree, u"tv"_s), QString());
        QCOMPARE(AddRemote(g.tree, QString(90, u'x')), u"REM"_s + QString(80, u'x'));
        QCOMPARE(AddRemote(g.tree, u"Я"_s), u"REM?"_s);
        QVERIFY(!CanAddRemote(g.tree, u"Ж"_s));
        // One byte for each character, though it takes two units of the text.
        QCOMPARE(AddRemote(g.tree, u"😀"_s.repeated(81)), u"REM"_s + QString(80, u'?'));
    }

    void Drops() {
        Garden g;
        const QByteArray bytes = EncodeDrag({u"amp"_s, u"+"_s});
        QCOMPARE(bytes, QByteArray("amp").leftJustified(80) + QByteArray("+").leftJustified(20));
        QCOMPARE(DecodeDrag(bytes)->command, u"+"_s);
        QVERIFY(!DecodeDrag(bytes.chopped(1)) && !DecodeDrag(bytes + ' '));
        const DraggedCommand drag{u"amp"_s, u"x"_s};
        for (const QString& key : {g.root, g.remote, g.group, g.multi, g.step, u"RCVgone"_s, QString()})
            QVERIFY2(!AcceptsDrop(g.tree, key) && DropCommand(g.tree, key, drag, 0).isEmpty(),
                     qPrintable(key));

        // A plain command's step is replaced.
        QCOMPARE(DropCommand(g.tree, g.command, drag, 0), u"SND"_s + g.command);
        QCOMPARE(g.tree.Find(g.command)->Children(), 1);
        QCOMPARE(g.tree.Find(g.step)->Text(), u"amp.x"_s);
        QCOMPARE(g.tree.Find(g.step)->Tag(), u"amp\\x\\6\\65535"_s);
        // An accelerated one has two.
        ApplyTag(g.tree, g.command, u"tv\\1\\2\\65535\\0\\51\\750"_s);
        QCOMPARE(g.tree.Find(g.command)->Image(), u"Volumemacro"_s);
        const QStringList two = {u"SND"_s + g.command, u"SND@"_s + g.command};
        DropCommand(g.tree, g.command, drag, 0);
        QCOMPARE(ChildKeys(g.tree, g.command), two);
        DropCommand(g.tree, g.command, {u"amp"_s, u"y"_s}, 0);
        QCOMPARE(ChildKeys(g.tree, g.command), two);
        QCOMPARE(g.tree.Find(two[1])->Text(), u"amp.y"_s);
        int deleted = 0;
        QVERIFY(DeleteNode(g.tree, two[0], deleted));
        DropCommand(g.tree, g.command, drag, deleted);
        QCOMPARE(ChildKeys(g.tree, g.command), (QStringList{two[1], two[0]}));

        // Keys of a macro's steps stay unique.
        deleted = 0;
        for (int i = 0; i < 2; ++i)
            DropCommand(g.tree, g.macro, drag, deleted);
        DeleteNode(g.tree, u"SND0"_s + g.macro, deleted);
        QCOMPARE(DropCommand(g.tree, g.macro, drag, deleted), u"SND2"_s + g.macro);
        QCOMPARE(g.tree.Find(u"SND2"_s + g.macro)->Tag(), u"amp\\x\\6\\65535\\100"_s);

        AddNode(g.tree, MakeReceived(Toggle, g.root, {u"tv"_s, u"t"_s, 70}));
        int dropped = 0;
        while (!DropCommand(g.tree, u"TOGCON\\tv@t"_s, drag, 0).isEmpty())
            ++dropped;
        QCOMPARE(dropped, 5);
    }

    void MenusAndWhatTheyDo() {
        Garden g;
        const std::pair<QString, int> menus[] = {{g.root, 40},    {g.remote, 30},  {g.group, 50},
                                                 {g.multi, 50},   {g.command, 10}, {g.macro, 10},
                                                 {u"TOGx"_s, 10}, {g.step, 20},    {{}, 0}};
        for (const auto& [key, menu] : menus) {
            QCOMPARE(int(MenuFor(key)), menu);
            QCOMPARE(OffersProperties(MenuFor(key)), menu > 0 && menu < 50);
            QCOMPARE(OffersDelete(MenuFor(key)), menu > 0 && menu != 40);
        }
        ApplySendTag(g.tree, g.step, u"3\\0\\IO101"_s);
        QCOMPARE(g.tree.Find(g.step)->Tag(), u"amp\\+\\6\\3\\0\\IO101"_s);
        int deleted = 0;
        QVERIFY(!DeleteNode(g.tree, g.root, deleted));
        QVERIFY(DeleteNode(g.tree, g.step, deleted));
        QVERIFY(DeleteNode(g.tree, g.group, deleted)); // with a step below it
        QCOMPARE(deleted, 1);
        QVERIFY(g.tree.Find(g.groupedStep) == nullptr);
    }
};

SUITE(TranslatorRulesTest);

#include "translator_rules_test.moc"

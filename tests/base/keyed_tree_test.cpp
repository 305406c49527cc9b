#include "base/keyed_tree.h"

#include "support/suite.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>

using namespace Qt::StringLiterals;

namespace {

QString Keys(const KeyedTree& tree) {
    QStringList keys;
    for (int i = 0; i < tree.Count(); ++i)
        keys += tree.At(i).Key();
    return keys.join(u' ');
}

} // namespace

class KeyedTreeTest : public QObject {
    Q_OBJECT

private slots:
    void AddsUnderKnownParentsOnly() {
        KeyedTree tree;
        QVERIFY(tree.Add(u"Rtv"_s, u"tv"_s, u"Remote"_s));
        QVERIFY(tree.Add(u"RTV"_s, u"TV"_s)); // keys are compared exactly
        QVERIFY(tree.Add(u"Ctv-on"_s, u"on"_s, {}, u"Rtv"_s));
        QVERIFY(!tree.Add(u"Ctv-on"_s, u"again"_s, {}, u"RTV"_s));
        QVERIFY(!tree.Add(u"Cx-on"_s, u"on"_s, {}, u"Rx"_s));
        QVERIFY(!tree.Add({}, u"no key"_s));
        QCOMPARE(Keys(tree), u"Rtv RTV Ctv-on"_s);
        QCOMPARE(tree.Find(u"Ctv-on"_s)->Parent(), tree.Find(u"Rtv"_s));
        QCOMPARE(tree.Find(u"Rtv"_s)->Parent(), nullptr);
        QCOMPARE(tree.Find(u"Rx"_s), nullptr);
    }

    void OrderOfAddingSurvivesRemoval() {
        KeyedTree tree;
        const QAbstractItemModelTester tester(&tree, QAbstractItemModelTester::FailureReportingMode::QtTest);
        for (const QString& top : {u"a"_s, u"b"_s, u"c"_s})
            tree.Add(top, {});
        tree.Add(u"c1"_s, {}, {}, u"c"_s);
        tree.Add(u"b1"_s, {}, {}, u"b"_s);
        tree.Add(u"a1"_s, {}, {}, u"a"_s);
        tree.Add(u"b11"_s, {}, {}, u"b1"_s);
        tree.Add(u"c2"_s, {}, {}, u"c"_s);
        const QPersistentModelIndex last = tree.IndexOf(u"c2"_s);

        QVERIFY(tree.Remove(u"b"_s));
        QCOMPARE(Keys(tree), u"a c c1 a1 c2"_s);
        QCOMPARE(tree.Find(u"b11"_s), nullptr);
        QVERIFY(!tree.Remove(u"b1"_s));
        QVERIFY(tree.Remove(u"c1"_s));
        QCOMPARE(last.data(KeyedTree::KeyRole), u"c2"_s);
        QCOMPARE(last.row(), 0);
        QCOMPARE(last.parent().row(), 1);

        // A key that was removed is free, and its node is the newest one.
        QVERIFY(tree.Add(u"b"_s, {}));
        QVERIFY(tree.Add(u"c1"_s, {}, {}, u"c"_s));
        QCOMPARE(Keys(tree), u"a c a1 c2 b c1"_s);
        QCOMPARE(tree.Top().Child(2).Key(), u"b"_s);
        QCOMPARE(tree.Find(u"c"_s)->Child(1).Key(), u"c1"_s);

        tree.Clear();
        QCOMPARE(Keys(tree), QString());
        QVERIFY(!last.isValid());
    }

    void ChangesAreTold() {
        KeyedTree tree;
        tree.Add(u"R"_s, u"tv"_s, u"Remote"_s);
        tree.Add(u"C"_s, u"on"_s, u"Rcv"_s, u"R"_s);
        QSignalSpy changes(&tree, &QAbstractItemModel::dataChanged);
        const QModelIndex index = tree.IndexOf(u"C"_s);
        QVERIFY(tree.SetText(u"C"_s, u"on [+]"_s));
        QVERIFY(tree.SetTag(u"C"_s, u"A0"_s));
        QVERIFY(tree.SetImage(u"C"_s, u"Volumemacro"_s));
        QVERIFY(tree.SetBold(u"C"_s, true));
        QCOMPARE(changes.size(), 4);
        QCOMPARE(changes.constLast().constFirst().toModelIndex(), index);
        QVERIFY(tree.SetBold(u"C"_s, true));
        QVERIFY(!tree.SetTag(u"c"_s, u"A0"_s));
        QCOMPARE(changes.size(), 4);
        QVERIFY(!tree.index(1, 0).isValid() && !tree.data({}, Qt::DisplayRole).isValid());
        QCOMPARE(index.data(), u"on [+]"_s);
        QCOMPARE(index.data(Qt::UserRole), u"C"_s);
        QCOMPARE(index.data(Qt::UserRole + 1), u"A0"_s);
        QCOMPARE(index.data(Qt::UserRole + 2), u"Volumemacro"_s);
        QCOMPARE(index.data(Qt::UserRole + 3), true);
    }
};

SUITE(KeyedTreeTest);

#include "keyed_tree_test.moc"

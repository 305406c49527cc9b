#include "forms/keyed_tree_view.h"

#include "support/suite.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QElapsedTimer>
#include <QPushButton>
#include <QSignalSpy>
#include <QVBoxLayout>
#include <QWindow>

using namespace Qt::StringLiterals;

class TreeViewTest : public QObject {
    Q_OBJECT

private slots:
    void init() {
        dialog = std::make_unique<QDialog>();
        view = new KeyedTreeView(u"tvwRemotes"_s, tree, dialog.get());
        button = new QPushButton(u"OK"_s, dialog.get());
        button->setDefault(true);
        auto* rows = new QVBoxLayout(dialog.get());
        rows->addWidget(view);
        rows->addWidget(button);
        tree.Add(u"Rtv"_s, u"tv"_s, u"Remote"_s);
        tree.Add(u"Ramp"_s, u"amp"_s);
        tree.Add(u"Cvol"_s, u"volume"_s, {}, u"Ramp"_s);
        dialog->show();
        view->setFocus();
        QVERIFY(QTest::qWaitForWindowActive(dialog.get()));
    }

    void cleanup() {
        dialog.reset();
        tree.Clear();
    }

    void Keyboard() {
        QSignalSpy selected(view, &KeyedTreeView::Selected);
        QSignalSpy activated(view, &KeyedTreeView::Activated);
        QSignalSpy deleted(view, &KeyedTreeView::DeleteAsked);
        QSignalSpy menu(view, &KeyedTreeView::MenuAsked);
        QSignalSpy pressed(button, &QPushButton::clicked);
        QTest::keyClick(view, Qt::Key_Delete);
        QVERIFY(deleted.isEmpty());

        QTest::keyClicks(view, u"am"_s);
        QCOMPARE(view->SelectedKey(), u"Ramp"_s);
        QTest::keyClick(view, Qt::Key_Right);
        QTest::keyClick(view, Qt::Key_Down);
        QCOMPARE(view->SelectedKey(), u"Cvol"_s);
        QCOMPARE(selected.constLast().constFirst(), u"Cvol"_s);
        QTest::keyClick(view, Qt::Key_Return);
        QTest::keyClick(view, Qt::Key_Enter, Qt::KeypadModifier);
        QCOMPARE(activated, (QList<QVariantList>{{u"Cvol"_s}, {u"Cvol"_s}}));
        QVERIFY(pressed.isEmpty()); // Enter is the tree's, not the default button's
        QTest::keyClick(view, Qt::Key_Delete);
        QCOMPARE(deleted.constLast().constFirst(), u"Cvol"_s);
        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QCoreApplication::sendEvent(view, &menuKey);
        QCOMPARE(menu.constLast().at(0), u"Cvol"_s);
        QCOMPARE(view->KeyAt(view->viewport()->mapFromGlobal(menu.constLast().at(1).toPoint())), u"Cvol"_s);
    }

    void Mouse() {
        QSignalSpy activated(view, &KeyedTreeView::Activated);
        QSignalSpy menu(view, &KeyedTreeView::MenuAsked);
        const auto inWindow = [&](const QPoint& point) {
            return view->viewport()->mapTo(dialog.get(), point);
        };
        const QPoint amp = view->visualRect(tree.IndexOf(u"Ramp"_s)).center();
        QTest::mouseClick(dialog->windowHandle(), Qt::RightButton, {}, inWindow(amp));
        QTRY_COMPARE(menu.size(), 1);
        QCOMPARE(menu.constLast().at(0), u"Ramp"_s);
        QCOMPARE(menu.constLast().at(1).toPoint(), view->viewport()->mapToGlobal(amp));
        QCOMPARE(view->SelectedKey(), u"Ramp"_s);
        const QPoint white(amp.x(), view->viewport()->height() - 2);
        QTest::mouseClick(dialog->windowHandle(), Qt::RightButton, {}, inWindow(white));
        QTest::mouseClick(view->viewport(), Qt::LeftButton, {}, amp);
        QTest::mouseDClick(view->viewport(), Qt::LeftButton, {}, amp);
        QCOMPARE(activated, (QList<QVariantList>{{u"Ramp"_s}}));
        QCOMPARE(menu.size(), 1);
    }

    void SelectionFollowsTheTree() {
        view->Select(u"Cvol"_s);
        QVERIFY(view->isExpanded(tree.IndexOf(u"Ramp"_s)));
        QSignalSpy selected(view, &KeyedTreeView::Selected);
        tree.Remove(u"Ramp"_s);
        QCOMPARE(view->SelectedKey(), QString());
        QCOMPARE(selected.constLast().constFirst(), QString());
        view->Select(u"Rtv"_s);
        view->Select({});
        QCOMPARE(view->SelectedKey(), QString());
        view->Select(u"Rtv"_s);
        tree.Clear();
        QCOMPARE(selected.constLast().constFirst(), QString());
    }

    void BoldAndImagesAreDrawn() {
        const auto node = [&] { return view->grab(view->visualRect(tree.IndexOf(u"Rtv"_s))).toImage(); };
        const QImage plain = node();
        tree.SetBold(u"Rtv"_s, true);
        QTRY_VERIFY(node() != plain);
        const QImage bold = node();
        QPixmap red(16, 16);
        red.fill(Qt::red);
        view->SetImages({{u"Remote"_s, QIcon(red)}});
        QTRY_VERIFY(node() != bold);
    }

    /// A server with very many commands: a cost that grows with the square would take minutes.
    void FiftyThousandNodesInAnOpenTree() {
        QElapsedTimer clock;
        clock.start();
        view->expand(tree.IndexOf(u"Ramp"_s));
        for (int remote = 0; remote < 500; ++remote)
            tree.Add(u"R%1"_s.arg(remote), u"Remote %1"_s.arg(remote));
        for (int command = 0; command < 49500; ++command)
            tree.Add(u"C%1"_s.arg(command), u"Command %1"_s.arg(command), {},
                     command < 20000 ? u"Ramp"_s : u"R%1"_s.arg(command / 100));
        for (int command = 0; command < 49500; ++command)
            tree.SetTag(u"C%1"_s.arg(command), u"A"_s);
        view->Select(u"C49499"_s);
        QApplication::processEvents();
        tree.Remove(u"Ramp"_s);
        tree.Clear();
        QVERIFY(clock.elapsed() < 10000);
    }

private:
    KeyedTree tree;
    std::unique_ptr<QDialog> dialog;
    KeyedTreeView* view = nullptr;
    QPushButton* button = nullptr;
};

SUITE(TreeViewTest);

#include "tree_view_test.moc"

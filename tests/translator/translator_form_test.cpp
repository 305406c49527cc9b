#include "translator/frmTranslator.h"

#include "app/program_rig.h"
#include "translator/translator_icons_view.h"

#include <QContextMenuEvent>
#include <QDropEvent>
#include <QMenu>
#include <QMimeData>

using namespace Qt::StringLiterals;

namespace {

TranslatorDevices Devices(const QStringList& versions) {
    TranslatorDevices devices;
    for (const QString& version : versions)
        devices.rows.push_back({u"0.%1 - %2"_s.arg(devices.rows.size()).arg(version), 0});
    devices.first = {versions[0].left(1), versions[0].mid(1), 0, 0};
    return devices;
}

/// The editor without a server: lists come when the test says so.
struct EditorRig {
    explicit EditorRig(const QStringList& versions = {u"E5.04.05"_s}) {
        session.CommandList1 = {u"of another form"_s};
        form = new frmTranslator({session, language, boxes}, Devices(versions), {}, nullptr);
        session.NameList = {u" tv "_s, u"amp"_s};
        emit session.NamesReady(ReplyType::Remotes);
        form->ShowModal();
        view = form->findChild<TranslatorTreeView*>(u"tvwConfig"_s);
        tree = static_cast<KeyedTree*>(view->model());
        list = Find<CommandListView>("lvwCommands");
    }
    ~EditorRig() { delete form; }

    template <class Control> Control* Find(const char* name) const {
        return form->findChild<Control*>(QLatin1StringView(name));
    }
    bool IsEnabled(const char* name) const { return Find<QWidget>(name)->isEnabled(); }
    void Press(const char* name) const { QTest::mouseClick(Find<QPushButton>(name), Qt::LeftButton); }
    void Offer(const QStringList& commands) {
        Find<ComboBox>("cmbRemotes")->setCurrentIndex(0);
        session.CommandList1 = commands;
        emit session.CommandsReady(ListTarget::TranslatorRemotes);
    }
    void OfferTargets() {
        Find<ComboBox>("cmbTarget")->setCurrentIndex(1);
        session.CommandList2 = {u"vol+ "_s, u"vol-"_s};
        emit session.CommandsReady(ListTarget::TranslatorTargets);
    }
    QString Offered() const {
        const auto* box = Find<ComboBox>("cmbCommands");
        QStringList texts;
        for (int i = 0; i < box->count(); ++i)
            texts += box->itemText(i);
        return texts.join(u' ');
    }
    /// Selects a node and adds the command that is chosen there.
    void Add(const QString& key, const char* button) {
        view->Select(key);
        Press(button);
    }
    /// The children of a node.
    QStringList Keys(const QString& key) const {
        QStringList keys;
        for (int i = 0; i < tree->Find(key)->Children(); ++i)
            keys += tree->Find(key)->Child(i).Key();
        return keys;
    }

    /// Drags the command of a row over a node and drops it there, as the window system would.
    bool Drag(int row, const QString& key) {
        const std::unique_ptr<QMimeData> data(list->model()->mimeData({list->model()->index(row, 0)}));
        return Drag(*data, key);
    }
    bool Drag(const QMimeData& data, const QString& key) const {
        view->expandAll();
        const QPoint point = view->visualRect(tree->IndexOf(key)).center();
        QDragEnterEvent enter(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view->viewport(), &enter);
        QDragMoveEvent move(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view->viewport(), &move);
        QDropEvent drop(point, Qt::CopyAction, &data, Qt::LeftButton, {});
        QApplication::sendEvent(view->viewport(), &drop);
        return enter.isAccepted() && move.isAccepted() && drop.isAccepted();
    }

    Session session;
    Language language;
    Boxes boxes{language};
    QPointer<frmTranslator> form;
    TranslatorTreeView* view;
    KeyedTree* tree;
    CommandListView* list;
};

} // namespace

class TranslatorFormTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnAnyWarning(); }

    void WhatTheDeviceCan_data() {
        QTest::addColumn<QStringList>("versions");
        QTest::addColumn<QString>("can");
        QTest::newRow("names") << QStringList{u"G5.04.05"_s} << u"list names shift"_s;
        QTest::newRow("names too old") << QStringList{u"E5.04.04"_s} << u"list shift"_s;
        QTest::newRow("names of no kind") << QStringList{u"X6.00.00"_s} << u"list shift"_s;
        QTest::newRow("second device") << QStringList{u"E5.04.05"_s, u"X4.04.26"_s} << u"list names"_s;
        QTest::newRow("shift keys just") << QStringList{u"X4.04.27  "_s} << u"list shift"_s;
        QTest::newRow("Y") << QStringList{u"Y5.04.05"_s} << u"shift"_s;
    }

    /// The last device is chosen; the first one decides about names.
    void WhatTheDeviceCan() {
        QFETCH(QStringList, versions);
        EditorRig rig(versions);
        rig.Find<ComboBox>("cmbDevice")->setCurrentIndex(int(versions.size()) - 1);
        QVERIFY(!rig.IsEnabled("cmdAddSource") && !rig.IsEnabled("cmdAddMultikey"));
        rig.Offer({u"1"_s});
        QVERIFY(rig.IsEnabled("cmdAddGroup"));
        QStringList can;
        if (rig.Find<QWidget>("cmbDevice")->isVisible() && rig.Find<QWidget>("Label2")->isVisible())
            can += u"list"_s;
        if (rig.IsEnabled("chkNames"))
            can += u"names"_s;
        if (rig.IsEnabled("cmdAddMultikey"))
            can += u"shift"_s;
        QTEST(can.join(u' '), "can");
    }

    void EveryKindOfNodeHasAPicture() {
        const auto images = MakeTranslatorImages();
        QSet<QByteArray> seen;
        for (const QString& key : TranslatorImages) {
            const QImage image = images.value(key).pixmap(20).toImage();
            seen += QByteArray(reinterpret_cast<const char*>(image.constBits()), image.sizeInBytes());
        }
        QCOMPARE(seen.size(), 9);
    }

    void TheBrandHasACaptionOfItsOwn() {
        EditorRig rig;
        QCOMPARE(rig.form->windowTitle(), u"Vantrel Translator Config"_s);
        for (const auto& [word, caption] : {std::pair(u"German"_s, u"Ferolo KT208 - Befehle zuordnen"_s),
                                            {u"ENGLISH"_s, u"Ferolo KT208 - Link Commands"_s},
                                            {u"French"_s, rig.form->windowTitle()}}) {
            rig.language.word = word;
            const frmTranslator form({rig.session, rig.language, rig.boxes}, {}, u"Ferolo 2"_s, nullptr);
            QCOMPARE(form.windowTitle(), caption);
        }
    }

    void AddsWhatIsFree() {
        EditorRig rig;
        QCOMPARE(rig.session.ListOwner, ListTarget::TranslatorLoad);
        rig.view->Select(u"CON"_s);
        QVERIFY(rig.Offered().isEmpty());
        rig.Offer({u"1 "_s, u"2"_s, u"3"_s, u"menu"_s});
        QCOMPARE(rig.session.ListOwner, ListTarget::TranslatorRemotes);
        auto* name = rig.Find<TextBox>("txtAdd");
        QTest::keyClicks(name, u" tv"_s);
        QTest::keyClick(name, Qt::Key_Return);
        QVERIFY(name->text().isEmpty());
        name->setText(u"TV"_s);
        QVERIFY(!rig.IsEnabled("cmdAddRem"));
        name->setText(u"TV2"_s);
        QVERIFY(rig.IsEnabled("cmdAddRem"));

        rig.Add(u"CON"_s, "cmdAddGroup"); // refused
        rig.Add(u"CON"_s, "cmdAddSource");
        QCOMPARE(rig.Offered(), u"2 3 menu"_s);
        rig.Add(u"RCVCON\\tv@1"_s, "cmdAddMacro"); // beside it
        QCOMPARE(rig.Keys(u"CON"_s), (QStringList{u"REMtv"_s, u"RCVCON\\tv@1"_s, u"MACCON\\tv@2"_s}));
        rig.Add(u"REMtv"_s, "cmdAddGroup");
        const QString group = u"GRPREMtv\\tv@3"_s;
        QCOMPARE(rig.Keys(u"REMtv"_s), QStringList{group});
        // A group asks for its own commands alone.
        rig.view->Select(group);
        QCOMPARE(rig.Offered(), u"1 2 3 menu"_s);
        for (int i = 0; i < 4; ++i)
            rig.Press("cmdAddSource");
        QVERIFY(rig.Offered().isEmpty() && !rig.IsEnabled("cmdAddSource"));
        QVERIFY(rig.view->isExpanded(rig.tree->IndexOf(group)));
        QCOMPARE(rig.Keys(group).constFirst(), u"RCV"_s + group + u"\\tv@1"_s);

        // What goes is free again.
        rig.view->Select(rig.Keys(group).constLast());
        QTest::keyClick(rig.view, Qt::Key_Delete);
        QCOMPARE(rig.Offered(), u"menu"_s);
        rig.view->Select(u"REMtv"_s);
        QTest::keyClick(rig.view, Qt::Key_Delete);
        QVERIFY(rig.tree->Find(group) == nullptr);
        name->setText(u"tv"_s);
        QVERIFY(rig.IsEnabled("cmdAddRem"));
    }

    /// A list that got lost can be asked for again.
    void TheSameRemoteOnceMore() {
        EditorRig rig;
        for (const auto& [name, owner] : {std::pair("cmbRemotes", ListTarget::TranslatorRemotes),
                                          {"cmbTarget", ListTarget::TranslatorTargets}}) {
            auto* box = rig.Find<ComboBox>(name);
            for (int round = 0; round < 2; ++round) {
                rig.session.ListOwner = 0;
                box->showPopup();
                QTest::keyClick(box->view(), Qt::Key_Home);
                QTest::keyClick(box->view(), Qt::Key_Return);
                QCOMPARE(box->currentText(), u"tv"_s);
                QCOMPARE(rig.session.ListOwner, owner);
            }
        }
    }

    void Drops() {
        EditorRig rig;
        rig.OfferTargets();
        rig.Offer({u"1"_s, u"2"_s});
        rig.Press("cmdAddSource");
        rig.Press("cmdAddMacro");
        const QString command = u"RCVCON\\tv@1"_s;
        const QString macro = u"MACCON\\tv@2"_s;
        QVERIFY(!rig.Drag(0, u"CON"_s));
        QVERIFY(rig.Drag(0, command) && rig.Drag(1, command));
        QVERIFY(!rig.Drag(0, u"SND"_s + command));
        QCOMPARE(rig.tree->Find(u"SND"_s + command)->Tag(), u"amp\\vol-\\6\\65535"_s);
        // Of the same name again after a step was deleted.
        QVERIFY(rig.Drag(0, macro) && rig.Drag(0, macro));
        rig.view->Select(u"SND0"_s + macro);
        QTest::keyClick(rig.view, Qt::Key_Delete);
        QVERIFY(rig.Drag(1, macro));
        QCOMPARE(rig.Keys(macro), (QStringList{u"SND1"_s + macro, u"SND2"_s + macro}));

        QMimeData other;
        other.setText(u"amp"_s);
        QVERIFY(!rig.Drag(other, macro));
        other.setData(DraggedCommandFormat, "short");
        QVERIFY(!rig.Drag(other, macro));
        QCOMPARE(rig.tree->Find(macro)->Children(), 2);
    }

    void StepsWithoutAMouse() {
        EditorRig rig;
        rig.OfferTargets();
        QCOMPARE(rig.session.ListOwner, ListTarget::TranslatorTargets);
        rig.Offer({u"1"_s});
        QStringList order;
        for (QWidget* next = rig.Find<QWidget>("txtName"); !order.contains(next->objectName());) {
            order += next->objectName();
            do
                next = next->nextInFocusChain();
            while ((next->focusPolicy() & Qt::TabFocus) == 0 || next->objectName().isEmpty() ||
                   next->objectName().startsWith(u"qt_"));
        }
        QCOMPARE(
            order.join(u' '),
            u"txtName cmbDevice chkNames cmbRemotes cmbCommands cmdAddSource cmdAddMacro cmdAddGroup "
            "cmdAddMultikey txtAdd cmdAddRem tvwConfig cmbTarget lvwCommands cmdAddTarget cmdSave cmdFlash "
            "cmdLoad cmbExit"_s);

        rig.Press("cmdAddMacro");
        QVERIFY(!rig.IsEnabled("cmdAddTarget"));
        rig.view->Select(u"MACCON\\tv@1"_s);
        QVERIFY(!rig.IsEnabled("cmdAddTarget"));
        rig.list->setFocus();
        QTest::keyClick(rig.list, Qt::Key_Down);
        QTest::keyClick(rig.list, Qt::Key_Return);
        QVERIFY(rig.IsEnabled("cmdAddTarget"));
        rig.Find<QPushButton>("cmdAddTarget")->setFocus();
        QTest::keyClick(rig.Find<QPushButton>("cmdAddTarget"), Qt::Key_Space);
        QCOMPARE(rig.Keys(u"MACCON\\tv@1"_s).size(), 2);
        rig.view->Select(u"CON"_s);
        QVERIFY(!rig.IsEnabled("cmdAddTarget"));
        QTest::keyClick(rig.form, Qt::Key_Escape);
        QTRY_VERIFY(rig.form.isNull());
    }

    void Menus_data() {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QString>("menu");
        QTest::addColumn<QString>("items");
        QTest::addColumn<QString>("properties");
        const QString both = u"%1(10)Eigenschaften %1(20)Löschen"_s;
        const QString forms = u"frmTrans%1Properties"_s;
        QTest::newRow("root") << u"CON"_s << u"fnuPopupTree(40)"_s << u"mnuConItem(10)Eigenschaften"_s
                              << forms.arg(u"Rem");
        QTest::newRow("remote") << u"REMa"_s << u"fnuPopupTree(30)"_s << both.arg(u"mnuRemItem")
                                << forms.arg(u"Rem");
        QTest::newRow("group") << u"GRPREMa\\tv@1"_s << u"fnuPopupTree(50)"_s << u"mnuGroupItem(10)Löschen"_s
                               << QString();
        QTest::newRow("macro") << u"MACREMa\\tv@2"_s << u"fnuPopupTree(10)"_s << both.arg(u"mnuRCVItem")
                               << forms.arg(u"Rcv");
        QTest::newRow("step") << u"SND0MACREMa\\tv@2"_s << u"fnuPopupTree(20)"_s << both.arg(u"mnuSNDItem")
                              << forms.arg(u"Snd");
    }

    /// By the menu key, with the default item, and by Enter.
    void Menus() {
        QFETCH(QString, key);
        QFETCH(QString, menu);
        QFETCH(QString, items);
        QFETCH(QString, properties);
        EditorRig rig;
        rig.OfferTargets();
        rig.Offer({u"1"_s, u"2"_s});
        rig.Find<TextBox>("txtAdd")->setText(u"a"_s);
        rig.Press("cmdAddRem");
        rig.Add(u"REMa"_s, "cmdAddGroup");
        rig.Find<ComboBox>("cmbCommands")->setCurrentIndex(0);
        rig.Offer({u"2"_s});
        rig.Press("cmdAddMacro");
        rig.view->AddStep(u"MACREMa\\tv@2"_s, {u"amp"_s, u"vol+"_s});
        rig.view->Select(key);
        QCOMPARE(rig.view->SelectedKey(), key);

        QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
        QApplication::sendEvent(rig.view, &menuKey);
        auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        QVERIFY(popup != nullptr);
        QCOMPARE(popup->objectName(), menu);
        QStringList texts;
        for (const QAction* action : popup->actions())
            texts += action->objectName() + action->text();
        QCOMPARE(texts.join(u' '), items);
        QCOMPARE(popup->defaultAction(), popup->actions().constFirst());
        QTest::keyClick(popup, Qt::Key_Down);
        QTest::keyClick(popup, Qt::Key_Return);
        if (properties.isEmpty()) {
            QVERIFY(rig.tree->Find(key) == nullptr);
            return;
        }
        const QString before = rig.tree->Find(key)->Tag();
        for (int round = 0; round < 2; ++round) {
            QPointer<Form> form = rig.form->findChild<Form*>(properties);
            QVERIFY(form != nullptr);
            form->findChild<QPushButton*>(u"cmdOK"_s)->click();
            QTRY_VERIFY(form.isNull());
            rig.form->activateWindow();
            QTest::keyClick(rig.view, Qt::Key_Return);
        }
        // All fields that the tag lacked have come into it, and nothing else has changed.
        QVERIFY(rig.tree->Find(key)->Tag().startsWith(before));
    }
};

SUITE(TranslatorFormTest);

#include "translator_form_test.moc"

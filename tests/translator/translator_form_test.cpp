#include "translator/frmTranslator.h"

#include "app/program_rig.h"
#include "practice/practice_server.h"
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

QStringList EntriesOf(const QComboBox& box) {
    QStringList texts;
    for (int i = 0; i < box.count(); ++i)
        texts += box.itemText(i);
    return texts;
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
    QString Offered() const { return EntriesOf(*Find<ComboBox>("cmbCommands")).join(u' '); }
    /// Selects a node and adds the command that is chosen there.
    void Add(const QString& key, const char* button) {
        view->Select(key);
        Press(button);
    }
    void Delete(const QString& key) {
        view->Select(key);
        QTest::keyClick(view, Qt::Key_Delete);
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

/// The program at the practice server, with the editor up by its menu entry.
struct PracticeRig : ProgramRig {
    PracticeRig()
        : ProgramRig({}) {
        practice.Listen();
        options.port = practice.Port();
        Start();
        Expect([this] { return Link().IsUp(); });
        Action("mnuModus(13)")->trigger();
        Expect([this] { return Find<frmTranslator>("frmTranslator") && Sets()->count() > 0; });
        Find<frmTranslator>("frmTranslator")->activateWindow();
    }

    static void Expect(const std::function<bool()>& condition) { QVERIFY(QTest::qWaitFor(condition)); }
    EditableComboBox* Sets() const { return Find<EditableComboBox>("txtName"); }
    KeyedTree& Tree() const { return *static_cast<KeyedTree*>(Find<KeyedTreeView>("tvwConfig")->model()); }
    QProgressBar* Progress() const { return Find<QProgressBar>("pgbTransfer"); }
    bool IsRunning() const { return Progress()->isVisible(); }
    /// Presses a button with that name in the box.
    void Start(const char* button, const QString& name) const {
        Sets()->setEditText(name);
        Button(button)->click();
    }
    /// And waits for the end, whose words are given back.
    QString Do(const char* button, const QString& name) const {
        Start(button, name);
        Expect([this] { return !IsRunning(); });
        return Text("lblState");
    }
    /// The text of the box that comes; it is closed by one of its buttons.
    QString Answered(QMessageBox::StandardButton button) const {
        Expect([this] { return CurrentBox() != nullptr; });
        QString text = CurrentBox()->text();
        QTest::mouseClick(CurrentBox()->button(button), Qt::LeftButton);
        return text;
    }

    using ProgramRig::Start;
    PracticeServer practice;
};

} // namespace

class TranslatorFormTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnWarnings(); }

    /// The first device decides about names, the chosen one about shift keys.
    void WhatTheDeviceCan() {
        EditorRig rig({u"E5.04.05"_s, u"X4.04.26"_s});
        rig.Offer({u"1"_s});
        QVERIFY(rig.IsEnabled("chkNames") && rig.IsEnabled("cmdAddGroup") && rig.IsEnabled("cmdAddMultikey"));
        rig.Find<ComboBox>("cmbDevice")->setCurrentIndex(1);
        QVERIFY(rig.IsEnabled("chkNames") && rig.IsEnabled("cmdAddGroup") &&
                !rig.IsEnabled("cmdAddMultikey"));
        const EditorRig other({u"Y5.04.05"_s});
        QVERIFY(!other.IsEnabled("chkNames"));
        for (const char* name : {"cmbDevice", "Label2"})
            QVERIFY(rig.Find<QWidget>(name)->isVisible() && !other.Find<QWidget>(name)->isVisible());
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
        QVERIFY(rig.Offered().isEmpty() && !rig.IsEnabled("cmdAddSource"));
        rig.Offer({u"1 "_s, u"2"_s, u"3"_s});
        QCOMPARE(rig.session.ListOwner, ListTarget::TranslatorRemotes);
        auto* name = rig.Find<TextBox>("txtAdd");
        QTest::keyClicks(name, u" tv"_s);
        QTest::keyClick(name, Qt::Key_Return);
        QVERIFY(name->text().isEmpty());
        name->setText(u"TV"_s);
        QVERIFY(!rig.IsEnabled("cmdAddRem"));

        rig.Add(u"CON"_s, "cmdAddGroup"); // refused
        rig.Add(u"CON"_s, "cmdAddSource");
        QCOMPARE(rig.Offered(), u"2 3"_s);
        rig.Add(u"RCVCON\\tv@1"_s, "cmdAddMacro"); // beside it
        QCOMPARE(rig.Keys(u"CON"_s), (QStringList{u"REMtv"_s, u"RCVCON\\tv@1"_s, u"MACCON\\tv@2"_s}));
        rig.Add(u"REMtv"_s, "cmdAddGroup");
        // A group asks for its own commands alone.
        const QString group = u"GRPREMtv\\tv@3"_s;
        rig.view->Select(group);
        for (int i = 0; i < 3; ++i)
            rig.Press("cmdAddSource");
        QVERIFY(rig.Offered().isEmpty() && !rig.IsEnabled("cmdAddSource"));
        QVERIFY(rig.view->isExpanded(rig.tree->IndexOf(group)));
        QCOMPARE(rig.Keys(group).constFirst(), u"RCV"_s + group + u"\\tv@1"_s);

        // What goes is free again.
        rig.Delete(rig.Keys(group).constLast());
        QCOMPARE(rig.Offered(), u"3"_s);
        rig.Delete(u"REMtv"_s);
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
        rig.Offer({u"1"_s});
        rig.Press("cmdAddMacro");
        const QString macro = u"MACCON\\tv@1"_s;
        QVERIFY(!rig.Drag(0, u"CON"_s));
        QVERIFY(rig.Drag(0, macro) && rig.Drag(0, macro));
        // Of the same name again after a step was deleted.
        rig.Delete(u"SND0"_s + macro);
        QVERIFY(rig.Drag(1, macro));
        QCOMPARE(rig.Keys(macro), (QStringList{u"SND1"_s + macro, u"SND2"_s + macro}));
        QCOMPARE(rig.tree->Find(u"SND2"_s + macro)->Tag(), u"amp\\vol-\\6\\65535\\100"_s);
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

    /// By the menu key, with the default item, and by Enter.
    void Menus() {
        EditorRig rig;
        rig.OfferTargets();
        rig.Offer({u"1"_s, u"2"_s});
        rig.Find<TextBox>("txtAdd")->setText(u"a"_s);
        rig.Press("cmdAddRem");
        rig.Add(u"REMa"_s, "cmdAddGroup");
        rig.Find<ComboBox>("cmbCommands")->setCurrentIndex(1);
        rig.Press("cmdAddMacro");
        const QString macro = u"MACREMa\\tv@2"_s;
        rig.view->AddStep(macro, {u"amp"_s, u"vol+"_s});
        const QString both = u"%1(10)Eigenschaften %1(20)Löschen"_s;
        const std::array<QString, 4> rows[] = {
            {u"CON"_s, u"40"_s, u"mnuConItem(10)Eigenschaften"_s, u"Rem"_s},
            {u"REMa"_s, u"30"_s, both.arg(u"mnuRemItem"), u"Rem"_s},
            {macro, u"10"_s, both.arg(u"mnuRCVItem"), u"Rcv"_s},
            {u"SND0"_s + macro, u"20"_s, both.arg(u"mnuSNDItem"), u"Snd"_s},
            {u"GRPREMa\\tv@1"_s, u"50"_s, u"mnuGroupItem(10)Löschen"_s, {}},
        };
        for (const auto& [key, menu, items, properties] : rows) {
            rig.view->Select(key);
            QContextMenuEvent menuKey(QContextMenuEvent::Keyboard, QPoint(), QPoint());
            QApplication::sendEvent(rig.view, &menuKey);
            auto* popup = qobject_cast<QMenu*>(QApplication::activePopupWidget());
            QVERIFY(popup != nullptr);
            QCOMPARE(popup->objectName(), u"fnuPopupTree(%1)"_s.arg(menu));
            QStringList texts;
            for (const QAction* action : popup->actions())
                texts += action->objectName() + action->text();
            QCOMPARE(texts.join(u' '), items);
            QCOMPARE(popup->defaultAction(), popup->actions().constFirst());
            const QString before = rig.tree->Find(key)->Tag();
            QTest::keyClick(popup, Qt::Key_Down);
            QTest::keyClick(popup, Qt::Key_Return);
            for (int round = 0; round < 2 && !properties.isEmpty(); ++round) {
                QPointer<Form> form = rig.form->findChild<Form*>(u"frmTrans%1Properties"_s.arg(properties));
                QVERIFY(form != nullptr);
                form->findChild<QPushButton*>(u"cmdOK"_s)->click();
                QTRY_VERIFY(form.isNull());
                rig.form->activateWindow();
                if (round == 0)
                    QTest::keyClick(rig.view, Qt::Key_Return);
            }
            // All fields that the tag lacked have come into it, and nothing else has changed.
            const KeyedNode* node = rig.tree->Find(key);
            QVERIFY(properties.isEmpty() ? node == nullptr : node->Tag().startsWith(before));
        }
    }

    void SetsComeBackAsTheyWere() {
        PracticeRig rig;
        const SetShelf& shelf = rig.practice.GetWorld().translatorSets;
        QVERIFY(!rig.Find<QWidget>("frmTranslatorWait"));
        QCOMPARE(rig.Find<ComboBox>("cmbDevice")->currentText(), u"0.15 - X6.04.44  "_s);
        QVERIFY(EntriesOf(*rig.Find<ComboBox>("cmbRemotes")).contains(u"tv"_s));
        QCOMPARE(EntriesOf(*rig.Find<ComboBox>("cmbTarget")), EntriesOf(*rig.Find<ComboBox>("cmbRemotes")));
        auto* names = rig.Find<QCheckBox>("chkNames");
        const QString loaded = u"Der Satz ist geladen."_s;
        const QString stored = u"Der Satz ist gespeichert."_s;
        QCOMPARE(rig.Do("cmdLoad", u"Wohnzimmer"_s), loaded);
        const bool hasNames = names->isChecked();
        QCOMPARE(rig.Do("cmdSave", u"Copy"_s), stored);
        QCOMPARE(shelf.Find(u"Copy"_s)->elements, shelf.Find(u"Wohnzimmer"_s)->elements);
        QVERIFY(EntriesOf(*rig.Sets()).contains(u"Copy"_s));
        names->setChecked(!hasNames);
        QCOMPARE(rig.Do("cmdSave", u"Other"_s), stored);
        QCOMPARE(rig.Do("cmdLoad", u"Copy"_s), loaded);
        QCOMPARE(names->isChecked(), hasNames);
        QCOMPARE(rig.Do("cmdLoad", u"Other"_s), loaded);
        QCOMPARE(names->isChecked(), !hasNames);
        QCOMPARE(rig.practice.MalformedRecords(), 0);
    }

    void ProgressCountsTheElements() {
        PracticeRig rig;
        rig.practice.GetFaults().delay = 5;
        rig.Do("cmdLoad", u"Wohnzimmer"_s);
        const int total = rig.Tree().Count();
        rig.Start("cmdSave", u"new"_s);
        QCOMPARE(rig.Progress()->maximum(), total);
        QVERIFY(QTest::qWaitFor([&] { return rig.Progress()->value() == 3; }));
        QCOMPARE(rig.Progress()->text(), u"Element 3 von %1"_s.arg(total));
        QVERIFY(rig.IsRunning());
        rig.practice.GetFaults().delay = 0;
        // The name typed meanwhile still isn't replaced unasked.
        rig.Sets()->setEditText(u"Demo"_s);
        QVERIFY(QTest::qWaitFor([&] { return !rig.IsRunning(); }));
        const auto& demo = rig.practice.GetWorld().translatorSets.Find(u"Demo"_s)->elements;
        for (const auto button : {QMessageBox::Cancel, QMessageBox::Ok}) {
            QVERIFY(demo.size() != total);
            rig.Button("cmdSave")->click();
            rig.Answered(button);
        }
        QVERIFY(QTest::qWaitFor([&] { return !rig.Text("lblState").isEmpty(); }));
        QCOMPARE(demo.size(), total);
    }

    void FlashesAndRefuses() {
        PracticeRig rig;
        rig.Button("cmdFlash")->click();
        QCOMPARE(rig.Answered(QMessageBox::Ok), u"Translator Flash OK"_s);
        QVERIFY(!rig.IsRunning());
        // Without a name, or beyond a limit, nothing goes out.
        const int before = rig.practice.Records();
        for (const char* button : {"cmdSave", "cmdLoad"})
            rig.Start(button, u"  "_s);
        QVERIFY(!rig.IsRunning());
        for (int i = 0; rig.Tree().Count() <= TranslatorLimits::Elements; ++i)
            AddNode(rig.Tree(), MakeReceived(TranslatorKind::Macro, u"CON"_s, {u"tv"_s, QString::number(i)}));
        for (const char* button : {"cmdSave", "cmdFlash"}) {
            rig.Start(button, u"new"_s);
            QVERIFY(!rig.IsRunning());
            QCOMPARE(rig.Answered(QMessageBox::Ok),
                     u"Der Satz hat 1002 Elemente. Höchstens 1001 sind möglich."_s);
        }
        QCOMPARE(rig.practice.Records(), before);
    }
};

SUITE(TranslatorFormTest);

#include "translator_form_test.moc"

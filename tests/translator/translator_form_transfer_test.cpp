#include "random_tree.h"

#include "app/program_rig.h"
#include "practice/practice_server.h"
#include "translator/frmTranslator.h"

using namespace Qt::StringLiterals;

namespace {

RecordSet SetOf(const KeyedTree& tree, bool includeNames) {
    RecordSet set;
    const auto flat = FlattenTree(tree, includeNames);
    for (const TranslatorRequest& element : std::get<std::vector<TranslatorRequest>>(flat))
        set.elements += Encode(element);
    return set;
}

/// A line for each node, in the order of the tree.
QStringList Lines(const KeyedNode& node) {
    QStringList lines;
    for (int row = 0; row < node.Children(); ++row) {
        const KeyedNode& child = node.Child(row);
        lines += QStringList{child.Key(), child.Text(), child.Image(), child.Tag()}.join(u'|');
        lines += Lines(child);
    }
    return lines;
}

/// The program at the practice server, with the editor up by its menu entry.
struct PracticeRig : ProgramRig {
    PracticeRig()
        : ProgramRig({}) {}

    void Open() {
        QVERIFY(practice.Listen());
        options.port = practice.Port();
        Start();
        QVERIFY(QTest::qWaitFor([this] { return Link().IsUp(); }));
        Reopen();
    }
    void Reopen() {
        Action("mnuModus(13)")->trigger();
        QVERIFY(QTest::qWaitFor([this] { return Form() != nullptr && Sets()->count() > 0; }));
        Form()->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(Form()));
    }

    frmTranslator* Form() const { return Window().findChild<frmTranslator*>(); }
    EditableComboBox* Sets() const { return Form()->findChild<EditableComboBox*>(u"txtName"_s); }
    KeyedTree& Tree() const { return *static_cast<KeyedTree*>(Find<KeyedTreeView>("tvwConfig")->model()); }
    QProgressBar* Progress() const { return Find<QProgressBar>("pgbTransfer"); }
    bool IsRunning() const { return Progress()->isVisible(); }
    bool Ends() const {
        return QTest::qWaitFor([this] { return !IsRunning(); });
    }
    bool BoxComes() const {
        return QTest::qWaitFor([this] { return CurrentBox() != nullptr; });
    }
    void Load(const QString& name) {
        Sets()->setEditText(name);
        Button("cmdLoad")->click();
        QVERIFY(IsRunning());
        QVERIFY(Ends());
        QCOMPARE(Text("lblState"), u"Der Satz ist geladen."_s);
    }
    void Save(const QString& name) {
        Sets()->setEditText(name);
        Button("cmdSave")->click();
    }

    PracticeServer practice;
};

} // namespace

class TranslatorFormTransferTest : public QObject {
    Q_OBJECT

private slots:
    void init() { FailOnAnyWarning(); }

    void SetsComeBackAsTheyWere() {
        PracticeRig rig;
        SetShelf& shelf = rig.practice.GetWorld().translatorSets;
        std::vector<std::unique_ptr<RandomTree>> trees;
        for (quint32 seed = 1; seed <= 4; ++seed) {
            trees.push_back(std::make_unique<RandomTree>(seed));
            shelf.Store(u"Set %1"_s.arg(seed), SetOf(trees.back()->tree, seed % 2 == 0));
        }
        rig.Open();
        QVERIFY(!rig.Find<QWidget>("frmTranslatorWait"));
        QCOMPARE(rig.Find<ComboBox>("cmbDevice")->currentText(), u"0.15 - X6.04.44  "_s);
        QVERIFY(rig.Find<ComboBox>("cmbRemotes")->count() > 0);
        QCOMPARE(rig.Find<ComboBox>("cmbTarget")->count(), rig.Find<ComboBox>("cmbRemotes")->count());
        QVERIFY(rig.Sets()->findText(u"Set 4"_s) >= 0);
        for (quint32 seed = 1; seed <= 4; ++seed) {
            const KeyedTree& expected = trees[seed - 1]->expected;
            rig.Load(u"Set %1"_s.arg(seed));
            QCOMPARE(Lines(rig.Tree().Top()), Lines(expected.Top()));
            rig.Save(u"Copy %1"_s.arg(seed));
            QVERIFY(rig.Ends());
            QCOMPARE(rig.Text("lblState"), u"Der Satz ist gespeichert."_s);
            const RecordSet* stored = shelf.Find(u"Copy %1"_s.arg(seed));
            QVERIFY(stored != nullptr);
            const bool hasNames = rig.Find<QCheckBox>("chkNames")->isChecked();
            QCOMPARE(stored->elements, SetOf(expected, hasNames).elements);
            rig.Load(u"Copy %1"_s.arg(seed));
            QCOMPARE(Lines(rig.Tree().Top()), Lines(expected.Top()));
        }
        QCOMPARE(rig.practice.MalformedRecords(), 0);
    }

    void ProgressCountsTheElements() {
        PracticeRig rig;
        rig.practice.GetFaults().delay = 5;
        rig.Open();
        rig.Load(u"Wohnzimmer"_s);
        const int total = rig.Tree().Count();
        QVERIFY(total > 30);
        QList<int> seen;
        connect(rig.Progress(), &QProgressBar::valueChanged, this, [&](int value) { seen += value; });
        rig.Save(u"new"_s);
        QCOMPARE(rig.Progress()->maximum(), total);
        QVERIFY(QTest::qWaitFor([&] { return rig.Progress()->value() == 3; }));
        QVERIFY(rig.Progress()->isVisible());
        QCOMPARE(rig.Progress()->text(), u"Element 3 von %1"_s.arg(total));
        rig.Sets()->setEditText(u"Demo"_s);
        QVERIFY(rig.Ends());
        QVERIFY(seen.contains(total));

        // What was stored is in the list; the name typed meanwhile still isn't replaced unasked.
        QVERIFY(rig.Sets()->findText(u"new"_s) >= 0);
        QCOMPARE(rig.Sets()->currentText(), u"Demo"_s);
        rig.Button("cmdSave")->click();
        QVERIFY(rig.BoxComes());
        QTest::mouseClick(rig.CurrentBox()->button(QMessageBox::Cancel), Qt::LeftButton);
    }

    void AsksAndTells() {
        PracticeRig rig;
        rig.Open();
        SetShelf& shelf = rig.practice.GetWorld().translatorSets;
        const auto demo = shelf.Find(u"Demo"_s)->elements;
        rig.Save(u"  "_s);
        QVERIFY(!rig.IsRunning());
        rig.Save(u"Demo"_s);
        QVERIFY(rig.BoxComes());
        QTest::mouseClick(rig.CurrentBox()->button(QMessageBox::Cancel), Qt::LeftButton);
        QVERIFY(!rig.IsRunning());
        QCOMPARE(rig.Link().SaveState, SaveStateKind::Named);
        QCOMPARE(shelf.Find(u"Demo"_s)->elements, demo);
        rig.Button("cmdSave")->click();
        QVERIFY(rig.BoxComes());
        rig.AnswerBox();
        QVERIFY(QTest::qWaitFor([&] { return !rig.Text("lblState").isEmpty(); }));
        QCOMPARE(shelf.Find(u"Demo"_s)->elements.size(), 1);

        for (const bool fails : {false, true}) {
            rig.practice.GetOutcomes().translatorFlashFails = fails;
            rig.Button("cmdFlash")->click();
            QVERIFY(rig.BoxComes());
            QCOMPARE(rig.CurrentBox()->text(),
                     fails ? u"Translator Flash failed."_s : u"Translator Flash OK"_s);
            rig.AnswerBox();
            QVERIFY(!rig.IsRunning());
        }

        // Beyond a limit nothing goes out.
        const int before = rig.practice.Records();
        for (int i = 0; rig.Tree().Count() <= TranslatorLimits::Elements; ++i)
            AddNode(rig.Tree(), MakeReceived(TranslatorKind::Macro, u"CON"_s, {u"tv"_s, QString::number(i)}));
        for (const char* button : {"cmdSave", "cmdFlash"}) {
            rig.Button(button)->click();
            QCOMPARE(rig.CurrentBox()->text(), u"Der Satz hat 1002 Elemente. Höchstens 1001 sind möglich."_s);
            QVERIFY(!rig.IsRunning());
            rig.AnswerBox();
        }
        QCOMPARE(rig.practice.Records(), before);
    }

    /// Closing ends all of it, and what is answered later has no effect.
    void ClosedInTheMiddle() {
        PracticeRig rig;
        rig.Open();
        rig.Load(u"Wohnzimmer"_s);
        int sent = 0;
        QPointer<frmTranslator> form = rig.Form();
        connect(&rig.practice, &PracticeServer::RecordReceived, this, [&](const QByteArray& record) {
            sent += record[0] == 20 ? 1 : 0;
            if (sent == 4 && form)
                QTest::keyClick(form, Qt::Key_Escape);
        });
        rig.Save(u"cut"_s);
        QTRY_VERIFY(form.isNull());
        QCOMPARE(rig.Link().PendingOp, Pending::None);
        rig.Reopen();
        QCOMPARE(sent, 4);
        QCOMPARE(rig.Tree().Count(), 1);
        rig.Save(u"fresh"_s);
        QVERIFY(rig.Ends());
        QCOMPARE(rig.practice.GetWorld().translatorSets.Find(u"fresh"_s)->elements.size(), 1);
        QVERIFY(rig.practice.GetWorld().translatorSets.Find(u"cut"_s) == nullptr);
        QVERIFY(rig.CurrentBox() == nullptr);
    }
};

SUITE(TranslatorFormTransferTest);

#include "translator_form_transfer_test.moc"

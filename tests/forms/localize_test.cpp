#include "forms/localize.h"

#include "forms/combo_boxes.h"
#include "forms/controls.h"
#include "forms/keyed_tree_view.h"
#include "forms/mask_boxes.h"
#include "forms/tab_frames.h"

#include "support/suite.h"

#include <QDialog>
#include <QFile>
#include <QMenuBar>
#include <QTemporaryDir>
#include <QToolButton>

using namespace Qt::StringLiterals;

namespace {

/// One of every kind of control that a form can have, in the structure of a real form.
class SampleForm : public QDialog {
public:
    SampleForm() {
        setObjectName(u"frmSample"_s);
        setWindowTitle(u"Formular"_s);
        new QVBoxLayout(this);
        auto* general = MakeFrame(u"frmGeneral"_s, u"Allgemein & mehr"_s, nullptr);
        auto* rows = new QVBoxLayout(general);
        MakeCheckBoxes(u"chkMode"_s, {u"Senden"_s, u"Empfangen"_s}, general);
        for (int i = 0; i < 2; ++i) {
            MakeCheckBox(ElementName(u"chkAUX"_s, i), u"Ausgang"_s, general);
            MakeOption(ElementName(u"optRelais"_s, i), u"Keine"_s, general);
        }
        auto* lblText = MakeLabel(u"lblText"_s, u"B&O"_s, general, MakeTextBox(u"txtText"_s, 10, general));
        auto* lblPlain = MakeLabel(u"lblPlain"_s, u"B&O"_s, general);
        rows->addWidget(lblText);
        rows->addWidget(new MaskBoxes(u"chkMask"_s, 0, lblPlain, u"Label2"_s, general));
        MakeComboBox(u"cmbTime"_s, {u"Aus"_s, u"An"_s}, general);
        auto* editable = MakeEditableComboBox(u"txtName"_s, general);
        editable->addItem(u"Aus"_s);
        editable->lineEdit()->setObjectName(u"txtInner"_s);
        editable->setEditText(u"typed"_s);
        auto* tabs = new TabFrames(u"tabMode"_s, this);
        tabs->AddPage(u"Allgemein"_s, general);
        tabs->AddPage(u"IR && Codes"_s, new QWidget);
        layout()->addWidget(tabs);
        new KeyedTreeView(u"tvwStat"_s, tree, this);
        MakeButton(u"cmdOK"_s, u"Gut"_s, this);
        auto* bar = new QMenuBar(this);
        auto* menu = bar->addMenu(u"Modus"_s);
        menu->addAction(u"Ende"_s)->setObjectName(u"mnuModus(30)"_s);
    }

    QString Texts() const {
        QStringList texts;
        texts << windowTitle() << findChild<QGroupBox*>(u"frmGeneral"_s)->title();
        for (const QString& name : {u"chkMode(0)"_s, u"chkMode(1)"_s, u"chkAUX(0)"_s, u"chkAUX(1)"_s,
                                    u"optRelais(0)"_s, u"optRelais(1)"_s, u"cmdOK"_s})
            texts += findChild<QAbstractButton*>(name)->text();
        for (const QString& name : {u"lblText"_s, u"lblPlain"_s, u"Label2"_s})
            texts += findChild<QLabel*>(name)->text();
        for (const QString& name : {u"txtText"_s, u"txtInner"_s})
            texts += findChild<QLineEdit*>(name)->text();
        for (const QString& name : {u"cmbTime"_s, u"txtName"_s}) {
            const auto* list = findChild<QComboBox*>(name);
            for (int i = 0; i < list->count(); ++i)
                texts += list->itemText(i);
        }
        for (int i = 0; i < 2; ++i)
            texts += findChild<QTabBar*>(u"tabMode"_s)->tabText(i);
        texts += findChild<QAction*>(u"mnuModus(30)"_s)->text();
        return texts.join(u'|');
    }

private:
    KeyedTree tree;
};

} // namespace

class LocalizeTest : public QObject {
    Q_OBJECT

private slots:
    void EveryKindOfControl() {
        QFile file(folder.filePath(u"Test.tra"_s));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(R"("frmSample","Form"
"frmSample.frmGeneral","General & more"
"frmSample.chkMode","never"
"frmSample.chkMode.0","Send"
"frmSample.chkMode.1","Receive"
"frmSample.chkAUX","Output"
"frmSample.chkAUX.0","never"
"frmSample.optRelais.1","On"
"frmSample.lblText","A&B"
"frmSample.lblPlain","A&B"
"frmSample.txtText","a & b"
"frmSample.txtInner","never"
"frmSample.cmbTime.0","Off"
"frmSample.cmbTime.1","On"
"frmSample.cmbTime.2","never"
"frmSample.txtName","never"
"frmSample.txtName.0","Off"
"frmSample.tabMode.1","General"
"frmSample.tabMode.2","IR & Codes"
"frmSample.ScrollLeftButton","never"
"frmSample.cmdOK","OK & more"
"frmSample.mnuModus","never"
"frmSample.mnuModus.30","Exit"
)");
        file.close();
        SampleForm form;
        Language language;
        QVERIFY(language.OpenTranslationFile(folder.path(), u"Test"_s));
        LocalizeForm(form, language);
        QCOMPARE(form.Texts(), u"Form|General && more|Send|Receive|Output|Output|Keine|On|OK && more|"
                               u"A&&B|A&B|15 14 13 12 11 10 9 8 7 6 5 4 3 2 1 0|a & b|typed|"
                               u"Off|On|Off|General|IR && Codes|Exit"_s);
        QCOMPARE(form.findChild<QComboBox*>(u"cmbTime"_s)->currentIndex(), -1);
        for (const QToolButton* part : form.findChild<QTabBar*>(u"tabMode"_s)->findChildren<QToolButton*>())
            QVERIFY(part->text() != u"never");
        // A mask is read out in the language in force.
        form.show();
        QCOMPARE(form.findChild<QCheckBox*>(u"chkMask(3)"_s)->accessibleName(), u"A&B 3"_s);
    }

private:
    QTemporaryDir folder;
};

SUITE(LocalizeTest);

#include "localize_test.moc"

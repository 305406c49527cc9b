#include "visit/furnish.h"

#include "database/frmIRDBStatus.h"
#include "forms/combo_boxes.h"
#include "tools/frmLog.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

constexpr int AnswerTime = 250; ///< milliseconds in which the practice server has answered

void Answer() {
    QTest::qWait(AnswerTime);
}

template <class Control> Control& Find(Form& form, const char* name) {
    auto* control = form.findChild<Control*>(QLatin1StringView(name));
    Q_ASSERT(control != nullptr);
    return *control;
}

void Click(Form& form, const char* name) {
    Find<QPushButton>(form, name).click();
    Answer();
}

void Pick(Form& form, const char* name, const QString& entry) {
    auto& list = Find<ComboBox>(form, name);
    list.setCurrentIndex(list.findText(entry));
    Answer();
}

void Type(Form& form, const char* name, const QString& text) {
    Find<QLineEdit>(form, name).setText(text);
}

void Tick(QTreeWidget& list, std::initializer_list<int> rows) {
    for (const int row : rows)
        if (auto* item = list.topLevelItem(row); item != nullptr)
            item->setCheckState(0, Qt::Checked);
}

void Learn(Form& form) {
    Find<EditableComboBox>(form, "txtRemote").setEditText(u"player"_s);
    Click(form, "cmdRemote");
    Type(form, "txtCommand", u"subtitle"_s);
    Click(form, "cmdLearn");
}

void SendFree(Form& form) {
    Pick(form, "txtRemote", u"amp"_s);
    Pick(form, "txtCommand", u"vol+"_s);
}

void Translate(Form& form) {
    Find<EditableComboBox>(form, "txtName").setEditText(u"Wohnzimmer"_s);
    Click(form, "cmdLoad");
    Pick(form, "cmbRemotes", u"tv"_s);
    Pick(form, "cmbTarget", u"light"_s);
}

void LoadDatabase(Form& form) {
    Find<EditableComboBox>(form, "txtName").setEditText(u"Haus"_s);
    Click(form, "cmdLoad");
    auto& tree = Find<QTreeView>(form, "tvwRemotes");
    tree.collapseAll();
    for (const QString& remote : {u"amp"_s, u"screen"_s})
        for (const QModelIndex& found :
             tree.model()->match(tree.model()->index(0, 0), Qt::DisplayRole, remote, 1, Qt::MatchStartsWith))
            tree.expand(found);
}

} // namespace

void Furnish(Form& form) {
    form.show(); // some take replies only then
    Answer();
    const QString name = form.objectName();
    if (auto* status = qobject_cast<frmIRDBStatus*>(&form))
        status->SetFigures({u"824"_s, u"64K"_s, u"2"_s, u"3"_s, u"5"_s});
    else if (auto* log = qobject_cast<frmLog*>(&form))
        log->Append(u"practice log 1 of 1\n"_s);
    else if (name == u"frmIP")
        Type(form, "txtIP", u"192.168.1.20"_s);
    else if (name == u"frmCCF")
        Find<QPlainTextEdit>(form, "txtCCF")
            .setPlainText(u"0000 006D 0022 0002 0157 00AC 0015 0016 0015 0041 0015 0016"_s);
    else if (name == u"frmProgramm")
        Learn(form);
    else if (name == u"frmSendFree")
        SendFree(form);
    else if (name == u"frmStartupText") {
        Type(form, "txtInit(0)", u"Wohnzimmer"_s);
        Type(form, "txtInit(1)", u"bereit"_s);
    } else if (name == u"frmTranslator")
        Translate(form);
    else if (name == u"frmDeviceDB")
        LoadDatabase(form);
    else if (name == u"frmDeviceMode")
        Find<QTreeView>(form, "tvwStat").expandAll();
    else if (name == u"frmHTML")
        Tick(Find<QTreeWidget>(form, "lstFiles"), {0, 1});
}

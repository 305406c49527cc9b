#include "translator/translator_source_controls.h"

#include "base/blanks.h"
#include "forms/controls.h"
#include "translator/translator_icons_view.h"
#include "translator/translator_lists_view.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TranslatorSourceControls::TranslatorSourceControls(const FormServices& services, KeyedTree& tree,
                                                   TranslatorTreeView* view, QWidget* parent)
    : QGroupBox(ToMnemonicText(u"Quelle"_s), parent)
    , services(services)
    , tree(tree)
    , view(view)
    , cmbRemotes(MakeNameList(u"cmbRemotes"_s, this))
    , cmbCommands(MakeNameList(u"cmbCommands"_s, this))
    , cmdAddSource(MakeButton(u"cmdAddSource"_s, u"Befehl hinzufügen"_s, this))
    , cmdAddMacro(MakeButton(u"cmdAddMacro"_s, u"Macro hinzufügen"_s, this))
    , cmdAddGroup(MakeButton(u"cmdAddGroup"_s, u"Gruppe hinzufügen"_s, this))
    , cmdAddMultikey(MakeButton(u"cmdAddMultikey"_s, u"Shiftkey hinzufügen"_s, this))
    , txtAdd(MakeTextBox(u"txtAdd"_s, Wire::RemoteWidth, this))
    , cmdAddRem(MakeButton(u"cmdAddRem"_s, u"Neue FB"_s, this)) {
    setObjectName(u"fraSource"_s);
    MakeLayout();

    const std::pair<QPushButton*, TranslatorKind> adds[] = {
        {cmdAddSource, TranslatorKind::Command},
        {cmdAddMacro, TranslatorKind::Macro},
        {cmdAddGroup, TranslatorKind::Group},
        {cmdAddMultikey, TranslatorKind::Multi},
    };
    const QHash<QString, QIcon> images = MakeTranslatorImages();
    for (const auto& [button, kind] : adds) {
        button->setIcon(images.value(TranslatorImage(kind, TranslatorType::Command)));
        connect(button, &QPushButton::clicked, this, [this, kind = kind] { Add(kind); });
    }
    cmdAddRem->setIcon(images.value(TranslatorImage(TranslatorKind::Remote, TranslatorType::Remote)));
    connect(cmdAddRem, &QPushButton::clicked, this, &TranslatorSourceControls::AddTypedRemote);
    connect(txtAdd, &QLineEdit::returnPressed, cmdAddRem, &QPushButton::click);
    connect(txtAdd, &QLineEdit::textChanged, this, &TranslatorSourceControls::EnableAddRem);
    connect(cmbRemotes, &ComboBox::Picked, this, &TranslatorSourceControls::AskForCommands);
    connect(cmbCommands, &QComboBox::currentIndexChanged, this, &TranslatorSourceControls::EnableAdds);
    connect(view, &KeyedTreeView::Selected, this, &TranslatorSourceControls::FillCommandCombo);
    connect(view, &TranslatorTreeView::Deleted, this, &TranslatorSourceControls::TakeNewTree);
    EnableAdds();
    EnableAddRem();
}

void TranslatorSourceControls::MakeLayout() {
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(MakeLabel(u"lblRemotes"_s, u"Fernbedienung"_s, this, cmbRemotes));
    rows->addWidget(cmbRemotes);
    rows->addWidget(MakeLabel(u"lblCommands"_s, u"Befehl"_s, this, cmbCommands));
    rows->addWidget(cmbCommands);
    for (QPushButton* button : {cmdAddSource, cmdAddMacro, cmdAddGroup, cmdAddMultikey})
        rows->addWidget(button);
    rows->addStretch();
    rows->addWidget(MakeLabel(u"lblAdd"_s, u"Name einer neuen FB"_s, this, txtAdd));
    rows->addWidget(txtAdd);
    rows->addWidget(cmdAddRem);
}

void TranslatorSourceControls::FillRemoteCombo() {
    cmbRemotes->SetEntries(WithoutBlanks(services.session.NameList));
    EnableAdds();
}

void TranslatorSourceControls::AskForCommands() {
    services.session.ListOwner = ListTarget::TranslatorRemotes;
    services.session.SendRemoteCommand(Netcommand::ListCommands, cmbRemotes->currentText(), {}, 0);
}

void TranslatorSourceControls::FillCommandCombo() {
    cmbCommands->clear();
    // The session's list is no remote's of this form until one is chosen here.
    if (cmbRemotes->currentIndex() >= 0)
        cmbCommands->addItems(FreeCommands(tree, view->SelectedKey(), cmbRemotes->currentText(),
                                           WithoutBlanks(services.session.CommandList1)));
    if (cmbCommands->count() > 0)
        cmbCommands->setCurrentIndex(0);
    EnableAdds();
}

void TranslatorSourceControls::TakeNewTree() {
    FillCommandCombo();
    EnableAddRem();
}

void TranslatorSourceControls::SetDevice(const QString& text) {
    hasShiftKeys = KnowsShiftKeys(text);
    EnableAdds();
}

void TranslatorSourceControls::EnableAdds() {
    const bool isChosen = !cmbRemotes->currentText().isEmpty() && !cmbCommands->currentText().isEmpty();
    for (QPushButton* button : {cmdAddSource, cmdAddMacro, cmdAddGroup})
        button->setEnabled(isChosen);
    cmdAddMultikey->setEnabled(isChosen && hasShiftKeys);
}

void TranslatorSourceControls::EnableAddRem() {
    cmdAddRem->setEnabled(CanAddRemote(tree, txtAdd->text()));
}

void TranslatorSourceControls::Add(TranslatorKind kind) {
    const QString key =
        AddFromSource(tree, view->SelectedKey(), kind, cmbRemotes->currentText(), cmbCommands->currentText());
    if (key.isEmpty())
        return;
    view->EnsureVisible(key);
    FillCommandCombo();
}

void TranslatorSourceControls::AddTypedRemote() {
    const QString key = AddRemote(tree, txtAdd->text());
    if (key.isEmpty())
        return;
    view->EnsureVisible(key);
    txtAdd->clear();
}

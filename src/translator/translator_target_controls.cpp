#include "translator/translator_target_controls.h"

#include "base/blanks.h"
#include "forms/controls.h"
#include "translator/translator_icons_view.h"

#include <QVBoxLayout>

using namespace Qt::StringLiterals;

TranslatorTargetControls::TranslatorTargetControls(const FormServices& services, const KeyedTree& tree,
                                                   TranslatorTreeView* view, QWidget* parent)
    : QGroupBox(ToMnemonicText(u"Ziel"_s), parent)
    , services(services)
    , tree(tree)
    , view(view)
    , cmbTarget(MakeNameList(u"cmbTarget"_s, this))
    , lvwCommands(new CommandListView(u"lvwCommands"_s, cmbTarget, this))
    , cmdAddTarget(MakeButton(u"cmdAddTarget"_s, u"Sendebefehl hinzufügen"_s, this)) {
    setObjectName(u"fraTarget"_s);
    cmdAddTarget->setIcon(
        MakeTranslatorImages().value(TranslatorImage(TranslatorKind::Send, TranslatorType::Send)));
    lvwCommands->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Expanding); // as wide as the list above it
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(MakeLabel(u"lblTarget"_s, u"Fernbedienung"_s, this, cmbTarget));
    rows->addWidget(cmbTarget);
    rows->addWidget(MakeLabel(u"lblTargetCommands"_s, u"Befehle"_s, this, lvwCommands));
    rows->addWidget(lvwCommands, 1);
    rows->addWidget(cmdAddTarget);

    connect(cmbTarget, &ComboBox::Picked, this, &TranslatorTargetControls::AskForCommands);
    connect(cmdAddTarget, &QPushButton::clicked, this, &TranslatorTargetControls::AddToSelected);
    connect(lvwCommands, &QListWidget::itemActivated, this, &TranslatorTargetControls::AddToSelected);
    connect(lvwCommands, &QListWidget::itemSelectionChanged, this, &TranslatorTargetControls::EnableAdd);
    connect(view, &KeyedTreeView::Selected, this, &TranslatorTargetControls::EnableAdd);
    connect(&tree, &QAbstractItemModel::rowsInserted, this, &TranslatorTargetControls::EnableAdd);
    connect(&tree, &QAbstractItemModel::rowsRemoved, this, &TranslatorTargetControls::EnableAdd);
    EnableAdd();
}

void TranslatorTargetControls::FillTargetCombo() {
    cmbTarget->SetEntries(WithoutBlanks(services.session.NameList));
}

void TranslatorTargetControls::AskForCommands() {
    services.session.ListOwner = ListTarget::TranslatorTargets;
    services.session.SendRemoteCommand(Netcommand::ListCommands, cmbTarget->currentText(), {}, 0);
}

void TranslatorTargetControls::FillTargetList() {
    lvwCommands->SetCommands(WithoutBlanks(services.session.CommandList2));
    EnableAdd();
}

void TranslatorTargetControls::EnableAdd() {
    cmdAddTarget->setEnabled(!lvwCommands->SelectedCommand().isEmpty() &&
                             AcceptsDrop(tree, view->SelectedKey()));
}

void TranslatorTargetControls::AddToSelected() {
    if (cmdAddTarget->isEnabled())
        view->AddStep(view->SelectedKey(), {cmbTarget->currentText(), lvwCommands->SelectedCommand()});
}

#include "translator/frmTranslator.h"

#include "base/blanks.h"
#include "forms/controls.h"
#include "translator/translator_lists_view.h"

#include <QGridLayout>
#include <QLineEdit>

using namespace Qt::StringLiterals;

namespace {

constexpr int TreeColumns = 30; ///< characters for which the tree has room at least
constexpr QSize StartSize = {860, 540};

KeyedTree& WithRoot(KeyedTree& tree) {
    ResetTranslatorTree(tree);
    return tree;
}

} // namespace

frmTranslator::frmTranslator(const FormServices& services, const TranslatorDevices& devices,
                             const QString& panelTitle, QWidget* parent)
    : Form(services, u"frmTranslator"_s, u"Vantrel Translator Config"_s, parent)
    , transfer(services.session, tree, nullptr)
    , txtName(MakeEditableComboBox(u"txtName"_s, this))
    , Label2(nullptr)
    , cmbDevice(MakeNameList(u"cmbDevice"_s, this))
    , chkNames(MakeCheckBox(u"chkNames"_s, u"Include Names"_s, this))
    , tvwConfig(new TranslatorTreeView(services, u"tvwConfig"_s, WithRoot(tree), devices.first, this))
    , source(new TranslatorSourceControls(services, tree, tvwConfig, this))
    , target(new TranslatorTargetControls(services, tree, tvwConfig, this))
    , cmdSave(MakeButton(u"cmdSave"_s, u"Speichern"_s, this))
    , cmdFlash(MakeButton(u"cmdFlash"_s, u"Flashen"_s, this))
    , cmdLoad(MakeButton(u"cmdLoad"_s, u"Laden"_s, this))
    , cmbExit(MakeButton(u"cmbExit"_s, u"Ende"_s, this))
    , pgbTransfer(new QProgressBar(this))
    , lblState(MakeLabel(u"lblState"_s, {}, this)) {
    auto* grid = new QGridLayout(this);
    grid->addLayout(MakeHead(), 0, 0, 1, 3);
    grid->addWidget(source, 1, 0);
    grid->addWidget(MakeTreeFrame(), 1, 1);
    grid->addWidget(target, 1, 2);
    grid->addLayout(MakeFoot(), 2, 0, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(1, 1);
    resize(StartSize);
    setTabOrder(source->LastControl(), tvwConfig);
    services.session.SaveState = SaveStateKind::Named;

    Connect();
    Localize();
    SetCaption(panelTitle);
    tvwConfig->setAccessibleName(windowTitle());
    pgbTransfer->setFormat(
        services.language.GetLanguageText(u"frmTranslator.Progress"_s, u"Element %v von %m"_s));
    ShowDevices(devices);
    tvwConfig->Select(TranslatorRootKey);
    AskServer();
}

QLayout* frmTranslator::MakeHead() {
    txtName->SetColumns(24);
    txtName->lineEdit()->setMaxLength(Wire::RemoteWidth);
    Label2 = MakeLabel(u"Label2"_s, u"Device"_s, this, cmbDevice);
    auto* head = new QHBoxLayout;
    head->addWidget(MakeLabel(u"Label1"_s, u"Filename"_s, this, txtName));
    head->addWidget(txtName, 2);
    head->addSpacing(fontMetrics().height());
    head->addWidget(Label2);
    head->addWidget(cmbDevice, 1);
    head->addWidget(chkNames);
    return head;
}

QWidget* frmTranslator::MakeTreeFrame() {
    auto* frame = MakeFrame(u"fraConfig"_s, u"Zuordnung"_s, this);
    auto* rows = new QVBoxLayout(frame);
    rows->addWidget(tvwConfig);
    frame->setMinimumWidth(fontMetrics().averageCharWidth() * TreeColumns);
    return frame;
}

QLayout* frmTranslator::MakeFoot() {
    pgbTransfer->setObjectName(u"pgbTransfer"_s);
    auto* foot = new QHBoxLayout;
    foot->addWidget(pgbTransfer, 1);
    foot->addWidget(lblState, 1);
    for (QPushButton* button : {cmdSave, cmdFlash, cmdLoad, cmbExit})
        foot->addWidget(button);
    pgbTransfer->hide();
    return foot;
}

void frmTranslator::Connect() {
    const Session* session = &services.session;
    connect(session, &Session::NamesReady, this, &frmTranslator::TakeNames);
    connect(session, &Session::CommandsReady, this, &frmTranslator::TakeCommands);
    connect(session, &Session::LinkUp, this, &frmTranslator::AskServer);

    const auto nameChanges = [this] { services.session.SaveState = SaveStateKind::Named; };
    connect(txtName, &EditableComboBox::TextChanged, this, nameChanges);
    connect(txtName, &EditableComboBox::Picked, this, nameChanges);
    connect(cmbDevice, &QComboBox::currentTextChanged, source, &TranslatorSourceControls::SetDevice);
    connect(cmdSave, &QPushButton::clicked, this, &frmTranslator::Save);
    connect(cmdFlash, &QPushButton::clicked, this, &frmTranslator::Flash);
    connect(cmdLoad, &QPushButton::clicked, this, &frmTranslator::Load);
    connect(cmbExit, &QPushButton::clicked, this, &Form::Unload);

    // What was stored is no longer what stands in the tree.
    connect(&tree, &QAbstractItemModel::rowsInserted, lblState, &QLabel::clear);
    connect(&tree, &QAbstractItemModel::rowsRemoved, lblState, &QLabel::clear);
    connect(&tree, &QAbstractItemModel::dataChanged, lblState, &QLabel::clear);

    connect(&transfer, &TranslatorTransfer::Progress, this, &frmTranslator::ShowProgress);
    connect(&transfer, &TranslatorTransfer::Refused, this, &frmTranslator::ShowRefusal);
    connect(&transfer, &TranslatorTransfer::IncludeNamesLoaded, chkNames, &QCheckBox::setChecked);
    connect(&transfer, &TranslatorTransfer::Ended, this, &frmTranslator::ShowEnd);
    // The form may live on for a moment, and must not send any more.
    connect(this, &QDialog::finished, &transfer, &TranslatorTransfer::GiveUp);
}

void frmTranslator::SetCaption(const QString& panelTitle) {
    if (!panelTitle.startsWith(u"Ferolo"))
        return;
    if (services.language.IsGerman())
        setWindowTitle(u"Ferolo KT208 - Befehle zuordnen"_s);
    else if (services.language.IsEnglish())
        setWindowTitle(u"Ferolo KT208 - Link Commands"_s);
}

void frmTranslator::ShowDevices(const TranslatorDevices& devices) {
    for (const TranslatorDeviceRow& row : devices.rows)
        cmbDevice->addItem(row.text, row.deviceTag);
    if (cmbDevice->count() > 0)
        cmbDevice->setCurrentIndex(0);
    for (QWidget* control : {static_cast<QWidget*>(cmbDevice), static_cast<QWidget*>(Label2)})
        control->setVisible(!devices.first.IsFerolo());
    chkNames->setEnabled(devices.first.HasNames());
}

void frmTranslator::AskServer() {
    services.session.ListOwner = ListTarget::TranslatorLoad;
    services.session.SendRemoteCommand(Netcommand::ListRemotes, {}, {}, 0);
}

void frmTranslator::TakeNames(ReplyType type) {
    const int owner = services.session.ListOwner;
    if (type == ReplyType::Remotes && (owner & ListTarget::TranslatorRemotes) != 0)
        source->FillRemoteCombo();
    if (type == ReplyType::Remotes && (owner & ListTarget::TranslatorTargets) != 0)
        target->FillTargetCombo();
    if (type == ReplyType::TranslatorSets)
        txtName->SetEntries(WithoutBlanks(services.session.NameList));
}

void frmTranslator::TakeCommands(int list) {
    if (list == ListTarget::TranslatorRemotes)
        source->FillCommandCombo();
    else if (list == ListTarget::TranslatorTargets)
        target->FillTargetList();
}

void frmTranslator::Save() {
    const QString name = txtName->currentText();
    if (WithoutBlanks(name).isEmpty()) {
        txtName->setFocus();
        return;
    }
    // The end of a store that ran while the name was changed has said nothing about the new one.
    if (name != lastName)
        services.session.SaveState = SaveStateKind::Named;
    lastName = name;
    transfer.Store(lastName, chkNames->isChecked());
    ShowProgress(0, tree.Count());
}

void frmTranslator::Flash() {
    if (cmbDevice->currentIndex() < 0)
        return;
    transfer.Flash(qint16(cmbDevice->currentData().toInt()), chkNames->isChecked());
    ShowProgress(0, tree.Count());
}

void frmTranslator::Load() {
    if (WithoutBlanks(txtName->currentText()).isEmpty()) {
        txtName->setFocus();
        return;
    }
    lastName = txtName->currentText();
    transfer.Load(lastName);
    ShowProgress(0, 0);
}

void frmTranslator::ShowProgress(int element, int total) {
    // A chain may be over before it has begun.
    pgbTransfer->setVisible(transfer.IsRunning());
    lblState->setVisible(!transfer.IsRunning());
    pgbTransfer->setRange(0, total);
    pgbTransfer->setValue(element);
}

void frmTranslator::ShowRefusal(const TranslatorRefusal& refusal) {
    services.boxes.Show({QMessageBox::Warning, RefusalText(services.language, refusal), {}});
}

void frmTranslator::ShowEnd(TranslatorTransfer::Outcome outcome) {
    const Language& language = services.language;
    QString state;
    if (outcome == TranslatorTransfer::Outcome::Stored) {
        state = language.GetLanguageText(u"frmTranslator.Stored"_s, u"Der Satz ist gespeichert."_s);
        const QString stored = WithoutBlanks(lastName).toString();
        if (txtName->findText(stored, Qt::MatchExactly) < 0)
            txtName->addItem(stored);
    } else if (outcome == TranslatorTransfer::Outcome::Loaded) {
        state = language.GetLanguageText(u"frmTranslator.Loaded"_s, u"Der Satz ist geladen."_s);
        tvwConfig->expandAll();
        tvwConfig->Select(TranslatorRootKey);
        source->TakeNewTree();
    }
    lblState->setText(state);
    ShowProgress(0, 0);
}

#include "database/frmDeviceDB.h"

#include "base/blanks.h"
#include "database/tag_dialogs_view.h"
#include "forms/controls.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int AnalogTab = 1;
constexpr int LinesHigh = 42; ///< of the dialog, in lines of text, so that the tree shows enough
constexpr int NamesTold = 12;
constexpr int NameShown = 18; ///< characters that a list of names shows at least

} // namespace

frmDeviceDB::frmDeviceDB(const FormServices& services, const std::vector<ListedDevice>& devices,
                         QWidget* parent)
    : Form(services, u"frmDeviceDB"_s, u"Device Datenbank"_s, parent)
    , devices(devices)
    , lists(std::make_unique<DatabaseLists>(services.session, tree))
    , transfer(std::make_unique<DatabaseTransfer>(services.session, tree))
    , tabIRDB(new TabFrames(u"tabIRDB"_s, this))
    , frIRDB(new DatabasePage(tree, tabIRDB))
    , frIO(new AnalogPage(tabIRDB)) {
    tabIRDB->AddPage(u"IRDB"_s, frIRDB);
    tabIRDB->AddPage(u"Analog Inputs"_s, frIO);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(tabIRDB, 1);
    rows->addLayout(MakeFoot());

    Localize();
    frIO->FinishTexts();
    ConnectSession();
    ConnectControls();
    services.session.SaveState = SaveStateKind::Named;
    FillDevices();
    EnableButtons();
    frIRDB->Tree()->setFocus();
    resize(sizeHint().width(), fontMetrics().height() * LinesHigh);
    lists->Start();
    if (lists->Current() != DatabaseLists::State::Idle)
        ShowListProgress(0, 0);
}

QLayout* frmDeviceDB::MakeFoot() {
    cmbDevice = MakeComboBox(u"cmbDevice"_s, {}, this);
    txtName = MakeEditableComboBox(u"txtName"_s, this);
    txtName->lineEdit()->setMaxLength(Wire::RemoteWidth);
    for (ComboBox* list : {cmbDevice, static_cast<ComboBox*>(txtName)})
        list->SetColumns(NameShown);
    cmdLoad = MakeButton(u"cmdLoad"_s, u"Laden"_s, this);
    cmdSave = MakeButton(u"cmdSave"_s, u"Speichern"_s, this);
    cmdFlash = MakeButton(u"cmdFlash"_s, u"Flashen"_s, this);
    cmbExit = MakeButton(u"cmbExit"_s, u"Ende"_s, this);
    pgbStat = new QProgressBar(this);
    pgbStat->setObjectName(u"pgbStat"_s);
    QSizePolicy policy = pgbStat->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    pgbStat->setSizePolicy(policy);
    pgbStat->hide();

    auto* grid = new QGridLayout;
    grid->addWidget(MakeLabel(u"Label1"_s, u"Device"_s, this, cmbDevice), 0, 0);
    grid->addWidget(cmbDevice, 0, 1);
    grid->addWidget(cmdFlash, 0, 2);
    grid->addWidget(MakeLabel(u"Label2"_s, u"File"_s, this, txtName), 1, 0);
    grid->addWidget(txtName, 1, 1);
    grid->addWidget(cmdLoad, 1, 2);
    grid->addWidget(cmdSave, 1, 3);
    grid->addWidget(pgbStat, 0, 4);
    grid->addWidget(cmbExit, 1, 4, Qt::AlignRight);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(4, 2);
    ChainTabs({cmbDevice, cmdFlash, txtName, cmdLoad, cmdSave, cmbExit});
    return grid;
}

void frmDeviceDB::FillDevices() {
    for (const ListedDevice& device : devices)
        cmbDevice->addItem(device.text, device.tag);
    if (!devices.empty())
        cmbDevice->setCurrentIndex(0);
}

void frmDeviceDB::ConnectSession() {
    const Session* session = &services.session;
    connect(lists.get(), &DatabaseLists::RemotesListed, frIO, &AnalogPage::FillRemotes);
    connect(lists.get(), &DatabaseLists::Progress, this, &frmDeviceDB::ShowListProgress);
    connect(lists.get(), &DatabaseLists::SetsListed, this, &frmDeviceDB::EndLists);

    connect(transfer.get(), &DatabaseTransfer::Progress, this,
            [this](int element, int total) { ShowProgress(work, element, total); });
    connect(transfer.get(), &DatabaseTransfer::SettingsLoaded, this, [this](const IRDBGlobalRecord& global) {
        DatabaseSettings values = Collect();
        TakeGlobalRecord(global, values);
        Show(values);
    });
    connect(transfer.get(), &DatabaseTransfer::NamesUnknown, this, [this] {
        isUnknownWaiting = lists->Current() != DatabaseLists::State::Idle;
        if (!isUnknownWaiting)
            TellUnknown();
    });
    connect(transfer.get(), &DatabaseTransfer::Ended, this, &frmDeviceDB::EndTransfer);

    connect(session, &Session::AnalogReceived, this, [this](const AnalogValues& values) {
        if (frIO->isVisible())
            frIO->TakeModes(values);
    });
    // The lists and the transfer have given up already.
    connect(session, &Session::LinkFailed, this, [this] {
        pgbStat->hide();
        if (std::exchange(isUnknownWaiting, false))
            TellUnknown();
    });
    // The chains end with the dialog, not when it is deleted: a reply may come before that.
    connect(this, &QDialog::finished, this, [this] {
        isUnknownWaiting = false;
        lists.reset();
        transfer.reset();
    });
}

void frmDeviceDB::ConnectControls() {
    connect(tabIRDB, &TabFrames::Changed, this, &frmDeviceDB::ReadAnalogInputs);
    connect(frIRDB, &DatabasePage::PropertiesAsked, this, [this](const QString& key) {
        OpenTagDialog(services, tree, key, {DeviceVersion(), frIRDB->Abilities()}, this);
    });
    connect(cmbDevice, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (index >= 0)
            frIRDB->SetDevice(DeviceVersion());
        EnableButtons();
    });
    const auto touchName = [this] {
        services.session.SaveState = SaveStateKind::Named;
        EnableButtons();
    };
    connect(txtName, &EditableComboBox::TextChanged, this, touchName);
    connect(txtName, &EditableComboBox::Picked, this, touchName);

    connect(cmdSave, &QPushButton::clicked, this, [this] {
        work = FromMnemonicText(cmdSave->text());
        transfer->Save(txtName->currentText(), Limited());
    });
    connect(cmdLoad, &QPushButton::clicked, this, [this] {
        work = FromMnemonicText(cmdLoad->text());
        isUnknownWaiting = false;
        if (transfer->Load(txtName->currentText()) && transfer->Current() != DatabaseTransfer::State::Idle)
            ShowProgress(work, 0, 0);
    });
    connect(cmdFlash, &QPushButton::clicked, this, [this] {
        work = FromMnemonicText(cmdFlash->text());
        transfer->Flash(cmbDevice->currentData().toInt(), Limited());
    });
    connect(cmbExit, &QPushButton::clicked, this, &Form::Unload);
}

QString frmDeviceDB::DeviceVersion() const {
    const int index = cmbDevice->currentIndex();
    return index >= 0 ? devices[size_t(index)].version : QString();
}

DatabaseSettings frmDeviceDB::Collect() const {
    DatabaseSettings values;
    frIRDB->Collect(values);
    frIO->Collect(values);
    return values;
}

void frmDeviceDB::Show(const DatabaseSettings& values) {
    frIRDB->Show(values);
    frIO->Show(values);
}

DatabaseSettings frmDeviceDB::Limited() {
    const DatabaseSettings typed = Collect();
    DatabaseSettings values = typed;
    values.Limit();
    if (values != typed)
        Show(values);
    return values;
}

/// A button that would do nothing is off.
void frmDeviceDB::EnableButtons() {
    const bool isNamed = !WithoutBlanks(txtName->currentText()).isEmpty();
    cmdLoad->setEnabled(isNamed);
    cmdSave->setEnabled(isNamed);
    cmdFlash->setEnabled(cmbDevice->currentIndex() >= 0);
}

void frmDeviceDB::ReadAnalogInputs(int tab) {
    if (tab != AnalogTab)
        return;
    services.session.SendReadAnalog();
}

void frmDeviceDB::EndTransfer(DatabaseTransfer::Outcome outcome) {
    pgbStat->hide();
    if (outcome != DatabaseTransfer::Outcome::LinkLost)
        lists->Recover();
}

void frmDeviceDB::EndLists(const QStringList& sets) {
    txtName->SetEntries(sets);
    if (lists->Current() != DatabaseLists::State::Idle)
        return;
    if (transfer->Current() == DatabaseTransfer::State::Idle)
        pgbStat->hide();
    if (!std::exchange(isUnknownWaiting, false))
        return;
    transfer->PlaceAgain();
    if (!transfer->Unknown().isEmpty())
        TellUnknown();
}

void frmDeviceDB::TellUnknown() {
    const QStringList& names = transfer->Unknown();
    QString text = services.language.GetLanguageText(
        u"frmDeviceDB.UnknownNames"_s, u"Der Server kennt nicht alles, was die Datenbank nennt. Es fehlt:"_s);
    for (const QString& name : names.first(qMin<qsizetype>(names.size(), NamesTold)))
        text += u'\n' + name.simplified();
    if (names.size() > NamesTold)
        text += u'\n' + services.language.GetLanguageText(u"frmDeviceDB.MoreNames"_s, u"Weitere: "_s) +
                QString::number(names.size() - NamesTold);
    services.boxes.Show({QMessageBox::Warning, text, {}});
}

void frmDeviceDB::ShowProgress(const QString& what, int done, int total) {
    pgbStat->setRange(0, qMax(1, total));
    pgbStat->setValue(qBound(0, done, pgbStat->maximum()));
    pgbStat->setFormat(total > 0 ? what + u" %v / %m"_s : what);
    pgbStat->setAccessibleName(what);
    pgbStat->show();
}

void frmDeviceDB::ShowListProgress(int done, int total) {
    // A transfer shows its own progress.
    if (transfer->Current() == DatabaseTransfer::State::Idle)
        ShowProgress(services.language.GetLanguageText(u"frmDeviceDB.Reading"_s, u"Fernbedienungen lesen"_s),
                     done, total);
}

#include "tools/frmSendFree.h"

#include "base/blanks.h"
#include "forms/controls.h"
#include "tools/free_send_rules.h"

#include <QFormLayout>

using namespace Qt::StringLiterals;

namespace {

constexpr int NameColumns = 32; ///< characters for which the boxes of names have room

EditableComboBox* MakeNameBox(const QString& name, QWidget* parent) {
    auto* box = MakeEditableComboBox(name, parent);
    // As wide as the form, not as the longest of a thousand names.
    box->SetColumns(NameColumns);
    box->setMaxVisibleItems(20);
    return box;
}

QStringList LedEntries() {
    QStringList entries = {u"Default"_s, u"Internal"_s, u"External"_s, u"All"_s};
    for (int output = 1; output <= FreeSend::Outputs; ++output)
        entries += QString::number(output);
    return entries;
}

} // namespace

frmSendFree::frmSendFree(const FormServices& services, QWidget* parent)
    : Form(services, u"frmSendFree"_s, u"Befehl Senden"_s, parent)
    , txtRemote(MakeNameBox(u"txtRemote"_s, this))
    , txtCommand(MakeNameBox(u"txtCommand"_s, this))
    , cmbLED(MakeComboBox(u"cmbLED"_s, LedEntries(), this))
    , cmbBus(MakeComboBox(u"cmbBus"_s, {}, this))
    , cmbID(MakeComboBox(u"cmbID"_s, {}, this))
    , cmdSend(MakeButton(u"cmdSend"_s, u"Senden"_s, this)) {
    cmbBus->addItem(u"Alle"_s, SendParam::AllBusesNumber);
    for (int bus = 0; bus < FreeSend::Buses; ++bus)
        cmbBus->addItem(QString::number(bus), bus);
    cmbID->addItem(u"Alle"_s, FreeSend::AllDevices);
    for (int device = 0; device < FreeSend::Devices; ++device)
        cmbID->addItem(QString::number(device), FreeSend::MaskOf(device));
    auto* cmdCancel = MakeButton(u"cmdCancel"_s, u"Ende"_s, this);

    auto* rows = new QFormLayout(this);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows->addRow(MakeLabel(u"lblRemote"_s, u"Remote"_s, this, txtRemote), txtRemote);
    rows->addRow(MakeLabel(u"lblCommand"_s, u"Befehl"_s, this, txtCommand), txtCommand);
    rows->addRow(MakeLabel(u"lblLED"_s, u"LED"_s, this, cmbLED), cmbLED);
    rows->addRow(MakeLabel(u"lblBus"_s, u"Bus"_s, this, cmbBus), cmbBus);
    rows->addRow(MakeLabel(u"lblID"_s, u"Device"_s, this, cmbID), cmbID);
    rows->addRow(MakeButtonRow({cmdSend, cmdCancel}));

    connect(txtRemote, &EditableComboBox::TextChanged, this, &frmSendFree::EnableSend);
    connect(txtCommand, &EditableComboBox::TextChanged, this, &frmSendFree::EnableSend);
    connect(txtRemote, &EditableComboBox::Picked, this, &frmSendFree::AskForCommands);
    connect(cmdSend, &QPushButton::clicked, this, &frmSendFree::Send);
    connect(cmdCancel, &QPushButton::clicked, this, &Form::Unload);
    connect(&services.session, &Session::NamesReady, this, [this](ReplyType type) {
        if (type == ReplyType::Remotes && (this->services.session.ListOwner & ListTarget::FreeSend))
            FillRemoteCombo();
    });
    connect(&services.session, &Session::CommandsReady, this, [this](int target) {
        if (target == ListTarget::FreeSend)
            FillCommandCombo();
    });

    for (ComboBox* list : {cmbLED, cmbBus, cmbID})
        list->setCurrentIndex(0);
    EnableSend();
    Localize();
    services.session.ListOwner = ListTarget::FreeSend;
    services.session.SendRemoteCommand(Netcommand::ListRemotes, {}, {}, 0);
}

void frmSendFree::AskForCommands(const QString& remote) {
    Session& session = services.session;
    session.ListOwner = ListTarget::FreeSend;
    session.FreeSendRemote = remote;
    session.SendRemoteCommand(Netcommand::ListCommands, remote, {}, 0);
}

void frmSendFree::FillRemoteCombo() {
    txtRemote->SetEntries(WithoutBlanks(services.session.NameList));
}

void frmSendFree::FillCommandCombo() {
    txtCommand->SetEntries(WithoutBlanks(services.session.CommandList3));
}

void frmSendFree::EnableSend() {
    const bool canSend = FreeSend::CanSend(txtRemote->currentText(), txtCommand->currentText());
    cmdSend->setEnabled(canSend);
    if (canSend)
        cmdSend->setDefault(true);
}

void frmSendFree::Send() {
    const qint32 param = FreeSend::ParamOf(cmbLED->currentIndex(), cmbBus->currentData().toInt(),
                                           cmbID->currentData().toInt());
    services.session.PendingOp = Pending::Panel;
    services.session.SendRemoteCommand(Netcommand::SendCommand, txtRemote->currentText(),
                                       txtCommand->currentText(), param);
    txtCommand->setFocus();
}

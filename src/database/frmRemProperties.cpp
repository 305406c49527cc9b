#include "database/frmRemProperties.h"

#include <QFormLayout>

using namespace Qt::StringLiterals;

frmRemProperties::frmRemProperties(const FormServices& services, const QString& tag, bool hasTarget,
                                   QWidget* parent)
    : Form(services, u"frmRemProperties"_s, u"Remote Eigenschaften"_s, parent) {
    auto* rows = new QFormLayout(this);
    auto* lblIP = MakeLabel(u"Label1"_s, u"UDP IP"_s, this);
    auto* txtIP = new AddressBoxes(u"txtIP"_s, 0, lblIP, this);
    lblIP->setBuddy(txtIP);
    rows->addRow(lblIP, txtIP);
    auto* txtPort = MakePortBox(u"txtPort"_s, this);
    auto* lblPort = MakeLabel(u"Label2"_s, u"UDP Port"_s, this, txtPort);
    rows->addRow(lblPort, txtPort);
    controls.Tie(*txtIP, txtPort, values.address);
    txtAction = MakeTextBox(u"txtAction"_s, RemoteTag::ActionMax, this);
    rows->addRow(MakeLabel(u"Label3"_s, u"Default Action"_s, this, txtAction), txtAction);
    controls.Tie(txtAction, values.action);

    auto* chkDefault = MakeCheckBox(u"chkDefault"_s, u"UDP / AUX Selection default"_s, this);
    rows->addRow(chkDefault);
    controls.Tie(chkDefault, values.isDefault, [this] {
        RemoteDialog::DefaultClicked(values);
        Show();
    });
    auto* flags = new QHBoxLayout;
    const auto addFlag = [&](const QString& name, const QString& caption, bool& member) {
        auto* box = MakeCheckBox(name, caption, this);
        flags->addWidget(box);
        controls.Tie(box, member);
        return box;
    };
    chkUDP = addFlag(u"chkUDP"_s, u"UDP Broadcast"_s, values.udp);
    chkAUX = addFlag(u"chkAUX"_s, u"AUX RS232 Port 1"_s, values.aux);
    addFlag(u"chkAUX2"_s, u"AUX RS232 Port 2"_s, values.aux2);
    flags->addStretch();
    rows->addRow(flags);
    for (QWidget* control : std::initializer_list<QWidget*>{lblIP, txtIP, lblPort, txtPort, chkDefault})
        control->setEnabled(hasTarget);

    rows->addRow(MakeOkAndCancel([this] { Accept(); }));

    Localize();
    values = RemoteDialog::FromTag(tag);
    txtAction->setMaxLength(RemoteDialog::ActionLimit(values));
    Show();
}

void frmRemProperties::Show() {
    controls.Show();
    chkUDP->setEnabled(!values.isDefault);
    chkAUX->setEnabled(!values.isDefault);
}

void frmRemProperties::Accept() {
    const QString tag = RemoteDialog::ToTag(values);
    Show();
    emit TagChanged(tag);
}

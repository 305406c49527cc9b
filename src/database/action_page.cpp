#include "database/action_page.h"

#include <QGridLayout>

using namespace Qt::StringLiterals;

ActionPage::ActionPage(int number, const ActionDialog::Cuts& cuts, QWidget* parent)
    : QWidget(parent)
    , number(number)
    , cuts(cuts) {
    setObjectName(ElementName(u"frmMode"_s, number));
    auto* rows = new QVBoxLayout(this);
    rows->addLayout(MakeTarget());
    rows->addLayout(MakeChecks());
    txtAction = MakeTextBox(ElementName(u"txtAction"_s, number), ActionDialog::TextMax, this);
    connect(txtAction, &QLineEdit::textChanged, this, [this](const QString& text) { values.text = text; });
    rows->addWidget(txtAction);
    frmEZ = new EzControls(number, values.fields, this);
    connect(frmEZ, &EzControls::FormChanged, this, &ActionPage::Show);
    // All pages are of one height, so that nothing jumps when the fields come and go.
    QSizePolicy policy = frmEZ->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    frmEZ->setSizePolicy(policy);
    rows->addWidget(frmEZ);
    rows->addStretch();
    Show();
}

QHBoxLayout* ActionPage::MakeTarget() {
    auto* row = new QHBoxLayout;
    lblIP = MakeLabel(ElementName(u"lblIP"_s, number), u"UDP IP"_s, this);
    txtIP = new AddressBoxes(u"txtIP"_s, number * AddressBoxes::Count, lblIP, this);
    lblIP->setBuddy(txtIP);
    txtPort = MakePortBox(ElementName(u"txtPort"_s, number), this);
    lblPort = MakeLabel(ElementName(u"lblPort"_s, number), u"Port"_s, this, txtPort);
    row->addWidget(lblIP);
    row->addWidget(txtIP);
    row->addWidget(lblPort);
    row->addWidget(txtPort);
    row->addStretch();
    controls.Tie(*txtIP, txtPort, values.address);
    return row;
}

QGridLayout* ActionPage::MakeChecks() {
    auto* grid = new QGridLayout;
    const auto add = [&](int row, int column, const QString& name, const QString& caption, bool& member,
                         std::function<void()> clicked = {}) {
        auto* box = MakeCheckBox(ElementName(name, number), caption, this);
        grid->addWidget(box, row, column);
        controls.Tie(box, member, std::move(clicked));
        return box;
    };
    chkDefault = add(0, 0, u"chkDefault"_s, u"UDP/RS232 Default"_s, values.isDefault, [this] {
        if (ActionDialog::ControlsOf(values, cuts, number).port)
            ActionDialog::DefaultClicked(values);
        Show();
    });
    chkUDP = add(0, 1, u"chkUDP"_s, u"UDP"_s, values.udp);
    chkAUX = add(0, 2, u"chkAUX"_s, u"RS232 Port 1"_s, values.aux);
    add(0, 3, u"chkAUX2"_s, u"RS232 Port 2"_s, values.aux2);
    chkBinary = add(1, 0, u"chkBinary"_s, u"Binary Data"_s, values.binary, [this] {
        ActionDialog::BinaryClicked(values);
        Show();
    });
    chkEZ = add(1, 1, u"chkEZ"_s, u"EZ Control Mode"_s, values.ez, [this] {
        ActionDialog::EzClicked(values);
        Show();
    });
    return grid;
}

void ActionPage::SetValues(const ActionDialog::Page& shown) {
    values = shown;
    Show();
}

void ActionPage::SetTitle(const QString& title) {
    txtAction->setAccessibleName(title);
}

void ActionPage::Show() {
    controls.Show();
    ShowText();
    const auto on = ActionDialog::ControlsOf(values, cuts, number);
    for (QWidget* control : std::initializer_list<QWidget*>{lblIP, txtIP})
        control->setEnabled(on.ip);
    for (QWidget* control : std::initializer_list<QWidget*>{lblPort, txtPort})
        control->setEnabled(on.port);
    chkDefault->setEnabled(on.isDefault);
    chkUDP->setEnabled(on.udp);
    chkAUX->setEnabled(on.aux);
    chkBinary->setEnabled(on.binary);
    chkEZ->setEnabled(on.ez);
    frmEZ->Show(on.shortFields, on.longFields);
    // Both are never up together, or the form would grow.
    (on.showsEz ? static_cast<QWidget*>(txtAction) : frmEZ)->hide();
    (on.showsEz ? static_cast<QWidget*>(frmEZ) : txtAction)->show();
}

void ActionPage::ShowText() {
    // What stands in the box goes first: limits and filters for the new text aren't those of the old one.
    const QString text = values.text;
    if (text == txtAction->text() && isFiltered == values.binary)
        return;
    txtAction->clear();
    txtAction->SetFilter(values.binary ? &HexDigitsAndBlanks : nullptr, &ActionDialog::IsBinaryText);
    isFiltered = values.binary;
    values.text = text;
    txtAction->setMaxLength(ActionDialog::TextLimit(values));
    txtAction->setText(text);
}

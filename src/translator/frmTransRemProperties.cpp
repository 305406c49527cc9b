#include "translator/frmTransRemProperties.h"

#include "forms/controls.h"
#include "translator/property_controls.h"

using namespace Qt::StringLiterals;

frmTransRemProperties::frmTransRemProperties(const FormServices& services, const QString& tag,
                                             const TranslatorDevice& device, QWidget* parent)
    : Form(services, u"frmTransRemProperties"_s, u"Eigenschaften"_s, parent)
    , properties(FillTransRem(tag, device)) {
    auto* Frame1 = MakeFrame(u"Frame1"_s, u"Befehlseinstellungen"_s, this);
    auto* grid = new QGridLayout(Frame1);
    auto* txtRemote = MakeTextBox(u"txtRemote"_s, 0, Frame1);
    // The key of a node is made of its name, so the name stays.
    txtRemote->setReadOnly(true);
    auto* nameTitle = AddTitled(*grid, u"lblCommand"_s, u"Fernbedienung"_s, txtRemote);
    auto* receiveMask = AddMask(*grid, u"Label3"_s, u"Empfangsmaske"_s, 0, u"Label6"_s);
    auto* sendMask = AddMask(*grid, u"Label1"_s, u"Sendemaske"_s, MaskBoxes::Count, u"Label2"_s);
    auto* cmbPC = MakeForwardList(u"cmbPC"_s, &ForwardEntry::pc, Frame1);
    AddTitled(*grid, u"Label4"_s, u"Zum PC übertragen"_s, cmbPC);
    auto* cmbSBUS = MakeForwardList(u"cmbSBUS"_s, &ForwardEntry::sbus, Frame1);
    AddTitled(*grid, u"Label5"_s, u"SBUS übertragen"_s, cmbSBUS);
    auto* chkLAN = MakeCheckBox(u"chkLAN"_s, u"Über LAN empfangene Befehle übersetzen"_s, Frame1);
    auto* chkSBUS = MakeCheckBox(u"chkSBUS"_s, u"Über SBUS empfangene Befehle übersetzen"_s, Frame1);
    grid->addWidget(chkLAN, grid->rowCount(), 1);
    grid->addWidget(chkSBUS, grid->rowCount(), 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount(), 1);

    auto* column = new QVBoxLayout(this);
    column->addWidget(Frame1, 1);
    column->addLayout(MakeOkAndCancel([this] { emit TagChanged(PackTransRem(properties)); }));

    Localize();
    txtRemote->setText(properties.name);
    receiveMask->SetValue(quint16(properties.receiveMask));
    sendMask->SetValue(quint16(properties.sendMask));
    ShowBox(*chkLAN, properties.translatesLan, properties.canLan);
    ShowBox(*chkSBUS, properties.translatesSbus, properties.canSbus);
    if (properties.isRoot) {
        // What the root says is the standard.
        cmbPC->RemoveEntry(0);
        cmbSBUS->RemoveEntry(0);
    }
    nameTitle->setVisible(!properties.isRoot);
    txtRemote->setVisible(!properties.isRoot);
    chkLAN->setVisible(properties.isRoot);
    chkSBUS->setVisible(properties.isRoot);
    cmbPC->SelectByData(properties.pc);
    cmbSBUS->SelectByData(properties.sbus);
    receiveMask->setFocus();

    connect(receiveMask, &MaskBoxes::Changed, this,
            [this, receiveMask] { properties.receiveMask = receiveMask->Value(); });
    connect(sendMask, &MaskBoxes::Changed, this,
            [this, sendMask] { properties.sendMask = sendMask->Value(); });
    connect(cmbPC, &ComboBox::currentIndexChanged, this,
            [this, cmbPC] { properties.pc = cmbPC->currentData().toInt(); });
    connect(cmbSBUS, &ComboBox::currentIndexChanged, this,
            [this, cmbSBUS] { properties.sbus = cmbSBUS->currentData().toInt(); });
    connect(chkLAN, &QCheckBox::toggled, this, [this](bool isOn) { properties.translatesLan = isOn; });
    connect(chkSBUS, &QCheckBox::toggled, this, [this](bool isOn) { properties.translatesSbus = isOn; });
}

#include "translator/frmTransRcvProperties.h"

#include "forms/controls.h"
#include "translator/property_controls.h"

using namespace Qt::StringLiterals;

namespace {

QStringList Numbers(int first, int last) {
    QStringList numbers;
    for (int number = first; number <= last; ++number)
        numbers += QString::number(number);
    return numbers;
}

} // namespace

frmTransRcvProperties::frmTransRcvProperties(const FormServices& services, const QString& tag,
                                             const TranslatorDevice& device, QWidget* parent)
    : Form(services, u"frmTransRcvProperties"_s, u"Eigenschaften"_s, parent)
    , device(device)
    , properties(FillTransRcv(tag, device)) {
    auto* groups = new QGridLayout;
    groups->addWidget(MakeSettings(), 0, 0, 1, 2);
    groups->addWidget(MakeRepetition(), 1, 0, 2, 1);
    groups->addWidget(MakeToggle(), 1, 1);
    groups->addWidget(MakePower(), 2, 1);
    groups->addWidget(MakeRelays(), 3, 0, 1, 2);
    groups->setColumnStretch(0, 1);
    groups->setColumnStretch(1, 1);
    auto* column = new QVBoxLayout(this);
    column->addLayout(groups, 1);
    column->addLayout(MakeOkAndCancel([this] { emit TagChanged(PackTransRcv(properties)); }));

    Localize();
    txtRemote->setText(properties.remote + u'/' + properties.command);
    chkAcc->setAccessibleName(FromMnemonicText(Frame2->title()));
    cmbRelNum->setAccessibleName(CaptionOf(*lblRelais));
    while (cmbRelNum->count() > properties.relayNumbers)
        cmbRelNum->RemoveEntry(cmbRelNum->count() - 1);
    chkMask->SetValue(quint16(properties.receiveMask));
    cmbPC->SelectByData(properties.pc);
    if (properties.showsSbus)
        cmbSBUS->SelectByData(properties.sbus);
    Label5->setVisible(properties.showsSbus);
    cmbSBUS->setVisible(properties.showsSbus);
    Frame3->setVisible(properties.showsRelays);
    Show();
    Connect();
    chkMask->setFocus();
}

QGroupBox* frmTransRcvProperties::MakeSettings() {
    auto* frame = MakeFrame(u"Frame1"_s, u"Befehlseinstellungen"_s, this);
    auto* grid = new QGridLayout(frame);
    txtRemote = MakeTextBox(u"txtRemote"_s, 0, frame);
    // The key of a node is made of its names, so they stay.
    txtRemote->setReadOnly(true);
    AddTitled(*grid, u"lblCommand"_s, u"Fernbedienung / Befehl"_s, txtRemote);
    chkMask = AddMask(*grid, u"Label1"_s, u"Empfangsmaske"_s, 0, u"Label2"_s);
    cmbPC = MakeForwardList(u"cmbPC"_s, &ForwardEntry::pc, frame);
    AddTitled(*grid, u"Label4"_s, u"Zum PC übertragen"_s, cmbPC);
    cmbSBUS = MakeForwardList(u"cmbSBUS"_s, &ForwardEntry::sbus, frame);
    Label5 = AddTitled(*grid, u"Label5"_s, u"SBUS übertragen"_s, cmbSBUS);
    QStringList leds = {u"Default"_s, u"Internal"_s, u"External"_s, u"All"_s};
    for (int output = 1; output <= 8; ++output)
        leds += u"External %1"_s.arg(output);
    cmbLEDSelect = MakeComboBox(u"cmbLEDSelect"_s, leds, frame);
    Label3 = AddTitled(*grid, u"Label3"_s, u"IR Sende LED"_s, cmbLEDSelect);
    grid->setColumnStretch(1, 1);
    return frame;
}

QGroupBox* frmTransRcvProperties::MakeRepetition() {
    Frame2 = MakeFrame(u"Frame2"_s, u"Befehlswiederholung"_s, this);
    auto* grid = new QGridLayout;
    chkAcc = MakeCheckBox(u"chkAcc"_s, {}, Frame2);
    cmbRepeat1 = MakeComboBox(u"cmbRepeat1"_s, Numbers(0, 15), Frame2);
    cmbRepeat2 = MakeComboBox(u"cmbRepeat2"_s, Numbers(1, 15), Frame2);
    txtTimeout = MakeTextBox(u"txtTimeout"_s, 0, Frame2);
    repetitionTitles = {AddTitled(*grid, u"lblRepeat1"_s, u"Wiederholen nach"_s, cmbRepeat1),
                        AddTitled(*grid, u"lblRepeat2"_s, u"Anzahl Wiederhol."_s, cmbRepeat2),
                        AddTitled(*grid, u"lbltimeout"_s, u"Timeout"_s, txtTimeout)};
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount(), 1);
    // The box has no caption; it stands in the first row, at its middle.
    chkAcc->setMinimumHeight(cmbRepeat1->sizeHint().height());
    auto* row = new QHBoxLayout(Frame2);
    row->addWidget(chkAcc, 0, Qt::AlignTop);
    row->addLayout(grid);
    return Frame2;
}

QGroupBox* frmTransRcvProperties::MakeRelays() {
    Frame3 = MakeFrame(u"Frame3"_s, u"Relaissteuerung"_s, this);
    cmbRelais = MakeComboBox(u"cmbRelais"_s, {{}, u"On"_s, u"Off"_s, u"Toggle"_s, u"Trigger (2s)"_s}, Frame3);
    cmbRelNum = MakeComboBox(u"cmbRelNum"_s, Numbers(1, 4), Frame3);
    lblRelais = MakeLabel(u"lblRelais"_s, u"Bei Empfang Relais"_s, Frame3, cmbRelais);
    auto* row = new QHBoxLayout(Frame3);
    row->addWidget(lblRelais);
    row->addWidget(cmbRelais, 1);
    row->addWidget(cmbRelNum);
    return Frame3;
}

QGroupBox* frmTransRcvProperties::MakeToggle() {
    auto* frame = MakeFrame(u"Frame4"_s, u"Toggle Macro"_s, this);
    auto* column = new QVBoxLayout(frame);
    chkToggle = MakeCheckBox(u"chkToggle"_s, u"Toggle Macro aktivieren"_s, frame);
    column->addWidget(chkToggle);
    column->addStretch();
    return frame;
}

QGroupBox* frmTransRcvProperties::MakePower() {
    auto* frame = MakeFrame(u"Frame5"_s, u"Power Status"_s, this);
    auto* column = new QVBoxLayout(frame);
    chkOn = MakeCheckBox(u"chkOn"_s, u"Activate on Power On"_s, frame);
    chkOff = MakeCheckBox(u"chkOff"_s, u"Activate on Power Off"_s, frame);
    column->addWidget(chkOn);
    column->addWidget(chkOff);
    column->addStretch();
    return frame;
}

void frmTransRcvProperties::Connect() {
    connect(chkMask, &MaskBoxes::Changed, this, [this] { properties.receiveMask = chkMask->Value(); });
    connect(cmbPC, &ComboBox::currentIndexChanged, this,
            [this] { properties.pc = cmbPC->currentData().toInt(); });
    connect(cmbSBUS, &ComboBox::currentIndexChanged, this,
            [this] { properties.sbus = cmbSBUS->currentData().toInt(); });
    connect(txtTimeout, &QLineEdit::textChanged, this,
            [this](const QString& text) { properties.timeout = text; });
    const auto connectIndex = [this](ComboBox* list, int CommandProperties::*index) {
        connect(list, &ComboBox::currentIndexChanged, this,
                [this, index](int chosen) { properties.*index = chosen; });
    };
    connectIndex(cmbLEDSelect, &CommandProperties::led);
    connectIndex(cmbRepeat1, &CommandProperties::repeatAfter);
    connectIndex(cmbRepeat2, &CommandProperties::repeatCount);
    connectIndex(cmbRelNum, &CommandProperties::relayNumber);

    connect(cmbRelais, &ComboBox::currentIndexChanged, this, [this](int index) {
        SetRelay(properties, index);
        Show();
    });
    connect(chkAcc, &QCheckBox::toggled, this, [this](bool isOn) {
        SetAccelerated(properties, device, isOn);
        Show();
    });
    const auto connectMacro = [this](QCheckBox* box, void (*rule)(CommandProperties&, bool)) {
        connect(box, &QCheckBox::toggled, this, [this, rule](bool isOn) {
            rule(properties, isOn);
            Show();
        });
    };
    connectMacro(chkToggle, &SetToggleMacro);
    connectMacro(chkOn, &SetPowerOn);
    connectMacro(chkOff, &SetPowerOff);
}

void frmTransRcvProperties::Show() {
    Label3->setEnabled(properties.canLed);
    ShowIndex(*cmbLEDSelect, properties.led, properties.canLed);

    ShowBox(*chkAcc, properties.isAccelerated, properties.canAccelerate);
    for (QLabel* title : repetitionTitles)
        title->setEnabled(properties.canRepeat);
    ShowIndex(*cmbRepeat1, properties.repeatAfter, properties.canRepeat);
    ShowIndex(*cmbRepeat2, properties.repeatCount, properties.canRepeat);
    ShowText(*txtTimeout, properties.timeout, properties.canRepeat);

    lblRelais->setEnabled(properties.canRelay);
    ShowIndex(*cmbRelais, properties.relay, properties.canRelay);
    ShowIndex(*cmbRelNum, properties.relayNumber, properties.canRelayNumber);

    ShowBox(*chkToggle, properties.isToggleMacro, properties.canToggleMacro);
    ShowBox(*chkOn, properties.isPowerOn, properties.canPowerOn);
    ShowBox(*chkOff, properties.isPowerOff, properties.canPowerOff);
}

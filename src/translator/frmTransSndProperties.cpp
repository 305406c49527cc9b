#include "translator/frmTransSndProperties.h"

#include "forms/controls.h"
#include "translator/property_controls.h"

using namespace Qt::StringLiterals;

frmTransSndProperties::frmTransSndProperties(const FormServices& services, const QString& tag,
                                             const QString& parentKey, const TranslatorDevice& device,
                                             QWidget* parent)
    : Form(services, u"frmTransSndProperties"_s, u"Eigenschaften"_s, parent)
    , properties(FillTransSnd(tag, parentKey, device)) {
    auto* Frame1 = MakeFrame(u"Frame1"_s, u"Befehlseinstellungen"_s, this);
    auto* grid = new QGridLayout(Frame1);
    chkMask = AddMask(*grid, u"Label1"_s, u"Sendemaske"_s, MaskBoxes::Count, u"Label2"_s);
    txtTimeout = MakeTextBox(u"txtTimeout"_s, 0, Frame1);
    lblTimeout = AddTitled(*grid, u"lblTimeout"_s, u"Timeout [ms]"_s, txtTimeout);
    AddCondition(*grid);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(grid->rowCount(), 1);

    auto* column = new QVBoxLayout(this);
    column->addWidget(Frame1, 1);
    column->addLayout(MakeOkAndCancel([this] { emit TagChanged(PackTransSnd(properties)); }));

    Localize();
    // These have the same words in every language.
    for (const SendProperties::Input& input : properties.inputs)
        cmbSndIO->addItem(input.caption.toString(), input.number);
    cmbSndIO->setAccessibleName(FromMnemonicText(chkSndIO->text()));
    chkMask->SetValue(quint16(properties.sendMask));
    Show();
    Connect();
}

void frmTransSndProperties::AddCondition(QGridLayout& grid) {
    QWidget* frame = grid.parentWidget();
    chkSndIO = MakeCheckBox(u"chkSndIO"_s, u"Nur senden wenn"_s, frame);
    cmbSndIO = MakeComboBox(u"cmbSndIO"_s, {}, frame);
    cmbSndIO->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    cmbSndIOVal = MakeComboBox(u"cmbSndIOVal"_s, {u"OFF"_s, u"ON"_s}, frame);
    lblSndIO = MakeLabel(u"lblSndIO"_s, u"="_s, frame, cmbSndIOVal);
    auto* condition = new QHBoxLayout;
    condition->addWidget(cmbSndIO, 2);
    condition->addWidget(lblSndIO);
    condition->addWidget(cmbSndIOVal, 1);
    const int row = grid.rowCount();
    grid.addWidget(chkSndIO, row, 0);
    grid.addLayout(condition, row, 1);
}

void frmTransSndProperties::Connect() {
    connect(chkMask, &MaskBoxes::Changed, this, [this] { properties.sendMask = chkMask->Value(); });
    connect(txtTimeout, &QLineEdit::textChanged, this,
            [this](const QString& text) { properties.timeout = text; });
    connect(chkSndIO, &QCheckBox::toggled, this, [this](bool isOn) {
        SetConditional(properties, isOn);
        Show();
    });
    connect(cmbSndIO, &ComboBox::currentIndexChanged, this, [this](int index) {
        SetInput(properties, index);
        Show();
    });
    connect(cmbSndIOVal, &ComboBox::currentIndexChanged, this,
            [this](int index) { properties.value = index; });
}

void frmTransSndProperties::Show() {
    lblTimeout->setEnabled(properties.canTimeout);
    ShowText(*txtTimeout, properties.timeout, properties.canTimeout);
    ShowBox(*chkSndIO, properties.isConditional, properties.canCondition);
    ShowIndex(*cmbSndIO, properties.input, properties.canChooseInput);
    lblSndIO->setEnabled(properties.canChooseInput);
    ShowIndex(*cmbSndIOVal, properties.value, properties.canChooseInput);
}

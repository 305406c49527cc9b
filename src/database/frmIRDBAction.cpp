#include "database/frmIRDBAction.h"

using namespace Qt::StringLiterals;

frmIRDBAction::frmIRDBAction(const FormServices& services, const QString& tag,
                             const DatabaseDevice::Controls& device, QWidget* parent)
    : Form(services, u"frmIRDBAction"_s, u"IR Action"_s, parent)
    , cuts(ActionDialog::CutsOf(device)) {
    // Only the buttons, and the Escape key as one of them, close it.
    setWindowFlags(Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint);
    auto* rows = new QVBoxLayout(this);
    auto* fraRelay = MakeRelayFrame();
    rows->addWidget(fraRelay);
    tabMode = new TabFrames(u"tabMode"_s, this);
    for (int g = 0; g < ActionDialog::Pages; ++g) {
        auto* page = new ActionPage(g, cuts, tabMode);
        tabMode->AddPage(g == 0 ? u"Default Action"_s : u"Act. %1"_s.arg(g), page);
        tabMode->Strip()->setTabVisible(g, g < cuts.pages);
        pages[size_t(g)] = page;
    }
    tabMode->Strip()->setUsesScrollButtons(false); // the form is made wide enough for all tabs
    tabMode->Strip()->setVisible(cuts.hasTabs);
    rows->addWidget(tabMode);
    rows->addLayout(MakeOkAndCancel([this] { Accept(); }));

    Localize();
    cmbRelais->setAccessibleName(FromMnemonicText(fraRelay->title()));
    for (int g = 0; g < ActionDialog::Pages; ++g)
        pages[size_t(g)]->SetTitle(FromMnemonicText(tabMode->Strip()->tabText(g)));
    SetValues(ActionDialog::FromTag(tag));
}

QGroupBox* frmIRDBAction::MakeRelayFrame() {
    auto* frame = MakeFrame(u"Frame1"_s, u"Relaissteuerung"_s, this);
    auto* row = new QHBoxLayout(frame);
    cmbRelais = MakeComboBox(u"cmbRelais"_s, {}, frame);
    for (int relay = 0; relay < 4; ++relay)
        cmbRelais->addItem(u"Rel %1"_s.arg(relay + 1), relay);
    connect(cmbRelais, &QComboBox::currentIndexChanged, this, [this](int index) { values.relay = index; });
    row->addWidget(cmbRelais);
    const QStringList captions = {u"Keine"_s,  u"Ein"_s,    u"Aus"_s,
                                  u"Toggle"_s, u"Impuls"_s, u"Ein / Rest aus"_s};
    for (int function = 0; function < captions.size(); ++function) {
        auto* option = MakeOption(ElementName(u"optRelais"_s, function), captions[function], frame);
        connect(option, &QRadioButton::toggled, this, [this, function](bool isOn) {
            if (isOn)
                values.function = function;
        });
        row->addWidget(option);
        optRelais[size_t(function)] = option;
    }
    row->addStretch();
    optRelais.back()->setEnabled(cuts.lastRelay);
    return frame;
}

void frmIRDBAction::SetValues(const ActionDialog::Values& shown) {
    values = shown;
    cmbRelais->setCurrentIndex(shown.relay);
    optRelais[size_t(shown.function)]->setChecked(true);
    for (size_t g = 0; g < pages.size(); ++g)
        pages[g]->SetValues(shown.pages[g]);
}

void frmIRDBAction::Accept() {
    ActionDialog::Values accepted = values;
    for (size_t g = 0; g < pages.size(); ++g)
        accepted.pages[g] = pages[g]->Values();
    const QString result = ActionDialog::ActionResult(accepted);
    SetValues(accepted);
    emit TagChanged(result);
}

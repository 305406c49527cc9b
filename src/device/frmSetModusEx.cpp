#include "device/frmSetModusEx.h"

#include "device/frmStartupText.h"
#include "device/set_modus_ex_page.h"
#include "device/set_modus_ex_rules.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int ReceivePage = 1;
constexpr int EvenWidth = 105; ///< characters, at which the columns of all pages are of the same width

} // namespace

frmSetModusEx::frmSetModusEx(const FormServices& services, const DeviceEntry& entry, qint32 target,
                             const QString& caption, QWidget* parent)
    : Form(services, u"frmSetModusEx"_s, u"Set Device Parameter"_s, parent)
    , state(ModusEx::FillSetModusEx(entry))
    , controls(state)
    , tabMode(new TabFrames(u"tabMode"_s, this)) {
    using namespace SetModusExPage;
    tabMode->AddPage(u"Allgemein"_s, MakeGeneral(controls, tabMode));
    tabMode->AddPage(u"IR Empfang"_s, MakeReceive(controls, tabMode));
    tabMode->AddPage(u"IR Codes"_s, MakeCodes(controls, tabMode));
    tabMode->AddPage(u"IR Bus"_s, MakeBus(controls, tabMode));
    tabMode->AddPage(u"Power On"_s, MakePower(controls, tabMode));
    tabMode->AddPage(u"RS232"_s, MakeRS232(controls, tabMode));
    tabMode->AddPage(u"Display"_s, MakeDisplay(controls, tabMode));
    auto* cmdSet = MakeButton(u"cmdSet"_s, u"Modus setzen"_s, this);
    auto* cmdEnde = MakeButton(u"cmdEnde"_s, u"Ende"_s, this);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(tabMode, 1);
    rows->addLayout(MakeButtonRow({cmdSet, cmdEnde}));

    connect(findChild<QPushButton*>(u"cmdStartup"_s), &QPushButton::clicked, this,
            [this] { (new frmStartupText(this->services, this))->ShowModal(); });
    connect(cmdSet, &QPushButton::clicked, this, [this, target] { Send(target); });
    connect(cmdEnde, &QPushButton::clicked, this, &Form::Unload);

    Localize();
    if (!caption.isEmpty())
        setWindowTitle(caption);
    if (state.hasExternalSecond)
        findChild<QLabel*>(u"lblRCV2"_s)->setText(u"Extern."_s);
    NameSecondControls();
    controls.ShapeLists();
    controls.Show();
    resize(fontMetrics().averageCharWidth() * EvenWidth, sizeHint().height());
}

/// Behind one title stand two controls. It is the buddy of the first; a screen reader says it at the second
/// too.
void frmSetModusEx::NameSecondControls() {
    const std::pair<QString, QString> seconds[] = {{u"chkRCV1"_s, u"lblRCV1"_s},
                                                   {u"chkRCV2"_s, u"lblRCV2"_s},
                                                   {u"txtHotcommand"_s, u"lblHot1"_s},
                                                   {u"txtHotcommand2"_s, u"lblHot2"_s},
                                                   {u"cmbTime"_s, u"LblDisplay(0)"_s}};
    for (const auto& [name, title] : seconds) {
        auto* control = findChild<QWidget*>(name);
        const auto* box = qobject_cast<QCheckBox*>(control);
        const QString own = box != nullptr ? u' ' + FromMnemonicText(box->text()) : QString();
        control->setAccessibleName(CaptionOf(*findChild<QLabel*>(title)) + own);
    }
}

void frmSetModusEx::Send(qint32 target) {
    if (!ModusEx::AreReceiversSet(state)) {
        tabMode->SetIndex(ReceivePage);
        services.boxes.Show({QMessageBox::Critical,
                             u"IR Receiver not set correctly. Please correct settings."_s, u"IR Settings"_s});
        return;
    }
    ModusEx::CorrectTimeout(state);
    controls.Show();
    // What couldn't be sent stays, so that nobody has to choose it again.
    if (!services.session.SendModeCommand(ModusEx::PackSetModusEx(state, target)))
        return;
    emit SettingsSent();
    Unload();
}

#include "device/frmSetModus.h"

#include "device/frmStartupText.h"
#include "device/hf_receiver_rules.h"
#include "forms/controls.h"
#include "forms/localize.h"

using namespace Qt::StringLiterals;

namespace {

constexpr const char* RemoteByIrStore = "lblCaption";

QLabel* MakeDisplayLabel(int index, const QString& caption, QWidget* parent, QWidget* buddy = nullptr) {
    auto* label = MakeLabel(ElementName(u"LblDisplay"_s, index), caption, parent, buddy);
    label->setProperty("tag", OwnKeyTag);
    return label;
}

} // namespace

frmSetModus::frmSetModus(const FormServices& services, const DeviceEntry& entry, DeviceOrigin origin,
                         qint32 target, const QString& caption, QWidget* parent)
    : Form(services, u"frmSetModus"_s, u"Modus setzen"_s, parent)
    , state(FillSetModus(entry, origin)) {
    auto* fraSet = MakeFrame(u"fraSet"_s, u"IR Transceiver Addresse 0"_s, this);
    auto* groups = new QGridLayout(fraSet);
    groups->addWidget(MakeFunctions(), 0, 0);
    groups->addWidget(MakeReceivers(), 0, 1);
    groups->addWidget(MakeTimes(), 0, 2);
    groups->addWidget(MakeMask(), 1, 0, 1, 3);
    groups->addWidget(MakeDisplay(), 2, 0);
    groups->addWidget(MakePower(), 2, 1, 1, 2);

    auto* cmdReset = MakeButton(u"cmdReset"_s, u"Auf Default setzen"_s, this);
    auto* cmdSet = MakeButton(u"cmdSet"_s, u"Modus setzen"_s, this);
    auto* cmdEnde = MakeButton(u"cmdEnde"_s, u"Ende"_s, this);
    auto* buttons = MakeButtonRow({cmdSet, cmdEnde});
    buttons->insertWidget(0, cmdReset);
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(fraSet, 1);
    rows->addLayout(buttons);

    connect(cmdReset, &QPushButton::clicked, this, &frmSetModus::Reset);
    connect(cmdSet, &QPushButton::clicked, this, [this, target] { Send(target); });
    connect(cmdEnde, &QPushButton::clicked, this, &Form::Unload);

    Localize();
    if (!caption.isEmpty())
        fraSet->setTitle(ToMnemonicText(caption));
    NameSecondControls();
    SetRemoteByIrCaption();
    controls.ShapeLists();
    controls.Show();
}

QWidget* frmSetModus::MakeFunctions() {
    auto* frame = MakeFrame(u"fraMode"_s, u"Funktionen"_s, this);
    auto* column = new QVBoxLayout(frame);
    const auto boxes =
        MakeCheckBoxes(u"chkMode"_s,
                       {u"IR Senden"_s, u"IR Empfangen"_s, u"SBUS Empfangen"_s, u"RC5/6 Togglebit ignor."_s,
                        u"Fernsteuerung SBUS"_s, u"Immer RAW Modus"_s, u"Fast Mode"_s, u"Repeat Modus"_s},
                       frame);
    for (size_t i = 0; i < boxes.size(); ++i) {
        controls.Bind(boxes[i], state.chkMode[i]);
        column->addWidget(boxes[i]);
    }
    column->addStretch();
    // The caption of chkMode(3) on older firmware. It is kept in a label, so that it is translated like all
    // others.
    MakeLabel(QLatin1StringView(RemoteByIrStore), u"Fernsteuerung IR"_s, frame)->hide();
    return frame;
}

QCheckBox* frmSetModus::MakeExtBox(int index, const QString& caption, QWidget* parent) {
    auto* box = MakeCheckBox(ElementName(u"chkExt"_s, index), caption, parent);
    box->setProperty("tag", OwnKeyTag);
    controls.Bind(box, state.chkExt[size_t(index)], [this, index](bool isOn) {
        SetExt(state, index, isOn);
        controls.Show();
    });
    return box;
}

QWidget* frmSetModus::MakeReceivers() {
    auto* frame = MakeFrame(u"fraExt"_s, u"LEDs und Empfänger"_s, this);
    auto* column = new QVBoxLayout(frame);
    column->addWidget(MakeExtBox(0, u"Interne LEDs aktiv"_s, frame));
    column->addWidget(MakeExtBox(1, u"Externe LEDs aktiv"_s, frame));
    column->addWidget(MakeExtBox(2, u"Standard Empfänger akt."_s, frame));
    column->addWidget(MakeExtBox(3, u"HF (B&O) Empfänger akt."_s, frame));
    column->addWidget(MakeExtBox(4, u"455 kHz B&O Codes"_s, frame));
    auto* chkPlasma = MakeCheckBox(u"chkPlasma"_s, u"B&O Plasma Empfänger"_s, frame);
    controls.Bind(chkPlasma, state.chkPlasma, [this](bool isOn) {
        SetPlasma(state, isOn);
        controls.Show();
    });
    column->addWidget(chkPlasma);
    column->addWidget(MakeExtBox(5, u"Self Repeat"_s, frame));
    column->addWidget(MakeExtBox(6, u"Repeat via internal LEDs"_s, frame));
    column->addStretch();
    return frame;
}

void frmSetModus::AddList(QGridLayout* grid, const QString& labelName, const QString& caption, ComboBox* list,
                          ListState& state) {
    auto* label = MakeLabel(labelName, caption, list->parentWidget(), list);
    controls.Bind(list, state);
    controls.Follow(label, state);
    const int row = grid->rowCount();
    grid->addWidget(label, row, 0);
    grid->addWidget(list, row, 1);
}

QWidget* frmSetModus::MakeTimes() {
    auto* frame = MakeFrame(u"fraTimes"_s, u"Zeiten und Baudraten"_s, this);
    auto* grid = new QGridLayout(frame);
    AddList(grid, u"lblTimeout"_s, u"Recv.Timeout[ms]"_s,
            MakeComboBox(u"cmbTimeout"_s,
                         {u"5"_s, u"15"_s, u"30"_s, u"60"_s, u"90"_s, u"120"_s, u"150"_s, u"250"_s}, frame),
            state.cmbTimeout);
    AddList(grid, u"lblRepeat"_s, u"RepeatTimeout[ms]"_s,
            MakeComboBox(u"cmbRepeat"_s, {u"5"_s, u"25"_s}, frame), state.cmbRepeat);
    AddList(grid, u"lblSBUS"_s, u"SBUS Baudrate"_s,
            MakeComboBox(u"cmbSBUS"_s, {u"Classic"_s, u"4800"_s, u"9600"_s, u"19200"_s, u"38400"_s}, frame),
            state.cmbSBUS);
    AddList(grid, u"lblBaudrate"_s, u"RS232 Baudrate"_s,
            MakeComboBox(u"cmbBaudrate"_s, {u"38400"_s, u"19200"_s, u"9600"_s, u"4800"_s}, frame),
            state.cmbBaudrate);
    auto* chkRTS = MakeCheckBox(u"chkRTS"_s, u"RTS/CTS  Handshake"_s, frame);
    controls.Bind(chkRTS, state.chkRTS);
    grid->addWidget(chkRTS, grid->rowCount(), 0, 1, 2);
    grid->setRowStretch(grid->rowCount(), 1);
    return frame;
}

QWidget* frmSetModus::MakeMask() {
    auto* line = new QWidget(this);
    auto* row = new QHBoxLayout(line);
    auto* title = MakeLabel(u"Label1"_s, u"Sendmaske (IR Repeater)"_s, line);
    auto* boxes = new MaskBoxes(u"chkMask"_s, 0, title, u"Label2"_s, line);
    title->setBuddy(boxes);
    controls.Bind(boxes, state.chkMask);
    controls.Follow(title, state.chkMask);
    controls.FollowVisible(line, state.chkMask);
    row->addWidget(title);
    row->addWidget(boxes);
    row->addStretch();
    return line;
}

QWidget* frmSetModus::MakeDisplay() {
    auto* frame = MakeFrame(u"frmDisplay"_s, u"Display Config"_s, this);
    controls.Follow(frame, state.frmDisplay);
    auto* cmbDate = MakeComboBox(u"cmbDate"_s, {}, frame);
    const QStringList dates = {u"DD.MM.YYYY"_s, u"DD-MM-YYYY"_s, u"DD/MM/YYYY"_s,
                               u"MM.DD.YYYY"_s, u"MM-DD-YYYY"_s, u"MM/DD/YYYY"_s,
                               u"YYYY.MM.DD"_s, u"YYYY-MM-DD"_s, u"YYYY/MM/DD"_s};
    for (qsizetype i = 0; i < dates.size(); ++i)
        cmbDate->addItem(dates[i], SetModusList::Dates[size_t(i)]);
    auto* cmbTime = MakeComboBox(u"cmbTime"_s, {u"20:00:00"_s, u"08:00:00 PM"_s}, frame);
    const QStringList levels = {u"0"_s, u"1"_s, u"2"_s, u"3"_s};
    auto* cmbAktiv = MakeComboBox(u"cmbAktiv"_s, levels, frame);
    auto* cmbInaktiv = MakeComboBox(u"cmbInaktiv"_s, levels, frame);
    auto* cmdStartup = MakeButton(u"cmdStartup"_s, u"Set Startup Text"_s, frame);
    controls.Bind(cmbDate, state.cmbDate);
    controls.Bind(cmbTime, state.cmbTime);
    controls.Bind(cmbAktiv, state.cmbAktiv);
    controls.Bind(cmbInaktiv, state.cmbInaktiv);
    controls.Follow(cmdStartup, state.cmdStartup);
    connect(cmdStartup, &QPushButton::clicked, this,
            [this] { (new frmStartupText(services, this))->ShowModal(); });

    auto* grid = new QGridLayout(frame);
    grid->addWidget(MakeDisplayLabel(0, u"Datums/Zeitformat"_s, frame, cmbDate), 0, 0);
    grid->addWidget(cmbDate, 0, 1, 1, 2);
    grid->addWidget(MakeDisplayLabel(1, {}, frame), 1, 0);
    grid->addWidget(cmbTime, 1, 1, 1, 2);
    grid->addWidget(MakeDisplayLabel(2, u"Helligkeit"_s, frame), 2, 0);
    grid->addWidget(MakeDisplayLabel(3, u"Aktiv"_s, frame, cmbAktiv), 2, 1);
    grid->addWidget(cmbAktiv, 2, 2);
    grid->addWidget(MakeDisplayLabel(4, u"Inaktiv"_s, frame, cmbInaktiv), 3, 1);
    grid->addWidget(cmbInaktiv, 3, 2);
    grid->addWidget(cmdStartup, 4, 1, 1, 2);
    grid->setRowStretch(5, 1);
    return frame;
}

QWidget* frmSetModus::MakePower() {
    auto* frame = MakeFrame(u"fraPower"_s, u"Ein- und Ausschalten"_s, this);
    controls.FollowVisible(frame, state.txtHotremote);
    auto* grid = new QGridLayout(frame);
    const auto addLine = [&](const QString& suffix, TextState& remote, TextState& command) {
        auto* txtRemote = MakeTextBox(u"txtHotremote"_s + suffix, Wire::RemoteWidth, frame);
        auto* txtCommand = MakeTextBox(u"txtHotcommand"_s + suffix, Wire::CommandWidth, frame);
        controls.Bind(txtRemote, remote);
        controls.Bind(txtCommand, command);
        const int row = grid->rowCount();
        grid->addWidget(txtRemote, row, 1);
        grid->addWidget(txtCommand, row, 2);
        return txtRemote;
    };
    const auto addTitle = [&](const QString& name, const QString& caption, QWidget* box,
                              const ControlState& state) {
        auto* label = MakeLabel(name, caption, frame, box);
        controls.Follow(label, state);
        grid->addWidget(label, grid->rowCount() - 1, 0);
    };
    auto* txtHotremote = addLine({}, state.txtHotremote, state.txtHotcommand);
    addTitle(u"lblHot1"_s, u"PowerON Remote/Command"_s, txtHotremote, state.txtHotcommand);
    auto* txtHotremote2 = addLine(u"2"_s, state.txtHotremote2, state.txtHotcommand2);
    addTitle(u"lblHot2"_s, u"PowerOFF Remote/Command"_s, txtHotremote2, state.txtHotcommand2);
    addTitle(u"lblWakeOnLANMac"_s, u"WakeOnLAN MAC Address"_s, txtHotremote2, state.lblWakeOnLANMac);
    grid->setColumnStretch(1, 3);
    grid->setColumnStretch(2, 2);
    grid->setRowStretch(grid->rowCount(), 1);
    return frame;
}

void frmSetModus::NameSecondControls() {
    // Behind one title stand two controls. It is the buddy of the first; a screen reader says it at the
    // second too.
    const std::pair<QString, QString> seconds[] = {{u"cmbTime"_s, u"LblDisplay(0)"_s},
                                                   {u"txtHotcommand"_s, u"lblHot1"_s},
                                                   {u"txtHotcommand2"_s, u"lblHot2"_s}};
    for (const auto& [control, title] : seconds)
        findChild<QWidget*>(control)->setAccessibleName(CaptionOf(*findChild<QLabel*>(title)));
}

void frmSetModus::SetRemoteByIrCaption() {
    if (!state.isRemoteByIr)
        return;
    auto* store = findChild<QLabel*>(QLatin1StringView(RemoteByIrStore));
    findChild<QCheckBox*>(ElementName(u"chkMode"_s, ModeBits::RemoteByIr))
        ->setText(ToMnemonicText(store->text()));
    store->clear();
}

void frmSetModus::Reset() {
    ResetSetModus(state);
    controls.Show();
}

void frmSetModus::Send(qint32 target) {
    // What couldn't be sent stays, so that nobody has to choose it again.
    if (!services.session.SendModeCommand(PackSetModus(state, target)))
        return;
    emit SettingsSent();
    Unload();
}

#include "learn/learn_form_view.h"

#include "forms/controls.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

QStringList Microseconds() {
    return {u"  64µs"_s, u"  96µs"_s, u"120µs"_s, u"160µs"_s, u"320µs"_s, u"480µs"_s, u"680µs"_s, u"960µs"_s};
}

/// The modes at first, in the order of the list.
constexpr std::array FirstModes = {
    Netcommand::LearnNormal, Netcommand::LearnWithTiming, Netcommand::LearnRaw,
    Netcommand::LearnRepeat, Netcommand::LearnToggle,     Netcommand::LearnRawRepeat,
};

TextBox* MakeFigure(const QString& name, QWidget* parent) {
    auto* box = MakeTextBox(name, 0, parent);
    box->setReadOnly(true);
    return box;
}

} // namespace

LearnFormView::LearnFormView(const FormServices& services, QWidget* parent)
    : Form(services, u"frmProgramm"_s, u"Befehle lernen"_s, parent) {
    auto* grid = new QGridLayout(this);
    grid->addWidget(MakeDeviceFrame(), 0, 0);
    grid->addWidget(MakeStepsFrame(), 1, 0);
    grid->addWidget(MakeRemoteFrame(), 2, 0);
    grid->addWidget(MakeParameterFrame(), 0, 1, 3, 1);
    cmdClose = MakeButton(u"cmdClose"_s, u"Lernen Beenden"_s, this);
    grid->addWidget(cmdClose, 3, 1, Qt::AlignRight);
    grid->addWidget(MakeStatusBar(), 4, 0, 1, 2);
    grid->setColumnStretch(0, 3);
    grid->setColumnStretch(1, 2);
    grid->setRowStretch(1, 1);

    Localize();
    for (int i = 0; i < cmbMode->count(); ++i)
        state.modes.push_back({cmbMode->itemText(i), FirstModes[size_t(i)]});
    state.deviceTimeout = cmbTimeout->itemText(0);
}

QWidget* LearnFormView::MakeDeviceFrame() {
    auto* frame = MakeFrame(u"fraDevice"_s, u"Gerät"_s, this);
    cmbBus = MakeComboBox(u"cmbBus"_s, {}, frame);
    cmbAdrMode = MakeComboBox(u"cmbAdrMode"_s, {u"Alle"_s, u"Host"_s, u"Lokal"_s}, frame);
    txtAdresse = MakeTextBox(u"txtAdresse"_s, 0, frame);

    auto* grid = new QGridLayout(frame);
    grid->addWidget(MakeLabel(u"lblBus"_s, u"Bus"_s, frame, cmbBus), 0, 0);
    grid->addWidget(cmbBus, 0, 1, 1, 3);
    grid->addWidget(MakeLabel(u"lblAdrMode"_s, u"Adressmodus"_s, frame, cmbAdrMode), 1, 0);
    grid->addWidget(cmbAdrMode, 1, 1);
    grid->addWidget(MakeLabel(u"lblAdresse"_s, u"Adresse"_s, frame, txtAdresse), 1, 2);
    grid->addWidget(txtAdresse, 1, 3);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    return frame;
}

QWidget* LearnFormView::MakeStepsFrame() {
    auto* frame = MakeFrame(u"fraLearn"_s, u"Lernen"_s, this);
    txtRemote = MakeEditableComboBox(u"txtRemote"_s, frame);
    txtRemote->lineEdit()->setMaxLength(Wire::RemoteWidth);
    cmdRemote = MakeButton(u"cmdRemote"_s, u"Fernbedienung öffnen / anlegen"_s, frame);
    cmbMode = MakeComboBox(u"cmbMode"_s,
                           {u"Normal lernen"_s, u"Befehl mit Timing lernen"_s, u"RAW Mode"_s,
                            u"Repeat Code"_s, u"Toggle Command"_s, u"RAW Repeat"_s},
                           frame);
    cmdTiming = MakeButton(u"cmdTiming"_s, u"Timing lernen"_s, frame);
    txtCommand = MakeTextBox(u"txtCommand"_s, Wire::CommandWidth, frame);
    cmdLearn = MakeButton(u"cmdLearn"_s, u"Befehl lernen"_s, frame);
    cmdCCF = MakeButton(u"cmdCCF"_s, u"CCF Befehl hinzufügen"_s, frame);
    cmdRS232 = MakeButton(u"cmdRS232"_s, u"RS232 Befehl hinzufügen"_s, frame);
    for (size_t i = 0; i < picArrow.size(); ++i)
        picArrow[i] = new ArrowMark(ElementName(u"picArrow"_s, int(i)), frame);

    auto* grid = new QGridLayout(frame);
    grid->addWidget(picArrow[0], 0, 0);
    grid->addWidget(MakeLabel(u"lblRemote"_s, u"Fernbedienung"_s, frame, txtRemote), 0, 1);
    grid->addWidget(txtRemote, 0, 2, 1, 2);
    grid->addWidget(cmdRemote, 1, 2, 1, 2);
    grid->addWidget(MakeLabel(u"lblMode"_s, u"Lernmodus"_s, frame, cmbMode), 2, 1);
    grid->addWidget(cmbMode, 2, 2, 1, 2);
    grid->addWidget(picArrow[1], 3, 0);
    grid->addWidget(cmdTiming, 3, 2, 1, 2);
    grid->addWidget(picArrow[2], 4, 0);
    grid->addWidget(MakeLabel(u"lblCommand"_s, u"Befehl"_s, frame, txtCommand), 4, 1);
    grid->addWidget(txtCommand, 4, 2, 1, 2);
    grid->addWidget(cmdLearn, 5, 2, 1, 2);
    grid->addWidget(cmdCCF, 6, 2);
    grid->addWidget(cmdRS232, 6, 3);
    grid->setColumnStretch(2, 1);
    grid->setColumnStretch(3, 1);
    grid->setRowStretch(7, 1);
    txtRemote->setMinimumWidth(fontMetrics().averageCharWidth() * 40);
    return frame;
}

QWidget* LearnFormView::MakeRemoteFrame() {
    auto* frame = MakeFrame(u"fraRemote"_s, u"Geöffnete Fernbedienung"_s, this);
    txtCommands = MakeFigure(u"txtCommands"_s, frame);
    txtTimings = MakeFigure(u"txtTimings"_s, frame);
    txtCode = MakeFigure(u"txtCode"_s, frame);
    learnok = MakeLabel(u"learnok"_s, {}, frame);
    learnok->hide();

    auto* grid = new QGridLayout(frame);
    grid->addWidget(MakeLabel(u"lblCommands"_s, u"Befehle"_s, frame, txtCommands), 0, 0);
    grid->addWidget(txtCommands, 0, 1);
    grid->addWidget(MakeLabel(u"lblTimings"_s, u"Timings"_s, frame, txtTimings), 0, 2);
    grid->addWidget(txtTimings, 0, 3);
    grid->addWidget(MakeLabel(u"lblCode"_s, u"Code"_s, frame, txtCode), 1, 0);
    grid->addWidget(txtCode, 1, 1, 1, 3);
    return frame;
}

QWidget* LearnFormView::MakeParameterFrame() {
    auto* frame = MakeFrame(u"fraParameter"_s, u"Parameter"_s, this);
    auto* rows = new QFormLayout(frame);
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    const auto add = [&](const QString& labelName, const QString& caption, auto* control) {
        rows->addRow(MakeLabel(labelName, caption, frame, control), control);
        return control;
    };
    cmbRcv = add(u"lblRcv"_s, u"Empfänger"_s, MakeComboBox(u"cmbRcv"_s, {}, frame));
    cmbTimeout = add(u"lblTimeout"_s, u"IR Timeout"_s,
                     MakeComboBox(u"cmbTimeout"_s,
                                  {u"Default"_s, u"5 ms"_s, u"15 ms"_s, u"30 ms"_s, u"60 ms"_s, u"90 ms"_s,
                                   u"120 ms"_s, u"150 ms"_s, u"250 ms"_s},
                                  frame));
    cmbToleranz = add(u"lblToleranz"_s, u"Toleranz"_s, MakeComboBox(u"cmbToleranz"_s, Microseconds(), frame));
    cmbCalibrate =
        add(u"lblCalibrate"_s, u"Kalibrieren"_s,
            MakeComboBox(u"cmbCalibrate"_s, {u"Keine"_s, u"alle 10"_s, u"alle 30"_s, u"alle 75"_s}, frame));
    txtTimeout = add(u"lblWait"_s, u"Wartezeit (1-30 s)"_s, MakeTextBox(u"txtTimeout"_s, 0, frame));
    txtTimeout->SetFilter(DigitsOnly);
    txtFrequenz = add(u"lblFrequenz"_s, u"Trägerfrequenz (kHz)"_s, new CarrierBox(u"txtFrequenz"_s, frame));
    chkXL = MakeCheckBox(u"chkXL"_s, u"Lange FB Tastendrücke lernen"_s, frame);
    chkToggle = MakeCheckBox(u"chkToggle"_s, u"Togglebit ausmappen"_s, frame);
    chkSort = MakeCheckBox(u"chkSort"_s, u"Kein Sort"_s, frame);
    chkBO = MakeCheckBox(u"chkBO"_s, u"B&O Code Lernen"_s, frame);
    cmbRcv->setMinimumContentsLength(26);
    for (QCheckBox* box : {chkXL, chkToggle, chkSort, chkBO})
        rows->addRow(box);
    return frame;
}

QWidget* LearnFormView::MakeStatusBar() {
    auto* bar = new QStatusBar(this);
    bar->setObjectName(u"StatusBar"_s);
    bar->setSizeGripEnabled(false);
    prompt = MakeLabel(u"StatusBar(1)"_s, {}, bar);
    QFont large = prompt->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.25);
    prompt->setFont(large);
    prompt->setMinimumHeight(QFontMetrics(large).height() * 3 / 2);
    pgbStat = new QProgressBar(bar);
    pgbStat->setObjectName(u"pgbStat"_s);
    pgbStat->setAccessibleName(u"IR Timeout"_s);
    pgbStat->setRange(0, 1);
    pgbStat->setValue(0);
    pgbStat->setFormat({});
    bar->addWidget(prompt, 3);
    bar->addWidget(pgbStat, 2);
    return bar;
}

void LearnFormView::Collect() {
    state.mode = cmbMode->currentIndex();
    state.receiver = cmbRcv->currentIndex();
    state.calibration = cmbCalibrate->currentIndex();
    state.tolerance = cmbToleranz->currentIndex();
    state.timeoutCode = cmbTimeout->currentIndex();
    state.addressMode = cmbAdrMode->currentIndex();
    state.longPresses = chkXL->isChecked();
    state.toggle = chkToggle->isChecked();
    state.noSort = chkSort->isChecked();
    state.bo = chkBO->isChecked();
}

void LearnFormView::RefreshLists() {
    std::vector<LearnMode> shownModes;
    shownModes.reserve(size_t(cmbMode->count()));
    for (int i = 0; i < cmbMode->count(); ++i)
        shownModes.push_back({cmbMode->itemText(i), Netcommand(cmbMode->itemData(i).toInt())});
    if (shownModes != state.modes) {
        cmbMode->clear();
        for (const LearnMode& mode : state.modes)
            cmbMode->addItem(mode.text, int(mode.netcommand));
    }

    std::vector<Receiver> shownReceivers;
    shownReceivers.reserve(size_t(cmbRcv->count()));
    for (int i = 0; i < cmbRcv->count(); ++i)
        shownReceivers.push_back({cmbRcv->itemText(i), quint8(cmbRcv->itemData(i).toInt())});
    if (shownReceivers != state.receivers) {
        cmbRcv->clear();
        for (const Receiver& receiver : state.receivers)
            cmbRcv->addItem(receiver.label, receiver.map);
    }

    while (cmbCalibrate->count() > state.calibrations)
        cmbCalibrate->RemoveEntry(cmbCalibrate->count() - 1);
    if (cmbCalibrate->count() < state.calibrations) {
        const QString every = services.language.IsEnglish() ? u"every "_s : u"alle "_s;
        cmbCalibrate->addItems({every + u"30"_s, every + u"75"_s});
    }
    cmbTimeout->setItemText(0, state.deviceTimeout);
}

void LearnFormView::Refresh() {
    isRefreshing = true;
    RefreshLists();
    cmbMode->setCurrentIndex(state.mode);
    cmbRcv->setCurrentIndex(state.receiver);
    cmbCalibrate->setCurrentIndex(state.calibration);
    cmbToleranz->setCurrentIndex(state.tolerance);
    cmbTimeout->setCurrentIndex(state.timeoutCode);
    cmbAdrMode->setCurrentIndex(state.addressMode);
    chkXL->setChecked(state.longPresses);
    chkToggle->setChecked(state.toggle);
    chkSort->setChecked(state.noSort);
    chkBO->setChecked(state.bo);

    const LearnControls::Enabled& enabled = state.enabled;
    const std::pair<QWidget*, bool> all[] = {
        {txtRemote, enabled.remote},      {cmbAdrMode, enabled.addressMode},
        {txtAdresse, enabled.address},    {cmbMode, enabled.mode},
        {cmdTiming, enabled.timing},      {txtCommand, enabled.command},
        {cmbRcv, enabled.receiver},       {cmbTimeout, enabled.timeoutCode},
        {cmbToleranz, enabled.tolerance}, {cmbCalibrate, enabled.calibration},
        {txtTimeout, enabled.waitTime},   {txtFrequenz, enabled.frequency},
        {chkXL, enabled.longPresses},     {chkToggle, enabled.toggle},
        {chkSort, enabled.noSort},        {chkBO, enabled.bo},
    };
    for (const auto& [control, isEnabled] : all)
        control->setEnabled(isEnabled);
    for (QLabel* label : findChildren<QLabel*>())
        if (label->buddy() != nullptr)
            label->setEnabled(label->buddy()->isEnabled());
    if (!enabled.address)
        txtAdresse->clear();
    cmdTiming->setVisible(state.timingVisible);
    learnok->setText(state.learned ? u"1"_s : u"0"_s);
    for (size_t i = 0; i < picArrow.size(); ++i)
        picArrow[i]->setVisible(state.arrows[i]);
    cmdRemote->setDefault(state.defaultButton == LearnDefault::OpenRemote);
    cmdTiming->setDefault(state.defaultButton == LearnDefault::Timing);
    cmdLearn->setDefault(state.defaultButton == LearnDefault::Learn);
    isRefreshing = false;
}

#include "learn/frmProgramm.h"

#include "base/blanks.h"
#include "forms/controls.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QStatusBar>

using namespace Qt::StringLiterals;

namespace {

constexpr int TickLength = 250; ///< milliseconds
constexpr int ToggleModeIndex = 4;
constexpr int MostBuses = 256; ///< what the learn parameters have room for

QStringList Microseconds() {
    return {u"  64µs"_s, u"  96µs"_s, u"120µs"_s, u"160µs"_s, u"320µs"_s, u"480µs"_s, u"680µs"_s, u"960µs"_s};
}

/// The modes at first, in the order of the list.
constexpr std::array FirstModes = {
    Netcommand::LearnNormal, Netcommand::LearnWithTiming, Netcommand::LearnRaw,
    Netcommand::LearnRepeat, Netcommand::LearnToggle,     Netcommand::LearnRawRepeat,
};

QTimer* MakeTimer(const QString& name, QObject* parent) {
    auto* timer = new QTimer(parent);
    timer->setObjectName(name);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(TickLength);
    return timer;
}

TextBox* MakeFigure(const QString& name, QWidget* parent) {
    auto* box = MakeTextBox(name, 0, parent);
    box->setReadOnly(true);
    return box;
}

} // namespace

frmProgramm::frmProgramm(const FormServices& services, QWidget* parent)
    : Form(services, u"frmProgramm"_s, u"Befehle lernen"_s, parent)
    , Timer(MakeTimer(u"Timer"_s, this))
    , Timer1(MakeTimer(u"Timer1"_s, this)) {
    Timer1->setSingleShot(true);
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

    Connect();
    Localize();
    for (int i = 0; i < cmbMode->count(); ++i)
        state.modes.push_back({cmbMode->itemText(i), FirstModes[size_t(i)]});
    state.deviceTimeout = cmbTimeout->itemText(0);
    txtTimeout->setText(u"30"_s);
    Refresh();
    AskServer();
}

QWidget* frmProgramm::MakeDeviceFrame() {
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

QWidget* frmProgramm::MakeStepsFrame() {
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

QWidget* frmProgramm::MakeRemoteFrame() {
    auto* frame = MakeFrame(u"fraRemote"_s, u"Geöffnete Fernbedienung"_s, this);
    txtCode = MakeFigure(u"txtCode"_s, frame);
    txtCommands = MakeFigure(u"txtCommands"_s, frame);
    txtTimings = MakeFigure(u"txtTimings"_s, frame);
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

QWidget* frmProgramm::MakeParameterFrame() {
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

QWidget* frmProgramm::MakeStatusBar() {
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

void frmProgramm::Connect() {
    const Session* session = &services.session;
    connect(session, &Session::BusesReady, this, &frmProgramm::FillBusCombo);
    connect(session, &Session::NamesReady, this, [this](ReplyType type) {
        if (type == ReplyType::Remotes && (services.session.ListOwner & ListTarget::Learn) != 0)
            FillRemoteCombo();
    });
    connect(session, &Session::LearnStateReceived, this, &frmProgramm::TakeLearnState);
    connect(session, &Session::LearnWaitEnded, this, &frmProgramm::EndWait);
    connect(session, &Session::LinkFailed, this, &frmProgramm::EndWait);
    connect(session, &Session::LinkUp, this, &frmProgramm::AskServer);

    connect(cmbBus, &QComboBox::currentIndexChanged, this, &frmProgramm::ChooseBusEntry);
    connect(cmbAdrMode, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (isRefreshing)
            return;
        Collect();
        ChooseAddressMode(state, index);
        Refresh();
    });
    connect(cmbMode, &QComboBox::currentIndexChanged, this, [this] {
        if (isRefreshing)
            return;
        Collect();
        RunEnableLearn();
    });
    connect(cmbRcv, &QComboBox::currentIndexChanged, this, [this](int index) {
        if (isRefreshing)
            return;
        Collect();
        ChooseReceiver(state, SelectedBus, index);
        Refresh();
    });
    connect(txtRemote, &EditableComboBox::TextChanged, this, &frmProgramm::EnableOpening);
    connect(txtRemote, &EditableComboBox::Picked, this, &frmProgramm::EnableOpening);
    connect(txtCommand, &QLineEdit::textChanged, this, &frmProgramm::UpdateCommandButtons);
    connect(txtTimeout, &QLineEdit::textChanged, this,
            [this](const QString& text) { services.session.timeout = WaitTime(text); });
    connect(cmdRemote, &QPushButton::clicked, this, &frmProgramm::OpenRemote);
    connect(cmdTiming, &QPushButton::clicked, this, &frmProgramm::LearnTiming);
    connect(cmdLearn, &QPushButton::clicked, this, &frmProgramm::LearnCommand);
    connect(cmdCCF, &QPushButton::clicked, this, [this] { EnterCode(frmCCF::Face::Ccf); });
    connect(cmdRS232, &QPushButton::clicked, this, [this] { EnterCode(frmCCF::Face::Rs232); });
    connect(cmdClose, &QPushButton::clicked, this, &Form::Unload);
    connect(Timer, &QTimer::timeout, this, &frmProgramm::TickProgress);
    connect(Timer1, &QTimer::timeout, this, [this] {
        services.session.ListOwner = ListTarget::Learn;
        services.session.SendRemoteCommand(Netcommand::ListRemotes, {}, {}, 0);
    });
    connect(this, &QDialog::finished, this, &frmProgramm::CloseRemote);
    EnableOpening();
    UpdateCommandButtons();
}

void frmProgramm::AskServer() {
    AskState();
    services.session.SendRemoteCommand(Netcommand::ListBuses, {}, {}, 0);
    Timer1->start();
}

void frmProgramm::AskState() {
    services.session.SendRemoteCommand(Netcommand::LearnState, {}, {}, 0);
}

void frmProgramm::changeEvent(QEvent* event) {
    Form::changeEvent(event);
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && txtRemote->isEnabled())
        txtRemote->setFocus();
}

void frmProgramm::Collect() {
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

void frmProgramm::RefreshLists() {
    std::vector<LearnMode> shownModes;
    for (int i = 0; i < cmbMode->count(); ++i)
        shownModes.push_back({cmbMode->itemText(i), Netcommand(cmbMode->itemData(i).toInt())});
    if (shownModes != state.modes) {
        cmbMode->clear();
        for (const LearnMode& mode : state.modes)
            cmbMode->addItem(mode.text, int(mode.netcommand));
    }

    std::vector<Receiver> shownReceivers;
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

void frmProgramm::Refresh() {
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

void frmProgramm::RunEnableLearn() {
    const bool commandIsNext = EnableLearn(state, SelectedBus);
    Refresh();
    if (commandIsNext && !services.session.ErrorBoxOpen)
        txtCommand->setFocus();
}

void frmProgramm::UpdateCommandButtons() {
    const bool isNamed = !txtCommand->text().isEmpty();
    for (QPushButton* button : {cmdLearn, cmdCCF, cmdRS232})
        button->setEnabled(isNamed);
    if (!isNamed)
        return;
    state.defaultButton = LearnDefault::Learn;
    cmdLearn->setDefault(true);
}

void frmProgramm::FillBusCombo() {
    const std::vector<BusElement>& buses = services.session.BusList;
    cmbBus->clear();
    for (size_t i = 0; i < buses.size() && i < MostBuses; ++i)
        cmbBus->addItem(buses[i].name + u' ' + buses[i].version.trimmed());
    if (cmbBus->count() > 0)
        cmbBus->setCurrentIndex(0);
    KnowBuses(state);
    Refresh();
    if (isActiveWindow())
        txtRemote->setFocus();
    if (buses.size() > MostBuses)
        services.boxes.Show(
            {QMessageBox::Warning,
             services.language.GetLanguageText(u"frmProgramm.BusesLeftOut"_s,
                                               u"Es werden nur die ersten 256 Busse angezeigt."_s),
             {}});
}

void frmProgramm::ChooseBusEntry(int index) {
    if (index < 0)
        return;
    Collect();
    SelectedBus = services.session.BusList[size_t(index)];
    SelectedBus.version = SelectedBus.version.trimmed();
    ChooseBus(state, SelectedBus);
    RunEnableLearn();
}

void frmProgramm::FillRemoteCombo() {
    QStringList names = services.session.NameList;
    for (QString& name : names)
        name = WithoutBlanks(name).toString();
    txtRemote->SetEntries(names);
    EnableOpening();
}

void frmProgramm::EnableOpening() {
    cmdRemote->setEnabled(state.enabled.remote && !txtRemote->currentText().isEmpty());
}

void frmProgramm::TakeLearnState(const LearnStateReply& learnState) {
    const QString remote = WithoutBlanks(learnState.Remote).toString();
    Collect();
    if (remote.isEmpty()) {
        ClosedRemote(state);
        Refresh();
        if (isVisible())
            txtRemote->setFocus();
        for (TextBox* box : {txtCommands, txtTimings})
            box->clear();
        txtRemote->setEditText({});
        return;
    }
    txtCode->setText(WithoutBlanks(learnState.Code).toString());
    txtCode->setCursorPosition(0);
    txtCommands->setText(QString::number(learnState.CommandCount));
    txtTimings->setText(QString::number(learnState.TimingCount));
    txtRemote->setEditText(remote);
    cmdRemote->setEnabled(false);
    if ((learnState.Flags & LearnStateReply::Measured) != 0)
        txtFrequenz->ShowMeasured(learnState.Carrier);
    if ((learnState.Flags & LearnStateReply::MeasuringFailed) != 0)
        services.boxes.Show(
            {QMessageBox::Warning, u"Carrier Measurement failed (Timeout ?)"_s, u"IR Learn"_s});
    OpenedRemote(state, (learnState.Flags & LearnStateReply::Learned) != 0);
    Refresh();
    if (!isVisible())
        return;
    if (state.mode != ToggleModeIndex)
        txtCommand->clear();
    RunEnableLearn();
}

void frmProgramm::OpenRemote() {
    Session& session = services.session;
    state.defaultButton = LearnDefault::None;
    cmdRemote->setDefault(false);
    if (!session.SendRemoteCommand(Netcommand::OpenRemote, txtRemote->currentText(), {}, 0))
        return;
    session.PendingOp = Pending::OpenRemote;
    AskState();
}

bool frmProgramm::TakeCarrier() {
    const std::optional<quint8> carrier = CarrierOf(txtFrequenz->text());
    if (carrier) {
        services.session.carrier = *carrier;
        return true;
    }
    services.boxes.Show(
        {QMessageBox::Warning,
         services.language.GetLanguageText(u"frmProgramm.CarrierRange"_s,
                                           u"Die Trägerfrequenz muss zwischen 0 und 255 kHz liegen."_s),
         {}},
        [this](bool) { txtFrequenz->setFocus(); });
    return false;
}

quint8 frmProgramm::ChosenAddress() const {
    return LearnAddress(cmbAdrMode->currentIndex(), txtAdresse->text());
}

void frmProgramm::LearnTiming() {
    if (!TakeCarrier())
        return;
    Collect();
    const QString text = services.language.GetLanguageText(
        u"frmMessage.lblLernen2"_s, u"Bitte eine Taste als Timing Muster drücken ..."_s);
    const qint32 param = TimingParam(state, qMax(0, cmbBus->currentIndex()), ChosenAddress());
    if (!SendLearn(Pending::LearnTiming, Netcommand::LearnTiming, state.toggle ? 1 : 0, {}, param, text))
        return;
    state.enabled.frequency = false;
    Refresh();
}

void frmProgramm::LearnCommand() {
    if (!TakeCarrier())
        return;
    Collect();
    const QString text =
        services.language.GetLanguageText(u"frmMessage.lblLernen1"_s, u"Zu lernenden Befehl senden ..."_s);
    const auto netcommand = state.mode >= 0 ? state.modes[size_t(state.mode)].netcommand : Netcommand();
    const qint32 param = LearnParam(state, qMax(0, cmbBus->currentIndex()), ChosenAddress());
    if (SendLearn(Pending::Learn, netcommand, LearnFlags(state), txtCommand->text(), param, text))
        txtCommand->setFocus();
}

bool frmProgramm::SendLearn(Pending pending, Netcommand netcommand, quint8 flags, const QString& command,
                            qint32 param, const QString& promptText) {
    Session& session = services.session;
    if (!session.SendRemoteCommand(netcommand, QString(QChar(ushort(flags))), command, param))
        return false;
    session.PendingOp = pending;
    AskState();
    prompt->setText(promptText);
    pgbStat->setRange(0, qMax(1, session.timeout / TickLength));
    pgbStat->setValue(pgbStat->maximum());
    session.LateLearnError = false;
    Timer->start();
    return true;
}

void frmProgramm::TickProgress() {
    if (pgbStat->value() > 0) {
        pgbStat->setValue(pgbStat->value() - 1);
        pgbStat->setFormat(u"%1 s"_s.arg((pgbStat->value() * TickLength + 999) / 1000));
    }
    Session& session = services.session;
    if (!std::exchange(session.LateLearnError, false))
        return;
    const ResultReply& result = session.LateLearnResult;
    services.boxes.Show({QMessageBox::Warning,
                         u"Result: [%1 - %2] "_s.arg(int(result.Code)).arg(result.Detail) + result.Text,
                         u"IR Error"_s});
}

void frmProgramm::EndWait() {
    pgbStat->setValue(0);
    pgbStat->setFormat({});
    prompt->clear();
}

void frmProgramm::EnterCode(frmCCF::Face face) {
    auto* entry = new frmCCF(services, face, txtRemote->currentText(), txtCommand->text(), this);
    connect(entry, &QDialog::finished, this, &frmProgramm::AskState);
    entry->ShowModal();
}

void frmProgramm::CloseRemote() {
    Timer->stop();
    if (!txtTimings->text().isEmpty() && services.session.IsUp())
        services.session.SendRemoteCommand(Netcommand::CloseRemote, {}, {}, 0);
    txtTimings->clear();
}

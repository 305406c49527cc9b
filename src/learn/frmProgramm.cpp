#include "learn/frmProgramm.h"

#include "base/blanks.h"

using namespace Qt::StringLiterals;

namespace {

constexpr int TickLength = 250; ///< milliseconds
constexpr int ToggleModeIndex = 4;
constexpr int MostBuses = 256; ///< what the learn parameters have room for

QTimer* MakeTimer(const QString& name, QObject* parent) {
    auto* timer = new QTimer(parent);
    timer->setObjectName(name);
    timer->setTimerType(Qt::PreciseTimer);
    timer->setInterval(TickLength);
    return timer;
}

} // namespace

frmProgramm::frmProgramm(const FormServices& services, QWidget* parent)
    : LearnFormView(services, parent)
    , Timer(MakeTimer(u"Timer"_s, this))
    , Timer1(MakeTimer(u"Timer1"_s, this)) {
    Timer1->setSingleShot(true);
    Connect();
    txtTimeout->setText(u"30"_s);
    Refresh();
    AskServer();
}

void frmProgramm::Connect() {
    const Session* session = &services.session;
    connect(session, &Session::BusesReady, this, &frmProgramm::FillBusCombo);
    connect(session, &Session::NamesReady, this, [this](ReplyType type) {
        if (type == ReplyType::Remotes && (services.session.ListOwner & ListTarget::Learn) != 0)
            FillRemoteCombo();
    });
    connect(session, &Session::ServerVersionReceived, this,
            [this](const QString& version) { SelectedBus.version = version.trimmed(); });
    connect(session, &Session::LearnStateReceived, this, &frmProgramm::TakeLearnState);
    connect(session, &Session::LearnWaitEnded, this, &frmProgramm::EndWait);
    connect(session, &Session::LinkFailed, this, [this] {
        Timer1->stop();
        EndWait();
    });
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

void frmProgramm::RunEnableLearn() {
    const bool commandIsNext = EnableLearn(state, SelectedBus);
    if (commandIsNext && !txtCommand->text().isEmpty())
        state.defaultButton = LearnDefault::Learn;
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
    buses = services.session.BusList;
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
    SelectedBus = buses[size_t(index)];
    SelectedBus.version = SelectedBus.version.trimmed();
    ChooseBus(state, SelectedBus);
    RunEnableLearn();
}

void frmProgramm::FillRemoteCombo() {
    txtRemote->SetEntries(WithoutBlanks(services.session.NameList));
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
    if (!session.SendRemoteCommand(Netcommand::OpenRemote, txtRemote->currentText(), {}, 0))
        return;
    state.defaultButton = LearnDefault::None;
    cmdRemote->setDefault(false);
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
        [box = QPointer(txtFrequenz)](bool) {
            if (!box.isNull())
                box->setFocus();
        });
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
    services.boxes.Show({QMessageBox::Warning, ErrorText(session.LateLearnResult), u"IR Error"_s});
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

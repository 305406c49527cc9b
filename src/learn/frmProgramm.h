#pragma once

#include "forms/combo_boxes.h"
#include "forms/form.h"
#include "learn/frmCCF.h"
#include "learn/learn_controls.h"
#include "learn/learn_rules.h"

#include <QCheckBox>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>

/// Teaches commands: the user picks the device that listens, opens a remote at the server, and has one
/// command after the other learned into it. The server keeps what was learned.
class frmProgramm : public Form {
    Q_OBJECT

public:
    frmProgramm(const FormServices& services, QWidget* parent);

protected:
    void changeEvent(QEvent* event) override;

private:
    // The constructor's parts.
    QWidget* MakeDeviceFrame();
    QWidget* MakeStepsFrame();
    QWidget* MakeParameterFrame();
    QWidget* MakeRemoteFrame();
    QWidget* MakeStatusBar();
    void Connect();

    /// Puts what the rules say into the controls.
    void Refresh();
    void RefreshLists();
    /// Reads what the user has chosen, before a rule looks at it.
    void Collect();
    /// Runs EnableLearn over the state and shows it.
    void RunEnableLearn();

    // What the server says.
    void AskServer();
    void FillBusCombo();
    void FillRemoteCombo();
    void TakeLearnState(const LearnStateReply& state);
    void EndWait();

    // What the user does.
    void ChooseBusEntry(int index);
    void OpenRemote();
    void LearnTiming();
    void LearnCommand();
    void EnterCode(frmCCF::Face face);
    void CloseRemote();

    /// Takes the carrier from its box. False, after a message, if it isn't one.
    bool TakeCarrier();
    bool SendLearn(Pending pending, Netcommand netcommand, quint8 flags, const QString& command, qint32 param,
                   const QString& promptText);
    quint8 ChosenAddress() const;
    void TickProgress();
    void EnableOpening();
    void UpdateCommandButtons();
    void AskState();

    BusElement SelectedBus;
    LearnControls state;
    bool isRefreshing = false;

    ComboBox* cmbBus = nullptr;
    ComboBox* cmbAdrMode = nullptr;
    TextBox* txtAdresse = nullptr;
    EditableComboBox* txtRemote = nullptr;
    QPushButton* cmdRemote = nullptr;
    ComboBox* cmbMode = nullptr;
    QPushButton* cmdTiming = nullptr;
    TextBox* txtCommand = nullptr;
    QPushButton* cmdLearn = nullptr;
    QPushButton* cmdCCF = nullptr;
    QPushButton* cmdRS232 = nullptr;
    QPushButton* cmdClose = nullptr;
    ComboBox* cmbRcv = nullptr;
    ComboBox* cmbTimeout = nullptr;
    ComboBox* cmbToleranz = nullptr;
    ComboBox* cmbCalibrate = nullptr;
    TextBox* txtTimeout = nullptr;
    CarrierBox* txtFrequenz = nullptr;
    QCheckBox* chkXL = nullptr;
    QCheckBox* chkToggle = nullptr;
    QCheckBox* chkSort = nullptr;
    QCheckBox* chkBO = nullptr;
    TextBox* txtCode = nullptr;
    TextBox* txtCommands = nullptr;
    TextBox* txtTimings = nullptr;
    QLabel* learnok = nullptr;
    std::array<ArrowMark*, 3> picArrow{};
    QProgressBar* pgbStat = nullptr;
    QLabel* prompt = nullptr;
    QTimer* Timer = nullptr;
    QTimer* Timer1 = nullptr;
};
